#include "ApplicationPluginPath.h"

ApplicationPluginPath::ApplicationPluginPath() = default;

ApplicationPluginPath& ApplicationPluginPath::operator=(const ApplicationPluginPath& other)
    = default;

void ApplicationPluginPath::init(char* /*argv0*/) { }
