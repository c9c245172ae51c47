#include "config/dlgupdateprogress.h"

#include "common/appcontext.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const qint64 kTickMs = 15;
const int kFirstValue = 1;
const int kLastValue = 100;
} // namespace

CDlgUpdateProgress::CDlgUpdateProgress(QWidget *parent, bool *waiting)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_lastTickMs(QDateTime::currentMSecsSinceEpoch()), m_waiting(waiting)
{
    setWindowTitle(AppContext::versionTitle());
    auto *layout = new QVBoxLayout(this);
    m_label = new QLabel(tr("Checking for a newer version"), this);
    layout->addWidget(m_label);

    m_progressBar = new QProgressBar(this);
    m_progressBar->setRange(kFirstValue, kLastValue);
    m_progressBar->setTextVisible(false);
    m_progressBar->setValue(m_value);
    layout->addWidget(m_progressBar);

    auto *row = new QHBoxLayout;
    row->addStretch();
    m_cancelButton = new QPushButton(tr("&Cancel"), this);
    connect(m_cancelButton, &QPushButton::clicked, this, &CDlgUpdateProgress::reject);
    row->addWidget(m_cancelButton);
    layout->addLayout(row);

    setFixedSize(sizeHint());
    setWindowModality(Qt::ApplicationModal);
    setModal(true);
}

bool CDlgUpdateProgress::tick(qint64 nowMs)
{
    if (nowMs - m_lastTickMs <= kTickMs)
        return false;
    m_lastTickMs = nowMs;
    if (++m_value > kLastValue)
        m_value = kFirstValue;
    m_progressBar->setValue(m_value);
    return true;
}

void CDlgUpdateProgress::done()
{
    QDialog::done(QDialog::Accepted);
}

void CDlgUpdateProgress::reject()
{
    if (m_waiting)
        *m_waiting = false;
    QDialog::reject();
}
