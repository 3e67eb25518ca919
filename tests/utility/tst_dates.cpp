#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>
#include <guicore/utility/dates/DateBuilder.h>
#include <guicore/utility/dates/DateFormatModifiers.h>
#include <guicore/utility/dates/DateMatcher.h>

#include <QtTest>

class tst_Dates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }
    void cleanup() { StyleManager::deleteManager(); }

    void builtDates()
    {
        using B = DateBuilder;
        const QDate date(2024, 3, 5);
        // The day keeps its leading zero, the numeric month does not.
        const std::tuple<B::DateFormat, const char*, const char*, const char*, const char*> cases[]
            = {{B::YearMonthDay, "-", "2024-3-05", "2024-Mar-05", "2024-March-05"},
                {B::DayMonthYear, ".", "05.3.2024", "05.Mar.2024", "05.March.2024"},
                {B::MonthDayYear, " / ", "3 / 05 / 2024", "Mar / 05 / 2024", "March / 05 / 2024"},
                {B::DayMonthYear, "", "0532024", "05Mar2024", "05March2024"}};
        for (const auto& [format, separator, numeric, abbreviated, full] : cases) {
            QCOMPARE(B::getNumericDate(date, format, separator), numeric);
            QCOMPARE(B::getAbbreviatedDate(date, format, separator), abbreviated);
            QCOMPARE(B::getFullDate(date, format, separator), full);
        }
        QCOMPARE(B::getNumericDate(QDate(2023, 12, 31), B::DayMonthYear, "."), "31.12.2023");
        const QStringList months {"January", "February", "March", "April", "May", "June", "July",
            "August", "September", "October", "November", "December"};
        for (int month = 1; month <= 12; ++month) {
            QCOMPARE(B::getMonthFull(QDate(2023, month, 28)), months.at(month - 1));
            QCOMPARE(B::getMonthAbbreviated(QDate(2023, month, 28)), months.at(month - 1).left(3));
        }
        const QDate invalid;
        QCOMPARE(B::getMonthFull(invalid) + B::getMonthAbbreviated(invalid)
                + B::getNumericDate(invalid, B::DayMonthYear, ".")
                + B::getAbbreviatedDate(invalid, B::DayMonthYear, ".")
                + B::getFullDate(invalid, B::DayMonthYear, "."),
            QString());
        QCOMPARE(B::getNumericDate(date, static_cast<B::DateFormat>(3), "."), QString());
    }

    void matching()
    {
        // Each row: format, date, a pattern it matches, one it does not. Lower-case pattern
        // letters work too. Only one separator needs to be in place; the digits are read from
        // fixed positions, so "05-0320-24" has the year digits 0, none (the separator), 2 and 4.
        const char* const cases[][4] = {{"yyyy-MM-dd", "2024-03-05", "YYYY-03-DD", "YYYY-04-DD"},
            {"yyyy-MM-dd", "2024-03-05", "Y0YY-MM-DD", "Y1YY-MM-DD"},
            {"dd.MM.yyyy", "15.03.2024", "1D.MM.YYYY", "05.MM.YYYY"},
            {"MM/dd/yyyy", "03/05/2024", "03/DD/YYYY", "05/DD/YYYY"},
            {"dd MM yyyy", "31 03 1999", "dd 03 yyyy", "dd 04 yyyy"},
            {"dd-MM-yyyy", "05-0320-24", "DD-03-0YY4", "DD-03-00Y4"},
            {"dd-MM-yyyy", "05-0320-24", "DD-03-YYYY", "DD-04-YYYY"}};
        for (const auto& [format, date, matching, other] : cases) {
            DateMatcher matcher;
            matcher.setDateFormat(format);
            QVERIFY2(matcher.match(date), date); // the default pattern matches any date
            matcher.setPattern(matching);
            QVERIFY2(matcher.match(date), matching);
            matcher.setPattern(other);
            QVERIFY2(!matcher.match(date), other);
        }
    }

    void badInputWarnsAndChangesNothing()
    {
        // Day first, "-" and an open pattern: any good date would match.
        for (const char* date :
            {"05-03-20241", "05-03/2024", "05-03-20-4", "DD-03-2024", "05-03-2 24"}) {
            QTest::ignoreMessage(
                QtWarningMsg, "DateMatcher: Given date is not in correct date format!");
            QVERIFY2(!DateMatcher().match(date), date);
        }
        const char* const misplacedSeparators = "DateMatcher: Date is not in correct format.";
        QTest::ignoreMessage(QtWarningMsg, misplacedSeparators);
        QVERIFY(!DateMatcher().match("0503-20-24"));
        DateMatcher matcher;
        // Well-formed, but neither separator is where a day-first date has them.
        QTest::ignoreMessage(QtWarningMsg, misplacedSeparators);
        matcher.setPattern("DDDD-MM-YY");
        QVERIFY(!matcher.match("05-03-2024"));

        matcher.setDateFormat("yyyy/MM/dd");
        matcher.setPattern("YYYY/12/DD");
        // No separator, no field order, nothing.
        for (const char* format : {"yyyy", "x.y.z", ""}) {
            QTest::ignoreMessage(
                QtWarningMsg, "DateMatcher: Could not determine date format! Date format not set.");
            matcher.setDateFormat(format);
        }
        // A bad letter, the old separator of a default matcher.
        for (const char* pattern : {"YYYY/XX/DD", "YYYY-01-DD"}) {
            QTest::ignoreMessage(
                QtWarningMsg, "DateMatcher: Given date pattern is not valid! Pattern not set.");
            matcher.setPattern(pattern);
        }
        QVERIFY(matcher.match("2023/12/24"));
        QVERIFY(!matcher.match("2023/11/24"));
    }

    void copiesAreIndependent()
    {
        DateMatcher readable;
        readable.setPattern("05-MM-YYYY");
        DateMatcher copy(readable);
        DateMatcher assigned;
        assigned.setPattern("07-MM-YYYY");
        assigned = readable;
        readable.setPattern("06-MM-YYYY");
        QVERIFY(copy.match("05-03-2024"));
        QVERIFY(assigned.match("05-03-2024"));
        QVERIFY(!readable.match("05-03-2024"));
    }

    void dateFormatModifiers()
    {
        const char* const cases[][3] = {{"dd.MM.yyyy", "09.09.D999", "dd.MM.yyyy"},
            {"d/M/yy", "09/09/D999", "dd/MM/yyyy"}, {"yyyy-MM-dd", "D999-09-09", "yyyy-MM-dd"},
            {"dd.MM.YY", "09.09.D999", "dd.MM"}, // upper-case year
            {"d.M.yy.hh", "09.09.D999.09", "dd.MM.yyyy"}}; // an unknown field is dropped
        const StyleManagerDataProvider noFiles(StyleManagerDataProvider::Data({}, {}, {}, {}, {}));
        for (const auto& [shortFormat, mask, inputFormat] : cases) {
            StyleManager::deleteManager();
            StyleManager::createManager(
                noFiles, CommonDateTimeFormats {shortFormat, "", "", "", ""});
            QCOMPARE(DateFormatModifiers::getDateMask(), mask);
            QCOMPARE(DateFormatModifiers::getShortDateFormatForInput(), inputFormat);
        }
    }
};

QTEST_MAIN(tst_Dates)
#include "tst_dates.moc"
