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
