#include "DateMatcher.h"

#include <guicore/Logging_p.h>
#include <guicore/utility/widgets/StringOperations.h>

namespace {

// Where each of the eight digits (day, month, year) sits in the text, per field order.
constexpr std::array<int, 8> dayFirstPositions {0, 1, 3, 4, 6, 7, 8, 9};
constexpr std::array<int, 8> yearFirstPositions {8, 9, 5, 6, 0, 1, 2, 3};
constexpr std::array<int, 8> monthFirstPositions {3, 4, 0, 1, 6, 7, 8, 9};

} // namespace

DateMatcher::DateMatcher()
    : pattern(std::make_unique<Date>())
{
}

DateMatcher::~DateMatcher() = default;

DateMatcher::DateMatcher(const DateMatcher& other)
    : dateFormat(other.dateFormat)
    , separator(other.separator)
    , pattern(other.pattern ? std::make_unique<Date>(*other.pattern) : nullptr)
{
}

DateMatcher& DateMatcher::operator=(const DateMatcher& other)
{
    if (this != &other) {
        dateFormat = other.dateFormat;
        separator = other.separator;
        pattern = other.pattern ? std::make_unique<Date>(*other.pattern) : nullptr;
    }
    return *this;
}

void DateMatcher::setDateFormat(const QString& format)
{
    const QChar newSeparator = StringOperations::determineSeparator(format);
    const utility::Optional<DateFormat> newFormat = determineDateFormat(format);
    if (newSeparator.isNull() || !newFormat) {
        qCWarning(lcUtility)
            << "DateMatcher: Could not determine date format! Date format not set.";
        return;
    }
    separator = newSeparator;
    dateFormat = *newFormat;
}

void DateMatcher::setPattern(const QString& pattern)
{
    if (!isWellFormed(pattern, true)) {
        qCWarning(lcUtility) << "DateMatcher: Given date pattern is not valid! Pattern not set.";
        return;
    }
    this->pattern = parseDate(pattern);
}

bool DateMatcher::match(const QString& date) const
{
    if (!isWellFormed(date, false)) {
        qCWarning(lcUtility) << "DateMatcher: Given date is not in correct date format!";
        return false;
    }
    const std::unique_ptr<Date> parsed = parseDate(date);
    if (!parsed || !pattern)
        return false;
    for (std::size_t i = 0; i < parsed->digits.size(); ++i) {
        const utility::Optional<int>& wanted = pattern->digits[i];
        if (wanted && *wanted != parsed->digits[i])
            return false;
    }
    return true;
}

utility::Optional<DateMatcher::DateFormat> DateMatcher::determineDateFormat(const QString& format)
{
    if (format.isEmpty())
        return {};
    switch (format.front().toLower().unicode()) {
    case 'd':
        return DayFirst;
    case 'y':
        return YearFirst;
    case 'm':
        return MonthFirst;
    default:
        return {};
    }
}

std::unique_ptr<DateMatcher::Date> DateMatcher::parseDate(const QString& text) const
{
    const bool yearFirst = dateFormat == YearFirst;
    const int firstSeparator = yearFirst ? 4 : 2;
    const int secondSeparator = yearFirst ? 7 : 5;
    const auto separatorAt
        = [&](int position) { return position < text.size() && text.at(position) == separator; };
    // Lenient on purpose: one separator in its place is enough to read the digits.
    if (!separatorAt(firstSeparator) && !separatorAt(secondSeparator)) {
        qCWarning(lcUtility) << "DateMatcher: Date is not in correct format.";
        return nullptr;
    }
    const std::array<int, 8>& positions = dateFormat == YearFirst ? yearFirstPositions
        : dateFormat == MonthFirst                                ? monthFirstPositions
                                                                  : dayFirstPositions;
    auto date = std::make_unique<Date>();
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const int position = positions[i];
        if (position < text.size() && text.at(position).isDigit())
            date->digits[i] = text.at(position).digitValue();
    }
    return date;
}

bool DateMatcher::isWellFormed(const QString& text, bool pattern) const
{
    if (text.size() > 10 || text.count(separator) != 2)
        return false;
    static const QString patternLetters = QStringLiteral("DMYdmy");
    for (const QChar c : text) {
        const bool accepted = c == separator || (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            || (pattern && patternLetters.contains(c));
        if (!accepted)
            return false;
    }
    return true;
}
