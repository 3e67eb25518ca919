#include "NodeSamples.h"

#include <guicore/ui/NodeKind.h>
#include <guicore/ui/NodeSerializer.h>

using samples::tile;

namespace {

const char* const kEmptyUuid
    = "Empty uuid in DataObjectNode. This should only happen when importing older patients.";
const char* const kNoConversion = "Adapted UUID not found for DataObject. This should only happen "
                                  "when importing older patients.";
const char* const kPlaceholderClone = "Trying to clone a base ui::Node. This should never happen!";

/// A kind the library does not know, on a built-in base, as an application writes one.
class AnnotationViewerNode : public ui::NodeKind<AnnotationViewerNode, ui::Viewer2DNode>
{
public:
    static QString getClassTypeId() { return QStringLiteral("AnnotationViewerNode"); }
    static const ui::NodePropertyTable& properties()
    {
        static const ui::NodePropertyTable table {getClassTypeId(), QVersionNumber(2, 1),
            {ui::NodePropertyTable::property("caption", &AnnotationViewerNode::m_caption),
                ui::NodePropertyTable::property("offsets", &AnnotationViewerNode::m_offsets)}};
        return table;
    }

    void setCaption(const QString& caption) { assign(m_caption, caption); }
    const QString& getCaption() const { return m_caption; }
    void setOffsets(const std::vector<QPointF>& offsets) { assign(m_offsets, offsets); }

private:
    QString m_caption;
    std::vector<QPointF> m_offsets;
};

/// A kind derived from Node only.
class OrphanNode : public ui::NodeKind<OrphanNode, ui::Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("OrphanNode"); }
    static const ui::NodePropertyTable& properties()
    {
        static const ui::NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0), {}};
        return table;
    }
};

/// Registered for the whole run; the refusal cases need one registered kind.
struct Registration
{
    Registration() { ui::NodeFactory::registerNodeKind<AnnotationViewerNode>(); }
    ~Registration() { ui::NodeFactory::unregisterNodeKind(AnnotationViewerNode::getClassTypeId()); }
};

std::unique_ptr<ui::Node> annotatedTree()
{
    auto patient = std::make_unique<ui::PatientNode>();
    auto annotations = std::make_unique<AnnotationViewerNode>();
    annotations->setCaption(QStringLiteral("Implant 36"));
    annotations->setOffsets({{1.5, -2.0}, {0.0, 3.25}});
    annotations->setZoomBox(QRectF(10, 20, 300, 200));
    annotations->addNode(std::make_unique<ui::Viewer2DNode>());
    patient->addNode(std::move(annotations));
    return patient;
}

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
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void unknownIdsGivePlaceholders()
    {
        for (const QString& typeId :
            {"Node", "HolographicViewerNode", "patientnode", "ui::PatientNode", ""}) {
            const std::unique_ptr<ui::Node> node = ui::NodeFactory::createSpecificNode(typeId);
            QVERIFY(node);
            QCOMPARE(node->getTypeId(), QString("Node"));
            QCOMPARE(node->getInheritanceList(), QList<QString> {"Node"});
            QVERIFY(!ui::NodeFactory::getNodeKindTypeIds().contains(typeId));
        }
        const std::unique_ptr<ui::Node> placeholder = ui::NodeFactory::createSpecificNode("Node");
        placeholder->addNode(tile("a"));
        QTest::ignoreMessage(QtWarningMsg, kPlaceholderClone);
        const std::unique_ptr<ui::Node> copy = placeholder->clone();
        QCOMPARE(copy->getTypeId(), QString("Node"));
        QVERIFY(copy->getNodes().empty());

        // Placeholders compare by their children only, and never equal a real kind.
        copy->addNode(tile("a"));
        QVERIFY(copy->isEqual(*placeholder));
        const std::unique_ptr<ui::Node> unknown = ui::NodeFactory::createSpecificNode("FutureNode");
        QVERIFY(!unknown->isEqual(*placeholder));
        unknown->addNode(tile("a"));
        QVERIFY(unknown->isEqual(*placeholder));
        QVERIFY(!unknown->isEqual(ui::ViewNode()));
        QVERIFY(!ui::ViewNode().isEqual(*unknown));
    }

    void replicationConvertsUuidsAndDropsTheRest()
    {
        ui::PatientNode patient; // without a UUID, and so kept
        auto view = std::make_unique<ui::ViewNode>();
        view->setViewId("implants");
        auto reslice = std::make_unique<ui::AngulatedResliceNode>("r-old");
        reslice->setOrigin({1, 2, 3});
        reslice->addNode(std::make_unique<ui::Measurement2DNode>("m-old"));
        auto unconverted = std::make_unique<ui::AngulatedResliceNode>("unknown");
        unconverted->addNode(std::make_unique<ui::Measurement2DNode>("m-old"));
        auto empty = std::make_unique<ui::Measurement2DNode>();
        empty->addNode(std::make_unique<ui::DiagnosisNode>("d-old"));
        view->addNode(std::make_unique<ui::Viewer3DNode>());
        view->addNode(std::move(reslice));
        view->addNode(std::move(unconverted));
        view->addNode(std::move(empty));
        view->addNode(std::make_unique<ui::DiagnosisNode>("d-old"));
        patient.addNode(std::move(view));
        patient.clearAlteredRecursively();

        // Information, not a warning: this happens with every older patient.
        QTest::ignoreMessage(QtInfoMsg, kNoConversion);
        QTest::ignoreMessage(QtWarningMsg, kEmptyUuid);
        const std::unique_ptr<ui::Node> copy = ui::NodeFactory::replicateRecursively(&patient,
            {{"m-old", "m-new"}, {"d-old", "d-new"}, {"r-old", "r-new"},
                {"r-old", "ignored, the first conversion wins"}, {"", "from nothing"}});
        QVERIFY(copy);
        QCOMPARE(copy->getTypeId(), QString("PatientNode"));
        QVERIFY(uuidOf(copy.get()).isEmpty());
        QCOMPARE(
            static_cast<ui::ViewNode*>(copy->getNodes().front())->getViewId(), QString("implants"));
        const std::vector<ui::Node*> children = copy->getNodes().front()->getNodes();
        QCOMPARE(children.size(), size_t(3));
        QCOMPARE(children[0]->getTypeId(), QString("Viewer3DNode"));
        QCOMPARE(uuidOf(children[1]), QString("r-new"));
        QCOMPARE(
            static_cast<ui::AngulatedResliceNode*>(children[1])->getOrigin(), QVector3D(1, 2, 3));
        QCOMPARE(uuidOf(children[1]->getNodes().front()), QString("m-new"));
        QCOMPARE(uuidOf(children[2]), QString("d-new"));
        QVERIFY(!copy->isAlteredRecursively());
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

    void registeredKindIsMadeComparedAndReplicated()
    {
        const std::unique_ptr<ui::Node> made
            = ui::NodeFactory::createSpecificNode("AnnotationViewerNode");
        QVERIFY(dynamic_cast<AnnotationViewerNode*>(made.get()));
        QCOMPARE(made->getInheritanceList(),
            QList<QString>({"Node", "ViewerNode", "Viewer2DNode", "AnnotationViewerNode"}));
        QCOMPARE(made->getVersions().value("AnnotationViewerNode"), QVersionNumber(2, 1));
        QVERIFY(ui::NodeFactory::getNodeKindTypeIds().contains("AnnotationViewerNode"));

        const std::unique_ptr<ui::Node> tree = annotatedTree();
        const std::unique_ptr<ui::Node> replica
            = ui::NodeFactory::replicateRecursively(tree.get(), {});
        QVERIFY(replica && replica->isEqual(*tree));
        QVERIFY(!replica->isAlteredRecursively());

        // Each level's properties take part: the application's own and the built-in base's.
        auto* annotations = static_cast<AnnotationViewerNode*>(replica->getNodes().front());
        annotations->setOffsets({{1.5, -2.0}, {0.0, 3.2500000000001}});
        QVERIFY(replica->isEqual(*tree));
        annotations->setCaption(QStringLiteral("Implant 37"));
        QVERIFY(!replica->isEqual(*tree));
        annotations->setCaption(QStringLiteral("Implant 36"));
        annotations->clearZoomBox();
        QVERIFY(!replica->isEqual(*tree));
        QVERIFY(annotations->isAltered());

        // Through the serializer and back.
        const std::unique_ptr<ui::Node> read
            = ui::NodeSerializer::read(ui::NodeSerializer::write(*tree));
        QVERIFY(read && read->isEqual(*tree));
        const auto* readBack = dynamic_cast<const AnnotationViewerNode*>(read->getNodes().front());
        QVERIFY(readBack);
        QCOMPARE(readBack->getCaption(), QStringLiteral("Implant 36"));
        QCOMPARE(readBack->getZoomBox(), QRectF(10, 20, 300, 200));
        QCOMPARE(
            readBack->getLoadingVersions().value("AnnotationViewerNode"), QVersionNumber(2, 1));
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
            {"AnnotationViewerNode", "Viewer2DNode", "AnnotationViewerNode",
                taken.arg("AnnotationViewerNode")},
            {"Node", "Node", "", taken.arg("Node")},
            {"Other", "Missing", "Viewer2DNode",
                "NodeFactory : the base \"Missing\" of the node kind \"Other\" is not registered."},
            {"Other", "Node", "Viewer2DNode", wrongKind.arg("Other", "Node")},
            {"OrphanNode", "Viewer2DNode", "OrphanNode",
                wrongKind.arg("OrphanNode", "Viewer2DNode")}};
        for (const auto& [typeId, base, madeType, warning] : cases) {
            QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
            const auto creator = [madeType = madeType]() -> std::unique_ptr<ui::Node> {
                if (madeType == OrphanNode::getClassTypeId())
                    return std::make_unique<OrphanNode>();
                return ui::NodeFactory::createSpecificNode(madeType);
            };
            QVERIFY(!ui::NodeFactory::registerNodeKind(typeId, base, creator));
            // The kinds known before are unchanged.
            QVERIFY(!ui::NodeFactory::getNodeKindTypeIds().contains("Other"));
            QVERIFY(!ui::NodeFactory::getNodeKindTypeIds().contains("OrphanNode"));
            QVERIFY(dynamic_cast<AnnotationViewerNode*>(
                ui::NodeFactory::createSpecificNode("AnnotationViewerNode").get()));
        }
    }

    void unregisteredKindReadsAsPlaceholderAndWritesBackUnchanged()
    {
        const QByteArray written = ui::NodeSerializer::write(*annotatedTree());
        QTest::ignoreMessage(
            QtWarningMsg, "NodeFactory : the built-in node kind \"PatientNode\" stays registered.");
        QVERIFY(!ui::NodeFactory::unregisterNodeKind("PatientNode"));

        QVERIFY(ui::NodeFactory::unregisterNodeKind("AnnotationViewerNode"));
        QTest::ignoreMessage(
            QtWarningMsg, "NodeFactory : no node kind \"AnnotationViewerNode\" is registered.");
        QVERIFY(!ui::NodeFactory::unregisterNodeKind("AnnotationViewerNode"));

        // A tree holding the kind of a plug-in that is not loaded still loads, and loses nothing.
        const std::unique_ptr<ui::Node> read = ui::NodeSerializer::read(written);
        QVERIFY(read);
        QVERIFY(!dynamic_cast<AnnotationViewerNode*>(read->getNodes().front()));
        QCOMPARE(read->getNodes().front()->getNodes().size(), size_t(1));
        QCOMPARE(ui::NodeSerializer::write(*read), written);

        QVERIFY(ui::NodeFactory::registerNodeKind<AnnotationViewerNode>());
        QVERIFY(dynamic_cast<AnnotationViewerNode*>(
            ui::NodeSerializer::read(written)->getNodes().front()));
    }

private:
    Registration m_registration;
};

QTEST_MAIN(tst_NodeFactory)
#include "tst_nodefactory.moc"
