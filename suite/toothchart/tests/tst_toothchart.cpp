#include <toothchart/DentalNotationConvertor.h>
#include <toothchart/ToothChart.h>

#include <QtTest>

using Convertor = DentalNotationConvertor;
using T = ToothChart::Tooth;

class tst_ToothChart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    // Every name, both ways, is pinned where the application reads it: tst_utility.
    void notationsArchesAndWalks()
    {
        QList<T> all;
        for (int value = 1; value <= 32; ++value) {
            all << T(value);
            const bool child
                = ToothChart::getTeethForChild(ToothChart::getArch(T(value))).contains(T(value));
            QCOMPARE(Convertor::getFdiNotationForToothType(T(value), true).isEmpty(), !child);
            QCOMPARE(Convertor::getUnivNotationForToothType(T(value), true).isEmpty(), !child);
        }
        QCOMPARE(Convertor::getToothTypeForFdiNotation("  48 "), T(32)); // blanks around are fine
        QCOMPARE(Convertor::getToothTypeForUnivNotation(" 32  "), T(32));
        // "08" and the like are neither: FDI has no quadrant 0, Universal writes no leading zero.
        for (const QString text :
            {"", " ", "19", "10", "56", "66", "91", "0", "39", "U", "1a", "-1", "011", "08"}) {
            QCOMPARE(Convertor::getToothTypeForFdiNotation(text), ToothChart::UnknownTooth);
            QVERIFY(!Convertor::getToothTypeAndDentitionForFdiNotation(text));
            if (text != "19" && text != "10")
                QCOMPARE(Convertor::getToothTypeForUnivNotation(text), ToothChart::UnknownTooth);
            QCOMPARE(Convertor::getFdiNotationForToothType(T(text.toInt() + 40), false), QString());
        }
        using TC = ToothChart;
        QCOMPARE(TC::getTeeth(TC::Upper) + TC::getTeeth(TC::Lower), all);
        for (const T t : {TC::UnknownTooth, TC::NoTooth, T(33)})
            QVERIFY(!TC::isValidTooth(t) && !TC::isUpperTooth(t) && !TC::isLowerTooth(t));
        QVERIFY(
            TC::isUpperTooth(T(16)) && !TC::isLowerTooth(T(16)) && TC::getArch(T(16)) == TC::Upper);
        QVERIFY(
            TC::isLowerTooth(T(17)) && !TC::isUpperTooth(T(17)) && TC::getArch(T(32)) == TC::Lower);
        // Tooth, child walk, next, previous.
        const std::tuple<T, bool, T, T> steps[]
            = {{T(16), false, T(17), T(15)}, {T(32), false, TC::NoTooth, T(31)},
                {T(1), false, T(2), TC::NoTooth}, {T(20), true, T(21), T(13)},
                {T(4), true, T(5), TC::NoTooth}, {T(2), true, TC::NoTooth, TC::NoTooth},
                {TC::UnknownTooth, false, TC::NoTooth, TC::NoTooth}};
        for (const auto& [tooth, child, next, previous] : steps) {
            QCOMPARE(TC::getNextTooth(tooth, child), next);
            QCOMPARE(TC::getPreviousTooth(tooth, child), previous);
        }
        // A whole child walk visits exactly the deciduous positions, upper arch first.
        QList<T> walked;
        for (T tooth = T(4); tooth != TC::NoTooth; tooth = TC::getNextTooth(tooth, true))
            walked.append(tooth);
        QCOMPARE(walked, TC::getTeethForChild(TC::Upper) + TC::getTeethForChild(TC::Lower));
    }
};

QTEST_GUILESS_MAIN(tst_ToothChart)
#include "tst_toothchart.moc"
