#include <guicore/utility/dental/ToothNameGenerator.h>

#include <QtTest>

using G = ToothNameGenerator;
using Tooth = ToothChart::Tooth;
using Range = G::ToothRange;

namespace {

Range range(int first, int last)
{
    return {Tooth(first), Tooth(last)};
}

// Hand-written notation tables, in Universal order of the positions 1..32; the deciduous teeth
// sit at positions 4..13 (upper) and 20..29 (lower).
const QStringList fdiPermanent {"18", "17", "16", "15", "14", "13", "12", "11", "21", "22", "23",
    "24", "25", "26", "27", "28", "38", "37", "36", "35", "34", "33", "32", "31", "41", "42", "43",
    "44", "45", "46", "47", "48"};
const QStringList fdiDeciduous {"55", "54", "53", "52", "51", "61", "62", "63", "64", "65", "75",
    "74", "73", "72", "71", "81", "82", "83", "84", "85"};
const QStringList univDeciduous {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L", "M",
    "N", "O", "P", "Q", "R", "S", "T"};

} // namespace

class tst_ToothNameGenerator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        G::TOOTH_NUMBERING_SYSTEM.clear();
    }
    void cleanup() { G::TOOTH_NUMBERING_SYSTEM.clear(); }

    void everyNameBothWays()
    {
        QStringList universal;
        for (int position = 1; position <= 32; ++position)
            universal.append(QString::number(position));
        // The position of the i-th name: 32 permanent teeth, then the deciduous ones.
        const auto position = [](int i) { return i < 32 ? i + 1 : i < 42 ? i - 28 : i - 22; };
        for (const QString numbering : {"", "UNIV"}) {
            G::TOOTH_NUMBERING_SYSTEM = numbering;
            const QStringList names
                = numbering.isEmpty() ? fdiPermanent + fdiDeciduous : universal + univDeciduous;
            QCOMPARE(G::getAllNames(), names);
            for (int i = 0; i < names.size(); ++i) {
                const bool child = i >= 32;
                QCOMPARE(G::getName(Tooth(position(i)), numbering, child), names.at(i));
                QCOMPARE(G::getToothIdByName(names.at(i)), Tooth(position(i)));
                const auto parsed = G::getToothTypeAndDentitionByName(names.at(i));
                QVERIFY(parsed);
                QCOMPARE(parsed->first, Tooth(position(i)));
                QCOMPARE(
                    parsed->second, child ? anatomy::Tooth::Deciduous : anatomy::Tooth::Permanent);
            }
        }
    }

    void specialTeethAndNumberingSelection()
    {
        QCOMPARE(G::getName(Tooth(0)), QString("?"));
        QCOMPARE(G::getName(Tooth(-1)), QString("-"));
        QCOMPARE(G::getName(Tooth(33)), QString("?"));
        QCOMPARE(G::getName(Tooth(1), true), QString("?")); // a molar has no deciduous tooth
        QCOMPARE(G::getName(Tooth(5), true), QString("54"));
        QCOMPARE(G::getToothIdByName("99"), ToothChart::UnknownTooth);
        QVERIFY(!G::getToothTypeAndDentitionByName("x"));
        QCOMPARE(G::getToothIdByName("16", "FDI"), Tooth(3));
        QCOMPARE(G::getToothTypeAndDentitionByName("A", "UNIV")->first, Tooth(4));

        G::TOOTH_NUMBERING_SYSTEM = "UNIV";
        QCOMPARE(G::getName(Tooth(3)), QString("3"));
        QCOMPARE(G::getName(Tooth(3), "FDI"), QString("16"));
        QCOMPARE(G::getName(Tooth(3), QString()), QString("16"));
        QCOMPARE(G::getToothIdByName("3"), Tooth(3));
        G::TOOTH_NUMBERING_SYSTEM = "univ"; // only the exact text selects Universal numbering
        QCOMPARE(G::getName(Tooth(3)), QString("16"));
    }

    void labels()
    {
        const QStringList types {"Right third molar", "Right second molar", "Right first molar",
            "Right second premolar", "Right first premolar", "Right canine",
            "Right lateral incisor", "Right central incisor", "Left central incisor",
            "Left lateral incisor", "Left canine", "Left first premolar", "Left second premolar",
            "Left first molar", "Left second molar", "Left third molar"};
        for (int position = 1; position <= 16; ++position) {
            QCOMPARE(G::getType(Tooth(position)), types.at(position - 1));
            QCOMPARE(G::getType(Tooth(33 - position)), types.at(position - 1));
        }
        QCOMPARE(G::getType(Tooth(0)) + G::getType(Tooth(-1)) + G::getType(Tooth(33)), QString());

        QCOMPARE(G::archDisplayName(ToothChart::Upper), QString("upper jaw"));
        QCOMPARE(G::archDisplayName(ToothChart::Lower), QString("lower jaw"));
        QCOMPARE(G::archDisplayName(static_cast<ToothChart::ArchType>(2)), QString("jaw"));
        QCOMPARE(G::getToothNumberingName("UNIV"), QString("Universal numbering"));
        QCOMPARE(G::getToothNumberingName("FDI"), QString("FDI numbering"));
        QCOMPARE(G::getToothNumberingName(""), QString("FDI numbering"));
    }

    void nextAndPrevious()
    {
        const char* const cases[][4] = {{"", "11", "21", "12"}, {"", "28", "38", "27"},
            {"", "51", "61", "52"}, {"UNIV", "16", "17", "15"}, {"UNIV", "J", "K", "I"},
            {"UNIV", "1", "2", "-"}, {"", "xx", "", ""}};
        G generator;
        for (const auto& [numbering, name, expectedNext, previous] : cases) {
            G::TOOTH_NUMBERING_SYSTEM = numbering;
            QCOMPARE(G::getPreviousTooth(name), QString(previous));
            QString next; // also reachable from QML
            QVERIFY(QMetaObject::invokeMethod(
                &generator, "getNextTooth", Q_RETURN_ARG(QString, next), Q_ARG(QString, name)));
            QCOMPARE(next, QString(expectedNext));
        }
    }

    void rangeDisplayName()
    {
        // Ascending reorders; then a range within the lower arch is swapped (once, whatever the
        // order it came in), a range across the arches is not.
        const std::tuple<Range, bool, bool, const char*> cases[]
            = {{range(12, 5), false, true, "14-24"}, {range(12, 5), false, false, "24-14"},
                {range(8, 8), false, true, "11"}, {range(20, 23), true, true, "32-35"},
                {range(20, 23), false, true, "35-32"}, {range(23, 20), true, false, "35-32"},
                {range(14, 20), true, true, "26-35"}, {range(0, 5), false, true, ""},
                {range(5, -1), false, true, ""}};
        for (const auto& [teeth, swapLower, ascending, fdi] : cases) {
            QCOMPARE(G::displayName(teeth, "FDI", false, swapLower, ascending), fdi);
            QCOMPARE(G::displayName(teeth, false, swapLower, ascending), fdi);
        }
    }

    void listsOfRangesAndTeeth()
    {
        const QList<Range> ranges {range(1, 3), range(9, 9)};
        QCOMPARE(G::displayName(ranges, false, false, ","), QString("18-16,21"));
        // Only the first character of the last separator goes: the blank stays behind.
        QCOMPARE(G::displayName(ranges, false, false, ", "), QString("18-16, 21 "));
        QCOMPARE(G::displayName(ranges, false, false, ";", "UNIV"), QString("1-3;9"));
        QCOMPARE(G::displayName(QList<Range>(), false, false, ","), QString());

        QCOMPARE(G::displayName(QList<Tooth> {Tooth(12), Tooth(1), Tooth(5)}, true), "14-24");
        QCOMPARE(G::displayName(QList<Tooth> {Tooth(12), Tooth(5)}, false), QString("24-14"));
        QCOMPARE(G::displayName(QList<Tooth>(), true), QString());

        QCOMPARE(G::getName(QList<Tooth> {Tooth(1), Tooth(32)}, "/"), QString("18/48"));
        QCOMPARE(G::getName(QList<Tooth> {Tooth(1), Tooth(32)}, "UNIV", " - "), "1 - 32- ");
        QCOMPARE(G::getName(QList<Tooth>(), "/"), QString());

        QCOMPARE(G::getName(range(8, 8)), QString("Tooth 11"));
        QCOMPARE(G::getName(range(9, 8)), QString("Teeth 11-21"));
        QCOMPARE(G::displayNameWithoutBrackets(range(3, 1)), QString("18-16"));
        QCOMPARE(G::displayNameWithoutBrackets(range(3, 1), "UNIV"), QString("1-3"));

        QCOMPARE(G::getName(QList<Range> {range(8, 8)}, false), QString("Tooth 11"));
        QCOMPARE(G::getName(QList<Range> {range(9, 8)}, false), "Teeth 21-11"); // stored order
        QCOMPARE(G::getName(QList<Range> {range(8, 8), range(30, 30)}, false), "Teeth 11, 46");
        QCOMPARE(G::getName(QList<Range> {range(8, 8), range(1, 2)}, true), "11, 18-17");
        QCOMPARE(G::getName(QList<Range>(), false), QString());

        QCOMPARE(G::toothRangeDisplayNames(range(3, 1), range(20, 23), false, " | "),
            QString("18-16 | 32-35"));
        QCOMPARE(G::toothRangeDisplayNames(range(0, 0), range(20, 23), false, " | "), "32-35");
        QCOMPARE(G::toothRangeDisplayNames(range(3, 1), range(0, 0), false, " | "), "18-16");
        QCOMPARE(G::toothRangeDisplayNames(range(4, 5), range(20, 21), true, "/"), "55-54/74-75");
    }

    void sortByDisplayName()
    {
        QList<Tooth> teeth {Tooth(32), Tooth(9), Tooth(1), Tooth(17), Tooth(0)};
        G::sortTeethListByDisplayName(teeth);
        // FDI 48, 21, 18, 38 and "?" (which sorts as 0).
        QCOMPARE(teeth, (QList<Tooth> {Tooth(0), Tooth(1), Tooth(9), Tooth(17), Tooth(32)}));
        G::TOOTH_NUMBERING_SYSTEM = "UNIV";
        teeth = {Tooth(32), Tooth(9), Tooth(10), Tooth(2)};
        G::sortTeethListByDisplayName(teeth);
        QCOMPARE(teeth, (QList<Tooth> {Tooth(2), Tooth(9), Tooth(10), Tooth(32)}));
    }
};

QTEST_MAIN(tst_ToothNameGenerator)
#include "tst_toothnamegenerator.moc"
