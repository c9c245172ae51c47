#pragma once

#include <QObject>
#include <QString>
#include <functional>

class QWidget;

// Answers the next modal dialog or message box from a timer: waits (bounded)
// for QApplication::activeModalWidget(), records its title and text, then
// presses the button whose text (mnemonic '&' ignored) or standard role name
// matches `button` ("Yes", "No", "Cancel", "OK", "&Save"...).
//
//   ModalAnswerer answer("Yes");
//   widget.doSomethingThatAsks();
//   QVERIFY(answer.wasAnswered());
//   QCOMPARE(answer.text(), QString("..."));
//
// An optional action runs on the dialog before the button is pressed (fill
// a line edit, choose a file...). With an empty button name the action is
// responsible for closing the dialog.
class ModalAnswerer : public QObject
{
    Q_OBJECT

public:
    using Action = std::function<void(QWidget *dialog)>;

    explicit ModalAnswerer(const QString &button, Action action = Action(),
                           int timeoutMs = 5000);
    ~ModalAnswerer() override;

    bool wasAnswered() const { return m_answered; }
    QString title() const { return m_title; }
    // QMessageBox::text() for message boxes, otherwise empty.
    QString text() const { return m_text; }
    QString dialogClass() const { return m_className; }
    // Finds a button of `dialog` by text or standard name; nullptr if none.
    static class QAbstractButton *findButton(QWidget *dialog, const QString &name);

private slots:
    void poll();

private:
    QString m_button;
    Action m_action;
    int m_remainingPolls;
    bool m_answered = false;
    QString m_title;
    QString m_text;
    QString m_className;
};
