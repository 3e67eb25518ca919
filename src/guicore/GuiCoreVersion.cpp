#include <guicore/GuiCoreVersion.h>

#include <QString>

namespace guicore {

QString versionString()
{
    return QStringLiteral(GUICORE_VERSION_STRING);
}

} // namespace guicore
