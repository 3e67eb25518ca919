#include "NodeSamples.h"

#include <objectmodel/ModificationLock.h>

using utility::ModificationLock;

static std::unique_ptr<ui::Node> viewWithTiles(const QStringList& ids)
{
    auto view = std::make_unique<ui::ViewNode>();
    for (const QString& id : ids) {
        auto tile = std::make_unique<ui::LayoutTileNode>();
        tile->setLayoutTileId(id);
        view->addNode(std::move(tile));
    }
    return view;
}

class tst_UiNode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void everyPropertyIsSetComparedAndCopied()
    {
        for (const QString& typeId : samples::kinds()) {
            const auto pristine = ui::NodeFactory::createSpecificNode(typeId);
            for (const auto& [name, apply] : samples::allChanges()) {
                const auto node = ui::NodeFactory::createSpecificNode(typeId);
                if (!apply(*node))
                    continue;
                QVERIFY2(node->isAltered(), qPrintable(typeId + ": " + name));
                // A property left out of the comparison would make the changed node equal a
                // default one.
                QVERIFY(!node->isEqual(*pristine) && !pristine->isEqual(*node));
                // Copies carry the property and start unaltered.
                const auto copy = node->clone();
                QVERIFY(!copy->isAltered() && copy->isEqual(*node));
                // The same value again is no change; dependencies are added, so they always are.
                node->clearAlteredRecursively();
                QVERIFY(apply(*node));
                QCOMPARE(node->isAltered(), name.startsWith("addDependency"));
            }
        }
    }

    void comparisonRules()
    {
        const std::tuple<QStringList, QStringList, bool> cases[] {{{"a", "b"}, {"a", "b"}, true},
            {{"a", "b", "c"}, {"c", "a", "b"}, true}, {{"a", "a"}, {"a", "b"}, false},
            {{"a", "b"}, {"a", "a"}, false}, {{"a", "b", "a"}, {"b", "a", "a"}, true},
            {{"a"}, {"a", "a"}, false}, {{}, {}, true}};
        for (const auto& [left, right, equal] : cases) {
            QCOMPARE(viewWithTiles(left)->isEqual(*viewWithTiles(right)), equal);
            QCOMPARE(viewWithTiles(right)->isEqual(*viewWithTiles(left)), equal);
        }
        // A base and a derived kind never compare equal, whichever way round.
        ui::ViewerNode viewer;
        ui::Viewer2DNode viewer2D, equal, equal2;
        ui::ResliceViewerNode reslice;
        ui::RootCanalViewer2DNode rootCanal;
        QVERIFY(!viewer.isEqual(viewer2D) && !viewer2D.isEqual(viewer));
        QVERIFY(!reslice.isEqual(rootCanal) && !rootCanal.isEqual(reslice));
        // The first candidate equal to the node, passing over empty ones; or none.
        struct : ui::ViewNode
        {
            using ui::Node::findCorrespondingNode;
        } finder;
        QCOMPARE(
            finder.findCorrespondingNode(viewer2D, {nullptr, &reslice, &equal, &equal2}), &equal);
        QCOMPARE(finder.findCorrespondingNode(viewer2D, {nullptr, &reslice}), nullptr);

        // Relative for large values, absolute only near zero.
        const std::tuple<double, double, bool> fuzzy[] {{0.5, 0.5 + 1e-15, true},
            {0.5, 0.5 + 1e-3, false}, {1e6, 1e6 + 1e-7, true}, {1e6, 1e6 + 1e-5, false},
            {0.0, 1e-13, true}, {0.0, 1e-11, false}, {1e-13, 2e-13, false}, {1.0, -1.0, false}};
        for (const auto& [a, b, equal] : fuzzy) {
            ui::Measurement2DNode first, second;
            first.setLabelRelativePositions({{1.0, a}});
            second.setLabelRelativePositions({{1.0, b}});
            QCOMPARE(first.isEqual(second), equal);
            QCOMPARE(second.isEqual(first), equal);
            // A setter that receives a value fuzzy-equal to the one held makes no change.
            first.clearAlteredRecursively();
            first.setLabelRelativePositions({{1.0, b}});
            QCOMPARE(first.isAltered(), !equal);
        }
    }

    void wideMixedTreesCompareInAnyOrder()
    {
        // Thousands of siblings of every kind, one tree the reverse of the other: the comparison
        // must pair each child with its equal however far apart they sit. Measurements differ
        // only in a position compared within tolerance, nudged in the copy; reslice origins differ
        // only in the sign of a zero, which an exact comparison ignores.
        ui::ViewNode left, right;
        std::vector<std::unique_ptr<ui::Node>> reversed;
        for (int i = 0; i < 200; ++i) {
            for (const QString& typeId : samples::kinds()) {
                std::unique_ptr<ui::Node> node = samples::populated(typeId);
                auto* measurement = dynamic_cast<ui::Measurement2DNode*>(node.get());
                auto* reslice = dynamic_cast<ui::AngulatedResliceNode*>(node.get());
                if (auto* dataObject = dynamic_cast<ui::DataObjectNode*>(node.get()))
                    dataObject->setDataObjectUUID(measurement ? "same" : QString::number(i));
                for (double scale : {1.0, 1 + 1e-14}) {
                    if (measurement)
                        measurement->setLabelRelativePositions({{0.5 * (i % 4) * scale, 1.0}});
                    if (reslice)
                        reslice->setOrigin({scale == 1.0 ? -0.0f : 0.0f, 1, 2});
                    if (scale == 1.0)
                        reversed.push_back(node->clone());
                }
                left.addNode(std::move(node));
            }
        }
        std::reverse(reversed.begin(), reversed.end());
        right.addNodes(std::move(reversed));
        QVERIFY(left.isEqual(right) && right.isEqual(left));

        static_cast<ui::DataObjectNode*>(left.getNodes().front())->setDataObjectUUID("elsewhere");
        QVERIFY(!left.isEqual(right));

        // Among many siblings too, one identical twin cannot pair with two children.
        ui::ViewNode twice, once;
        for (int i = 0; i < 10; ++i) {
            for (auto [tree, x] : {std::pair {&twice, i == 1 ? 0 : i}, {&once, i == 1 ? 42 : i}}) {
                auto measurement = std::make_unique<ui::Measurement2DNode>();
                measurement->setLabelRelativePositions({{double(x), 1.0}});
                tree->addNode(std::move(measurement));
            }
        }
        QVERIFY(!twice.isEqual(once) && !once.isEqual(twice));
    }

    void editingChildren()
    {
        auto parent = viewWithTiles({"a", "b", "a", "c"});
        parent->clearAlteredRecursively();
        {
            // Under the state tree's own lock edits are stored but are no changes.
            ModificationLock lock(ModificationLock::Scope::UserInterfaceState);
            parent->addNodes(viewWithTiles({"d", "e"})->takeNodes());
            parent->addNode(std::make_unique<ui::LayoutTileNode>());
            parent->removeNode(*parent->getNodes().back());
        }
        QVERIFY(parent->isEqual(*viewWithTiles({"a", "b", "a", "c", "d", "e"}))
            && !parent->isAltered());

        // Adding nothing and removing an equal node that is not a child are no changes.
        parent->addNodes({});
        parent->addNode(nullptr);
        parent->removeNode(*viewWithTiles({"a"})->getNodes().front());
        QCOMPARE(parent->getNodes().size(), size_t(6));
        QVERIFY(!parent->isAltered());

        // Of two equal children, exactly the one given goes; the others keep their order.
        ui::Node* firstA = parent->getNodes().at(0);
        {
            // Another scope's lock does not hide the change.
            ModificationLock lock(ModificationLock::Scope::Document);
            parent->removeNode(*parent->getNodes().at(2));
        }
        QVERIFY(parent->isEqual(*viewWithTiles({"a", "b", "c", "d", "e"})) && parent->isAltered());
        QCOMPARE(parent->getNodes().at(0), firstA);
        parent->clearAlteredRecursively();
        parent->addNodes(viewWithTiles({"f"})->takeNodes());
        QVERIFY(parent->isAltered());

        // A grandchild is not a child; its changes show only in the recursive flags.
        auto grandParent = viewWithTiles({"g"});
        auto* grand = grandParent.get();
        auto* grandChild = static_cast<ui::LayoutTileNode*>(grand->getNodes().front());
        parent->clearAlteredRecursively();
        parent->addNode(std::move(grandParent));
        QVERIFY(parent->isAltered());
        parent->clearAlteredRecursively();
        parent->removeNode(*grandChild);
        QCOMPARE(grand->getNodes().size(), size_t(1));
        QVERIFY(!parent->isAlteredRecursively());
        grandChild->setLayoutTileId("h");
        QVERIFY(!parent->isAltered() && !grand->isAltered());
        QVERIFY(parent->isAlteredRecursively() && grand->isAlteredRecursively());
        QVERIFY(parent->clone()->getNodes().empty());
        parent->clearAlteredRecursively();
        QVERIFY(!grandChild->isAltered());

        const ui::Node* first = parent->getNodes().front();
        const std::vector<std::unique_ptr<ui::Node>> taken = parent->takeNodes();
        QVERIFY(taken.size() == 7 && taken.front().get() == first);
        QVERIFY(parent->getNodes().empty() && parent->takeNodes().empty());
    }

    void kindSpecificState()
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
        QTest::ignoreMessage(QtWarningMsg, "Measurement2DNode : no label at index 2.");
        node.clearAlteredRecursively();
        node.setLabelRelativePosition(2, {7, 8});
        QCOMPARE(node.getLabelRelativePositions(), (std::vector<QPointF> {{5, 6}, {3, 4}}));
        QVERIFY(!node.isAltered());

        // Lists of different lengths are never equal, however close the common part.
        ui::Measurement2DNode longer("m");
        longer.setLabelRelativePositions({{5, 6}, {3, 4}, {0, 0}});
        QVERIFY(!node.isEqual(longer));

        ui::ViewerNode viewer;
        viewer.setAssociatedDataObjectUUID("abc");
        viewer.clearAlteredRecursively();
        viewer.clearAssociatedDataObjectUUID();
        QVERIFY(viewer.getAssociatedDataObjectUUID().isEmpty() && viewer.isAltered());

        ui::Viewer2DNode viewer2D;
        viewer2D.clearZoomBox();
        QVERIFY(!viewer2D.isAltered() && !viewer2D.hasZoomBox());
        viewer2D.setZoomBox({0, 0, 10, 10});
        viewer2D.clearZoomBox();
        QVERIFY(!viewer2D.hasZoomBox() && viewer2D.isAltered());
        // An empty box and no box are different states.
        viewer2D.setZoomBox(QRectF());
        QVERIFY(viewer2D.hasZoomBox() && !viewer2D.isEqual(ui::Viewer2DNode()));

        ui::ViewNode view;
        QVERIFY(!view.getAngulatedReslicesHorizontalSlidersPosition().has_value());
        view.setAngulatedReslicesHorizontalSlidersPosition(0);
        QVERIFY(view.isAltered() && !view.isEqual(ui::ViewNode()));

        const auto bookmark = [](const QList<bool>& measurements) {
            auto node = std::make_unique<ui::BookmarkNode>();
            node->setAssociatedDataObjectUUID("volume");
            for (bool measurement : measurements)
                node->addDependency(measurement
                        ? std::unique_ptr<ui::DataObjectNode>(new ui::Measurement2DNode("ruler"))
                        : std::make_unique<ui::AngulatedResliceNode>("reslice"));
            return node;
        };
        const auto original = bookmark({false, true});
        original->addDependency(nullptr);
        QCOMPARE(original->getDependencies().size(), size_t(2));
        QVERIFY(original->isDependantOn("ruler") && !original->isDependantOn("volume"));
        QVERIFY(original->isAssociatedWith("volume") && !original->isAssociatedWith("ruler"));

        // Dependencies are deep-copied and compared regardless of order.
        const auto copy = original->clone();
        const auto* copied = dynamic_cast<ui::BookmarkNode*>(copy.get());
        QVERIFY(copied && copied->isDependantOn("reslice"));
        for (ui::DataObjectNode* dependency : copied->getDependencies())
            QVERIFY(!original->getDependencies().count(dependency));
        QVERIFY(bookmark({true, false})->isEqual(*original));
        QVERIFY(!bookmark({true, true})->isEqual(*original));
    }
};

QTEST_MAIN(tst_UiNode)
#include "tst_uinode.moc"
