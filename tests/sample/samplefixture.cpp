#include "samplefixture.h"

#include "app/mainwindow.h"
#include "support/modalanswerer.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QtTest>

namespace SampleFixture {

bool openThroughDialog(CMainWindow &window, const QString &path)
{
    ModalAnswerer answer(QString(), [path](QWidget *dialog) {
        auto *fileDialog = qobject_cast<QFileDialog *>(dialog);
        if (!fileDialog) {
            dialog->close();
            return;
        }
        // Typed into the file name field, as a user would.
        auto *nameEdit = fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (nameEdit)
            nameEdit->setText(path);
        static_cast<QDialog *>(fileDialog)->accept();
    });
    window.processCommand(CmdOpenImage);
    return answer.wasAnswered();
}

bool showWindow(CMainWindow &window)
{
    window.resize(1000, 700);
    window.show();
    return QTest::qWaitForWindowExposed(&window);
}

// QTest takes a null point for "the centre"; (0, 0) is sent by hand.
void sendButton(QWidget *widget, QEvent::Type type, const QPoint &point, Qt::MouseButton button)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::MouseButtons(button)
                                                                   : Qt::MouseButtons();
    QMouseEvent event(type, point, widget->mapToGlobal(point), button, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void moveTo(QWidget *widget, const QPoint &point)
{
    QCursor::setPos(widget->mapToGlobal(point));
    QCoreApplication::processEvents();
}

void press(QWidget *widget, const QPoint &point, Qt::MouseButton button)
{
    if (point.isNull())
        sendButton(widget, QEvent::MouseButtonPress, point, button);
    else
        QTest::mousePress(widget, button, Qt::NoModifier, point);
}

void release(QWidget *widget, const QPoint &point, Qt::MouseButton button)
{
    if (point.isNull())
        sendButton(widget, QEvent::MouseButtonRelease, point, button);
    else
        QTest::mouseRelease(widget, button, Qt::NoModifier, point);
}

void leftClick(QWidget *widget, const QPoint &point)
{
    moveTo(widget, point);
    press(widget, point, Qt::LeftButton);
    release(widget, point, Qt::LeftButton);
}

void drag(QWidget *widget, const QPoint &from, const QPoint &to)
{
    moveTo(widget, from);
    press(widget, from, Qt::LeftButton);
    moveTo(widget, to);
    release(widget, to, Qt::LeftButton);
}

} // namespace SampleFixture
