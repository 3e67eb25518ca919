#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/ui/Node.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/view/MultiView.h>
#include <guicore/view/ViewManager.h>
#include <guicore/view/ViewNodeInteractor.h>
#include <guicore/view/ViewerMatrix.h>

#include <QPointer>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTest>
#include <QWidget>

#include <array>
#include <memory>

#include "ViewTestDoubles.h"

namespace {

class PlainView : public View
{
public:
    using View::View;

private:
    void createWidget() override { }
};

QString viewIdOfNode(View& view)
{
    std::unique_ptr<ui::Node> node = view.createNodeInteractor()->generate();
    auto* viewNode = dynamic_cast<ui::ViewNode*>(node.get());
    return viewNode ? viewNode->getViewId() : QStringLiteral("no view node");
}

} // namespace

// Views and multi views, the solution manager's view registry and the viewer matrix.
class tst_View : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        m_log.clear();
    }

    void nodeInteractorGeneratesViewNode()
    {
        PlainView unnamed;
        QCOMPARE(unnamed.getID(), QStringLiteral("undefined_view"));
        QVERIFY(!unnamed.isActive());
        QCOMPARE(unnamed.getViewManager(), nullptr);

        PlainView view(QStringLiteral("Panoramic"));
        std::unique_ptr<ui::ViewNodeInteractor> interactor = view.createNodeInteractor();
        QCOMPARE(interactor->getNodeTypeId(), QStringLiteral("ViewNode"));
        QCOMPARE(viewIdOfNode(view), QStringLiteral("Panoramic"));
        std::unique_ptr<ui::Node> node = interactor->generate();
        interactor->apply(node.get());
        interactor->apply(nullptr);
    }

    void viewLifecycle()
    {
        auto view = std::make_unique<RecordingView>(QStringLiteral("A"), m_log);
        QPointer<ViewManager> first = view->getViewManager();
        auto second = std::make_unique<RecordingManager>(QStringLiteral("second"), m_log);
        QPointer<ViewManager> secondGuard = second.get();
        QTest::ignoreMessage(QtWarningMsg, "View : this view already has a manager set.");
        view->setViewManager(std::move(second));
        QVERIFY(secondGuard.isNull());
        QCOMPARE(view->getViewManager(), first.data());

        // The widget is built on demand, once; start and stop are idempotent.
        QCOMPARE(view->currentWidget(), nullptr);
        QWidget* widget = view->getWidget();
        QVERIFY(widget);
        QCOMPARE(view->getActiveWidget(), widget);
        view->stop();
        view->start();
        view->start();
        QVERIFY(view->isActive());
        view->stop();
        view->stop();
        QVERIFY(!view->isActive());
        view->reset();
        view->stopActions();
        QCOMPARE(m_log, (QStringList {"A.start", "A.stop", "A.initialize", "A.stopActions"}));
        QCOMPARE(view->widgetsCreated, 1);
        // A widget deleted by its owner is built again rather than handed out dangling.
        delete view->ownWidget.data();
        QVERIFY(view->getWidget());
        QCOMPARE(view->widgetsCreated, 2);
        view.reset(); // the view owns its manager
        QVERIFY(first.isNull());

        // Without a manager start() alone builds the widget, the flag follows, nothing else.
        RecordingView bare(QStringLiteral("bare"), m_log, false);
        m_log.clear();
        bare.start();
        QVERIFY(bare.isActive());
        QVERIFY(bare.currentWidget());
        bare.reset();
        bare.stopActions();
        bare.stop();
        QVERIFY(!bare.isActive());
        QVERIFY(m_log.isEmpty());
    }

    void viewSettingsPassThroughTheHooks()
    {
        RecordingManager manager(QStringLiteral("m"), m_log);
        ViewSettings settings;
        settings.firstValue = 7;
        settings.fourthValue = -3;
        settings.flag = true;
        manager.setViewSettings(settings);
        QCOMPARE(m_log, (QStringList {"m.read(7)"}));

        // The stored record comes back, refreshed from the live viewers.
        manager.liveValue = 4;
        const ViewSettings written = manager.getViewSettings();
        QCOMPARE(written.firstValue, 4);
        QCOMPARE(written.fourthValue, -3);
        QCOMPARE(written.flag, true);
    }

    void multiViewForwardsToActiveSubView()
    {
        // Empty, it is neutral; its own manager is never consulted.
        MultiView empty(QStringLiteral("E"));
        empty.setViewManager(std::make_unique<RecordingManager>(QStringLiteral("own"), m_log));
        QVERIFY(empty.getActiveSubViewID().isEmpty());
        QCOMPARE(empty.getActiveWidget(), nullptr);
        QCOMPARE(empty.getViewManager(), nullptr);
        empty.reset();
        empty.stopActions();
        empty.releaseWidget();
        QVERIFY(m_log.isEmpty());
        QCOMPARE(viewIdOfNode(empty), QStringLiteral("E"));

        // Sub views keep their order; the first one added is active and its page in front.
        auto [multi, a, b] = makeMultiView();
        multi->addSubView(nullptr);
        QCOMPARE(multi->getSubViews(), (std::vector<View*> {a, b}));
        QCOMPARE(multi->getActiveSubViewID(), QStringLiteral("A"));
        QCOMPARE(multi->getSubViewByID(QStringLiteral("B")), b);
        QCOMPARE(multi->getSubViewByID(QStringLiteral("b")), nullptr);
        auto* stacked = qobject_cast<QStackedWidget*>(multi->getWidget());
        QVERIFY(stacked);
        QCOMPARE(stacked->objectName(), QStringLiteral("M"));
        QCOMPARE(stacked->count(), 2);
        QCOMPARE(stacked->widget(0), a->getWidget());
        QCOMPARE(stacked->widget(1), b->getWidget());
        QCOMPARE(multi->getActiveWidget(), a->getWidget());
        QCOMPARE(multi->getViewManager(), a->getViewManager());
        // An empty id, the active sub view and an unknown one change nothing.
        multi->switchToSubView(QString());
        multi->switchToSubView(QStringLiteral("A"));
        QTest::ignoreMessage(QtWarningMsg, "Can't switch to unknown sub view Nope");
        multi->switchToSubView(QStringLiteral("Nope"));
        QCOMPARE(multi->getActiveSubView(), a);
        // Idle, the choice is only recorded; the next start shows and starts that sub view only.
        multi->switchToSubView(QStringLiteral("B"));
        QCOMPARE(multi->getViewManager(), b->getViewManager());
        QCOMPARE(multi->getActiveWidget(), b->getWidget());
        QCOMPARE(stacked->currentWidget(), a->getWidget());
        multi->reset();
        multi->stopActions();
        multi->releaseWidget();
        multi->start();
        QCOMPARE(
            m_log, (QStringList {"B.initialize", "B.stopActions", "B.releaseWidget", "B.start"}));
        QCOMPARE(stacked->currentWidget(), b->getWidget());
        QVERIFY(!a->isActive());
        QCOMPARE(viewIdOfNode(*multi), QStringLiteral("B"));
    }

    void destructionTakesPagesOutFirst()
    {
        for (bool adopted : {false, true}) {
            QWidget window;
            auto [multi, a, b] = makeMultiView();
            QPointer<QStackedWidget> stacked = static_cast<QStackedWidget*>(multi->getWidget());
            if (adopted)
                stacked->setParent(&window);
            QPointer<ViewManager> managerOfB = b->getViewManager();
            // Each sub view notes, as it dies, how many pages the stacked widget still has.
            const auto notePages = [this, stacked](RecordingView& view) {
                m_log.append(QStringLiteral("%1 dies, pages left %2")
                                 .arg(view.getID())
                                 .arg(stacked ? stacked->count() : -1));
            };
            a->onDestroy = notePages;
            b->onDestroy = notePages;
            m_log.clear();
            multi.reset();
            QCOMPARE(m_log, (QStringList {"A dies, pages left 0", "B dies, pages left 0"}));
            QVERIFY(managerOfB.isNull());
            // An adopted stacked widget outlives the multi view, empty.
            QCOMPARE(stacked.isNull(), !adopted);
            if (adopted)
                QCOMPARE(stacked->count(), 0);
        }
    }

    void solutionManagerOwnsItsViews()
    {
        SolutionManager manager;
        const auto ids = [&] {
            QStringList result;
            for (const View* view : manager.getViews())
                result.append(view->getID());
            return result.join(' ');
        };
        RecordingView* first = mortal("pano");
        manager.addView(first);
        QCOMPARE(manager.getView(QStringLiteral("pano")), first);
        QVERIFY(manager.hasView(QList<QString> {QStringLiteral("x"), QStringLiteral("pano")}));
        QVERIFY(!manager.hasView(QList<QString> {QStringLiteral("x")}));
        RecordingView* second = mortal("pano");
        manager.addView(second); // same id, different view: the old one is deleted
        manager.addView(second); // the same view again changes nothing
        QCOMPARE(m_log, QStringList {"pano gone"});
        QCOMPARE(manager.getView(QStringLiteral("pano")), second);

        RecordingView* chart = mortal("chart");
        manager.addView(chart);
        manager.addView(mortal("apex"));
        QCOMPARE(ids(), "apex chart pano");
        // Removing hands the view back to the caller; clearing deletes what the manager owns.
        std::unique_ptr<View> taken = manager.removeView(QStringLiteral("chart"));
        QCOMPARE(taken.get(), chart);
        QVERIFY(!manager.hasView(QStringLiteral("chart")));
        QVERIFY(!manager.removeView(QStringLiteral("chart")));
        manager.clearViews();
        QCOMPARE(ids(), "");
        taken.reset();
        QCOMPARE(m_log, (QStringList {"pano gone", "apex gone", "pano gone", "chart gone"}));

        // A solution only refers to its views.
        RecordingView pano(QStringLiteral("pano"), m_log);
        RecordingView lateral(QStringLiteral("lateral"), m_log);
        Solution solution(QStringLiteral("dental"), QStringLiteral("Dental"));
        solution.addView(&pano);
        solution.addView(&lateral);
        QCOMPARE(solution.getViewById(QStringLiteral("lateral")), &lateral);
        QCOMPARE(solution.getViewById(QStringLiteral("none")), nullptr);
        solution.removeView(&lateral);
        QCOMPARE(solution.getViewById(QStringLiteral("lateral")), nullptr);
    }

    void viewerMatrixPlacesViewers()
    {
        ViewerMatrix matrix;
        QVERIFY(!matrix.getViewer(1, 1));
        matrix.addViewer(2, 3, viewer(0));
        matrix.addViewer(3, 2, viewer(1));
        matrix.addViewer(2, 3, viewer(2)); // replacing keeps the place
        QCOMPARE(matrix.getViewer(2, 3), viewer(2));
        QCOMPARE(matrix.getViewer(3, 2), viewer(1));
        QVERIFY(!matrix.getViewer(2, 2));
        QCOMPARE(matrix.getViewersWithIndex().size(), size_t(2));
        const ViewerMatrix::ViewerWithIndex& second = matrix.getViewersWithIndex().at(1);
        QCOMPARE(second.row, 3);
        QCOMPARE(second.column, 2);
        QCOMPARE(second.viewer, viewer(1));
        // Null viewers are entries like any other.
        matrix.addViewer(4, 1, nullptr);
        QCOMPARE(matrix.getViewers(), (std::vector<ViewerBase*> {viewer(2), viewer(1), nullptr}));
        QCOMPARE(matrix.numberOfRows(), 4);

        // Copies are independent.
        ViewerMatrix copy(matrix);
        copy.addViewer(2, 3, viewer(3));
        copy.addViewer(5, 1, viewer(4));
        QCOMPARE(matrix.getViewer(2, 3), viewer(2));
        QCOMPARE(matrix.numberOfRows(), 4);
        ViewerMatrix assigned;
        assigned = copy;
        QCOMPARE(assigned.getViewers(), copy.getViewers());
    }

    void viewerMatrixSizesAreLargestIndices_data()
    {
        using Cells = QList<QPoint>; // x is the row, y the column
        QTest::addColumn<Cells>("cells");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("columnsInRow");
        QTest::addColumn<int>("rows");
        const Cells gapped {{1, 1}, {1, 3}, {2, 1}};
        QTest::newRow("gap counts to the largest column") << gapped << 1 << 3 << 2;
        QTest::newRow("second row") << gapped << 2 << 1 << 2;
        QTest::newRow("row without entries") << gapped << 5 << 0 << 2;
        QTest::newRow("empty") << Cells {} << 1 << 0 << 0;
        QTest::newRow("zero-based is not a count") << Cells {{0, 0}, {0, 1}, {1, 0}} << 0 << 1 << 1;
        QTest::newRow("only row zero") << Cells {{0, 0}} << 0 << 0 << 0;
        QTest::newRow("rows out of order") << Cells {{3, 1}, {1, 1}, {2, 4}} << 2 << 4 << 3;
        QTest::newRow("negative columns") << Cells {{1, -2}, {1, -1}} << 1 << -1 << 1;
    }

    void viewerMatrixSizesAreLargestIndices()
    {
        QFETCH(QList<QPoint>, cells);
        QFETCH(int, row);
        QFETCH(int, columnsInRow);
        QFETCH(int, rows);
        ViewerMatrix matrix;
        for (int i = 0; i < cells.size(); ++i)
            matrix.addViewer(cells[i].x(), cells[i].y(), viewer(i));
        QCOMPARE(matrix.numberOfColumnsInRow(row), columnsInRow);
        QCOMPARE(matrix.numberOfRows(), rows);
    }

private:
    struct Multi
    {
        std::unique_ptr<MultiView> view;
        RecordingView* a;
        RecordingView* b;
    };
    // A multi view "M" with the sub views "A" and "B".
    Multi makeMultiView()
    {
        auto a = std::make_unique<RecordingView>(QStringLiteral("A"), m_log);
        auto b = std::make_unique<RecordingView>(QStringLiteral("B"), m_log);
        Multi result {std::make_unique<MultiView>(QStringLiteral("M")), a.get(), b.get()};
        result.view->addSubView(std::move(a));
        result.view->addSubView(std::move(b));
        return result;
    }

    RecordingView* mortal(const char* id)
    {
        auto* view = new RecordingView(QString::fromLatin1(id), m_log);
        view->onDestroy = [this](RecordingView& dying) { m_log.append(dying.getID() + " gone"); };
        return view;
    }

    // The matrix never dereferences its viewers, so distinct addresses stand in for them.
    ViewerBase* viewer(int i) { return reinterpret_cast<ViewerBase*>(&m_slots[size_t(i)]); }

    std::array<int, 8> m_slots {};
    QStringList m_log;
};

QTEST_MAIN(tst_View)
#include "tst_view.moc"
