#include <guicore/utility/dental/ToothNameGenerator.h>

#include <QRegularExpression>
#include <QTest>

using Tooth = ToothChart::Tooth;
using Range = ToothNameGenerator::ToothRange;

namespace {

Tooth tooth(int value)
{
    return static_cast<Tooth>(value);
}

Range range(int first, int last)
{
    return {tooth(first), tooth(last)};
}

// Hand-written notation tables, in Universal order of the positions 1..32.
const QStringList fdiPermanent {"18", "17", "16", "15", "14", "13", "12", "11", "21", "22", "23",
    "24", "25", "26", "27", "28", "38", "37", "36", "35", "34", "33", "32", "31", "41", "42", "43",
    "44", "45", "46", "47", "48"};
// Deciduous teeth sit at positions 4..13 (upper) and 20..29 (lower).
const QStringList fdiDeciduous {"55", "54", "53", "52", "51", "61", "62", "63", "64", "65", "75",
    "74", "73", "72", "71", "81", "82", "83", "84", "85"};
const QStringList univDeciduous {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L", "M",
    "N", "O", "P", "Q", "R", "S", "T"};

int deciduousPosition(int index)
{
    return index < 10 ? 4 + index : 20 + index - 10;
}

} // namespace

class tst_ToothNameGenerator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void permanentNames_data();
    void permanentNames();
    void deciduousNames_data();
    void deciduousNames();
    void specialTeeth();
    void numberingSelection();
    void types();
    void archAndNumberingNames();
    void nextAndPrevious_data();
    void nextAndPrevious();
    void allNames();
    void rangeDisplayName_data();
    void rangeDisplayName();
    void rangeLists();
    void labelledNames();
    void upperAndLowerRanges();
    void sortByDisplayName();
};

void tst_ToothNameGenerator::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM.clear();
}

void tst_ToothNameGenerator::cleanup()
{
    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM.clear();
}

void tst_ToothNameGenerator::permanentNames_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("fdi");
    QTest::addColumn<QString>("universal");
    for (int position = 1; position <= 32; ++position)
        QTest::addRow("%d", position)
            << position << fdiPermanent.at(position - 1) << QString::number(position);
}

void tst_ToothNameGenerator::permanentNames()
{
    QFETCH(int, position);
    QFETCH(QString, fdi);
    QFETCH(QString, universal);
    QCOMPARE(ToothNameGenerator::getName(tooth(position), "FDI", false), fdi);
    QCOMPARE(ToothNameGenerator::getName(tooth(position), "UNIV", false), universal);
    QCOMPARE(ToothNameGenerator::getName(tooth(position)), fdi);

    QCOMPARE(ToothNameGenerator::getToothIdByName(fdi, "FDI"), tooth(position));
    QCOMPARE(ToothNameGenerator::getToothIdByName(universal, "UNIV"), tooth(position));
    const auto parsed = ToothNameGenerator::getToothTypeAndDentitionByName(fdi);
    QVERIFY(parsed);
    QCOMPARE(parsed->first, tooth(position));
    QCOMPARE(parsed->second, anatomy::Tooth::Permanent);
}

void tst_ToothNameGenerator::deciduousNames_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("fdi");
    QTest::addColumn<QString>("universal");
    for (int index = 0; index < 20; ++index)
        QTest::addRow("%s", qPrintable(univDeciduous.at(index)))
            << deciduousPosition(index) << fdiDeciduous.at(index) << univDeciduous.at(index);
}

void tst_ToothNameGenerator::deciduousNames()
{
    QFETCH(int, position);
    QFETCH(QString, fdi);
    QFETCH(QString, universal);
    QCOMPARE(ToothNameGenerator::getName(tooth(position), QString("FDI"), true), fdi);
    QCOMPARE(ToothNameGenerator::getName(tooth(position), QString("UNIV"), true), universal);

    const auto parsed = ToothNameGenerator::getToothTypeAndDentitionByName(universal, "UNIV");
    QVERIFY(parsed);
    QCOMPARE(parsed->first, tooth(position));
    QCOMPARE(parsed->second, anatomy::Tooth::Deciduous);
}

void tst_ToothNameGenerator::specialTeeth()
{
    QCOMPARE(ToothNameGenerator::getName(tooth(0)), QString("?"));
    QCOMPARE(ToothNameGenerator::getName(tooth(-1)), QString("-"));
    QCOMPARE(ToothNameGenerator::getName(tooth(33)), QString("?"));
    // A molar position has no deciduous tooth, hence no notation.
    QCOMPARE(ToothNameGenerator::getName(tooth(1), true), QString("?"));
    QCOMPARE(ToothNameGenerator::getToothIdByName("99"), ToothChart::UnknownTooth);
    QVERIFY(!ToothNameGenerator::getToothTypeAndDentitionByName("x"));
}

void tst_ToothNameGenerator::numberingSelection()
{
    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = "UNIV";
    QCOMPARE(ToothNameGenerator::getName(tooth(3)), QString("3"));
    QCOMPARE(ToothNameGenerator::getName(tooth(3), "FDI"), QString("16"));
    QCOMPARE(ToothNameGenerator::getName(tooth(3), ""), QString("16"));
    QCOMPARE(ToothNameGenerator::getToothIdByName("3"), tooth(3));
    // Only the exact text selects Universal numbering.
    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = "univ";
    QCOMPARE(ToothNameGenerator::getName(tooth(3)), QString("16"));
}

void tst_ToothNameGenerator::types()
{
    const QStringList names {"Right third molar", "Right second molar", "Right first molar",
        "Right second premolar", "Right first premolar", "Right canine", "Right lateral incisor",
        "Right central incisor", "Left central incisor", "Left lateral incisor", "Left canine",
        "Left first premolar", "Left second premolar", "Left first molar", "Left second molar",
        "Left third molar"};
    for (int position = 1; position <= 16; ++position) {
        QCOMPARE(ToothNameGenerator::getType(tooth(position)), names.at(position - 1));
        QCOMPARE(ToothNameGenerator::getType(tooth(33 - position)), names.at(position - 1));
    }
    QCOMPARE(ToothNameGenerator::getType(tooth(0)), QString());
    QCOMPARE(ToothNameGenerator::getType(tooth(-1)), QString());
    QCOMPARE(ToothNameGenerator::getType(tooth(33)), QString());
}

void tst_ToothNameGenerator::archAndNumberingNames()
{
    QCOMPARE(ToothNameGenerator::archDisplayName(ToothChart::Upper), QString("upper jaw"));
    QCOMPARE(ToothNameGenerator::archDisplayName(ToothChart::Lower), QString("lower jaw"));
    QCOMPARE(
        ToothNameGenerator::archDisplayName(static_cast<ToothChart::ArchType>(2)), QString("jaw"));
    QCOMPARE(ToothNameGenerator::getToothNumberingName("UNIV"), QString("Universal numbering"));
    QCOMPARE(ToothNameGenerator::getToothNumberingName("FDI"), QString("FDI numbering"));
    QCOMPARE(ToothNameGenerator::getToothNumberingName(""), QString("FDI numbering"));
}

void tst_ToothNameGenerator::nextAndPrevious_data()
{
    QTest::addColumn<QString>("numbering");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("next");
    QTest::addColumn<QString>("previous");

    const auto row = [](const char* name, const char* numbering, const char* tooth,
                         const char* next, const char* previous) {
        QTest::newRow(name) << QString(numbering) << QString(tooth) << QString(next)
                            << QString(previous);
    };
    row("fdi permanent", "", "11", "21", "12");
    row("fdi across arches", "", "28", "38", "27");
    row("fdi deciduous", "", "51", "61", "52");
    row("universal permanent", "UNIV", "16", "17", "15");
    row("universal deciduous", "UNIV", "J", "K", "I");
    row("first tooth", "UNIV", "1", "2", "-");
    row("not a tooth", "", "xx", "", "");
}

void tst_ToothNameGenerator::nextAndPrevious()
{
    QFETCH(QString, numbering);
    QFETCH(QString, name);
    QFETCH(QString, next);
    QFETCH(QString, previous);
    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = numbering;
    QCOMPARE(ToothNameGenerator::getNextTooth(name), next);
    QCOMPARE(ToothNameGenerator::getPreviousTooth(name), previous);

    // Both are reachable from QML.
    ToothNameGenerator generator;
    QString result;
    QVERIFY(QMetaObject::invokeMethod(
        &generator, "getNextTooth", Q_RETURN_ARG(QString, result), Q_ARG(QString, name)));
    QCOMPARE(result, next);
}

void tst_ToothNameGenerator::allNames()
{
    QStringList expected = fdiPermanent + fdiDeciduous;
    QCOMPARE(ToothNameGenerator::getAllNames(), expected);

    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = "UNIV";
    expected.clear();
    for (int position = 1; position <= 32; ++position)
        expected.append(QString::number(position));
    expected += univDeciduous;
    QCOMPARE(ToothNameGenerator::getAllNames(), expected);
}

void tst_ToothNameGenerator::rangeDisplayName_data()
{
    QTest::addColumn<Range>("teeth");
    QTest::addColumn<bool>("swapLowerRange");
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<QString>("fdi");

    QTest::newRow("ascending reorders") << range(12, 5) << false << true << "14-24";
    QTest::newRow("not ascending keeps order") << range(12, 5) << false << false << "24-14";
    QTest::newRow("equal ends") << range(8, 8) << false << true << "11";
    QTest::newRow("lower swapped after ascending") << range(20, 23) << true << true << "32-35";
    QTest::newRow("lower not swapped") << range(20, 23) << false << true << "35-32";
    QTest::newRow("descending lower swapped once") << range(23, 20) << true << false << "35-32";
    QTest::newRow("mixed arches not swapped") << range(14, 20) << true << true << "26-35";
    QTest::newRow("unknown end") << range(0, 5) << false << true << "";
    QTest::newRow("no tooth end") << range(5, -1) << false << true << "";
}

void tst_ToothNameGenerator::rangeDisplayName()
{
    QFETCH(Range, teeth);
    QFETCH(bool, swapLowerRange);
    QFETCH(bool, ascending);
    QFETCH(QString, fdi);
    QCOMPARE(ToothNameGenerator::displayName(teeth, "FDI", false, swapLowerRange, ascending), fdi);
    QCOMPARE(ToothNameGenerator::displayName(teeth, false, swapLowerRange, ascending), fdi);
}

void tst_ToothNameGenerator::rangeLists()
{
    const QList<Range> ranges {range(1, 3), range(9, 9)};
    QCOMPARE(ToothNameGenerator::displayName(ranges, false, false, ","), QString("18-16,21"));
    // Only the first character of the last separator goes: the blank stays behind.
    QCOMPARE(ToothNameGenerator::displayName(ranges, false, false, ", "), QString("18-16, 21 "));
    QCOMPARE(ToothNameGenerator::displayName(ranges, false, false, ";", "UNIV"), QString("1-3;9"));
    QCOMPARE(ToothNameGenerator::displayName(QList<Range>(), false, false, ","), QString());

    QCOMPARE(ToothNameGenerator::displayName(QList<Tooth> {tooth(12), tooth(1), tooth(5)}, true),
        QString("14-24"));
    QCOMPARE(ToothNameGenerator::displayName(QList<Tooth> {tooth(12), tooth(5)}, false),
        QString("24-14"));
    QCOMPARE(ToothNameGenerator::displayName(QList<Tooth>(), true), QString());

    QCOMPARE(
        ToothNameGenerator::getName(QList<Tooth> {tooth(1), tooth(32)}, "/"), QString("18/48"));
    QCOMPARE(ToothNameGenerator::getName(QList<Tooth> {tooth(1), tooth(32)}, "UNIV", " - "),
        QString("1 - 32- "));
    QCOMPARE(ToothNameGenerator::getName(QList<Tooth>(), "/"), QString());
}

void tst_ToothNameGenerator::labelledNames()
{
    QCOMPARE(ToothNameGenerator::getName(range(8, 8)), QString("Tooth 11"));
    QCOMPARE(ToothNameGenerator::getName(range(9, 8)), QString("Teeth 11-21"));
    QCOMPARE(ToothNameGenerator::displayNameWithoutBrackets(range(3, 1)), QString("18-16"));
    QCOMPARE(ToothNameGenerator::displayNameWithoutBrackets(range(3, 1), "UNIV"), QString("1-3"));

    QCOMPARE(ToothNameGenerator::getName(QList<Range> {range(8, 8)}, false), QString("Tooth 11"));
    QCOMPARE(ToothNameGenerator::getName(QList<Range> {range(9, 8)}, false),
        QString("Teeth 21-11")); // stored order, not reordered
    QCOMPARE(ToothNameGenerator::getName(QList<Range> {range(8, 8), range(30, 30)}, false),
        QString("Teeth 11, 46"));
    QCOMPARE(ToothNameGenerator::getName(QList<Range> {range(8, 8), range(1, 2)}, true),
        QString("11, 18-17"));
    QCOMPARE(ToothNameGenerator::getName(QList<Range>(), false), QString());
}

void tst_ToothNameGenerator::upperAndLowerRanges()
{
    QCOMPARE(ToothNameGenerator::toothRangeDisplayNames(range(3, 1), range(20, 23), false, " | "),
        QString("18-16 | 32-35"));
    QCOMPARE(ToothNameGenerator::toothRangeDisplayNames(range(0, 0), range(20, 23), false, " | "),
        QString("32-35"));
    QCOMPARE(ToothNameGenerator::toothRangeDisplayNames(range(3, 1), range(0, 0), false, " | "),
        QString("18-16"));
    QCOMPARE(ToothNameGenerator::toothRangeDisplayNames(range(4, 5), range(20, 21), true, "/"),
        QString("55-54/74-75"));
}

void tst_ToothNameGenerator::sortByDisplayName()
{
    QList<Tooth> teeth {tooth(32), tooth(9), tooth(1), tooth(17), tooth(0)};
    ToothNameGenerator::sortTeethListByDisplayName(teeth);
    // FDI 48, 21, 18, 38 and "?" (which sorts as 0).
    QCOMPARE(teeth, (QList<Tooth> {tooth(0), tooth(1), tooth(9), tooth(17), tooth(32)}));

    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = "UNIV";
    teeth = {tooth(32), tooth(9), tooth(10), tooth(2)};
    ToothNameGenerator::sortTeethListByDisplayName(teeth);
    QCOMPARE(teeth, (QList<Tooth> {tooth(2), tooth(9), tooth(10), tooth(32)}));
}

QTEST_MAIN(tst_ToothNameGenerator)
#include "tst_toothnamegenerator.moc"
