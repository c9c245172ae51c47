#include "library/dlglibcolourtableadd.h"

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "colour/colourformat.h"
#include "library/libdialogrows.h"
#include "tables/libcolourtable.h"

#include <QGroupBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const int kDecimals = 2;
const int kTitleSpacing = 25;
const int kGap = 17;
} // namespace

CDlgLibColourTableAdd::CDlgLibColourTableAdd(QWidget *parent, const QString &tablePath,
                                             const CLibColourTable *table,
                                             const RgbColour &colour, CAppSettings *settings)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint), m_tablePath(tablePath), m_table(table),
      m_colour(colour)
{
    setWindowTitle(AppContext::productName() + tr(" - Table Add Colour"));
    setWindowModality(Qt::WindowModal);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Table: %1").arg(QFileInfo(tablePath).completeBaseName()), this),
                      0, Qt::AlignHCenter);
    layout->addSpacing(kTitleSpacing);
    layout->addLayout(buildColourRow(settings));
    layout->addSpacing(kGap);
    layout->addLayout(buildNameRow());
    layout->addSpacing(kGap);
    layout->addWidget(CLibDialogRows::horizontalRule(this));
    layout->addLayout(buildButtonRow());
    m_nameEdit->setFocus();
}

QLayout *CDlgLibColourTableAdd::buildColourRow(CAppSettings *settings)
{
    auto *frame = new QWidget(this);
    frame->setStyleSheet(QStringLiteral("border:1px solid black"));
    m_swatch = new QLabel(frame);
    m_swatch->setFixedSize(34, 51);
    m_swatch->setStyleSheet(QStringLiteral("background-color:%1;")
                                .arg(colourName(m_colour.red, m_colour.green, m_colour.blue)));
    auto *frameLayout = new QVBoxLayout(frame);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    frameLayout->addWidget(m_swatch);

    const int format = settings ? settings->rgbFormat : 0;
    const QStringList rgb =
        formatRgb(m_colour.red, m_colour.green, m_colour.blue, kDecimals, false, format);
    const QStringList lab = formatLab(m_colour.red, m_colour.green, m_colour.blue, kDecimals);
    m_rgbLabel = new QLabel(tr("R:%1, G:%2, B:%3").arg(rgb.at(0), rgb.at(1), rgb.at(2)), this);
    m_labLabel = new QLabel(tr("L:%1, a:%2, b:%3").arg(lab.at(0), lab.at(1), lab.at(2)), this);
    auto *texts = new QVBoxLayout;
    texts->addWidget(m_rgbLabel);
    texts->addWidget(m_labLabel);
    texts->addStretch();

    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(frame);
    row->addSpacing(kGap);
    row->addLayout(texts);
    row->addStretch();
    return row;
}

QLayout *CDlgLibColourTableAdd::buildNameRow()
{
    auto *row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Name:"), this));
    m_nameEdit = new QLineEdit(this);
    row->addWidget(m_nameEdit);
    row->addStretch();
    return row;
}

QLayout *CDlgLibColourTableAdd::buildButtonRow()
{
    m_helpButton = CLibDialogRows::button(tr("&Help"), this);
    m_okButton = CLibDialogRows::button(tr("&OK"), this, true);
    m_cancelButton = CLibDialogRows::button(tr("&Cancel"), this);
    connect(m_helpButton, &QPushButton::clicked, this, &CDlgLibColourTableAdd::displayHelp);
    connect(m_okButton, &QPushButton::clicked, this, &CDlgLibColourTableAdd::accept);
    connect(m_cancelButton, &QPushButton::clicked, this, &CDlgLibColourTableAdd::reject);
    return CLibDialogRows::buttonRow(m_helpButton, {m_okButton, m_cancelButton});
}

void CDlgLibColourTableAdd::displayHelp()
{
    emit displayHelpSignal(QStringLiteral("library.html#libAddColour"));
}

void CDlgLibColourTableAdd::accept()
{
    // Commas would split the name when the table is read back.
    m_name = m_nameEdit->text().trimmed();
    m_name.replace(QLatin1Char(','), QLatin1Char(';'));
    if (m_name.isEmpty()) {
        refuse(tr("Please enter a colour name to use for this library entry."));
        return;
    }
    if (m_table && m_table->containsName(m_name)) {
        refuse(tr("The library already contains a colour called:<br />\"%1\"<br />Please enter a "
                  "unique name for this entry.")
                   .arg(m_name));
        return;
    }
    QDialog::accept();
}

void CDlgLibColourTableAdd::refuse(const QString &text)
{
    QMessageBox::critical(this, AppContext::productName(), text, QMessageBox::Ok);
}
