#include "config/dlgtabpagegeneral.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "config/updatecheck.h"
#include "help/qgroupboxbold.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {
const int kMaxMatchCount = 8;
} // namespace

CDlgTabPageGeneral::CDlgTabPageGeneral(CAppSettings *settings, const QString &updateAddress,
                                       QWidget *parent)
    : CDlgTabPage(settings, QStringLiteral("config.html#configGeneral"), parent),
      m_updateAddress(updateAddress)
{
    auto *layout = new QVBoxLayout(this);
    addMatchCountGroup(layout);
    addFormatGroup(layout);
    addStartTipGroup(layout);
    addUpdateGroup(layout);
    layout->addStretch();
}

void CDlgTabPageGeneral::addMatchCountGroup(QVBoxLayout *layout)
{
    auto *group = new QGroupBoxBold(tr("Number of Matching Results"), this);
    auto *row = new QHBoxLayout(group);
    row->addWidget(new QLabel(tr("Minimum To Display:"), group));
    m_matchCount = new QComboBox(group);
    for (int count = 1; count <= kMaxMatchCount; ++count) {
        m_matchCount->addItem(QString::number(count), count);
        if (count == settings()->maxRecordsDisplay)
            m_matchCount->setCurrentIndex(count - 1);
    }
    row->addWidget(m_matchCount);
    row->addStretch();
    layout->addWidget(group);
}

void CDlgTabPageGeneral::addFormatGroup(QVBoxLayout *layout)
{
    auto *group = new QGroupBoxBold(tr("RGB Display Format"), this);
    auto *column = new QVBoxLayout(group);
    m_integer = new QRadioButton(tr("Integer (0 - 255)"), group);
    m_decimal = new QRadioButton(tr("Decimal (0.0 - 1.0)"), group);
    m_hex = new QRadioButton(tr("Hex (0x00 - 0xff)"), group);
    m_integer->setChecked(settings()->rgbFormat == 0);
    m_decimal->setChecked(settings()->rgbFormat == 1);
    m_hex->setChecked(settings()->rgbFormat == 2);
    column->addWidget(m_integer);
    column->addWidget(m_decimal);
    column->addWidget(m_hex);
    layout->addWidget(group);
}

void CDlgTabPageGeneral::addStartTipGroup(QVBoxLayout *layout)
{
    auto *group = new QGroupBoxBold(tr("Tip Of The Day"), this);
    auto *column = new QVBoxLayout(group);
    m_startTip = new QCheckBox(tr("Show \"Tip Of The Day\" at startup"), group);
    m_startTip->setChecked(settings()->showStartTip);
    column->addWidget(m_startTip);
    layout->addWidget(group);
}

void CDlgTabPageGeneral::addUpdateGroup(QVBoxLayout *layout)
{
    auto *group = new QGroupBoxBold(tr("Check For New Version"), this);
    auto *row = new QHBoxLayout(group);
    m_check = new QPushButton(tr("&Check"), group);
    connect(m_check, &QPushButton::clicked, this, &CDlgTabPageGeneral::checkForUpdates);
    row->addWidget(m_check);
    row->addStretch();
    layout->addWidget(group);
}

int CDlgTabPageGeneral::chosenFormat() const
{
    if (m_integer->isChecked())
        return 0;
    return m_decimal->isChecked() ? 1 : 2;
}

bool CDlgTabPageGeneral::applyChanges()
{
    CAppSettings *s = settings();
    bool changed = false;
    const int format = chosenFormat();
    if (format != s->rgbFormat) {
        s->rgbFormat = format;
        changed = true;
    }
    const int count = m_matchCount->currentData().toInt();
    if (count != s->maxRecordsDisplay) {
        s->maxRecordsDisplay = count;
        changed = true;
    }
    if (m_startTip->isChecked() != s->showStartTip) {
        s->showStartTip = m_startTip->isChecked();
        changed = true;
    }
    return changed;
}

void CDlgTabPageGeneral::setUpdateSslConfiguration(const QSslConfiguration &configuration)
{
    m_updateSsl = configuration;
    m_customSsl = true;
}

void CDlgTabPageGeneral::checkForUpdates()
{
    const QMessageBox::StandardButton answer = QMessageBox::question(
        this, AppContext::productName(),
        tr("This application needs to connect to the internet to check for any updates.\n"
           "Would you like to proceed?"),
        QMessageBox::Yes | QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    CUpdateCheck check(m_updateAddress);
    if (m_customSsl)
        check.setSslConfiguration(m_updateSsl);
    check.checkForUpdate(this);
}
