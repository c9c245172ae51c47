#include "support/samplefixture.h"

#include "common/appcontext.h"
#include "app/mainwindow.h"
#include "support/imagewriter.h"
#include "support/modalanswerer.h"

#include <QAction>
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

std::unique_ptr<CMainWindow> openImageWindow(const QImage &image, const QString &path)
{
    auto window = std::make_unique<CMainWindow>(AppContext::versionTitle());
    if (!ImageWriter::write(image, path) || !showWindow(*window) || !openThroughDialog(*window, path))
        return nullptr;
    return window;
}

void zoomTo(CMainWindow &window, int index)
{
    window.commandAction(CmdZoomActual)->trigger();
    for (int i = 7; i < index; ++i)
        window.commandAction(CmdZoomIn)->trigger();
    for (int i = index; i < 7; ++i)
        window.commandAction(CmdZoomOut)->trigger();
}

bool sameRgb(QRgb a, QRgb b)
{
    return (a & 0xffffff) == (b & 0xffffff);
}

// Events go to the window, as the window system sends them: Qt finds the
// widget under the cursor, sends enter and leave, and a pressed button keeps
// the mouse on the widget it went down on.
QWindow *windowOf(QWidget *widget)
{
    return widget->window()->windowHandle();
}

QPoint inWindow(QWidget *widget, const QPoint &point)
{
    return widget->mapTo(widget->window(), point);
}

// The cursor itself moves: the platform then reports the window entered or
// left as well as the move.
void moveTo(QWidget *widget, const QPoint &point)
{
    QCursor::setPos(widget->mapToGlobal(point));
    QCoreApplication::processEvents();
}

void press(QWidget *widget, const QPoint &point, Qt::MouseButton button)
{
    QTest::mousePress(windowOf(widget), button, Qt::NoModifier, inWindow(widget, point));
}

void release(QWidget *widget, const QPoint &point, Qt::MouseButton button)
{
    QTest::mouseRelease(windowOf(widget), button, Qt::NoModifier, inWindow(widget, point));
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
