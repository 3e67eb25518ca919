#pragma once

#include <guicore/guicore_export.h>

#include <QCoreApplication>
#include <QString>

class QDate;

/// Writes dates as text in one of three field orders, with a numeric, abbreviated or full
/// month. The day always has two digits; a numeric month has no leading zero, which existing
/// stored texts rely on.
///
/// Month names pass through tr() in the context "DateBuilder". All functions are static and
/// re-entrant; they use the translators installed in the application.
class GUICORE_EXPORT DateBuilder
{
    Q_DECLARE_TR_FUNCTIONS(DateBuilder)

public:
    /// The order of the fields in a built date. Note that DateMatcher::DateFormat numbers its
    /// orders differently.
    enum DateFormat {
        DayMonthYear = 0, ///< Day, month, year: "05.3.2024".
        MonthDayYear = 1, ///< Month, day, year: "3/05/2024".
        YearMonthDay = 2 ///< Year, month, day: "2024-3-05".
    };

    /// The date with a numeric month, the fields joined by separator in format's order, such as
    /// "2024-3-05" for 5 March 2024 in YearMonthDay with "-". Empty for an invalid date or a
    /// format outside the enumeration.
    static QString getNumericDate(const QDate& date, DateFormat format, const QString& separator);
    /// As getNumericDate(), with the month as getMonthAbbreviated() gives it: "05 Mar 2024" in
    /// DayMonthYear with a blank.
    static QString getAbbreviatedDate(
        const QDate& date, DateFormat format, const QString& separator);
    /// As getNumericDate(), with the month as getMonthFull() gives it: "05 March 2024" in
    /// DayMonthYear with a blank.
    static QString getFullDate(const QDate& date, DateFormat format, const QString& separator);

    /// The first three characters of the translated month name; empty for an invalid date.
    static QString getMonthAbbreviated(const QDate& date);
    /// The translated month name ("January" ... "December"); empty for an invalid date.
    static QString getMonthFull(const QDate& date);

private:
    DateBuilder() = default;

    static QString getMonthName(int month);
    static QString buildDate(const QString& day, const QString& month, const QString& year,
        DateFormat format, const QString& separator);
};
