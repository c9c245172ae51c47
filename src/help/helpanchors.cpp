#include "help/helpanchors.h"

namespace HelpAnchors {

QStringList all()
{
    return {QLatin1String(kHomePage),        QLatin1String(kDataAddColour),
            QLatin1String(kLibraryMaintenance), QLatin1String(kLibraryImport),
            QLatin1String(kLibraryEditTable), QLatin1String(kLibraryAddColour),
            QLatin1String(kConfiguration),   QLatin1String(kConfigGeneral),
            QLatin1String(kConfigFolders),   QLatin1String(kConfigAdvanced)};
}

} // namespace HelpAnchors
