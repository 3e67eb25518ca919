#pragma once

#include <guicore/guicore_export.h>

#include <objectmodel/Optional.h>

#include <QChar>
#include <QString>

#include <array>
#include <memory>

/// Decides whether a typed date fits a pattern whose digits may be fixed or left open, such as
/// "YYYY-03-DD" (any day of March of any year).
///
/// Dates and patterns are read at fixed digit positions given by the field order; a text only
/// needs one of its two separators at the expected place. Failed set operations keep the
/// previous state.
class GUICORE_EXPORT DateMatcher
{
public:
    enum DateFormat { DayFirst = 0, YearFirst = 1, MonthFirst = 2 };

    /// Day tens and units, month tens and units, year digits one to four; an unset digit of a
    /// pattern matches any digit.
    struct GUICORE_EXPORT Date
    {
        std::array<utility::Optional<int>, 8> digits;
    };

    DateMatcher();
    ~DateMatcher();
    DateMatcher(const DateMatcher& other);
    DateMatcher& operator=(const DateMatcher& other);

    /// Takes the field order from the first letter and the separator from the first of
    /// "/", ".", "-" or a blank, e.g. "dd.MM.yyyy".
    void setDateFormat(const QString& format);
    /// A date in the current format whose digits may be replaced by "D", "M" or "Y".
    void setPattern(const QString& pattern);
    /// False for a text that is not a date in the current format, and while the pattern could
    /// not be read at the current separator positions.
    bool match(const QString& date) const;

private:
    static utility::Optional<DateFormat> determineDateFormat(const QString& format);
    std::unique_ptr<Date> parseDate(const QString& text) const;
    bool isWellFormed(const QString& text, bool pattern) const;

    DateFormat dateFormat = DayFirst;
    QChar separator = QLatin1Char('-');
    std::unique_ptr<Date> pattern;
};
