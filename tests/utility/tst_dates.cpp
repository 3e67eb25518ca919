#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>
#include <guicore/utility/dates/DateBuilder.h>
#include <guicore/utility/dates/DateFormatModifiers.h>
#include <guicore/utility/dates/DateMatcher.h>

#include <QDate>
#include <QRegularExpression>
#include <QTest>

namespace {

const char* const invalidDate = "DateMatcher: Given date is not in correct date format!";
const char* const misplacedSeparators = "DateMatcher: Date is not in correct format.";
const char* const invalidPattern = "DateMatcher: Given date pattern is not valid! Pattern not set.";
const char* const unknownFormat
    = "DateMatcher: Could not determine date format! Date format not set.";

} // namespace

class tst_Dates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void builtDates_data();
    void builtDates();
    void monthNames();
    void invalidInputsBuildNothing();

    void matching_data();
    void matching();
    void badDatesNeverMatch_data();
    void badDatesNeverMatch();
    void failedSetOperationsKeepState();
    void unreadablePatternMatchesNothing();

    void dateFormatModifiers_data();
    void dateFormatModifiers();
};

void tst_Dates::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

void tst_Dates::cleanup()
{
    StyleManager::deleteManager();
}

void tst_Dates::builtDates_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QString>("numeric");
    QTest::addColumn<QString>("abbreviated");
    QTest::addColumn<QString>("full");

    const auto row = [](const char* name, DateBuilder::DateFormat format, const char* separator,
                         const char* numeric, const char* abbreviated, const char* full) {
        QTest::newRow(name) << int(format) << QString(separator) << QString(numeric)
                            << QString(abbreviated) << QString(full);
    };
    // The day keeps its leading zero, the numeric month does not.
    row("year month day", DateBuilder::YearMonthDay, "-", "2024-3-05", "2024-Mar-05",
        "2024-March-05");
    row("day month year", DateBuilder::DayMonthYear, ".", "05.3.2024", "05.Mar.2024",
        "05.March.2024");
    row("month day year", DateBuilder::MonthDayYear, " / ", "3 / 05 / 2024", "Mar / 05 / 2024",
        "March / 05 / 2024");
    row("empty separator", DateBuilder::DayMonthYear, "", "0532024", "05Mar2024", "05March2024");
}

void tst_Dates::builtDates()
{
    QFETCH(int, format);
    QFETCH(QString, separator);
    QFETCH(QString, numeric);
    QFETCH(QString, abbreviated);
    QFETCH(QString, full);
    const QDate date(2024, 3, 5);
    const auto order = static_cast<DateBuilder::DateFormat>(format);
    QCOMPARE(DateBuilder::getNumericDate(date, order, separator), numeric);
    QCOMPARE(DateBuilder::getAbbreviatedDate(date, order, separator), abbreviated);
    QCOMPARE(DateBuilder::getFullDate(date, order, separator), full);
}

void tst_Dates::monthNames()
{
    const QStringList months {"January", "February", "March", "April", "May", "June", "July",
        "August", "September", "October", "November", "December"};
    for (int month = 1; month <= 12; ++month) {
        const QDate date(2023, month, 28);
        QCOMPARE(DateBuilder::getMonthFull(date), months.at(month - 1));
        QCOMPARE(DateBuilder::getMonthAbbreviated(date), months.at(month - 1).left(3));
    }
    QCOMPARE(DateBuilder::getNumericDate(QDate(2023, 12, 31), DateBuilder::DayMonthYear, "."),
        QString("31.12.2023"));
}

void tst_Dates::invalidInputsBuildNothing()
{
    const QDate invalid;
    QCOMPARE(DateBuilder::getMonthFull(invalid), QString());
    QCOMPARE(DateBuilder::getMonthAbbreviated(invalid), QString());
    QCOMPARE(DateBuilder::getNumericDate(invalid, DateBuilder::DayMonthYear, "."), QString());
    QCOMPARE(DateBuilder::getAbbreviatedDate(invalid, DateBuilder::DayMonthYear, "."), QString());
    QCOMPARE(DateBuilder::getFullDate(invalid, DateBuilder::DayMonthYear, "."), QString());
    const auto outOfRange = static_cast<DateBuilder::DateFormat>(3);
    QCOMPARE(DateBuilder::getNumericDate(QDate(2024, 3, 5), outOfRange, "."), QString());
}

void tst_Dates::matching_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("date");
    QTest::addColumn<bool>("matches");

    const auto row = [](const char* name, const char* format, const char* pattern, const char* date,
                         bool matches) {
        QTest::newRow(name) << QString(format) << QString(pattern) << QString(date) << matches;
    };
    row("year first, month fixed", "yyyy-MM-dd", "YYYY-03-DD", "2024-03-05", true);
    row("year first, other month", "yyyy-MM-dd", "YYYY-04-DD", "2024-03-05", false);
    row("year first, one year digit", "yyyy-MM-dd", "Y0YY-MM-DD", "2024-03-05", true);
    row("year first, wrong year digit", "yyyy-MM-dd", "Y1YY-MM-DD", "2024-03-05", false);
    row("day first, day tens", "dd.MM.yyyy", "1D.MM.YYYY", "15.03.2024", true);
    row("day first, day fixed", "dd.MM.yyyy", "05.MM.YYYY", "15.03.2024", false);
    row("month first", "MM/dd/yyyy", "03/DD/YYYY", "03/05/2024", true);
    row("month first, day is not month", "MM/dd/yyyy", "05/DD/YYYY", "03/05/2024", false);
    row("lower-case pattern letters", "dd MM yyyy", "dd 03 yyyy", "31 03 1999", true);
    // Only one separator needs to be in place; the digits are read from fixed positions, so
    // this text's year digits are 0, none (the separator), 2 and 4.
    row("second separator misplaced", "dd-MM-yyyy", "DD-03-0YY4", "05-0320-24", true);
    row("second separator misplaced, year digit missing", "dd-MM-yyyy", "DD-03-00Y4", "05-0320-24",
        false);
    row("second separator misplaced, month read", "dd-MM-yyyy", "DD-04-YYYY", "05-0320-24", false);
    row("default pattern matches any date", "dd.MM.yyyy", "", "29.02.2023", true);
}

void tst_Dates::matching()
{
    QFETCH(QString, format);
    QFETCH(QString, pattern);
    QFETCH(QString, date);
    QFETCH(bool, matches);
    DateMatcher matcher;
    matcher.setDateFormat(format);
    if (!pattern.isEmpty())
        matcher.setPattern(pattern);
    QCOMPARE(matcher.match(date), matches);
}

void tst_Dates::badDatesNeverMatch_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("warning");

    QTest::newRow("eleven characters") << "05-03-20241" << invalidDate;
    QTest::newRow("one separator replaced") << "05-03/2024" << invalidDate;
    QTest::newRow("three separators") << "05-03-20-4" << invalidDate;
    QTest::newRow("pattern letters") << "DD-03-2024" << invalidDate;
    QTest::newRow("blank") << "05-03-2 24" << invalidDate;
    QTest::newRow("no separator in place") << "0503-20-24" << misplacedSeparators;
}

void tst_Dates::badDatesNeverMatch()
{
    QFETCH(QString, date);
    QFETCH(QString, warning);
    DateMatcher matcher; // day first, "-" and an open pattern: any good date would match
    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    QVERIFY(!matcher.match(date));
}

void tst_Dates::failedSetOperationsKeepState()
{
    DateMatcher matcher;
    matcher.setDateFormat("yyyy/MM/dd");
    matcher.setPattern("YYYY/12/DD");

    QTest::ignoreMessage(QtWarningMsg, unknownFormat);
    matcher.setDateFormat("yyyy"); // no separator
    QTest::ignoreMessage(QtWarningMsg, unknownFormat);
    matcher.setDateFormat("x.y.z"); // no field order
    QTest::ignoreMessage(QtWarningMsg, unknownFormat);
    matcher.setDateFormat("");

    QTest::ignoreMessage(QtWarningMsg, invalidPattern);
    matcher.setPattern("YYYY/XX/DD");
    QTest::ignoreMessage(QtWarningMsg, invalidPattern);
    matcher.setPattern("YYYY-01-DD"); // the old separator of a default matcher

    QVERIFY(matcher.match("2023/12/24"));
    QVERIFY(!matcher.match("2023/11/24"));
}

void tst_Dates::unreadablePatternMatchesNothing()
{
    DateMatcher matcher;
    // Well-formed, but neither separator is where a day-first date has them.
    QTest::ignoreMessage(QtWarningMsg, misplacedSeparators);
    matcher.setPattern("DDDD-MM-YY");
    QVERIFY(!matcher.match("05-03-2024"));

    // A copy is independent of its original.
    DateMatcher readable;
    readable.setPattern("05-MM-YYYY");
    DateMatcher copy(readable);
    readable.setPattern("06-MM-YYYY");
    QVERIFY(copy.match("05-03-2024"));
    QVERIFY(!readable.match("05-03-2024"));
}

void tst_Dates::dateFormatModifiers_data()
{
    QTest::addColumn<QString>("shortFormat");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("inputFormat");

    const auto row
        = [](const char* name, const char* shortFormat, const char* mask, const char* inputFormat) {
              QTest::newRow(name) << QString(shortFormat) << QString(mask) << QString(inputFormat);
          };
    row("dotted", "dd.MM.yyyy", "09.09.D999", "dd.MM.yyyy");
    row("short fields", "d/M/yy", "09/09/D999", "dd/MM/yyyy");
    row("year first", "yyyy-MM-dd", "D999-09-09", "yyyy-MM-dd");
    row("upper-case year", "dd.MM.YY", "09.09.D999", "dd.MM");
    row("unknown field dropped", "d.M.yy.hh", "09.09.D999.09", "dd.MM.yyyy");
}

void tst_Dates::dateFormatModifiers()
{
    QFETCH(QString, shortFormat);
    QFETCH(QString, mask);
    QFETCH(QString, inputFormat);
    const StyleManagerDataProvider noFiles(StyleManagerDataProvider::Data({}, {}, {}, {}, {}));
    StyleManager::createManager(noFiles, CommonDateTimeFormats {shortFormat, "", "", "", ""});
    QCOMPARE(DateFormatModifiers::getDateMask(), mask);
    QCOMPARE(DateFormatModifiers::getShortDateFormatForInput(), inputFormat);
}

QTEST_MAIN(tst_Dates)
#include "tst_dates.moc"
