#pragma once

#include <QString>

// The sample table of 139 named web colours written into a new library.
struct WebColourRow
{
    const char *hex;  // "RRGGBB", upper case
    const char *name; // display name
    const char *key;  // lower-case key, not written
};

// The rows in ascending hex order, ended by a row of empty texts.
const WebColourRow *webColourRows();
int webColourCount();

// Writes "WebColours.clrtable" content to path. True when the file could be
// written.
bool writeWebColoursTable(const QString &path);

// "WebColours.clrtable".
QString webColoursFileName();

// The first-start rule: writes the sample into libraryFolder when the folder
// setting is not empty, the file is not there yet and the sample was never
// created before. True when it was written now, and only then should the
// caller set its "created" flag. The folder itself is not created.
bool writeWebColoursTableOnce(const QString &libraryFolder, bool sampleCreated);
