#pragma once

#include <QStringList>

// Every place in the manual that a "&Help" button, F1 or a toolbar command
// opens. Dialogs take their anchor from here and the manual's tests check
// each one against the compiled collection, so a renamed section cannot go
// unnoticed.
namespace HelpAnchors {

// The page a help request without an anchor opens, and Home.
inline const char kHomePage[] = "about.html";

inline const char kDataAddColour[] = "data.html#dataAddColour";
inline const char kLibraryMaintenance[] = "library.html#libMaintTabA";
inline const char kLibraryImport[] = "library.html#libMaintTabB";
inline const char kLibraryEditTable[] = "library.html#libEditColourTable";
inline const char kLibraryAddColour[] = "library.html#libAddColour";
inline const char kConfiguration[] = "config.html";
inline const char kConfigGeneral[] = "config.html#configGeneral";
inline const char kConfigFolders[] = "config.html#configFolders";
inline const char kConfigAdvanced[] = "config.html#configAdvanced";

// All of the above, in one list.
QStringList all();

} // namespace HelpAnchors
