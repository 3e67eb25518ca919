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
/// needs one of its two separators at the expected place (deliberately lenient: half-typed
/// dates are read rather than refused). Failed set operations keep the previous state. A new
/// matcher reads day-first dates with "-" and has an empty pattern, which every well-formed date
/// matches.
///
/// Warnings, each a complete text: "DateMatcher: Could not determine date format! Date format
/// not set." (setDateFormat), "DateMatcher: Given date pattern is not valid! Pattern not set."
/// (setPattern), "DateMatcher: Given date is not in correct date format!" (match) and
/// "DateMatcher: Date is not in correct format." (a text with neither separator in place).
/// A plain value; use one object on one thread at a time.
class GUICORE_EXPORT DateMatcher
{
public:
    /// The field order of matched dates, which also fixes where the separators stand. Note the
    /// numbering, different from DateBuilder::DateFormat; it is kept for stored settings.
    enum DateFormat {
        DayFirst = 0, ///< "DD-MM-YYYY": separators at positions 2 and 5.
        YearFirst = 1, ///< "YYYY-MM-DD": separators at positions 4 and 7.
        MonthFirst = 2 ///< "MM-DD-YYYY": separators at positions 2 and 5.
    };

    /// Day tens and units, month tens and units, year digits one to four; an unset digit of a
    /// pattern matches any digit.
    struct GUICORE_EXPORT Date
    {
        /// The eight digits in the order above; each 0-9 or unset.
        std::array<utility::Optional<int>, 8> digits;
    };

    /// A day-first matcher with "-" and an empty pattern.
    DateMatcher();
    ~DateMatcher();
    /// @{
    /// Copies the format, the separator and the pattern.
    DateMatcher(const DateMatcher& other);
    DateMatcher& operator=(const DateMatcher& other);
    /// @}

    /// Takes the field order from the first letter and the separator from the first of
    /// "/", ".", "-" or a blank, e.g. "dd.MM.yyyy". A format lacking either leaves both as they
    /// were, with a warning.
    void setDateFormat(const QString& format);
    /// A date in the current format whose digits may be replaced by "D", "M" or "Y" (either
    /// case); at most ten characters with exactly two separators, or it is refused with a
    /// warning.
    void setPattern(const QString& pattern);
    /// False for a text that is not a date in the current format (at most ten digits and
    /// separators, exactly two of them), and while the pattern could not be read at the current
    /// separator positions.
    bool match(const QString& date) const;

private:
    static utility::Optional<DateFormat> determineDateFormat(const QString& format);
    std::unique_ptr<Date> parseDate(const QString& text) const;
    bool isWellFormed(const QString& text, bool pattern) const;

    DateFormat dateFormat = DayFirst;
    QChar separator = QLatin1Char('-');
    std::unique_ptr<Date> pattern;
};
