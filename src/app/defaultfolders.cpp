#include "app/defaultfolders.h"

#include "app/appcontext.h"

#include <QDir>
#include <QStandardPaths>

namespace {

QString firstDocumentsLocation()
{
    return QStandardPaths::standardLocations(QStandardPaths::DocumentsLocation).value(0);
}

QString &cachedDataFolder()
{
    static QString folder;
    return folder;
}

} // namespace

QString defaultDataFolder(bool nativeSeparators)
{
    QString &folder = cachedDataFolder();
    if (folder.isEmpty())
        folder = firstDocumentsLocation() + QStringLiteral("/") + AppContext::productName();
    return nativeSeparators ? QDir::toNativeSeparators(folder) : folder;
}

QString defaultLibraryFolder()
{
    return defaultDataFolder(false) + QStringLiteral("/ColourLibrary");
}

QString defaultWorkFolder()
{
    return QDir::toNativeSeparators(firstDocumentsLocation());
}
