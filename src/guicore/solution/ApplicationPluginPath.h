#pragma once

#include <guicore/guicore_export.h>

/// Kept for the host's start-up code; init() has no effect.
class GUICORE_EXPORT ApplicationPluginPath
{
public:
    ApplicationPluginPath();
    ApplicationPluginPath& operator=(const ApplicationPluginPath& other);

    static void init(char* argv0);
};
