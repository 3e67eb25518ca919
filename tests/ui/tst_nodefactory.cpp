#include "NodeSamples.h"

#include <guicore/ui/NodeKind.h>
#include <guicore/ui/NodeSerializer.h>

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

} // namespace

class tst_NodeFactory : public QObject
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
        QCOMPARE(copy->getTypeId(), QString("PatientNode"));
        const auto* copiedView = static_cast<ui::ViewNode*>(copy->getNodes().front());
        const std::vector<ui::Node*> children = copiedView->getNodes();
        QCOMPARE(children.size(), size_t(3));
        QCOMPARE(
            (QStringList {copiedView->getViewId(), children[0]->getTypeId(), uuidOf(children[1]),
                uuidOf(children[1]->getNodes().front()), uuidOf(children[2])}),
            (QStringList {"implants", "Viewer3DNode", "r-new", "m-new", "d-new"}));
        QCOMPARE(
            static_cast<ui::AngulatedResliceNode*>(children[1])->getOrigin(), QVector3D(1, 2, 3));
        QVERIFY(!patient.isAlteredRecursively());
        QCOMPARE(uuidOf(patient.getNodes().front()->getNodes()[1]), QString("r-old"));

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
        const auto read = ui::NodeSerializer::read(written);
        QVERIFY(read && read->isEqual(*tree));
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
        const QString wrongKind = "NodeFactory : the creator of \"%1\" does not make nodes of that "
                                  "kind derived from \"%2\".";
        // Type id, base, the kind the creator makes, the warning.
        const std::tuple<QString, QString, QString, QString> cases[] {
            {"", "Node", "", "NodeFactory : a node kind needs a type id and a creator."},
            {"ViewerNode", "Node", "ViewerNode", taken.arg("ViewerNode")},
            {"Node", "Node", "", taken.arg("Node")},
            {"Other", "Missing", "Viewer2DNode",
                "NodeFactory : the base \"Missing\" of the node kind \"Other\" is not registered."},
            {"Other", "Node", "Viewer2DNode", wrongKind.arg("Other", "Node")}};
        const QStringList known = ui::NodeFactory::getNodeKindTypeIds();
        for (const auto& [typeId, base, madeType, warning] : cases) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
            QVERIFY(!ui::NodeFactory::registerNodeKind(typeId, base,
                [madeType = madeType] { return ui::NodeFactory::createSpecificNode(madeType); }));
            QCOMPARE(ui::NodeFactory::getNodeKindTypeIds(), known);
        }
    }
};

QTEST_MAIN(tst_NodeFactory)
#include "tst_nodefactory.moc"
