#pragma once

#include <guicore/guicore_export.h>

#include <QCoreApplication>
#include <QString>

class QDate;

/// Writes dates as text in one of three field orders, with a numeric, abbreviated or full
/// month. The day always has two digits; a numeric month has no leading zero, which existing
/// stored texts rely on.
class GUICORE_EXPORT DateBuilder
{
    Q_DECLARE_TR_FUNCTIONS(DateBuilder)

public:
    enum DateFormat { DayMonthYear = 0, MonthDayYear = 1, YearMonthDay = 2 };

    /// Empty for an invalid date.
    static QString getNumericDate(const QDate& date, DateFormat format, const QString& separator);
    static QString getAbbreviatedDate(
        const QDate& date, DateFormat format, const QString& separator);
    static QString getFullDate(const QDate& date, DateFormat format, const QString& separator);

    /// The first three characters of the translated month name; empty for an invalid date.
    static QString getMonthAbbreviated(const QDate& date);
    static QString getMonthFull(const QDate& date);

private:
    DateBuilder() = default;

    static QString getMonthName(int month);
    static QString buildDate(const QString& day, const QString& month, const QString& year,
        DateFormat format, const QString& separator);
};
