#include "NodeSamples.h"

#include <guicore/ui/NodeSerializer.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

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

QJsonObject withProperty(
    const QString& type, const QString& level, const QString& name, const QJsonValue& value)
{
    QJsonObject node = nodeJson(type);
    node.insert("properties", QJsonObject {{level, QJsonObject {{name, value}}}});
    return node;
}

} // namespace

class tst_NodeSerializer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void everyKindRoundTripsThroughAFile_data();
    void everyKindRoundTripsThroughAFile();
    void mixedTreeRoundTripsUnaltered();
    void missingPropertiesKeepDefaults();
    void unknownKindsAreKeptWithTheirChildren();
    void malformedInputGivesNoTree_data();
    void malformedInputGivesNoTree();
    void deepTreesAtTheLimit();
    void unreadableFile();
};

void tst_NodeSerializer::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_NodeSerializer::everyKindRoundTripsThroughAFile_data()
{
    QTest::addColumn<QString>("typeId");
    for (const auto& [typeId, version] : samples::kinds())
        QTest::newRow(qPrintable(typeId)) << typeId;
}

void tst_NodeSerializer::everyKindRoundTripsThroughAFile()
{
    QFETCH(QString, typeId);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath("state.json");

    const std::unique_ptr<ui::Node> node = samples::populated(typeId);
    node->addNode(samples::populated("SplitterNode"));
    QVERIFY(!node->isEqual(*ui::NodeFactory::createSpecificNode(typeId)));
    QVERIFY(ui::NodeSerializer::writeFile(*node, path));

    const std::unique_ptr<ui::Node> read = ui::NodeSerializer::readFile(path);
    QVERIFY(read);
    QCOMPARE(read->getTypeId(), typeId);
    QVERIFY(read->isEqual(*node));
    QVERIFY(!read->isAlteredRecursively());
    QCOMPARE(read->getLoadingVersions(), node->getVersions());
}

void tst_NodeSerializer::mixedTreeRoundTripsUnaltered()
{
    ui::PatientNode patient("p");
    auto view = samples::populated("ViewNode");
    view->addNode(samples::populated("CtDataViewer3DNode"));
    view->addNode(samples::populated("Measurement2DNode"));
    view->addNode(samples::populated("BookmarkNode"));
    patient.addNode(std::move(view));
    patient.addNode(samples::populated("ImplantVisualizationOptionsNode"));

    const std::unique_ptr<ui::Node> read
        = ui::NodeSerializer::read(ui::NodeSerializer::write(patient));
    QVERIFY(read);
    QVERIFY(read->isEqual(patient));
    QVERIFY(!read->isAlteredRecursively());
    const auto* bookmark
        = dynamic_cast<const ui::BookmarkNode*>(read->getNodes().front()->getNodes().back());
    QVERIFY(bookmark);
    QVERIFY(bookmark->isDependantOn("uuid-5"));

    // Written again, the text is the same: nothing is lost or invented on the way.
    QCOMPARE(ui::NodeSerializer::write(*read), ui::NodeSerializer::write(patient));
}

void tst_NodeSerializer::missingPropertiesKeepDefaults()
{
    // Data written by an older version lacks newer properties; it still loads.
    const std::unique_ptr<ui::Node> read = ui::NodeSerializer::read(
        document(withProperty("Viewer3DNode", "ViewerNode", "viewerIndex", 3)));
    QVERIFY(read);
    auto expected = std::make_unique<ui::Viewer3DNode>();
    expected->setViewerIndex(3);
    QVERIFY(read->isEqual(*expected));
    QCOMPARE(read->getLoadingVersions().value("Viewer3DNode"), QVersionNumber(1, 0));
}

void tst_NodeSerializer::unknownKindsAreKeptWithTheirChildren()
{
    QJsonObject future = nodeJson("HolographicViewerNode",
        QJsonArray {withProperty("LayoutTileNode", "LayoutTileNode", "layoutTileId", "t1")});
    future.insert(
        "properties", QJsonObject {{"HolographicViewerNode", QJsonObject {{"hologramDepth", 12}}}});
    const QByteArray json = document(nodeJson("ViewNode", QJsonArray {future}));

    QTemporaryDir dir;
    QFile file(dir.filePath("future.json"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(json);
    file.close();

    const std::unique_ptr<ui::Node> read = ui::NodeSerializer::readFile(file.fileName());
    QVERIFY(read);
    const ui::Node* placeholder = read->getNodes().front();
    QCOMPARE(placeholder->getTypeId(), QString("Node"));
    QCOMPARE(placeholder->getNodes().size(), size_t(1));
    QCOMPARE(
        static_cast<const ui::LayoutTileNode*>(placeholder->getNodes().front())->getLayoutTileId(),
        QString("t1"));

    // Written back, the unknown node keeps its type, versions and properties.
    const QJsonObject rewritten
        = QJsonDocument::fromJson(ui::NodeSerializer::write(*read)).object();
    QCOMPARE(
        rewritten.value("root").toObject().value("children").toArray().first().toObject(), future);
}

void tst_NodeSerializer::malformedInputGivesNoTree_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("warning");

    const QByteArray valid = document(nodeJson("ViewNode", QJsonArray {nodeJson("SplitterNode")}));
    const QString notJson = "NodeSerializer : the state tree is not valid JSON: .*";
    const QString notTree = "NodeSerializer : the document does not hold a state tree.";
    const QString malformed = "NodeSerializer : malformed state tree, nothing was read: %1.";

    const auto row = [](const char* name, const QByteArray& json, const QString& warning) {
        QTest::newRow(name) << json << warning;
    };
    const QString badVersions = malformed.arg(R"(the versions of "%1" are missing or malformed)");
    const QJsonObject noVersions {{"type", "ViewNode"}, {"versions", QJsonObject()}};
    const auto plus = [](QJsonObject node, const char* key, const QJsonValue& value) {
        node.insert(key, value);
        return node;
    };

    row("truncated", valid.left(valid.size() / 2), notJson);
    row("garbage", QByteArray("\x01\xff{{"), notJson);
    row("array document", QByteArray("[1, 2]"), notTree);
    row("foreign object", QByteArray(R"({"root": {}})"), notTree);
    row("root is a string", R"({"format": "GuiCoreStateTree", "root": "ViewNode"})", notTree);
    const QByteArray root = R"("root": {"type": "Node", "versions": {"Node": "1.0"}})";
    row("no format version", R"({"format": "GuiCoreStateTree", )" + root + "}", notTree);
    row("format version zero",
        R"({"format": "GuiCoreStateTree", "formatVersion": 0, )" + root + "}", notTree);
    row("newer format", R"({"format": "GuiCoreStateTree", "formatVersion": 2, )" + root + "}",
        "NodeSerializer : the state tree was written in format 2, newer than this build reads "
        "(1).");
    const QString noType = malformed.arg("a node has no type id");
    row("no type", document(QJsonObject {{"versions", QJsonObject()}}), noType);
    row("numeric type", document(QJsonObject {{"type", 5}, {"versions", QJsonObject()}}), noType);
    row("no versions", document(QJsonObject {{"type", "ViewNode"}}), badVersions.arg("ViewNode"));
    row("bad version", document(plus(noVersions, "versions", QJsonObject {{"Node", "one"}})),
        badVersions.arg("ViewNode"));
    row("version with suffix",
        document(plus(noVersions, "versions", QJsonObject {{"Node", "1.0-beta"}})),
        badVersions.arg("ViewNode"));
    row("children not an array", document(plus(noVersions, "children", QJsonObject())),
        malformed.arg(R"(the children of "ViewNode" are not an array)"));
    row("child not an object",
        document(nodeJson("ViewNode", QJsonArray {nodeJson("SplitterNode"), 42})),
        malformed.arg("a node is not a JSON object"));
    row("bad grandchild deep in a valid tree",
        document(nodeJson("ViewNode",
            QJsonArray {
                nodeJson("ViewerNode", QJsonArray {QJsonObject {{"type", "SplitterNode"}}})})),
        badVersions.arg("SplitterNode"));
    row("properties not an object", document(plus(noVersions, "properties", QJsonArray())),
        malformed.arg(R"(the properties of "ViewNode" are not an object)"));
    row("level not an object",
        document(plus(noVersions, "properties", QJsonObject {{"ViewNode", 1}})),
        malformed.arg(R"(the properties of level "ViewNode" in "ViewNode" are not an object)"));

    struct WrongValue
    {
        const char* row;
        const char* type;
        const char* level;
        const char* name;
        QJsonValue value;
    };
    const WrongValue wrongValues[] {
        {"string for int", "SplitterNode", "SplitterNode", "row", "2"},
        {"fraction for int", "SplitterNode", "SplitterNode", "row", 2.5},
        {"int out of range", "SplitterNode", "SplitterNode", "row", 1e12},
        {"negative size", "CrossSectionalResliceViewerNode", "CrossSectionalResliceViewerNode",
            "numberOfSlices", -1},
        {"number for bool", "Clipping3DNode", "Clipping3DNode", "mirrored", 1},
        {"number for string", "ViewNode", "ViewNode", "viewId", 7},
        {"short vector", "AngulatedResliceNode", "AngulatedResliceNode", "origin",
            QJsonArray {1, 2}},
        {"text in vector", "SnappedResliceNode", "SnappedResliceNode", "direction0",
            QJsonArray {1, "2", 3}},
        {"point list of numbers", "Measurement2DNode", "Measurement2DNode",
            "labelRelativePositions", QJsonArray {1, 2}},
        {"rect as object", "Viewer2DNode", "Viewer2DNode", "zoomBox", QJsonObject()},
        {"quaternion of three", "Viewer3DNode", "Viewer3DNode", "rotation", QJsonArray {1, 0, 0}},
        {"visual state incomplete", "DentalScanComparisonOptionsNode",
            "DentalScanComparisonOptionsNode", "referenceScanVisualState",
            QJsonObject {{"visible", true}}},
        {"dependency of wrong kind", "BookmarkNode", "BookmarkNode", "dependencies",
            QJsonArray {nodeJson("SplitterNode")}},
        {"dependency of unknown kind", "BookmarkNode", "BookmarkNode", "dependencies",
            QJsonArray {nodeJson("FutureNode")}},
    };
    for (const WrongValue& wrong : wrongValues) {
        row(wrong.row, document(withProperty(wrong.type, wrong.level, wrong.name, wrong.value)),
            malformed.arg(QStringLiteral(R"(property "%1" of "%2" in "%3" has the wrong type)")
                              .arg(wrong.name, wrong.level, wrong.type)));
    }

    row("deeper than the limit", chain(ui::NodeSerializer::MAXIMUM_DEPTH + 1),
        malformed.arg(QStringLiteral("the tree is nested deeper than %1 levels")
                          .arg(ui::NodeSerializer::MAXIMUM_DEPTH)));
    QByteArray runaway;
    for (int i = 0; i < 100000; ++i)
        runaway += R"({"children":[)";
    row("runaway nesting", runaway, notJson);
}

void tst_NodeSerializer::malformedInputGivesNoTree()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, warning);
    if (warning.endsWith(".*"))
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
    else
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    QVERIFY(!ui::NodeSerializer::read(json));
}

void tst_NodeSerializer::deepTreesAtTheLimit()
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
}

void tst_NodeSerializer::unreadableFile()
{
    QTemporaryDir dir;
    const QString missing = dir.filePath("missing.json");
    QTest::ignoreMessage(
        QtWarningMsg, qPrintable(QStringLiteral("NodeSerializer : cannot read %1.").arg(missing)));
    QVERIFY(!ui::NodeSerializer::readFile(missing));

    const QString inMissingFolder = dir.filePath("no/such/folder/state.json");
    QTest::ignoreMessage(QtWarningMsg,
        qPrintable(QStringLiteral("NodeSerializer : cannot write %1.").arg(inMissingFolder)));
    QVERIFY(!ui::NodeSerializer::writeFile(ui::ViewNode(), inMissingFolder));
}

QTEST_MAIN(tst_NodeSerializer)
#include "tst_nodeserializer.moc"
