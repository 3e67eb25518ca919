#pragma once

#include <guicore/guicore_export.h>

class QString;

/// Input helpers derived from the style's short date format ("@SHORT_DATE_FORMAT").
///
/// Both read the format from StyleManager::manager() on every call, so they follow a style
/// created later, and they create the style manager (with its warning) when none exists yet.
/// The separator is the first "/", ".", "-" or blank of the format. GUI thread only, as the
/// style manager is.
class GUICORE_EXPORT DateFormatModifiers
{
public:
    DateFormatModifiers() = delete;

    /// A `QLineEdit` input mask: "09" per day or month field, "D999" per year field, e.g.
    /// "09.09.D999" for "dd.MM.yyyy".
    static QString getDateMask();
    /// The short date format with every field at full width, e.g. "dd/MM/yyyy" for "d/M/yy";
    /// fields other than day, month and year are dropped.
    static QString getShortDateFormatForInput();
};
