#include "NodeSamples.h"

#include <guicore/ui/NodeInteractor.h>

#include <QRegularExpression>
#include <QTest>

namespace {

const char* const kEmptyUuid
    = "Empty uuid in DataObjectNode. This should only happen when importing older patients.";
const char* const kNoConversion = "Adapted UUID not found for DataObject. This should only happen "
                                  "when importing older patients.";

/// An interactor for a fixed node kind; the constructor of the base is for subclasses only.
class SplitterInteractor : public ui::NodeInteractor
{
public:
    SplitterInteractor()
        : ui::NodeInteractor(ui::SplitterNode::getClassTypeId())
    {
    }
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
    void init();

    void createsEveryKind_data();
    void createsEveryKind();
    void unknownIdsGivePlaceholders_data();
    void unknownIdsGivePlaceholders();
    void replicatesWithNewUuids();
    void dropsSubtreesWithoutConversion();
    void dropsDataObjectsWithoutUuid();
    void keepsPatientWithoutUuid();
    void replicaIsNotAlteredAndLeavesSourceAlone();
    void interactorsGenerateTheirKind();
};

void tst_NodeFactory::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_NodeFactory::createsEveryKind_data()
{
    QTest::addColumn<QString>("typeId");
    for (const auto& [typeId, version] : samples::kinds())
        QTest::newRow(qPrintable(typeId)) << typeId;
}

void tst_NodeFactory::createsEveryKind()
{
    QFETCH(QString, typeId);
    const std::unique_ptr<ui::Node> node = ui::NodeFactory::createSpecificNode(typeId);
    QVERIFY(node);
    QCOMPARE(node->getTypeId(), typeId);
    QCOMPARE(node->getTypeName(), typeId);
    // Default-constructed: equal to a fresh one, unaltered, childless.
    QVERIFY(node->isEqual(*ui::NodeFactory::createSpecificNode(typeId)));
    QVERIFY(!node->isAltered());
    QVERIFY(node->getNodes().empty());
}

void tst_NodeFactory::unknownIdsGivePlaceholders_data()
{
    QTest::addColumn<QString>("typeId");
    QTest::newRow("base") << "Node";
    QTest::newRow("newer kind") << "HolographicViewerNode";
    QTest::newRow("wrong case") << "patientnode";
    QTest::newRow("namespaced") << "ui::PatientNode";
    QTest::newRow("empty") << "";
}

void tst_NodeFactory::unknownIdsGivePlaceholders()
{
    QFETCH(QString, typeId);
    const std::unique_ptr<ui::Node> node = ui::NodeFactory::createSpecificNode(typeId);
    QVERIFY(node);
    QCOMPARE(node->getTypeId(), QString("Node"));
    QCOMPARE(node->getInheritanceList(), QList<QString> {"Node"});
    QTest::ignoreMessage(
        QtWarningMsg, "Trying to clone a base ui::Node. This should never happen!");
    QVERIFY(node->clone());
}

void tst_NodeFactory::replicatesWithNewUuids()
{
    ui::PatientNode patient("p-old");
    auto view = std::make_unique<ui::ViewNode>();
    view->setViewId("implants");
    auto reslice = std::make_unique<ui::AngulatedResliceNode>("r-old");
    reslice->setOrigin({1, 2, 3});
    reslice->addNode(std::make_unique<ui::Measurement2DNode>("m-old"));
    view->addNode(std::make_unique<ui::Viewer3DNode>());
    view->addNode(std::move(reslice));
    view->addNode(std::make_unique<ui::DiagnosisNode>("d-old"));
    patient.addNode(std::move(view));

    const std::vector<ui::NodeFactory::DataObjectUuidConversion> conversions {{"m-old", "m-new"},
        {"d-old", "d-new"}, {"r-old", "r-new"}, {"p-old", "p-new"},
        {"r-old", "ignored, the first conversion wins"}};
    const std::unique_ptr<ui::Node> copy
        = ui::NodeFactory::replicateRecursively(&patient, conversions);
    QVERIFY(copy);
    QCOMPARE(uuidOf(copy.get()), QString("p-new"));
    const std::vector<ui::Node*> children = copy->getNodes().front()->getNodes();
    QCOMPARE(children.size(), size_t(3));
    QCOMPARE(children[0]->getTypeId(), QString("Viewer3DNode"));
    QCOMPARE(uuidOf(children[1]), QString("r-new"));
    QCOMPARE(static_cast<ui::AngulatedResliceNode*>(children[1])->getOrigin(), QVector3D(1, 2, 3));
    QCOMPARE(uuidOf(children[1]->getNodes().front()), QString("m-new"));
    QCOMPARE(uuidOf(children[2]), QString("d-new"));
    QCOMPARE(
        static_cast<ui::ViewNode*>(copy->getNodes().front())->getViewId(), QString("implants"));
}

void tst_NodeFactory::dropsSubtreesWithoutConversion()
{
    ui::ViewNode view;
    auto unconverted = std::make_unique<ui::AngulatedResliceNode>("unknown");
    unconverted->addNode(std::make_unique<ui::Measurement2DNode>("m"));
    view.addNode(std::make_unique<ui::DiagnosisNode>("d"));
    view.addNode(std::move(unconverted));
    view.addNode(std::make_unique<ui::Measurement2DNode>("m"));

    // Information, not a warning: this happens with every older patient.
    QTest::ignoreMessage(QtInfoMsg, kNoConversion);
    const std::unique_ptr<ui::Node> copy
        = ui::NodeFactory::replicateRecursively(&view, {{"d", "d2"}, {"m", "m2"}});
    QVERIFY(copy);
    QCOMPARE(copy->getNodes().size(), size_t(2));
    QCOMPARE(uuidOf(copy->getNodes()[0]), QString("d2"));
    QCOMPARE(uuidOf(copy->getNodes()[1]), QString("m2"));

    // A data object at the top without conversion leaves nothing.
    QTest::ignoreMessage(QtInfoMsg, kNoConversion);
    const ui::DiagnosisNode lone("x");
    QVERIFY(!ui::NodeFactory::replicateRecursively(&lone, {{"X", "case matters"}}));
    QVERIFY(!ui::NodeFactory::replicateRecursively(nullptr, {}));
}

void tst_NodeFactory::dropsDataObjectsWithoutUuid()
{
    ui::ViewNode view;
    auto empty = std::make_unique<ui::Measurement2DNode>();
    empty->addNode(std::make_unique<ui::DiagnosisNode>("d"));
    view.addNode(std::move(empty));
    view.addNode(std::make_unique<ui::SplitterNode>());

    QTest::ignoreMessage(QtWarningMsg, kEmptyUuid);
    const std::unique_ptr<ui::Node> copy
        = ui::NodeFactory::replicateRecursively(&view, {{"d", "d2"}, {"", "from nothing"}});
    QCOMPARE(copy->getNodes().size(), size_t(1));
    QCOMPARE(copy->getNodes().front()->getTypeId(), QString("SplitterNode"));
}

void tst_NodeFactory::keepsPatientWithoutUuid()
{
    ui::PatientNode patient;
    patient.addNode(std::make_unique<ui::DiagnosisNode>("d"));
    const std::unique_ptr<ui::Node> copy
        = ui::NodeFactory::replicateRecursively(&patient, {{"d", "d2"}});
    QVERIFY(copy);
    QCOMPARE(copy->getTypeId(), QString("PatientNode"));
    QVERIFY(uuidOf(copy.get()).isEmpty());
    QCOMPARE(uuidOf(copy->getNodes().front()), QString("d2"));

    // A patient with a UUID is a data object like any other.
    QTest::ignoreMessage(QtInfoMsg, kNoConversion);
    const ui::PatientNode identified("p");
    QVERIFY(!ui::NodeFactory::replicateRecursively(&identified, {{"d", "d2"}}));
}

void tst_NodeFactory::replicaIsNotAlteredAndLeavesSourceAlone()
{
    ui::ViewNode view;
    view.addNode(std::make_unique<ui::DiagnosisNode>("d"));
    view.clearAlteredRecursively();

    const std::unique_ptr<ui::Node> copy
        = ui::NodeFactory::replicateRecursively(&view, {{"d", "d2"}});
    QVERIFY(!copy->isAlteredRecursively());
    QVERIFY(!view.isAlteredRecursively());
    QCOMPARE(uuidOf(view.getNodes().front()), QString("d"));

    // With identity conversions the replica equals the original.
    const std::unique_ptr<ui::Node> same
        = ui::NodeFactory::replicateRecursively(&view, {{"d", "d"}});
    QVERIFY(same->isEqual(view));
}

void tst_NodeFactory::interactorsGenerateTheirKind()
{
    SplitterInteractor interactor;
    QCOMPARE(interactor.getNodeTypeId(), QString("SplitterNode"));
    SplitterInteractor moved = std::move(interactor);
    const std::unique_ptr<ui::Node> node = moved.generate();
    QVERIFY(node);
    QCOMPARE(node->getTypeId(), QString("SplitterNode"));
    QVERIFY(moved.generate().get() != node.get());
}

QTEST_MAIN(tst_NodeFactory)
#include "tst_nodefactory.moc"
