#include "app/appcontext.h"

// Q_INIT_RESOURCE cannot be used inside a namespace.
static void registerCompiledResources()
{
    Q_INIT_RESOURCE(resources);
}

namespace AppContext {

namespace {
QString g_widgetPrefix = QStringLiteral(":/resources/widgets/");
bool g_resourcesRegistered = false;
} // namespace

QString productName() { return QStringLiteral("Vellora"); }

int versionMajor() { return 1; }

int versionMinor() { return 0; }

QString versionTitle()
{
    return productName() + QStringLiteral(" v") + QString::number(versionMajor())
        + QStringLiteral(".") + QString::number(versionMinor()) + QStringLiteral(".0");
}

QString widgetPrefix() { return g_widgetPrefix; }

void setWidgetPrefix(const QString &prefix) { g_widgetPrefix = prefix; }

QIcon widgetIcon(const QString &name)
{
    initResources();
    return QIcon(g_widgetPrefix + name);
}

void initResources()
{
    if (g_resourcesRegistered)
        return;
    registerCompiledResources();
    g_resourcesRegistered = true;
}

} // namespace AppContext
