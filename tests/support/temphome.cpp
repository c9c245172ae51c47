#include "temphome.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

TempHome::TempHome()
{
    QStandardPaths::setTestModeEnabled(true);
    m_oldHome = qgetenv("HOME");
    qputenv("HOME", m_dir.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (m_dir.path() + "/.config").toUtf8());
    qputenv("XDG_DATA_HOME", (m_dir.path() + "/.local/share").toUtf8());
    // The documents location comes from user-dirs.dirs or $HOME/Documents.
    qputenv("XDG_DOCUMENTS_DIR", (m_dir.path() + "/Documents").toUtf8());
    QDir(m_dir.path()).mkpath("Documents");
    clearSettings();
}

TempHome::~TempHome()
{
    clearSettings();
    qputenv("HOME", m_oldHome);
}

QString TempHome::documents() const
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void TempHome::clearSettings()
{
    QSettings settings(QStringLiteral("Tessaline"), QStringLiteral("Vellora"));
    settings.clear();
    settings.sync();
}
