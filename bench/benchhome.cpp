#include "benchhome.h"

#include <QDir>
#include <QStandardPaths>
#include <QtGlobal>

#include <cstdio>

namespace {

QtMessageHandler g_previousHandler = nullptr;

void quietPlatform(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message.contains(QLatin1String("propagateSizeHints"))
        || message.startsWith(QLatin1String("This plugin does not support")))
        return;
    if (g_previousHandler)
        g_previousHandler(type, context, message);
    else
        fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

BenchHome::BenchHome()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    g_previousHandler = qInstallMessageHandler(quietPlatform);
    qputenv("HOME", m_home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", (m_home.path() + QStringLiteral("/.config")).toUtf8());
    qputenv("XDG_DATA_HOME", (m_home.path() + QStringLiteral("/.local/share")).toUtf8());
    qputenv("XDG_DOCUMENTS_DIR", documents().toUtf8());
    QDir(m_home.path()).mkpath(QStringLiteral("Documents"));
    QStandardPaths::setTestModeEnabled(true);
}

BenchHome::~BenchHome()
{
    qInstallMessageHandler(g_previousHandler);
}

QString BenchHome::documents() const
{
    return m_home.path() + QStringLiteral("/Documents");
}
