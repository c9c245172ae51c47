#include "app/defaultfolders.h"


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
        folder = QDir(firstDocumentsLocation()).filePath(QStringLiteral("Vellora"));
    return nativeSeparators ? QDir::toNativeSeparators(folder) : folder;
}

QString defaultLibraryFolder()
{
    return QDir(defaultDataFolder(false)).filePath(QStringLiteral("ColourLibrary"));
}

QString defaultWorkFolder()
{
    return QDir::toNativeSeparators(firstDocumentsLocation());
}
