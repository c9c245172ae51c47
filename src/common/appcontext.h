#pragma once

#include <QIcon>
#include <QString>

// The program-wide constants and resources every page and dialog reaches.
namespace AppContext {

QString productName();   // "Vellora", the title of every message box
QString organisationName(); // "Tessaline"
QString versionText();   // "1.0.0"
int versionMajor();      // 1
int versionMinor();      // 0
QString versionTitle();  // "Vellora v1.0.0"
// The compiled manual's file name, "Vellora10.0.qhc".
QString helpCollectionName();
// Names the organisation, the application and its version on the
// application object, so that QSettings finds the program's own store.
void setApplicationIdentity();
QString widgetPrefix();  // ":/resources/widgets/"
// Start-up sets the prefix once; it holds ":/resources/widgets/" from the start
// so that windows built without going through main (tests) find their images.
void setWidgetPrefix(const QString &prefix);
// An image named relative to the widget prefix, e.g. "toolbar/btn_toolbar_open_img.png".
QIcon widgetIcon(const QString &name);
// Registers the compiled-in images (needed once per process that shows widgets).
void initResources();

} // namespace AppContext
