#include "NodeSamples.h"

#include <objectmodel/ModificationLock.h>

#include <QRegularExpression>
#include <QTest>

using utility::ModificationLock;

namespace {

std::unique_ptr<ui::Node> tile(const QString& id)
{
    auto node = std::make_unique<ui::LayoutTileNode>();
    node->setLayoutTileId(id);
    return node;
}

std::unique_ptr<ui::Node> viewWithTiles(const QStringList& ids)
{
    auto view = std::make_unique<ui::ViewNode>();
    for (const QString& id : ids)
        view->addNode(tile(id));
    return view;
}

QStringList tileIds(const ui::Node& parent)
{
    QStringList ids;
    for (const ui::Node* child : parent.getNodes())
        ids << static_cast<const ui::LayoutTileNode*>(child)->getLayoutTileId();
    return ids;
}

} // namespace

class tst_UiNode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void childrenCompareAsMultisets_data();
    void childrenCompareAsMultisets();
    void childrenOfChildrenTakePart();
    void wideMixedTreesCompareInAnyOrder();
    void manySiblingsMatchWithinTolerance();
    void alteredAndVersionsAreNotCompared();
    void addingMarksAlteredUnlessLocked();
    void removeNodeGoesByIdentity();
    void takeNodesEmptiesInOrder();
    void alteredFlagsAreRecursive();
    void loadingVersionsAreKeptByCopies();
    void placeholderClonesWithWarning();
};

void tst_UiNode::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_UiNode::childrenCompareAsMultisets_data()
{
    QTest::addColumn<QStringList>("left");
    QTest::addColumn<QStringList>("right");
    QTest::addColumn<bool>("equal");
    QTest::newRow("same order") << QStringList {"a", "b"} << QStringList {"a", "b"} << true;
    QTest::newRow("other order") << QStringList {"a", "b", "c"} << QStringList {"c", "a", "b"}
                                 << true;
    QTest::newRow("duplicates against distinct")
        << QStringList {"a", "a"} << QStringList {"a", "b"} << false;
    QTest::newRow("distinct against duplicates")
        << QStringList {"a", "b"} << QStringList {"a", "a"} << false;
    QTest::newRow("duplicates in other order")
        << QStringList {"a", "b", "a"} << QStringList {"b", "a", "a"} << true;
    QTest::newRow("different counts") << QStringList {"a"} << QStringList {"a", "a"} << false;
    QTest::newRow("both empty") << QStringList {} << QStringList {} << true;
}

void tst_UiNode::childrenCompareAsMultisets()
{
    QFETCH(QStringList, left);
    QFETCH(QStringList, right);
    QFETCH(bool, equal);
    const auto l = viewWithTiles(left);
    const auto r = viewWithTiles(right);
    QCOMPARE(l->isEqual(*r), equal);
    QCOMPARE(r->isEqual(*l), equal);
}

void tst_UiNode::childrenOfChildrenTakePart()
{
    auto left = std::make_unique<ui::ViewNode>();
    auto right = std::make_unique<ui::ViewNode>();
    left->addNode(viewWithTiles({"a", "b"}));
    left->addNode(viewWithTiles({"c"}));
    right->addNode(viewWithTiles({"c"}));
    right->addNode(viewWithTiles({"b", "a"}));
    QVERIFY(left->isEqual(*right));

    right->getNodes().front()->addNode(tile("d"));
    QVERIFY(!left->isEqual(*right));
}

void tst_UiNode::wideMixedTreesCompareInAnyOrder()
{
    // Thousands of siblings of every kind, one tree the reverse of the other: the comparison
    // must pair each child with its equal however far apart they sit.
    ui::ViewNode left;
    ui::ViewNode right;
    std::vector<std::unique_ptr<ui::Node>> reversed;
    for (int i = 0; i < 200; ++i) {
        for (const auto& [typeId, version] : samples::kinds()) {
            std::unique_ptr<ui::Node> node = samples::populated(typeId);
            if (auto* dataObject = dynamic_cast<ui::DataObjectNode*>(node.get()))
                dataObject->setDataObjectUUID(QString::number(i));
            reversed.push_back(node->clone());
            left.addNode(std::move(node));
        }
    }
    std::reverse(reversed.begin(), reversed.end());
    right.addNodes(std::move(reversed));

    QVERIFY(left.isEqual(right));

    const std::vector<ui::Node*> children = right.getNodes();
    const auto dataObject = std::find_if(children.begin(), children.end(),
        [](ui::Node* node) { return dynamic_cast<ui::DataObjectNode*>(node) != nullptr; });
    QVERIFY(dataObject != children.end());
    static_cast<ui::DataObjectNode*>(*dataObject)->setDataObjectUUID("elsewhere");
    QVERIFY(!left.isEqual(right));
}

void tst_UiNode::manySiblingsMatchWithinTolerance()
{
    // More siblings than are simply tried against each other, so that the bucketed matching
    // runs: nearly equal positions must still pair up, and so must -0 and 0 in an exactly
    // compared vector.
    const auto measurement = [](int i, double nudge) {
        auto node = std::make_unique<ui::Measurement2DNode>(QStringLiteral("same"));
        node->setLabelRelativePositions({QPointF(0.5 * (i % 4) * (1.0 + nudge), 1.0)});
        return node;
    };
    const auto reslice = [](float x) {
        auto node = std::make_unique<ui::AngulatedResliceNode>(QStringLiteral("r"));
        node->setOrigin(QVector3D(x, 1.0f, 2.0f));
        return node;
    };
    ui::ViewNode left;
    ui::ViewNode right;
    for (int i = 0; i < 12; ++i) {
        left.addNode(measurement(i, 0.0));
        right.addNode(measurement(11 - i, i % 3 == 0 ? 1e-14 : 0.0));
    }
    left.addNode(reslice(0.0f));
    right.addNode(reslice(-0.0f));
    QVERIFY(left.isEqual(right));
    QVERIFY(right.isEqual(left));

    static_cast<ui::Measurement2DNode*>(right.getNodes().at(5))
        ->setLabelRelativePosition(0, QPointF(0.5 * (6 % 4) + 1e-3, 1.0));
    QVERIFY(!left.isEqual(right));
    QVERIFY(!right.isEqual(left));
}

void tst_UiNode::alteredAndVersionsAreNotCompared()
{
    auto left = viewWithTiles({"a"});
    auto right = viewWithTiles({"a"});
    right->clearAlteredRecursively();
    right->setLoadingVersions({{"Node", QVersionNumber(0, 9)}});
    QVERIFY(left->isAlteredRecursively());
    QVERIFY(left->isEqual(*right));
}

void tst_UiNode::addingMarksAlteredUnlessLocked()
{
    ui::ViewNode node;
    QVERIFY(!node.isAltered());
    {
        ModificationLock lock(ModificationLock::Scope::UserInterfaceState);
        node.addNode(tile("a"));
        std::vector<std::unique_ptr<ui::Node>> more;
        more.push_back(tile("b"));
        node.addNodes(std::move(more));
        node.removeNode(*node.getNodes().front());
    }
    QCOMPARE(tileIds(node), QStringList {"b"});
    QVERIFY(!node.isAltered());

    node.addNodes({});
    node.addNode(nullptr);
    QVERIFY(!node.isAltered());
    node.addNode(tile("c"));
    QVERIFY(node.isAltered());

    ui::ViewNode other;
    std::vector<std::unique_ptr<ui::Node>> batch;
    batch.push_back(tile("x"));
    batch.push_back(tile("y"));
    other.addNodes(std::move(batch));
    QVERIFY(other.isAltered());
    QCOMPARE(tileIds(other), (QStringList {"x", "y"}));
}

void tst_UiNode::removeNodeGoesByIdentity()
{
    auto parent = viewWithTiles({"a", "b", "a", "c"});
    parent->clearAlteredRecursively();

    // An equal node that is not a child is ignored.
    const auto equalStranger = tile("a");
    parent->removeNode(*equalStranger);
    QCOMPARE(tileIds(*parent), (QStringList {"a", "b", "a", "c"}));
    QVERIFY(!parent->isAltered());

    // Of two equal children, exactly the one given goes; the others keep their order.
    ui::Node* secondA = parent->getNodes().at(2);
    ui::Node* firstA = parent->getNodes().at(0);
    parent->removeNode(*secondA);
    QCOMPARE(tileIds(*parent), (QStringList {"a", "b", "c"}));
    QCOMPARE(parent->getNodes().at(0), firstA);
    QVERIFY(parent->isAltered());

    // A grandchild is not a child.
    auto grand = std::make_unique<ui::ViewNode>();
    grand->addNode(tile("g"));
    ui::Node* grandChild = grand->getNodes().front();
    parent->addNode(std::move(grand));
    parent->removeNode(*grandChild);
    QCOMPARE(parent->getNodes().back()->getNodes().size(), size_t(1));
}

void tst_UiNode::takeNodesEmptiesInOrder()
{
    auto parent = viewWithTiles({"a", "b", "c"});
    const std::vector<ui::Node*> before = parent->getNodes();
    std::vector<std::unique_ptr<ui::Node>> taken = parent->takeNodes();
    QVERIFY(parent->getNodes().empty());
    QCOMPARE(taken.size(), size_t(3));
    for (size_t i = 0; i < taken.size(); ++i)
        QCOMPARE(taken[i].get(), before[i]);
    QVERIFY(parent->takeNodes().empty());
}

void tst_UiNode::alteredFlagsAreRecursive()
{
    auto root = std::make_unique<ui::ViewNode>();
    auto child = std::make_unique<ui::ViewerNode>();
    auto grandChild = std::make_unique<ui::SplitterNode>();
    ui::SplitterNode* splitter = grandChild.get();
    child->addNode(std::move(grandChild));
    ui::ViewerNode* viewer = child.get();
    root->addNode(std::move(child));
    root->clearAlteredRecursively();
    QVERIFY(!root->isAlteredRecursively());

    splitter->setRow(4);
    QVERIFY(!root->isAltered());
    QVERIFY(!viewer->isAltered());
    QVERIFY(root->isAlteredRecursively());
    QVERIFY(viewer->isAlteredRecursively());

    root->clearAlteredRecursively();
    QVERIFY(!root->isAlteredRecursively());
    QVERIFY(!splitter->isAltered());
}

void tst_UiNode::loadingVersionsAreKeptByCopies()
{
    ui::CtDataViewer3DNode node;
    QCOMPARE(node.getVersions(),
        (QMap<QString, QVersionNumber> {{"Node", QVersionNumber(1, 0)},
            {"ViewerNode", QVersionNumber(1, 0)}, {"Viewer3DNode", QVersionNumber(1, 1)},
            {"CtDataViewer3DNode", QVersionNumber(1, 0)}}));
    QVERIFY(node.getLoadingVersions().isEmpty());
    const QMap<QString, QVersionNumber> stored {
        {"Node", QVersionNumber(1, 0)}, {"Viewer3DNode", QVersionNumber(1, 0)}};
    node.setLoadingVersions(stored);
    QVERIFY(!node.isAltered());
    QCOMPARE(node.clone()->getLoadingVersions(), stored);
    QCOMPARE(node.clone()->getVersions(), node.getVersions());
}

void tst_UiNode::placeholderClonesWithWarning()
{
    const std::unique_ptr<ui::Node> placeholder = ui::NodeFactory::createSpecificNode("Node");
    QCOMPARE(placeholder->getTypeId(), QString("Node"));
    QCOMPARE(placeholder->getInheritanceList(), QList<QString> {"Node"});
    placeholder->addNode(tile("a"));

    QTest::ignoreMessage(
        QtWarningMsg, "Trying to clone a base ui::Node. This should never happen!");
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

QTEST_MAIN(tst_UiNode)
#include "tst_uinode.moc"
