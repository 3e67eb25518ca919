#include "DateBuilder.h"

#include <QDate>

namespace {

QString dayText(const QDate& date)
{
    return QStringLiteral("%1").arg(date.day(), 2, 10, QLatin1Char('0'));
}

QString yearText(const QDate& date)
{
    return QString::number(date.year(), 10);
}

} // namespace

QString DateBuilder::getNumericDate(const QDate& date, DateFormat format, const QString& separator)
{
    if (!date.isValid())
        return QString();
    return buildDate(
        dayText(date), QString::number(date.month(), 10), yearText(date), format, separator);
}

QString DateBuilder::getAbbreviatedDate(
    const QDate& date, DateFormat format, const QString& separator)
{
    if (!date.isValid())
        return QString();
    return buildDate(dayText(date), getMonthAbbreviated(date), yearText(date), format, separator);
}

QString DateBuilder::getFullDate(const QDate& date, DateFormat format, const QString& separator)
{
    if (!date.isValid())
        return QString();
    return buildDate(dayText(date), getMonthFull(date), yearText(date), format, separator);
}

QString DateBuilder::getMonthAbbreviated(const QDate& date)
{
    return getMonthFull(date).left(3);
}

QString DateBuilder::getMonthFull(const QDate& date)
{
    if (!date.isValid())
        return QString();
    return getMonthName(date.month());
}

QString DateBuilder::getMonthName(int month)
{
    switch (month) {
    case 1:
        return tr("January");
    case 2:
        return tr("February");
    case 3:
        return tr("March");
    case 4:
        return tr("April");
    case 5:
        return tr("May");
    case 6:
        return tr("June");
    case 7:
        return tr("July");
    case 8:
        return tr("August");
    case 9:
        return tr("September");
    case 10:
        return tr("October");
    case 11:
        return tr("November");
    case 12:
        return tr("December");
    default:
        return QString();
    }
}

QString DateBuilder::buildDate(const QString& day, const QString& month, const QString& year,
    DateFormat format, const QString& separator)
{
    switch (format) {
    case DayMonthYear:
        return day + separator + month + separator + year;
    case MonthDayYear:
        return month + separator + day + separator + year;
    case YearMonthDay:
        return year + separator + month + separator + day;
    }
    return QString();
}
