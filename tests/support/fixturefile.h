#pragma once

#include <QByteArray>
#include <QString>

// Small file fixtures written at run time (into a QTemporaryDir).
namespace FixtureFile {

// Writes bytes exactly as given, creating missing folders. False on failure.
bool write(const QString &path, const QByteArray &bytes);
// The file's bytes; empty when it cannot be read.
QByteArray read(const QString &path);

} // namespace FixtureFile
