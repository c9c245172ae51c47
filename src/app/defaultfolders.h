#pragma once

#include <QString>

// The default data folder: the first documents location, "/", "Vellora".
// Computed once with "/" separators and cached for the rest of the run;
// with nativeSeparators the cached path is returned in the platform's form.
QString defaultDataFolder(bool nativeSeparators);

// The default colour library folder: the default data folder + "/ColourLibrary".
QString defaultLibraryFolder();

// The first documents location in native separators (empty if there is none):
// where the open-image dialog starts on a fresh installation.
QString defaultWorkFolder();
