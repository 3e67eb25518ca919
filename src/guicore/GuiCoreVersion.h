#pragma once

#include <guicore/guicore_export.h>

class QString;

namespace guicore {

/// The library's version as "major.minor.patch", as built. Lets an application that loads
/// plug-ins report which GUI layer it runs on.
GUICORE_EXPORT QString versionString();

} // namespace guicore
