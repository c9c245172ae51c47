#pragma once

#include "support/temphome.h"

#include <QString>
#include <QTemporaryDir>

// The surroundings every widget test needs, in one object the test class
// keeps for its whole run: a private home (QStandardPaths test mode, HOME and
// the XDG folders in a temporary directory, so the user's own settings and
// documents are never touched), the compiled-in images registered, and a
// scratch folder for the files the test writes. Call reset() from init() so
// that every test function starts with no stored settings.
//
// Tests that use it link vellora_ui (the images live there).
class GuiTestFixture
{
public:
    GuiTestFixture();

    // False when a temporary folder could not be made; check it in
    // initTestCase().
    bool isValid() const;
    // Removes every stored setting of the program.
    void reset();

    QString home() const { return m_home.path(); }
    // The documents folder the program sees.
    QString documents() const { return m_home.documents(); }
    // The scratch folder, and a path inside it.
    QString folder() const { return m_folder.path(); }
    QString filePath(const QString &name) const;

private:
    TempHome m_home;
    QTemporaryDir m_folder;
};
