#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

// The small "please wait" dialog shown while the update service answers.
// Its bar creeps forward on every tick the waiting loop gives it; Cancel
// clears the waiting flag it shares with the checker.
class CDlgUpdateProgress : public QDialog
{
    Q_OBJECT

public:
    // `waiting` belongs to the checker and must outlive the dialog.
    CDlgUpdateProgress(QWidget *parent, bool *waiting);

    // Moves the bar on by one step when more than 15 ms have passed since
    // the last step (`nowMs` in milliseconds since the epoch); after 100 it
    // starts again at 1. Returns whether the bar moved.
    bool tick(qint64 nowMs);
    int value() const { return m_value; }
    QProgressBar *progressBar() const { return m_progressBar; }
    QPushButton *cancelButton() const { return m_cancelButton; }

    using QDialog::done;

public slots:
    // The reply is in: close the dialog.
    void done();
    void reject() override;

private:
    QLabel *m_label = nullptr;
    QProgressBar *m_progressBar = nullptr;
    QPushButton *m_cancelButton = nullptr;
    qint64 m_lastTickMs = 0;
    int m_value = 1;
    bool *m_waiting = nullptr;
};
