#include "config/dlgdisplayupdate.h"

#include "common/appcontext.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

CDlgDisplayUpdate::CDlgDisplayUpdate(QWidget *parent, const QString &message,
                                     const QString &address, bool offerVisit)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_message(message), m_address(address)
{
    setWindowTitle(AppContext::productName());
    setWindowModality(Qt::WindowModal);
    auto *layout = new QVBoxLayout(this);

    // Rich text for the bold parts; the label would fold "\n" into a blank.
    QString html = message;
    html.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    m_messageLabel = new QLabel(this);
    m_messageLabel->setTextFormat(Qt::RichText);
    m_messageLabel->setTextInteractionFlags(Qt::NoTextInteraction);
    m_messageLabel->setOpenExternalLinks(false);
    m_messageLabel->setText(html);
    layout->addWidget(m_messageLabel);

    auto *row = new QHBoxLayout;
    row->addStretch();
    m_visitButton = new QPushButton(tr("&Visit Now"), this);
    m_visitButton->setVisible(offerVisit);
    connect(m_visitButton, &QPushButton::clicked, this, &CDlgDisplayUpdate::visitNow);
    row->addWidget(m_visitButton);
    m_closeButton = new QPushButton(tr("&Close"), this);
    connect(m_closeButton, &QPushButton::clicked, this, &CDlgDisplayUpdate::close);
    row->addWidget(m_closeButton);
    layout->addLayout(row);

    setFixedSize(sizeHint());
}

bool CDlgDisplayUpdate::isWebAddress(const QUrl &url)
{
    const QString scheme = url.scheme().toLower();
    return url.isValid() && !url.host().isEmpty()
        && (scheme == QLatin1String("https") || scheme == QLatin1String("http"));
}

void CDlgDisplayUpdate::visitNow()
{
    const QUrl url(m_address, QUrl::StrictMode);
    if (isWebAddress(url))
        QDesktopServices::openUrl(url);
    close();
}

bool CDlgDisplayUpdate::close()
{
    return QDialog::close();
}
