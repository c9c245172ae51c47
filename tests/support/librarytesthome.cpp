#include "support/librarytesthome.h"

#include "app/appsettings.h"

#include <QDir>

// The settings are read only once the private home is in place.
LibraryTestHome::LibraryTestHome() : m_settings(std::make_unique<CAppSettings>()) {}

LibraryTestHome::~LibraryTestHome() = default;

QString LibraryTestHome::emptyLibrary()
{
    const QString library = QDir(home()).filePath(QStringLiteral("Library"));
    QDir(library).removeRecursively();
    if (!QDir().mkpath(library))
        return QString();
    m_settings->libraryDir = library;
    return library;
}

QString LibraryTestHome::makeFolder(const QString &name) const
{
    const QString folder = QDir(home()).filePath(name);
    return QDir().mkpath(folder) ? folder : QString();
}
