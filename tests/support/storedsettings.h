#pragma once

#include <QString>
#include <QVariant>

// Reads and writes the application's settings store directly, through a new
// QSettings object each time, as a later run of the program would see it.
namespace StoredSettings {

QVariant value(const QString &key);
bool contains(const QString &key);
void setValue(const QString &key, const QVariant &value);

} // namespace StoredSettings
