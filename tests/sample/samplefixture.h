#pragma once

#include <QPoint>
#include <Qt>
#include <QString>

class CMainWindow;
class QWidget;

// What the sampling page tests do as a user would: open images through the
// main window's "Open Image" command and move, click and drag the mouse.
namespace SampleFixture {

// Runs "Open Image", picks `path` in the file dialog and accepts it.
// Returns whether a dialog was answered.
bool openThroughDialog(CMainWindow &window, const QString &path);
// Shows the window and waits until it is on screen.
bool showWindow(CMainWindow &window);

// Mouse as the window system delivers it: the cursor moves over the window
// (enter and leave included), buttons go to the widget under the cursor.
void moveTo(QWidget *widget, const QPoint &point);
void press(QWidget *widget, const QPoint &point, Qt::MouseButton button);
void release(QWidget *widget, const QPoint &point, Qt::MouseButton button);
void leftClick(QWidget *widget, const QPoint &point);
void drag(QWidget *widget, const QPoint &from, const QPoint &to);

} // namespace SampleFixture
