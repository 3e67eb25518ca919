#include "NodeSamples.h"

#include <guicore/ui/NodeSerializer.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

namespace {

QJsonObject nodeJson(const QString& type, const QJsonArray& children = {})
{
    QJsonObject node {{"type", type}, {"versions", QJsonObject {{"Node", "1.0"}, {type, "1.0"}}}};
    if (!children.isEmpty())
        node.insert("children", children);
    return node;
}

/// A document of the given format version (the current one by default) around a root.
QByteArray document(const QByteArray& root, const char* head = R"("formatVersion": 1, )")
{
    return "{" + QByteArray(head) + R"("format": "GuiCoreStateTree", "root": )" + root + "}";
}

std::unique_ptr<ui::Node> chainNode(int depth)
{
    auto node = std::make_unique<ui::SplitterNode>();
    if (depth > 1)
        node->addNode(chainNode(depth - 1));
    return node;
}

} // namespace

class tst_NodeSerializer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void everyKindIsMadeAndRoundTripsThroughAFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("state.json");
        for (const QString& typeId : samples::kinds()) {
            const auto fresh = ui::NodeFactory::createSpecificNode(typeId);
            const QList<QString> levels = fresh->getInheritanceList();
            QCOMPARE((QStringList {
                         fresh->getTypeId(), fresh->getTypeName(), levels.first(), levels.last()}),
                (QStringList {typeId, typeId, "Node", typeId}));
            QVERIFY(ui::NodeFactory::getNodeKindTypeIds().contains(typeId) && !fresh->isAltered());
            // One version per class level, each level at its own.
            QMap<QString, QVersionNumber> versions;
            for (const QString& level : levels)
                versions.insert(level, samples::ownVersion(level));
            QCOMPARE(fresh->getVersions(), versions);

            const auto node = samples::populated(typeId);
            node->addNode(samples::populated("SplitterNode"));
            QVERIFY(ui::NodeSerializer::writeFile(*node, path));
            const auto read = ui::NodeSerializer::readFile(path);
            QVERIFY2(read && read->isEqual(*node), qPrintable(typeId));
            QVERIFY(read->getTypeId() == typeId && !read->isAlteredRecursively());
            // The versions read take no part in comparisons, and copies keep them.
            QCOMPARE(read->clone()->getLoadingVersions(), versions);
            // Written again, the text is the same: nothing is lost or invented on the way.
            QCOMPARE(ui::NodeSerializer::write(*read), ui::NodeSerializer::write(*node));
        }
    }

    void malformedInputGivesNoTree()
    {
        const auto refused = [](const QByteArray& json, const QString& warning) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
            QVERIFY2(!ui::NodeSerializer::read(json), json.constData());
        };
        const QString notTree = "NodeSerializer : the document does not hold a state tree.";
        const QString malformed = "NodeSerializer : malformed state tree, nothing was read: %1.";
        const QString badVersions
            = malformed.arg(R"(the versions of "%1" are missing or malformed)");
        const char* const node = R"({"type": "Node", "versions": {"Node": "1.0"}})";
        QByteArray deep = node;
        for (int i = 0; i < ui::NodeSerializer::MAXIMUM_DEPTH; ++i)
            deep = R"({"type": "SplitterNode", "versions": {}, "children": [)" + deep + "]}";
        const std::tuple<const char*, QByteArray, QString> rows[] {
            {"array document", "[1, 2]", notTree}, {"foreign object", R"({"root": {}})", notTree},
            {"root is a string", document(R"("ViewNode")"), notTree},
            {"no format version", document(node, ""), notTree},
            {"format version zero", document(node, R"("formatVersion": 0, )"), notTree},
            {"newer format", document(node, R"("formatVersion": 2, )"),
                "NodeSerializer : the state tree was written in format 2, newer than this build "
                "reads (1)."},
            {"numeric type", document(R"({"type": 5, "versions": {}})"),
                malformed.arg("a node has no type id")},
            {"no versions", document(R"({"type": "ViewNode"})"), badVersions.arg("ViewNode")},
            {"bad version", document(R"({"type": "ViewNode", "versions": {"Node": "one"}})"),
                badVersions.arg("ViewNode")},
            {"version not a string", document(R"({"type": "ViewNode", "versions": {"Node": 1}})"),
                badVersions.arg("ViewNode")},
            {"version with suffix",
                document(R"({"type": "ViewNode", "versions": {"Node": "1.0-b"}})"),
                badVersions.arg("ViewNode")},
            {"children not an array",
                document(R"({"type": "ViewNode", "versions": {}, "children": {}})"),
                malformed.arg(R"(the children of "ViewNode" are not an array)")},
            {"child not an object",
                document(
                    QJsonDocument(nodeJson("ViewNode", QJsonArray {nodeJson("SplitterNode"), 42}))
                        .toJson()),
                malformed.arg("a node is not a JSON object")},
            {"properties not an object",
                document(R"({"type": "ViewNode", "versions": {}, "properties": []})"),
                malformed.arg(R"(the properties of "ViewNode" are not an object)")},
            {"level not an object",
                document(R"({"type": "ViewNode", "versions": {}, "properties": {"ViewNode": 1}})"),
                malformed.arg(
                    R"(the properties of level "ViewNode" in "ViewNode" are not an object)")},
            {"deeper than the limit", document(deep),
                malformed.arg(QStringLiteral("the tree is nested deeper than %1 levels")
                                  .arg(ui::NodeSerializer::MAXIMUM_DEPTH))}};
        for (const auto& [name, json, warning] : rows)
            refused(json, warning);

        const std::tuple<const char*, const char*, QJsonValue> wrongValues[] {
            {"SplitterNode", "row", "2"}, {"SplitterNode", "row", 2.5},
            {"SplitterNode", "row", 1e12},
            {"CrossSectionalResliceViewerNode", "numberOfSlices", -1},
            {"Clipping3DNode", "mirrored", 1}, {"ViewNode", "viewId", 7},
            {"AngulatedResliceNode", "origin", QJsonArray {1, 2}},
            {"SnappedResliceNode", "direction0", QJsonArray {1, "2", 3}},
            {"Measurement2DNode", "labelRelativePositions", QJsonArray {1, 2}},
            {"Viewer2DNode", "zoomBox", QJsonObject()},
            {"Viewer3DNode", "rotation", QJsonArray {1, 0, 0}},
            {"DentalScanComparisonOptionsNode", "referenceScanVisualState",
                QJsonObject {{"visible", true}}},
            {"BookmarkNode", "dependencies", QJsonArray {nodeJson("SplitterNode")}},
            {"BookmarkNode", "dependencies", QJsonArray {nodeJson("FutureNode")}}};
        const QString reason = R"(property "%1" of "%2" in "%2" has the wrong type)";
        for (const auto& [type, name, value] : wrongValues) {
            QJsonObject node = nodeJson(type);
            node.insert("properties", QJsonObject {{type, QJsonObject {{name, value}}}});
            refused(document(QJsonDocument(node).toJson()), malformed.arg(reason.arg(name, type)));
        }
    }

    void deepTreesAtTheLimitAndUnreadableFiles()
    {
        const int limit = ui::NodeSerializer::MAXIMUM_DEPTH;
        const auto deepest = chainNode(limit);
        const auto read = ui::NodeSerializer::read(ui::NodeSerializer::write(*deepest));
        QVERIFY(read && read->isEqual(*deepest));

        // A tree that could not be read back is not written at all.
        QTemporaryDir dir;
        const QString f = dir.filePath("x");
        QTest::ignoreMessage(QtWarningMsg,
            qPrintable(QStringLiteral("NodeSerializer : the state tree is nested deeper than %1 "
                                      "levels and was not written.")
                           .arg(limit)));
        QVERIFY(!ui::NodeSerializer::writeFile(*chainNode(limit + 1), f) && !QFile::exists(f));

        QTest::ignoreMessage(QtWarningMsg, qPrintable("NodeSerializer : cannot read " + f + "."));
        QVERIFY(!ui::NodeSerializer::readFile(f));
        const QString missing = dir.filePath("no/such/folder/state.json");
        QTest::ignoreMessage(
            QtWarningMsg, qPrintable("NodeSerializer : cannot write " + missing + "."));
        QVERIFY(!ui::NodeSerializer::writeFile(ui::ViewNode(), missing));
    }
};

QTEST_MAIN(tst_NodeSerializer)
#include "tst_nodeserializer.moc"
