#include "help/tipdialog.h"

#include "app/appsettings.h"
#include "colour/qtversioncompat.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTextEdit>
#include <QTextStream>
#include <algorithm>

QPointer<CTipDialog> CTipDialog::s_instance;

CTipDialog::CTipDialog(CAppSettings *settings, QWidget *parent, const QString &tipsPath)
    : QDialog(parent), m_settings(settings)
{
    buildLayout();
    m_showAtStartup->setChecked(m_settings->showStartTip);
    m_tips = readTips(tipsPath.isEmpty() ? defaultTipsPath() : tipsPath);
    connect(m_nextButton, &QPushButton::clicked, this, &CTipDialog::displayNextTip);
    connect(m_closeButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, this, &CTipDialog::finished);
    if (m_tips.isEmpty()) {
        m_tipView->setHtml(tr("<b>No tips available.</b>"));
        m_nextButton->setEnabled(false);
    } else {
        displayNextTip();
    }
}

void CTipDialog::buildLayout()
{
    auto *bulb = new QLabel(this);
    bulb->setPixmap(QPixmap(QStringLiteral(":resources/LightBulb.png")));
    auto *heading = new QLabel(tr("<font color=\"#2874a6\"><h2>Did you know ..</h2></font>"), this);
    m_tipView = new QTextEdit(this);
    m_tipView->setReadOnly(true);
    m_showAtStartup = new QCheckBox(tr("Show \"Tip Of The Day\" at startup"), this);
    m_nextButton = new QPushButton(tr("&Next Tip"), this);
    m_closeButton = new QPushButton(tr("&Close"), this);
    m_closeButton->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_nextButton);
    buttons->addWidget(m_closeButton);

    auto *text = new QVBoxLayout;
    text->addWidget(heading);
    text->addWidget(m_tipView, 1);

    auto *grid = new QGridLayout(this);
    grid->addWidget(bulb, 0, 0, Qt::AlignTop);
    grid->addLayout(text, 0, 1);
    grid->addWidget(m_showAtStartup, 1, 0, 1, 2);
    grid->addLayout(buttons, 2, 0, 1, 2);
}

QString CTipDialog::defaultTipsPath()
{
    return QCoreApplication::applicationDirPath() + QLatin1String("/tips.txt");
}

QStringList CTipDialog::parseTips(const QString &text)
{
    QStringList tips;
    QString tip;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &raw : lines) {
        const QString line = raw.trimmed();
        if (line.isEmpty()) {
            if (!tip.isEmpty())
                tips.append(tip);
            tip.clear();
        } else {
            tip = tip.isEmpty() ? line : tip + QLatin1Char(' ') + line;
        }
    }
    if (!tip.isEmpty())
        tips.append(tip);
    return tips;
}

QStringList CTipDialog::readTips(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QStringList();
    QTextStream stream(&file);
    VersionCompat::setUtf8(stream);
    return parseTips(stream.readAll());
}

void CTipDialog::displayNextTip()
{
    const int count = m_tips.size();
    if (count == 0)
        return;
    const int shown = std::max(std::min(m_settings->startTipIndex, count - 1), 0);
    m_tipView->setHtml(m_tips.at(shown));
    const int next = shown + 1 < count ? shown + 1 : 0;
    if (next != m_settings->startTipIndex)
        m_settings->startTipIndex = next;
}

void CTipDialog::finished()
{
    m_settings->showStartTip = m_showAtStartup->checkState() == Qt::Checked;
}

bool CTipDialog::showAtStartup(QWidget *parent, const QString &applicationName,
                               CAppSettings *settings, const QString &tipsPath)
{
    if (!settings->showStartTip)
        return false;
    if (!s_instance) {
        s_instance = new CTipDialog(settings, parent, tipsPath);
        s_instance->setWindowTitle(tr("%1 - Tip Of The Day").arg(applicationName));
    }
    s_instance->setFixedSize(s_instance->sizeHint());
    s_instance->exec();
    return true;
}

CTipDialog *CTipDialog::instance()
{
    return s_instance;
}
