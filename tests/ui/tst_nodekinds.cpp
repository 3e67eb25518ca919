#include "NodeSamples.h"

#include <objectmodel/ModificationLock.h>

#include <QRegularExpression>
#include <QTest>

using utility::ModificationLock;

class tst_NodeKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void identityAndVersions_data();
    void identityAndVersions();
    void everyPropertyIsSetComparedAndCopied_data();
    void everyPropertyIsSetComparedAndCopied();
    void settingUnderLockStoresWithoutAltering();
    void classTestComesBeforeProperties();
    void fuzzyFloatRule_data();
    void fuzzyFloatRule();
    void measurementLabelsByIndex();
    void viewerDefaultsAndClearing();
    void scanVisualStateComparedMemberByMember();
    void bookmarkDependencies();
};

void tst_NodeKinds::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_NodeKinds::identityAndVersions_data()
{
    QTest::addColumn<QString>("typeId");
    QTest::addColumn<QString>("ownVersion");
    for (const auto& [typeId, version] : samples::kinds())
        QTest::newRow(qPrintable(typeId)) << typeId << version;
}

void tst_NodeKinds::identityAndVersions()
{
    QFETCH(QString, typeId);
    QFETCH(QString, ownVersion);

    const std::unique_ptr<ui::Node> node = ui::NodeFactory::createSpecificNode(typeId);
    QCOMPARE(node->getTypeId(), typeId);
    QCOMPARE(node->getInheritanceList().first(), QString("Node"));
    QCOMPARE(node->getInheritanceList().last(), typeId);
    QVERIFY(!node->isAltered());

    // One entry per class level, each level at its own version.
    const QMap<QString, QVersionNumber>& versions = node->getVersions();
    QCOMPARE(versions.size(), node->getInheritanceList().size());
    for (const QString& level : node->getInheritanceList())
        QVERIFY2(versions.contains(level), qPrintable(level));
    QCOMPARE(versions.value("Node"), QVersionNumber(1, 0));
    QCOMPARE(versions.value(typeId), QVersionNumber::fromString(ownVersion));

    const std::unique_ptr<ui::Node> copy = node->clone();
    QCOMPARE(copy->getVersions(), versions);
    QCOMPARE(copy->getInheritanceList(), node->getInheritanceList());
}

void tst_NodeKinds::everyPropertyIsSetComparedAndCopied_data()
{
    QTest::addColumn<QString>("typeId");
    QTest::addColumn<int>("changeIndex");
    for (const auto& [typeId, version] : samples::kinds()) {
        const std::unique_ptr<ui::Node> probe = ui::NodeFactory::createSpecificNode(typeId);
        const std::vector<samples::Change>& changes = samples::allChanges();
        for (size_t i = 0; i < changes.size(); ++i) {
            if (changes[i].apply(*probe)) {
                QTest::addRow("%s/%s", qPrintable(typeId), qPrintable(changes[i].name))
                    << typeId << int(i);
            }
        }
    }
}

void tst_NodeKinds::everyPropertyIsSetComparedAndCopied()
{
    QFETCH(QString, typeId);
    QFETCH(int, changeIndex);
    const samples::Change& change = samples::allChanges().at(size_t(changeIndex));

    const std::unique_ptr<ui::Node> pristine = ui::NodeFactory::createSpecificNode(typeId);
    pristine->addNode(std::make_unique<ui::LayoutTileNode>());
    std::unique_ptr<ui::Node> node = ui::NodeFactory::createSpecificNode(typeId);
    node->addNode(std::make_unique<ui::LayoutTileNode>());
    QVERIFY(node->isEqual(*pristine));
    node->clearAlteredRecursively();

    QVERIFY(change.apply(*node));
    QVERIFY(node->isAltered());
    // A property left out of the comparison would make the changed node equal to a default one.
    QVERIFY(!node->isEqual(*pristine));
    QVERIFY(!pristine->isEqual(*node));

    // Copies carry the property (but not the children) and start unaltered.
    const std::unique_ptr<ui::Node> copy = node->clone();
    QVERIFY(!copy->isAltered());
    QVERIFY(copy->getNodes().empty());
    copy->addNode(std::make_unique<ui::LayoutTileNode>());
    QVERIFY(copy->isEqual(*node));

    // The same value again is no change. Bookmark dependencies are added, not set, so they
    // change the node every time.
    if (typeId == "BookmarkNode" && change.name == "dependency")
        return;
    node->clearAlteredRecursively();
    QVERIFY(change.apply(*node));
    QVERIFY(!node->isAltered());
}

void tst_NodeKinds::settingUnderLockStoresWithoutAltering()
{
    ui::Viewer3DNode node;
    {
        ModificationLock lock(ModificationLock::Scope::UserInterfaceState);
        node.setNearDistance(0.5f);
        node.setCameraPosition({1, 1, 1});
    }
    QCOMPARE(node.getNearDistance(), 0.5f);
    QCOMPARE(node.getCameraPosition(), QVector3D(1, 1, 1));
    QVERIFY(!node.isAltered());

    // Only the state tree's own scope holds changes back.
    {
        ModificationLock lock(ModificationLock::Scope::Document);
        node.setNearDistance(0.75f);
    }
    QVERIFY(node.isAltered());
}

void tst_NodeKinds::classTestComesBeforeProperties()
{
    const ui::ViewerNode viewer;
    const ui::Viewer2DNode viewer2D;
    const ui::ResliceViewerNode reslice;
    const ui::RootCanalViewer2DNode rootCanal;
    QVERIFY(!viewer.isEqual(viewer2D));
    QVERIFY(!viewer2D.isEqual(viewer));
    QVERIFY(!reslice.isEqual(rootCanal));
    QVERIFY(!rootCanal.isEqual(reslice));
    QVERIFY(rootCanal.isEqual(ui::RootCanalViewer2DNode()));

    const ui::PeriapicalViewNode periapical;
    const ui::IntraOralPicturesViewNode intraOral;
    QVERIFY(!periapical.isEqual(intraOral));
}

void tst_NodeKinds::fuzzyFloatRule_data()
{
    QTest::addColumn<double>("a");
    QTest::addColumn<double>("b");
    QTest::addColumn<bool>("equal");
    QTest::newRow("tiny relative difference") << 0.5 << 0.5 + 1e-15 << true;
    QTest::newRow("visible difference") << 0.5 << 0.5 + 1e-3 << false;
    QTest::newRow("large values, relative") << 1e6 << 1e6 + 1e-7 << true;
    QTest::newRow("large values, beyond relative") << 1e6 << 1e6 + 1e-5 << false;
    QTest::newRow("zero, within absolute") << 0.0 << 1e-13 << true;
    QTest::newRow("zero, beyond absolute") << 0.0 << 1e-11 << false;
    QTest::newRow("small values are not absolute") << 1e-13 << 2e-13 << false;
    QTest::newRow("opposite signs") << 1.0 << -1.0 << false;
}

void tst_NodeKinds::fuzzyFloatRule()
{
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(bool, equal);

    ui::Measurement2DNode first;
    ui::Measurement2DNode second;
    first.setLabelRelativePositions({{1.0, a}});
    second.setLabelRelativePositions({{1.0, b}});
    QCOMPARE(first.isEqual(second), equal);
    QCOMPARE(second.isEqual(first), equal);

    // A setter that receives a value fuzzy-equal to the one held makes no change.
    first.clearAlteredRecursively();
    first.setLabelRelativePositions({{1.0, b}});
    QCOMPARE(first.isAltered(), !equal);
}

void tst_NodeKinds::measurementLabelsByIndex()
{
    ui::Measurement2DNode node("m");
    node.setLabelRelativePositions({{1, 2}, {3, 4}});
    QCOMPARE(node.getLabelRelativePosition(1), QPointF(3, 4));
    QCOMPARE(node.getLabelRelativePosition(2), QPointF());

    node.clearAlteredRecursively();
    node.setLabelRelativePosition(0, {1, 2});
    QVERIFY(!node.isAltered());
    node.setLabelRelativePosition(0, {5, 6});
    QVERIFY(node.isAltered());
    QCOMPARE(node.getLabelRelativePositions(), (std::vector<QPointF> {{5, 6}, {3, 4}}));

    QTest::ignoreMessage(QtWarningMsg, "Measurement2DNode : no label at index 2.");
    node.clearAlteredRecursively();
    node.setLabelRelativePosition(2, {7, 8});
    QCOMPARE(node.getLabelRelativePositions().size(), size_t(2));
    QVERIFY(!node.isAltered());

    // Lists of different lengths are never equal, however close the common part.
    ui::Measurement2DNode longer("m");
    longer.setLabelRelativePositions({{5, 6}, {3, 4}, {0, 0}});
    QVERIFY(!node.isEqual(longer));
}

void tst_NodeKinds::viewerDefaultsAndClearing()
{
    ui::ViewerNode viewer;
    QCOMPARE(viewer.getViewerIndex(), -1);
    viewer.setAssociatedDataObjectUUID("abc");
    viewer.clearAlteredRecursively();
    viewer.clearAssociatedDataObjectUUID();
    QVERIFY(viewer.getAssociatedDataObjectUUID().isEmpty());
    QVERIFY(viewer.isAltered());

    ui::Viewer2DNode viewer2D;
    QVERIFY(!viewer2D.hasZoomBox());
    viewer2D.clearZoomBox();
    QVERIFY(!viewer2D.isAltered());
    viewer2D.setZoomBox({0, 0, 10, 10});
    QVERIFY(viewer2D.hasZoomBox());
    // An empty box and no box are different states.
    ui::Viewer2DNode emptyBox;
    emptyBox.setZoomBox(QRectF());
    QVERIFY(emptyBox.hasZoomBox());
    QVERIFY(!emptyBox.isEqual(ui::Viewer2DNode()));
    viewer2D.clearZoomBox();
    QVERIFY(!viewer2D.hasZoomBox());

    ui::ViewNode view;
    QVERIFY(!view.getAngulatedReslicesHorizontalSlidersPosition().has_value());
    view.setAngulatedReslicesHorizontalSlidersPosition(0);
    QVERIFY(view.isAltered());
    QVERIFY(!view.isEqual(ui::ViewNode()));
}

void tst_NodeKinds::scanVisualStateComparedMemberByMember()
{
    using State = ui::DentalScanComparisonOptionsNode::ScanSetupVisualState;
    const std::vector<std::function<void(State&)>> changes {
        [](State& s) { s.visible = !s.visible; },
        [](State& s) { s.wireframe = !s.wireframe; },
        [](State& s) { s.color += 1; },
        [](State& s) { s.opacityPercent -= 1; },
    };
    for (const auto& changeMember : changes) {
        ui::DentalScanComparisonOptionsNode node("scan");
        State state = node.getReferenceScanVisualState();
        node.setReferenceScanVisualState(state);
        QVERIFY(!node.isAltered());
        changeMember(state);
        node.setReferenceScanVisualState(state);
        QVERIFY(node.isAltered());
        QVERIFY(!node.isEqual(ui::DentalScanComparisonOptionsNode("scan")));
    }
}

void tst_NodeKinds::bookmarkDependencies()
{
    ui::BookmarkNode bookmark;
    bookmark.setAssociatedDataObjectUUID("volume");
    bookmark.addDependency(std::make_unique<ui::AngulatedResliceNode>("reslice"));
    bookmark.addDependency(std::make_unique<ui::Measurement2DNode>("ruler"));
    bookmark.addDependency(nullptr);
    QCOMPARE(bookmark.getDependencies().size(), size_t(2));
    QVERIFY(bookmark.isDependantOn("ruler"));
    QVERIFY(!bookmark.isDependantOn("volume"));
    QVERIFY(bookmark.isAssociatedWith("volume"));
    QVERIFY(!bookmark.isAssociatedWith("ruler"));

    // Dependencies are deep-copied and compared regardless of order.
    const std::unique_ptr<ui::Node> copy = bookmark.clone();
    auto* copied = dynamic_cast<ui::BookmarkNode*>(copy.get());
    QVERIFY(copied);
    QVERIFY(copied->isDependantOn("reslice"));
    for (ui::DataObjectNode* dependency : copied->getDependencies())
        QVERIFY(!bookmark.getDependencies().count(dependency));

    ui::BookmarkNode reversed;
    reversed.setAssociatedDataObjectUUID("volume");
    reversed.addDependency(std::make_unique<ui::Measurement2DNode>("ruler"));
    reversed.addDependency(std::make_unique<ui::AngulatedResliceNode>("reslice"));
    QVERIFY(reversed.isEqual(bookmark));

    ui::BookmarkNode other;
    other.setAssociatedDataObjectUUID("volume");
    other.addDependency(std::make_unique<ui::Measurement2DNode>("ruler"));
    other.addDependency(std::make_unique<ui::Measurement2DNode>("ruler"));
    QVERIFY(!other.isEqual(bookmark));
}

QTEST_MAIN(tst_NodeKinds)
#include "tst_nodekinds.moc"
