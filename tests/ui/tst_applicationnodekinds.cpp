#include <guicore/ui/NodeFactory.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/NodeSerializer.h>
#include <guicore/ui/PatientNode.h>
#include <guicore/ui/Viewer2DNode.h>

#include <QRegularExpression>
#include <QTest>

namespace {

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

std::unique_ptr<ui::Node> sampleTree()
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

} // namespace

class tst_ApplicationNodeKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void registeredKindIsMadeComparedAndReplicated();
    void registeredKindRoundTripsThroughTheSerializer();
    void refusesBadRegistrations_data();
    void refusesBadRegistrations();
    void unregisteredKindReadsAsPlaceholderAndWritesBackUnchanged();

private:
    Registration m_registration;
};

void tst_ApplicationNodeKinds::registeredKindIsMadeComparedAndReplicated()
{
    const std::unique_ptr<ui::Node> made
        = ui::NodeFactory::createSpecificNode("AnnotationViewerNode");
    QVERIFY(dynamic_cast<AnnotationViewerNode*>(made.get()));
    QCOMPARE(made->getInheritanceList(),
        QList<QString>({"Node", "ViewerNode", "Viewer2DNode", "AnnotationViewerNode"}));
    QCOMPARE(made->getVersions().value("AnnotationViewerNode"), QVersionNumber(2, 1));
    QVERIFY(ui::NodeFactory::getNodeKindTypeIds().contains("AnnotationViewerNode"));

    const std::unique_ptr<ui::Node> tree = sampleTree();
    const std::unique_ptr<ui::Node> replica = ui::NodeFactory::replicateRecursively(tree.get(), {});
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
}

void tst_ApplicationNodeKinds::registeredKindRoundTripsThroughTheSerializer()
{
    const std::unique_ptr<ui::Node> tree = sampleTree();
    const std::unique_ptr<ui::Node> read
        = ui::NodeSerializer::read(ui::NodeSerializer::write(*tree));
    QVERIFY(read && read->isEqual(*tree));
    const auto* annotations = dynamic_cast<const AnnotationViewerNode*>(read->getNodes().front());
    QVERIFY(annotations);
    QCOMPARE(annotations->getCaption(), QStringLiteral("Implant 36"));
    QCOMPARE(annotations->getZoomBox(), QRectF(10, 20, 300, 200));
    QCOMPARE(annotations->getLoadingVersions().value("AnnotationViewerNode"), QVersionNumber(2, 1));
}

void tst_ApplicationNodeKinds::refusesBadRegistrations_data()
{
    QTest::addColumn<QString>("typeId");
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("madeType");
    QTest::addColumn<QString>("warning");
    QTest::newRow("empty id") << ""
                              << "Node"
                              << ""
                              << "NodeFactory : a node kind needs a type id and a creator.";
    QTest::newRow("built-in id")
        << "ViewerNode"
        << "Node"
        << "ViewerNode"
        << "NodeFactory : the node kind \"ViewerNode\" is already registered.";
    QTest::newRow("registered id")
        << "AnnotationViewerNode"
        << "Viewer2DNode"
        << "AnnotationViewerNode"
        << "NodeFactory : the node kind \"AnnotationViewerNode\" is already registered.";
    QTest::newRow("placeholder id")
        << "Node"
        << "Node"
        << ""
        << "NodeFactory : the node kind \"Node\" is already registered.";
    QTest::newRow("unknown base")
        << "Other"
        << "Missing"
        << "Viewer2DNode"
        << "NodeFactory : the base \"Missing\" of the node kind \"Other\" is not registered.";
    QTest::newRow("creator makes another kind")
        << "Other"
        << "Node"
        << "Viewer2DNode"
        << "NodeFactory : the creator of \"Other\" does not make nodes of that kind derived from "
           "\"Node\".";
    QTest::newRow("kind not on its base")
        << "OrphanNode"
        << "Viewer2DNode"
        << "OrphanNode"
        << "NodeFactory : the creator of \"OrphanNode\" does not make nodes of that kind derived "
           "from \"Viewer2DNode\".";
}

void tst_ApplicationNodeKinds::refusesBadRegistrations()
{
    QFETCH(QString, typeId);
    QFETCH(QString, base);
    QFETCH(QString, madeType);
    QFETCH(QString, warning);
    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    const auto creator = [madeType]() -> std::unique_ptr<ui::Node> {
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

void tst_ApplicationNodeKinds::unregisteredKindReadsAsPlaceholderAndWritesBackUnchanged()
{
    const QByteArray written = ui::NodeSerializer::write(*sampleTree());
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
    QVERIFY(
        dynamic_cast<AnnotationViewerNode*>(ui::NodeSerializer::read(written)->getNodes().front()));
}

QTEST_GUILESS_MAIN(tst_ApplicationNodeKinds)
#include "tst_applicationnodekinds.moc"
