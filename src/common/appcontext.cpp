#include "common/appcontext.h"

#include "version.h"

#include <QCoreApplication>

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

QString productName() { return QCoreApplication::translate("AppContext", "Vellora"); }

QString organisationName() { return QStringLiteral("Tessaline"); }

QString versionText() { return QStringLiteral(VELLORA_VERSION); }

int versionMajor() { return VELLORA_VERSION_MAJOR; }

int versionMinor() { return VELLORA_VERSION_MINOR; }

QString versionTitle() { return productName() + QStringLiteral(" v") + versionText(); }

QString helpCollectionName() { return QStringLiteral(VELLORA_HELP_COLLECTION); }

void setApplicationIdentity()
{
    QCoreApplication::setOrganizationName(organisationName());
    // The store's name, never translated.
    QCoreApplication::setApplicationName(QStringLiteral("Vellora"));
    QCoreApplication::setApplicationVersion(versionText());
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
