#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

// The outcome of an update check: a message and, for a newer version, a
// button that opens the download page in the desktop's browser.
class CDlgDisplayUpdate : public QDialog
{
    Q_OBJECT

public:
    // `message` is rich text whose line breaks are "\n"; whatever came from
    // the service must already be escaped in it. `address` is opened by
    // "&Visit Now", which is offered only when `offerVisit` is true.
    CDlgDisplayUpdate(QWidget *parent, const QString &message, const QString &address,
                      bool offerVisit);

    QString message() const { return m_message; }
    QLabel *messageLabel() const { return m_messageLabel; }
    QPushButton *visitButton() const { return m_visitButton; }
    QPushButton *closeButton() const { return m_closeButton; }

    // Only web addresses are handed to the desktop: anything else (a local
    // file, a program) is refused.
    static bool isWebAddress(const QUrl &url);

public slots:
    void visitNow();
    bool close();

private:
    QString m_message;
    QLabel *m_messageLabel = nullptr;
    QPushButton *m_visitButton = nullptr;
    QPushButton *m_closeButton = nullptr;
    QString m_address;
};
