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

QByteArray document(const QJsonObject& root)
{
    return QJsonDocument(
        QJsonObject {{"format", "GuiCoreStateTree"}, {"formatVersion", 1}, {"root", root}})
        .toJson();
}

QByteArray chain(int depth)
{
    QJsonObject node = nodeJson("SplitterNode");
    for (int i = 1; i < depth; ++i)
        node = nodeJson("SplitterNode", QJsonArray {node});
    return document(node);
}

std::unique_ptr<ui::Node> chainNode(int depth)
{
    std::unique_ptr<ui::Node> node = std::make_unique<ui::SplitterNode>();
    for (int i = 1; i < depth; ++i) {
        auto parent = std::make_unique<ui::SplitterNode>();
        parent->addNode(std::move(node));
        node = std::move(parent);
    }
    return node;
}

/// A node holding one property, of its own level unless another is given.
QJsonObject withProperty(const QString& type, const QString& name, const QJsonValue& value,
    const QString& level = QString())
{
    QJsonObject node = nodeJson(type);
    node.insert(
        "properties", QJsonObject {{level.isEmpty() ? type : level, QJsonObject {{name, value}}}});
    return node;
}

} // namespace

class tst_NodeSerializer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void everyKindIsMadeAndRoundTripsThroughAFile_data()
    {
        QTest::addColumn<QString>("typeId");
        for (const QString& typeId : samples::kinds())
            QTest::newRow(qPrintable(typeId)) << typeId;
    }

    void everyKindIsMadeAndRoundTripsThroughAFile()
    {
        QFETCH(QString, typeId);
        const std::unique_ptr<ui::Node> fresh = ui::NodeFactory::createSpecificNode(typeId);
        QCOMPARE(fresh->getTypeId(), typeId);
        QCOMPARE(fresh->getTypeName(), typeId);
        QVERIFY(ui::NodeFactory::getNodeKindTypeIds().contains(typeId));
        QVERIFY(fresh->isEqual(*ui::NodeFactory::createSpecificNode(typeId)));
        QVERIFY(!fresh->isAltered());
        QVERIFY(fresh->getNodes().empty());

        // One version per class level, each level at its own.
        const QList<QString> levels = fresh->getInheritanceList();
        QCOMPARE(levels.first(), QString("Node"));
        QCOMPARE(levels.last(), typeId);
        QCOMPARE(fresh->getVersions().size(), levels.size());
        for (const QString& level : levels)
            QCOMPARE(fresh->getVersions().value(level), samples::ownVersion(level));

        QTemporaryDir dir;
        const QString path = dir.filePath("state.json");
        const std::unique_ptr<ui::Node> node = samples::populated(typeId);
        node->addNode(samples::populated("SplitterNode"));
        QVERIFY(!node->isEqual(*fresh));
        QVERIFY(ui::NodeSerializer::writeFile(*node, path));
        const std::unique_ptr<ui::Node> read = ui::NodeSerializer::readFile(path);
        QVERIFY(read);
        QCOMPARE(read->getTypeId(), typeId);
        QVERIFY(read->isEqual(*node));
        QVERIFY(!read->isAlteredRecursively());
        QCOMPARE(read->getLoadingVersions(), fresh->getVersions());
        // Written again, the text is the same: nothing is lost or invented on the way.
        QCOMPARE(ui::NodeSerializer::write(*read), ui::NodeSerializer::write(*node));

        const std::unique_ptr<ui::Node> copy = read->clone();
        QCOMPARE(copy->getVersions(), fresh->getVersions());
        QCOMPARE(copy->getInheritanceList(), levels);
    }

    void olderDataKeepsDefaults()
    {
        // Data written by an older version lacks newer properties; it still loads.
        const std::unique_ptr<ui::Node> older = ui::NodeSerializer::read(
            document(withProperty("Viewer3DNode", "viewerIndex", 3, "ViewerNode")));
        QVERIFY(older);
        ui::Viewer3DNode expected;
        expected.setViewerIndex(3);
        QVERIFY(older->isEqual(expected));
        QCOMPARE(older->getLoadingVersions().value("Viewer3DNode"), QVersionNumber(1, 0));
    }

    void malformedInputGivesNoTree_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("warning");

        const QByteArray valid
            = document(nodeJson("ViewNode", QJsonArray {nodeJson("SplitterNode")}));
        const QString notJson = "NodeSerializer : the state tree is not valid JSON: .*";
        const QString notTree = "NodeSerializer : the document does not hold a state tree.";
        const QString malformed = "NodeSerializer : malformed state tree, nothing was read: %1.";

        const auto row = [](const char* name, const QByteArray& json, const QString& warning) {
            QTest::newRow(name) << json << warning;
        };
        const QString badVersions
            = malformed.arg(R"(the versions of "%1" are missing or malformed)");
        const QString badView = badVersions.arg("ViewNode");
        // The node text of a row goes in a document of the current format.
        const auto tree = [](const char* root) {
            return R"({"format": "GuiCoreStateTree", "formatVersion": 1, "root": )"
                + QByteArray(root) + "}";
        };
        const QByteArray root = R"("root": {"type": "Node", "versions": {"Node": "1.0"}})";

        row("truncated", valid.left(valid.size() / 2), notJson);
        row("array document", QByteArray("[1, 2]"), notTree);
        row("foreign object", QByteArray(R"({"root": {}})"), notTree);
        row("root is a string", R"({"format": "GuiCoreStateTree", "root": "ViewNode"})", notTree);
        row("no format version", R"({"format": "GuiCoreStateTree", )" + root + "}", notTree);
        row("format version zero",
            R"({"format": "GuiCoreStateTree", "formatVersion": 0, )" + root + "}", notTree);
        row("newer format", R"({"format": "GuiCoreStateTree", "formatVersion": 2, )" + root + "}",
            "NodeSerializer : the state tree was written in format 2, newer than this build reads "
            "(1).");
        row("no type", tree(R"({"versions": {}})"), malformed.arg("a node has no type id"));
        row("numeric type", tree(R"({"type": 5, "versions": {}})"),
            malformed.arg("a node has no type id"));
        row("no versions", tree(R"({"type": "ViewNode"})"), badView);
        row("bad version", tree(R"({"type": "ViewNode", "versions": {"Node": "one"}})"), badView);
        row("version with suffix", tree(R"({"type": "ViewNode", "versions": {"Node": "1.0-b"}})"),
            badView);
        row("children not an array",
            tree(R"({"type": "ViewNode", "versions": {}, "children": {}})"),
            malformed.arg(R"(the children of "ViewNode" are not an array)"));
        row("child not an object",
            document(nodeJson("ViewNode", QJsonArray {nodeJson("SplitterNode"), 42})),
            malformed.arg("a node is not a JSON object"));
        row("bad grandchild deep in a valid tree",
            document(nodeJson("ViewNode",
                QJsonArray {
                    nodeJson("ViewerNode", QJsonArray {QJsonObject {{"type", "SplitterNode"}}})})),
            badVersions.arg("SplitterNode"));
        row("properties not an object",
            tree(R"({"type": "ViewNode", "versions": {}, "properties": []})"),
            malformed.arg(R"(the properties of "ViewNode" are not an object)"));
        row("level not an object",
            tree(R"({"type": "ViewNode", "versions": {}, "properties": {"ViewNode": 1}})"),
            malformed.arg(R"(the properties of level "ViewNode" in "ViewNode" are not an object)"));

        struct WrongValue
        {
            const char* row;
            const char* type;
            const char* name;
            QJsonValue value;
        };
        const WrongValue wrongValues[] {
            {"string for int", "SplitterNode", "row", "2"},
            {"fraction for int", "SplitterNode", "row", 2.5},
            {"int out of range", "SplitterNode", "row", 1e12},
            {"negative size", "CrossSectionalResliceViewerNode", "numberOfSlices", -1},
            {"number for bool", "Clipping3DNode", "mirrored", 1},
            {"number for string", "ViewNode", "viewId", 7},
            {"short vector", "AngulatedResliceNode", "origin", QJsonArray {1, 2}},
            {"text in vector", "SnappedResliceNode", "direction0", QJsonArray {1, "2", 3}},
            {"point list of numbers", "Measurement2DNode", "labelRelativePositions",
                QJsonArray {1, 2}},
            {"rect as object", "Viewer2DNode", "zoomBox", QJsonObject()},
            {"quaternion of three", "Viewer3DNode", "rotation", QJsonArray {1, 0, 0}},
            {"visual state incomplete", "DentalScanComparisonOptionsNode",
                "referenceScanVisualState", QJsonObject {{"visible", true}}},
            {"dependency of wrong kind", "BookmarkNode", "dependencies",
                QJsonArray {nodeJson("SplitterNode")}},
            {"dependency of unknown kind", "BookmarkNode", "dependencies",
                QJsonArray {nodeJson("FutureNode")}},
        };
        for (const WrongValue& wrong : wrongValues) {
            row(wrong.row, document(withProperty(wrong.type, wrong.name, wrong.value)),
                malformed.arg(QStringLiteral(R"(property "%1" of "%2" in "%2" has the wrong type)")
                                  .arg(wrong.name, wrong.type)));
        }

        row("deeper than the limit", chain(ui::NodeSerializer::MAXIMUM_DEPTH + 1),
            malformed.arg(QStringLiteral("the tree is nested deeper than %1 levels")
                              .arg(ui::NodeSerializer::MAXIMUM_DEPTH)));
        QByteArray runaway;
        for (int i = 0; i < 100000; ++i)
            runaway += R"({"children":[)";
        row("runaway nesting", runaway, notJson);
    }

    void malformedInputGivesNoTree()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, warning);
        if (warning.endsWith(".*"))
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
        else
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        QVERIFY(!ui::NodeSerializer::read(json));
    }

    void deepTreesAtTheLimitAndUnreadableFiles()
    {
        const int limit = ui::NodeSerializer::MAXIMUM_DEPTH;
        const std::unique_ptr<ui::Node> deepest = chainNode(limit);
        const std::unique_ptr<ui::Node> read
            = ui::NodeSerializer::read(ui::NodeSerializer::write(*deepest));
        QVERIFY(read);
        QVERIFY(read->isEqual(*deepest));

        // A tree that could not be read back is not written at all.
        QTemporaryDir dir;
        const QString path = dir.filePath("deep.json");
        QTest::ignoreMessage(QtWarningMsg,
            qPrintable(QStringLiteral("NodeSerializer : the state tree is nested "
                                      "deeper than %1 levels and was not written.")
                           .arg(limit)));
        QVERIFY(!ui::NodeSerializer::writeFile(*chainNode(limit + 1), path));
        QVERIFY(!QFile::exists(path));

        QTest::ignoreMessage(
            QtWarningMsg, qPrintable(QStringLiteral("NodeSerializer : cannot read %1.").arg(path)));
        QVERIFY(!ui::NodeSerializer::readFile(path));
        const QString inMissingFolder = dir.filePath("no/such/folder/state.json");
        QTest::ignoreMessage(QtWarningMsg,
            qPrintable(QStringLiteral("NodeSerializer : cannot write %1.").arg(inMissingFolder)));
        QVERIFY(!ui::NodeSerializer::writeFile(ui::ViewNode(), inMissingFolder));
    }
};

QTEST_MAIN(tst_NodeSerializer)
#include "tst_nodeserializer.moc"
