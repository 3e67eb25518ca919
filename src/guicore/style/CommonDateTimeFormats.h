#pragma once

#include <guicore/guicore_export.h>

#include <QString>

/// The five date and time formats an application usually takes from the user's locale and
/// hands to `StyleManager::createManager`, overriding what the format resources say for them.
/// There is deliberately no field for "@DATE_TIME_WITH_SECONDS_FORMAT": that one only ever comes
/// from the format resources.
///
/// Each field is a Qt date/time pattern (QDate::toString, QTime::toString); an empty field
/// overrides the resources with an empty format, it does not keep theirs.
struct GUICORE_EXPORT CommonDateTimeFormats
{
    QString shortDateFormat; ///< For "@SHORT_DATE_FORMAT", such as "dd.MM.yyyy".
    QString longDateFormat; ///< For "@LONG_DATE_FORMAT", such as "d MMMM yyyy".
    QString dateTimeFormat; ///< For "@DATE_TIME_FORMAT", such as "dd.MM.yyyy hh:mm".
    QString longDateTimeFormat; ///< For "@LONG_DATE_TIME_FORMAT".
    QString timeFormat; ///< For "@TIME_FORMAT", such as "hh:mm".
};
