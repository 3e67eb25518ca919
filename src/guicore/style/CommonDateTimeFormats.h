#pragma once

#include <guicore/guicore_export.h>

#include <QString>

/// The five date and time formats an application usually takes from the user's locale and
/// hands to `StyleManager::createManager`, overriding what the format resources say for them.
/// There is deliberately no field for "@DATE_TIME_WITH_SECONDS_FORMAT": that one only ever comes
/// from the format resources.
struct GUICORE_EXPORT CommonDateTimeFormats
{
    QString shortDateFormat;
    QString longDateFormat;
    QString dateTimeFormat;
    QString longDateTimeFormat;
    QString timeFormat;
};
