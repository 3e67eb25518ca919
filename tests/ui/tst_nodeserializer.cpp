#include "NodeSamples.h"

#include <guicore/ui/NodeKind.h>
#include <guicore/ui/NodeSerializer.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

namespace {

const char* const kNoConversion = "Adapted UUID not found for DataObject. This should only happen "
                                  "when importing older patients.";

/// A kind the library does not know, on a built-in base, as an application writes one.
class AnnotationViewerNode : public ui::NodeKind<AnnotationViewerNode, ui::Viewer2DNode>
{
public:
    static QString getClassTypeId() { return QStringLiteral("AnnotationViewerNode"); }
    static const ui::NodePropertyTable& properties()
    {
        static const ui::NodePropertyTable table {getClassTypeId(), QVersionNumber(2, 1),
            {ui::NodePropertyTable::property("caption", &AnnotationViewerNode::m_caption)}};
        return table;
    }

    void setCaption(const QString& caption) { assign(m_caption, caption); }

private:
    QString m_caption;
};

QString uuidOf(const ui::Node* node)
{
    const auto* dataObject = dynamic_cast<const ui::DataObjectNode*>(node);
    return dataObject ? dataObject->getDataObjectUUID() : QString();
}

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
    // Registered for the whole run; the refusal cases need one registered kind.
    void initTestCase() { QVERIFY(ui::NodeFactory::registerNodeKind<AnnotationViewerNode>()); }
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void unknownIdsGivePlaceholders()
    {
        for (const QString& typeId : {"Node", "patientnode", ""}) {
            const auto node = ui::NodeFactory::createSpecificNode(typeId);
            QCOMPARE(node->getInheritanceList(), QList<QString> {"Node"});
            QCOMPARE(node->getTypeId(), QString("Node"));
            QVERIFY(!ui::NodeFactory::getNodeKindTypeIds().contains(typeId));
        }
        const auto placeholder = ui::NodeFactory::createSpecificNode("Node");
        placeholder->addNode(std::make_unique<ui::LayoutTileNode>());
        QTest::ignoreMessage(
            QtWarningMsg, "Trying to clone a base ui::Node. This should never happen!");
        const auto copy = placeholder->clone();
        QVERIFY(copy->getTypeId() == "Node" && copy->getNodes().empty());

        // Placeholders compare by their children only, and never equal a real kind.
        copy->addNode(std::make_unique<ui::LayoutTileNode>());
        QVERIFY(copy->isEqual(*placeholder));
        const auto unknown = ui::NodeFactory::createSpecificNode("FutureNode");
        QVERIFY(!unknown->isEqual(*placeholder));
        unknown->addNode(std::make_unique<ui::LayoutTileNode>());
        QVERIFY(unknown->isEqual(*placeholder));
        QVERIFY(!unknown->isEqual(ui::ViewNode()) && !ui::ViewNode().isEqual(*unknown));
    }

    void replicationConvertsUuidsAndDropsTheRest()
    {
        ui::PatientNode patient; // without a UUID, and so kept
        auto view = std::make_unique<ui::ViewNode>();
        view->setViewId("implants");
        auto reslice = std::make_unique<ui::AngulatedResliceNode>("r-old");
        reslice->setOrigin({1, 2, 3});
        std::unique_ptr<ui::Node> nodes[] {std::make_unique<ui::Viewer3DNode>(), std::move(reslice),
            std::make_unique<ui::AngulatedResliceNode>("unknown"),
            std::make_unique<ui::Measurement2DNode>(),
            std::make_unique<ui::DiagnosisNode>("d-old")};
        nodes[1]->addNode(std::make_unique<ui::Measurement2DNode>("m-old"));
        nodes[2]->addNode(std::make_unique<ui::Measurement2DNode>("m-old"));
        nodes[3]->addNode(std::make_unique<ui::DiagnosisNode>("d-old"));
        for (auto& node : nodes)
            view->addNode(std::move(node));
        patient.addNode(std::move(view));
        patient.clearAlteredRecursively();

        // Information, not a warning: this happens with every older patient.
        QTest::ignoreMessage(QtInfoMsg, kNoConversion);
        QTest::ignoreMessage(QtWarningMsg,
            "Empty uuid in DataObjectNode. This should only happen when importing older patients.");
        const auto copy = ui::NodeFactory::replicateRecursively(&patient,
            {{"m-old", "m-new"}, {"d-old", "d-new"}, {"r-old", "r-new"},
                {"r-old", "ignored, the first conversion wins"}, {"", "from nothing"}});
        QVERIFY(copy && uuidOf(copy.get()).isEmpty() && !copy->isAlteredRecursively());
        const auto* copiedView = static_cast<ui::ViewNode*>(copy->getNodes().front());
        const std::vector<ui::Node*> children = copiedView->getNodes();
        QCOMPARE(children.size(), size_t(3));
        QCOMPARE(
            (QStringList {copy->getTypeId(), copiedView->getViewId(), children[0]->getTypeId(),
                uuidOf(children[1]), uuidOf(children[1]->getNodes().front()), uuidOf(children[2])}),
            (QStringList {"PatientNode", "implants", "Viewer3DNode", "r-new", "m-new", "d-new"}));
        QCOMPARE(
            static_cast<ui::AngulatedResliceNode*>(children[1])->getOrigin(), QVector3D(1, 2, 3));
        QVERIFY(!patient.isAlteredRecursively()
            && uuidOf(patient.getNodes().front()->getNodes()[1]) == "r-old");

        // A patient with a UUID is a data object like any other; at the top, a data object
        // without conversion leaves nothing.
        const ui::PatientNode identified("p");
        QCOMPARE(uuidOf(ui::NodeFactory::replicateRecursively(&identified, {{"p", "p2"}}).get()),
            QString("p2"));
        QTest::ignoreMessage(QtInfoMsg, kNoConversion);
        QVERIFY(!ui::NodeFactory::replicateRecursively(&identified, {{"P", "case matters"}}));
        QVERIFY(!ui::NodeFactory::replicateRecursively(nullptr, {}));
    }

    void applicationKindIsMadeReplicatedAndUnregistered()
    {
        auto made = ui::NodeFactory::createSpecificNode("AnnotationViewerNode");
        QCOMPARE(made->getInheritanceList(),
            QList<QString>({"Node", "ViewerNode", "Viewer2DNode", "AnnotationViewerNode"}));
        QCOMPARE(made->getVersions().value("AnnotationViewerNode"), QVersionNumber(2, 1));
        QVERIFY(ui::NodeFactory::getNodeKindTypeIds().contains("AnnotationViewerNode"));

        static_cast<AnnotationViewerNode*>(made.get())->setCaption(QStringLiteral("Implant 36"));
        static_cast<AnnotationViewerNode*>(made.get())->setZoomBox(QRectF(10, 20, 300, 200));
        made->addNode(std::make_unique<ui::Viewer2DNode>());
        const auto tree = std::make_unique<ui::PatientNode>();
        tree->addNode(std::move(made));
        const auto replica = ui::NodeFactory::replicateRecursively(tree.get(), {});
        QVERIFY(replica && replica->isEqual(*tree) && !replica->isAlteredRecursively());

        // Each level's properties take part: the application's own and the built-in base's.
        auto* annotations = static_cast<AnnotationViewerNode*>(replica->getNodes().front());
        annotations->setCaption(QStringLiteral("Implant 37"));
        QVERIFY(!replica->isEqual(*tree));
        annotations->setCaption(QStringLiteral("Implant 36"));
        annotations->clearZoomBox();
        QVERIFY(!replica->isEqual(*tree) && annotations->isAltered());

        // Through the serializer and back.
        const QByteArray written = ui::NodeSerializer::write(*tree);
        QVERIFY(ui::NodeSerializer::read(written)->isEqual(*tree));
        QTest::ignoreMessage(
            QtWarningMsg, "NodeFactory : the built-in node kind \"PatientNode\" stays registered.");
        QVERIFY(!ui::NodeFactory::unregisterNodeKind("PatientNode"));

        QVERIFY(ui::NodeFactory::unregisterNodeKind("AnnotationViewerNode"));
        QTest::ignoreMessage(
            QtWarningMsg, "NodeFactory : no node kind \"AnnotationViewerNode\" is registered.");
        QVERIFY(!ui::NodeFactory::unregisterNodeKind("AnnotationViewerNode"));

        // A tree holding the kind of a plug-in that is not loaded still loads, and loses nothing.
        const auto unknown = ui::NodeSerializer::read(written);
        QVERIFY(unknown && !dynamic_cast<AnnotationViewerNode*>(unknown->getNodes().front()));
        QCOMPARE(unknown->getNodes().front()->getNodes().size(), size_t(1));
        QCOMPARE(ui::NodeSerializer::write(*unknown), written);

        // The creator's nodes must derive from the base given.
        QTest::ignoreMessage(QtWarningMsg,
            "NodeFactory : the creator of \"AnnotationViewerNode\" does not make nodes of that "
            "kind derived from \"Viewer3DNode\".");
        QVERIFY(!ui::NodeFactory::registerNodeKind("AnnotationViewerNode", "Viewer3DNode",
            [] { return std::make_unique<AnnotationViewerNode>(); }));
        QVERIFY(ui::NodeFactory::registerNodeKind<AnnotationViewerNode>());
        QVERIFY(dynamic_cast<AnnotationViewerNode*>(
            ui::NodeSerializer::read(written)->getNodes().front()));
    }

    void refusesBadRegistrations()
    {
        const QString taken = "NodeFactory : the node kind \"%1\" is already registered.";
        // Type id, base, the kind the creator makes, the warning.
        const std::tuple<QString, QString, QString, QString> cases[] {
            {"", "Node", "", "NodeFactory : a node kind needs a type id and a creator."},
            {"ViewerNode", "Node", "ViewerNode", taken.arg("ViewerNode")},
            {"Node", "Node", "", taken.arg("Node")},
            {"Other", "Missing", "Viewer2DNode",
                "NodeFactory : the base \"Missing\" of the node kind \"Other\" is not registered."},
            {"Other", "Node", "Viewer2DNode",
                "NodeFactory : the creator of \"Other\" does not make nodes of that kind derived "
                "from \"Node\"."}};
        const QStringList known = ui::NodeFactory::getNodeKindTypeIds();
        for (const auto& [typeId, base, madeType, warning] : cases) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
            QVERIFY(!ui::NodeFactory::registerNodeKind(typeId, base,
                [madeType = madeType] { return ui::NodeFactory::createSpecificNode(madeType); }));
            QCOMPARE(ui::NodeFactory::getNodeKindTypeIds(), known);
        }
    }

    void everyKindIsMadeAndRoundTripsThroughAFile()
    {
        QTemporaryDir dir;
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
            QVERIFY(ui::NodeSerializer::writeFile(*node, dir.filePath("state.json")));
            const auto read = ui::NodeSerializer::readFile(dir.filePath("state.json"));
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
        QVERIFY(ui::NodeSerializer::read(ui::NodeSerializer::write(*deepest))->isEqual(*deepest));

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
