#pragma once

#include <QImage>
#include <QPoint>
#include <Qt>
#include <QString>

#include <memory>

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
// Writes `image` to `path`, then shows a new main window and opens the file
// through "Open Image"; nullptr when any step fails.
std::unique_ptr<CMainWindow> openImageWindow(const QImage &image, const QString &path);
// From 100 % to a zoom index with the main toolbar's zoom buttons.
void zoomTo(CMainWindow &window, int index);
// Compares red, green and blue only.
bool sameRgb(QRgb a, QRgb b);

// Mouse as the window system delivers it: the cursor moves over the window
// (enter and leave included), buttons go to the widget under the cursor.
void moveTo(QWidget *widget, const QPoint &point);
void press(QWidget *widget, const QPoint &point, Qt::MouseButton button);
void release(QWidget *widget, const QPoint &point, Qt::MouseButton button);
void leftClick(QWidget *widget, const QPoint &point);
void drag(QWidget *widget, const QPoint &from, const QPoint &to);

} // namespace SampleFixture
