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

    // Every name, both ways, is pinned where the application reads it: tst_toothnamegenerator.
    void onlyDeciduousPositionsHaveChildNotations()
    {
        for (int value = 1; value <= 32; ++value) {
            const bool child
                = ToothChart::getTeethForChild(ToothChart::getArch(T(value))).contains(T(value));
            QCOMPARE(Convertor::getFdiNotationForToothType(T(value), true).isEmpty(), !child);
            QCOMPARE(Convertor::getUnivNotationForToothType(T(value), true).isEmpty(), !child);
        }
        QCOMPARE(Convertor::getToothTypeForFdiNotation("  48 "), T(32)); // blanks around are fine
        QCOMPARE(Convertor::getToothTypeForUnivNotation(" 32  "), T(32));
    }

    void rejectsTextsThatNameNoTooth()
    {
        // "08" and the like are neither: FDI has no quadrant 0, Universal writes no leading zero.
        for (const QString text :
            {"", " ", "19", "10", "56", "66", "91", "0", "39", "U", "1a", "-1", "011", "08"}) {
            QCOMPARE(Convertor::getToothTypeForFdiNotation(text), ToothChart::UnknownTooth);
            QVERIFY(!Convertor::getToothTypeAndDentitionForFdiNotation(text));
            if (text != "19" && text != "10")
                QCOMPARE(Convertor::getToothTypeForUnivNotation(text), ToothChart::UnknownTooth);
            QCOMPARE(Convertor::getFdiNotationForToothType(T(text.toInt() + 40), false), QString());
        }
    }

    void archesValidityAndWalks()
    {
        QCOMPARE(ToothChart::getTeeth(ToothChart::Upper).size(), 16);
        QCOMPARE(ToothChart::getTeeth(ToothChart::Upper).first(), T(1));
        QCOMPARE(ToothChart::getTeeth(ToothChart::Lower).first(), T(17));
        QCOMPARE(ToothChart::getTeethForChild(ToothChart::Upper).first(), T(4));
        QCOMPARE(ToothChart::getTeethForChild(ToothChart::Lower).last(), T(29));
        QVERIFY(!ToothChart::isValidTooth(ToothChart::UnknownTooth));
        QVERIFY(!ToothChart::isValidTooth(ToothChart::NoTooth));
        QVERIFY(!ToothChart::isValidTooth(T(33)));
        QVERIFY(ToothChart::isUpperTooth(T(16)));
        QVERIFY(ToothChart::isLowerTooth(T(17)));
        QVERIFY(!ToothChart::isLowerTooth(T(33)));
        QCOMPARE(ToothChart::getArch(T(32)), ToothChart::Lower);
        QCOMPARE(ToothChart::getNextTooth(T(16), false), T(17));
        QCOMPARE(ToothChart::getNextTooth(T(32), false), ToothChart::NoTooth);
        QCOMPARE(ToothChart::getPreviousTooth(T(1), false), ToothChart::NoTooth);
        QCOMPARE(ToothChart::getPreviousTooth(T(17), false), T(16));
        QCOMPARE(ToothChart::getPreviousTooth(T(20), true), T(13));
        QCOMPARE(ToothChart::getPreviousTooth(T(4), true), ToothChart::NoTooth);
        QCOMPARE(ToothChart::getNextTooth(T(2), true), ToothChart::NoTooth);
        QCOMPARE(ToothChart::getNextTooth(ToothChart::UnknownTooth, false), ToothChart::NoTooth);
        // A whole child walk visits exactly the deciduous positions, upper arch first.
        QList<T> walked;
        for (T tooth = T(4); tooth != ToothChart::NoTooth;
             tooth = ToothChart::getNextTooth(tooth, true))
            walked.append(tooth);
        QCOMPARE(walked,
            ToothChart::getTeethForChild(ToothChart::Upper)
                + ToothChart::getTeethForChild(ToothChart::Lower));
    }
};

QTEST_GUILESS_MAIN(tst_ToothChart)
#include "tst_toothchart.moc"
