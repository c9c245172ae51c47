#pragma once

#include "support/guitestfixture.h"

#include <QString>

#include <memory>

class CAppSettings;

// The surroundings of the library maintenance tests: a private home
// (GuiTestFixture), the program's settings read there, and a library folder
// that emptyLibrary() makes empty again for every test function. Tests that
// use it link vellora_ui (the settings live there).
class LibraryTestHome
{
public:
    LibraryTestHome();
    ~LibraryTestHome();
    LibraryTestHome(const LibraryTestHome &) = delete;
    LibraryTestHome &operator=(const LibraryTestHome &) = delete;

    bool isValid() const { return m_fixture.isValid(); }
    QString home() const { return m_fixture.home(); }
    CAppSettings *settings() const { return m_settings.get(); }

    // Empties (or makes) home/Library and points the settings' library
    // folder at it. Returns its path; empty when it could not be made.
    QString emptyLibrary();
    // Makes home/name for the files a test imports; empty on failure.
    QString makeFolder(const QString &name) const;

private:
    GuiTestFixture m_fixture;
    std::unique_ptr<CAppSettings> m_settings;
};
