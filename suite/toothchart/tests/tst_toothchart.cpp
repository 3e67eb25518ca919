#include <toothchart/DentalNotationConvertor.h>
#include <toothchart/ToothChart.h>

#include <QtTest>

class tst_ToothChart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void permanentNotationsRoundTrip();
    void deciduousNotationsRoundTrip();
    void knownNotations_data();
    void knownNotations();
    void rejectsTextsThatNameNoTooth_data();
    void rejectsTextsThatNameNoTooth();
    void archesAndValidity();
    void walksAcrossTheArches();
};

void tst_ToothChart::permanentNotationsRoundTrip()
{
    QSet<QString> fdiSeen;
    for (int value = 1; value <= 32; ++value) {
        const auto tooth = ToothChart::Tooth(value);
        const QString fdi = DentalNotationConvertor::getFdiNotationForToothType(tooth, false);
        const QString univ = DentalNotationConvertor::getUnivNotationForToothType(tooth, false);
        QCOMPARE(univ, QString::number(value));
        QVERIFY2(!fdiSeen.contains(fdi), qPrintable(fdi));
        fdiSeen.insert(fdi);
        QCOMPARE(DentalNotationConvertor::getToothTypeForFdiNotation(fdi), tooth);
        QCOMPARE(DentalNotationConvertor::getToothTypeForUnivNotation(univ), tooth);
        const auto parsed = DentalNotationConvertor::getToothTypeAndDentitionForFdiNotation(fdi);
        QVERIFY(parsed);
        QCOMPARE(parsed->first, tooth);
        QCOMPARE(parsed->second, anatomy::Tooth::Permanent);
        const auto parsedUniv
            = DentalNotationConvertor::getToothTypeAndDentitionForUnivNotation(univ);
        QVERIFY(parsedUniv);
        QCOMPARE(parsedUniv->second, anatomy::Tooth::Permanent);
    }
}

void tst_ToothChart::deciduousNotationsRoundTrip()
{
    int count = 0;
    for (int value = 1; value <= 32; ++value) {
        const auto tooth = ToothChart::Tooth(value);
        const QString fdi = DentalNotationConvertor::getFdiNotationForToothType(tooth, true);
        const QString univ = DentalNotationConvertor::getUnivNotationForToothType(tooth, true);
        const bool childPosition
            = ToothChart::getTeethForChild(ToothChart::getArch(tooth)).contains(tooth);
        QCOMPARE(fdi.isEmpty(), !childPosition);
        QCOMPARE(univ.isEmpty(), !childPosition);
        if (!childPosition)
            continue;
        ++count;
        for (const auto& parsed :
            {DentalNotationConvertor::getToothTypeAndDentitionForFdiNotation(fdi),
                DentalNotationConvertor::getToothTypeAndDentitionForUnivNotation(univ)}) {
            QVERIFY(parsed);
            QCOMPARE(parsed->first, tooth);
            QCOMPARE(parsed->second, anatomy::Tooth::Deciduous);
        }
    }
    QCOMPARE(count, 20);
}

void tst_ToothChart::knownNotations_data()
{
    QTest::addColumn<int>("tooth");
    QTest::addColumn<bool>("child");
    QTest::addColumn<QString>("fdi");
    QTest::addColumn<QString>("univ");
    QTest::newRow("upper right third molar") << 1 << false << "18"
                                             << "1";
    QTest::newRow("upper right central") << 8 << false << "11"
                                         << "8";
    QTest::newRow("upper left central") << 9 << false << "21"
                                        << "9";
    QTest::newRow("upper left third molar") << 16 << false << "28"
                                            << "16";
    QTest::newRow("lower left third molar") << 17 << false << "38"
                                            << "17";
    QTest::newRow("lower left central") << 24 << false << "31"
                                        << "24";
    QTest::newRow("lower right central") << 25 << false << "41"
                                         << "25";
    QTest::newRow("lower right third molar") << 32 << false << "48"
                                             << "32";
    QTest::newRow("A") << 4 << true << "55"
                       << "A";
    QTest::newRow("E") << 8 << true << "51"
                       << "E";
    QTest::newRow("J") << 13 << true << "65"
                       << "J";
    QTest::newRow("K") << 20 << true << "75"
                       << "K";
    QTest::newRow("T") << 29 << true << "85"
                       << "T";
}

void tst_ToothChart::knownNotations()
{
    QFETCH(int, tooth);
    QFETCH(bool, child);
    QFETCH(QString, fdi);
    QFETCH(QString, univ);
    QCOMPARE(
        DentalNotationConvertor::getFdiNotationForToothType(ToothChart::Tooth(tooth), child), fdi);
    QCOMPARE(DentalNotationConvertor::getUnivNotationForToothType(ToothChart::Tooth(tooth), child),
        univ);
    QCOMPARE(DentalNotationConvertor::getToothTypeForFdiNotation(
                 QStringLiteral("  ") + fdi + QStringLiteral(" ")),
        ToothChart::Tooth(tooth));
}

void tst_ToothChart::rejectsTextsThatNameNoTooth_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
        {"", " ", "19", "10", "56", "66", "91", "0", "39", "U", "1a", "-1", "011", "08"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_ToothChart::rejectsTextsThatNameNoTooth()
{
    QFETCH(QString, text);
    // "08" and the like are neither: FDI has no quadrant 0, Universal writes no leading zero.
    QCOMPARE(DentalNotationConvertor::getToothTypeForFdiNotation(text), ToothChart::UnknownTooth);
    QVERIFY(!DentalNotationConvertor::getToothTypeAndDentitionForFdiNotation(text));
    if (text != QLatin1String("19") && text != QLatin1String("10"))
        QCOMPARE(
            DentalNotationConvertor::getToothTypeForUnivNotation(text), ToothChart::UnknownTooth);
    QCOMPARE(DentalNotationConvertor::getFdiNotationForToothType(
                 ToothChart::Tooth(text.toInt() + 40), false),
        QString());
}

void tst_ToothChart::archesAndValidity()
{
    QCOMPARE(ToothChart::getTeeth(ToothChart::Upper).size(), 16);
    QCOMPARE(ToothChart::getTeeth(ToothChart::Upper).first(), ToothChart::Tooth(1));
    QCOMPARE(ToothChart::getTeeth(ToothChart::Lower).first(), ToothChart::Tooth(17));
    QCOMPARE(ToothChart::getTeethForChild(ToothChart::Upper).first(), ToothChart::Tooth(4));
    QCOMPARE(ToothChart::getTeethForChild(ToothChart::Lower).last(), ToothChart::Tooth(29));
    QVERIFY(!ToothChart::isValidTooth(ToothChart::UnknownTooth));
    QVERIFY(!ToothChart::isValidTooth(ToothChart::NoTooth));
    QVERIFY(!ToothChart::isValidTooth(ToothChart::Tooth(33)));
    QVERIFY(ToothChart::isUpperTooth(ToothChart::Tooth(16)));
    QVERIFY(ToothChart::isLowerTooth(ToothChart::Tooth(17)));
    QVERIFY(!ToothChart::isLowerTooth(ToothChart::Tooth(33)));
    QCOMPARE(ToothChart::getArch(ToothChart::Tooth(32)), ToothChart::Lower);
}

void tst_ToothChart::walksAcrossTheArches()
{
    using T = ToothChart::Tooth;
    QCOMPARE(ToothChart::getNextTooth(T(16), false), T(17));
    QCOMPARE(ToothChart::getNextTooth(T(32), false), ToothChart::NoTooth);
    QCOMPARE(ToothChart::getPreviousTooth(T(1), false), ToothChart::NoTooth);
    QCOMPARE(ToothChart::getPreviousTooth(T(17), false), T(16));
    QCOMPARE(ToothChart::getNextTooth(T(13), true), T(20));
    QCOMPARE(ToothChart::getPreviousTooth(T(20), true), T(13));
    QCOMPARE(ToothChart::getPreviousTooth(T(4), true), ToothChart::NoTooth);
    QCOMPARE(ToothChart::getNextTooth(T(29), true), ToothChart::NoTooth);
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

QTEST_GUILESS_MAIN(tst_ToothChart)
#include "tst_toothchart.moc"
