#pragma once

#include <guicore/guicore_export.h>

/// Kept for the host's start-up code; init() has no effect.
class GUICORE_EXPORT ApplicationPluginPath
{
public:
    /// @{
    /// A value without state.
    ApplicationPluginPath();
    ApplicationPluginPath& operator=(const ApplicationPluginPath& other);
    /// @}

    /// Does nothing; plug-ins are found by the host (for example with QPluginLoader).
    static void init(char* argv0);
};
