#include "storedsettings.h"

#include <QSettings>

namespace StoredSettings {

namespace {
const char kOrganisation[] = "Tessaline";
const char kApplication[] = "Vellora";
} // namespace

QVariant value(const QString &key)
{
    QSettings store(QString::fromLatin1(kOrganisation), QString::fromLatin1(kApplication));
    return store.value(key);
}

bool contains(const QString &key)
{
    QSettings store(QString::fromLatin1(kOrganisation), QString::fromLatin1(kApplication));
    return store.contains(key);
}

void setValue(const QString &key, const QVariant &value)
{
    QSettings store(QString::fromLatin1(kOrganisation), QString::fromLatin1(kApplication));
    store.setValue(key, value);
    store.sync();
}

} // namespace StoredSettings
