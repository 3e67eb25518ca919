#include <guicore/action/Action.h>
#include <guicore/action/ActionManager.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/utility/shortcuts/ShortcutManager.h>
#include <guicore/view/MultiView.h>
#include <guicore/view/SwitchingViewsManager.h>
#include <guicore/view/ViewNodeInteractor.h>
#include <guicore/view/ViewerMatrix.h>

#include <events/SceneEventHandler.h>

#include <QShortcut>
#include <QStackedWidget>
#include <QTest>

#include "ViewTestDoubles.h"

namespace {

struct PlainView : View
{
    void createWidget() override { }
};

QString viewIdOfNode(View& view)
{
    std::unique_ptr<ui::Node> node = view.createNodeInteractor()->generate();
    auto* viewNode = dynamic_cast<ui::ViewNode*>(node.get());
    return viewNode ? viewNode->getViewId() : QStringLiteral("no view node");
}

struct NullHandler : events::SceneEventHandler
{
    bool handleSceneEvent(QEvent*, const QString&) override { return false; }
};

// Members are destroyed bottom up: the switcher first, the solution last.
struct Fixture
{
    std::unique_ptr<Solution> solution
        = std::make_unique<Solution>(QStringLiteral("implant"), QStringLiteral("Implant"));
    SolutionManager solutions;
    ShortcutManager shortcuts;
    action::ActionManager actions;
    std::vector<std::unique_ptr<EmptyActionHandler>> handlers;
    std::vector<std::unique_ptr<Action>> tools;
    SwitchingViewsManager switcher;
};

} // namespace

// Views and multi views, switching between them, the solution manager's view registry and the
// viewer matrix. Switching runs on a solution of A, B, M(M1, M2) and D, made in init().
class tst_View : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { f.reset(); }

    void nodeInteractorGeneratesViewNode()
    {
        PlainView unnamed;
        QCOMPARE(unnamed.getID(), QStringLiteral("undefined_view"));
        QCOMPARE(unnamed.createNodeInteractor()->getNodeTypeId(), QStringLiteral("ViewNode"));
        QCOMPARE(viewIdOfNode(unnamed), QStringLiteral("undefined_view"));
        unnamed.createNodeInteractor()->apply(nullptr);
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
        QWidget* widget = view->getActiveWidget();
        QCOMPARE(widget, view->ownWidget.data());
        view->stop();
        view->start();
        view->start();
        QVERIFY(view->isActive());
        view->stop();
        view->stop();
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
        QVERIFY(bare.isActive() && bare.currentWidget());
        bare.reset();
        bare.stopActions();
        bare.stop();
        QVERIFY(!bare.isActive());
        QVERIFY(m_log.isEmpty());

        // Settings go through the hooks; the stored record comes back refreshed from the viewers.
        RecordingManager manager(QStringLiteral("m"), m_log);
        manager.setViewSettings(ViewSettings {7, 2, 0.5f, 3, -3, 9, true});
        QCOMPARE(m_log, (QStringList {"m.read(7)"}));
        manager.liveValue = 4;
        QCOMPARE(manager.getViewSettings(), (ViewSettings {4, 2, 0.5f, 3, -3, 9, true}));
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
        m_m->addSubView(nullptr);
        QCOMPARE(m_m->getSubViews(), (std::vector<View*> {m_m1, m_m2}));
        QCOMPARE(m_m->getActiveSubViewID(), QStringLiteral("M1"));
        QCOMPARE(m_m->getSubViewByID(QStringLiteral("M2")), m_m2);
        auto* stacked = static_cast<QStackedWidget*>(m_m->getWidget());
        QCOMPARE(stacked->objectName(), QStringLiteral("M"));
        QCOMPARE(stacked->count(), 2);
        QCOMPARE(stacked->widget(1), m_m2->getWidget());
        QCOMPARE(m_m->getActiveWidget(), m_m1->getWidget());
        QCOMPARE(m_m->getViewManager(), m_m1->getViewManager());
        // An empty id, the active sub view and an unknown one change nothing.
        m_m->switchToSubView(QString());
        m_m->switchToSubView(QStringLiteral("M1"));
        QTest::ignoreMessage(QtWarningMsg, "Can't switch to unknown sub view Nope");
        m_m->switchToSubView(QStringLiteral("Nope"));
        QCOMPARE(m_m->getActiveSubView(), m_m1);
        // Idle, the choice is only recorded; the next start shows and starts that sub view only.
        m_m->switchToSubView(QStringLiteral("M2"));
        QCOMPARE(m_m->getViewManager(), m_m2->getViewManager());
        QCOMPARE(m_m->getActiveWidget(), m_m2->getWidget());
        QCOMPARE(stacked->currentWidget(), m_m1->getWidget());
        m_m->reset();
        m_m->stopActions();
        m_m->releaseWidget();
        m_m->start();
        QCOMPARE(m_log,
            (QStringList {"M2.initialize", "M2.stopActions", "M2.releaseWidget", "M2.start"}));
        QCOMPARE(stacked->currentWidget(), m_m2->getWidget());
        QVERIFY(!m_m1->isActive());
        QCOMPARE(viewIdOfNode(*m_m), QStringLiteral("M2"));
    }

    void destructionTakesPagesOutFirst_data()
    {
        QTest::addColumn<bool>("adopted");
        QTest::newRow("stacked widget alone") << false;
        QTest::newRow("stacked widget adopted") << true;
    }

    void destructionTakesPagesOutFirst()
    {
        QFETCH(bool, adopted);
        QWidget window;
        QPointer<QStackedWidget> stacked = static_cast<QStackedWidget*>(m_m->getWidget());
        if (adopted)
            stacked->setParent(&window);
        QPointer<ViewManager> managerOfM2 = m_m2->getViewManager();
        // Each sub view notes, as it dies, how many pages the stacked widget still has.
        m_m1->onDestroy = m_m2->onDestroy = [this, stacked](RecordingView& view) {
            m_log.append(view.getID() + " dies, pages left " + QString::number(stacked->count()));
        };
        f->solution->removeView(m_m);
        f->solutions.removeView(QStringLiteral("M")).reset();
        QCOMPARE(m_log, (QStringList {"M1 dies, pages left 0", "M2 dies, pages left 0"}));
        QVERIFY(managerOfM2.isNull());
        // An adopted stacked widget outlives the multi view, empty.
        QCOMPARE(stacked.isNull(), !adopted);
    }

    void solutionManagerOwnsItsViews()
    {
        SolutionManager manager;
        RecordingView* first = mortal("pano");
        RecordingView* second = mortal("pano");
        RecordingView* chart = mortal("chart");
        // A new view under a known id deletes the old one; the same view again changes nothing.
        for (RecordingView* view : {first, second, second, chart})
            manager.addView(view);
        QCOMPARE(m_log, QStringList {"pano gone"});
        QCOMPARE(manager.getViews(), (QList<View*> {chart, second}));
        QVERIFY(manager.hasView(QList<QString> {QStringLiteral("x"), QStringLiteral("pano")}));
        QVERIFY(!manager.hasView(QList<QString> {QStringLiteral("x")}));
        // Removing hands the view back to the caller; clearing deletes what the manager owns.
        std::unique_ptr<View> taken = manager.removeView(QStringLiteral("chart"));
        QCOMPARE(taken.get(), chart);
        QVERIFY(!manager.hasView(QStringLiteral("chart")));
        QVERIFY(!manager.removeView(QStringLiteral("chart")));
        manager.clearViews();
        QVERIFY(manager.getViews().isEmpty());
        taken.reset();
        QCOMPARE(m_log, (QStringList {"pano gone", "pano gone", "chart gone"}));
    }

    void viewerMatrixPlacesViewers()
    {
        ViewerMatrix matrix;
        QVERIFY(!matrix.getViewer(1, 1));
        matrix.addViewer(2, 3, viewer(0));
        matrix.addViewer(3, 2, viewer(1));
        matrix.addViewer(2, 3, viewer(2)); // replacing keeps the place
        matrix.addViewer(4, 1, nullptr); // null viewers are entries like any other
        QCOMPARE(matrix.getViewers(), (std::vector<ViewerBase*> {viewer(2), viewer(1), nullptr}));
        QCOMPARE(matrix.getViewer(3, 2), viewer(1));
        QVERIFY(!matrix.getViewer(2, 2));
        const ViewerMatrix::ViewerWithIndex& second = matrix.getViewersWithIndex().at(1);
        QCOMPARE(QPoint(second.row, second.column), QPoint(3, 2));
        QCOMPARE(matrix.getViewer(2, 3), viewer(2));

        // Sizes are the largest indices used (cells are row, column); gaps count, indices are
        // not counts, an unused row has no columns.
        struct Case
        {
            QList<QPoint> cells;
            int row, columnsInRow, rows;
        };
        const QList<QPoint> gapped {{1, 1}, {1, 3}, {2, 1}};
        for (const Case& c : {Case {gapped, 1, 3, 2}, Case {gapped, 5, 0, 2}, Case {{}, 1, 0, 0},
                 Case {{{3, 1}, {1, 1}, {2, 4}}, 2, 4, 3}, Case {{{1, -2}, {1, -1}}, 1, -1, 1}}) {
            ViewerMatrix sized;
            for (int i = 0; i < c.cells.size(); ++i)
                sized.addViewer(c.cells[i].x(), c.cells[i].y(), viewer(i));
            QCOMPARE(sized.numberOfColumnsInRow(c.row), c.columnsInRow);
            QCOMPARE(sized.numberOfRows(), c.rows);
        }
    }

    void warnsWithoutActiveSolution()
    {
        // Without a solution manager, then with one that has no active solution.
        for (bool withSolutionManager : {false, true}) {
            SwitchingViewsManager switcher;
            if (withSolutionManager) {
                f->solutions.clearActiveSolution();
                switcher.setSolutionManager(&f->solutions);
            }
            record(switcher);
            QWidget window;
            NullHandler handler;
            const char* noSolution
                = "SwitchingViewsManager : no solution manager or active solution is set.";
            const char* noActive = "SwitchingViewsManager : no solution is currently active.";
            for (const char* warning : {noSolution, noSolution, noActive, noActive, noActive})
                QTest::ignoreMessage(QtWarningMsg, warning);
            switcher.switchToView(QStringLiteral("A"));
            switcher.switchToView(m_a);
            switcher.installViewSwitchingShortcuts(&window);
            switcher.registerSceneEventHandler(&handler);
            switcher.unregisterSceneEventHandler(&handler);

            QVERIFY(m_log.isEmpty());
            QCOMPARE(state(switcher), "/: ");
            QCOMPARE(switcher.getShortcutFor(QKeySequence(Qt::Key_F5)), nullptr);
            QCOMPARE(switcher.getParentViewOfSubView(QStringLiteral("M1")), nullptr);
            QCOMPARE(switcher.getViews().size(), withSolutionManager ? 4 : 0);
        }
    }

    void switchSequences_data()
    {
        // Steps switch by id, or with "*" by pointer ("*stray" is outside the solution); "start"
        // and "stop" act on the current view. A tool runs from the end of "from" on; A's viewers
        // report 42, M1's 5.
        QTest::addColumn<QStringList>("from");
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<QString>("state");
        const auto row = [](const char* name, const char* from, const char* steps,
                             const QString& log, const char* state) {
            QTest::newRow(name) << QString(from).split(' ', Qt::SkipEmptyParts)
                                << QString(steps).split(' ') << log.split('|', Qt::SkipEmptyParts)
                                << QString(state);
        };
        const QString tool = "action stopped measure|";
        const QString toB = "switchingView(B) solution at B|B.start|viewChanged(B)";
        const QString toM = "switchingView(M) solution at M|";
        row("in order", "A", "B", "A.stop|" + tool + "B.read(42)|" + toB, "B/B: B");
        // Settings pass only between managed views; a multi view's are its active sub view's.
        row("first view", "", "B", tool + toB, "B/B: B");
        row("source without manager", "D", "B", tool + toB, "B/B: B");
        row("target without manager", "A", "D",
            "A.stop|" + tool + "switchingView(D) solution at D|viewChanged(D)", "D/D: D");
        row("multi view", "A", "M",
            "A.stop|" + tool + "M1.read(42)|" + toM + "M1.start|viewChanged(M)", "M/M1: M M1");
        row("current or unknown view changes nothing", "B", "*B B b", "", "B/B: B");
        // Switching to nothing, or to a view outside the solution, stops the old view and changes
        // nothing else; it can be brought back.
        row("null", "A", "*null start stop", "A.stop|A.start|A.stop", "A/A: ");
        row("stray", "A", "*stray start", "A.stop|A.start", "A/A: A");
        // By id, the sub view is chosen inside the idle multi view before anything else happens.
        row("sub view by id, idle multi view", "A", "M2",
            "viewChanged(M)|A.stop|" + tool + "M2.read(42)|" + toM + "M2.start|viewChanged(M)",
            "M/M2: M M2");
        // The running multi view switches its page in place; the outer switch finds it current.
        row("sub view by id, current multi view", "M", "M2", "M1.stop|M2.start|viewChanged(M)",
            "M/M2: M M2");
        // The multi view is stopped, its new page chosen, and the multi view started again; its
        // settings pass from the manager it now reports to that same manager (M1's is unread).
        row("sub view by pointer, current multi view", "M", "*M2",
            "M1.stop|viewChanged(M)|" + tool + "M2.read(0)|" + toM + "M2.start|viewChanged(M)",
            "M/M2: M M2");
    }

    void switchSequences()
    {
        QFETCH(QStringList, from);
        QFETCH(QStringList, steps);
        QFETCH(QStringList, expected);
        QFETCH(QString, state);
        RecordingView stray(QStringLiteral("stray"), m_log);
        const QHash<QString, View*> byName {
            {"*null", nullptr}, {"*stray", &stray}, {"*B", m_b}, {"*M2", m_m2}};
        SwitchingViewsManager& s = f->switcher;
        const auto run = [&](const QStringList& list) {
            for (const QString& step : list) {
                if (step == "start")
                    s.startCurrentView();
                else if (step == "stop")
                    s.stopCurrentView();
                else if (step.startsWith('*'))
                    s.switchToView(byName.value(step));
                else
                    s.switchToView(step);
            }
        };
        run(from);
        runningTool(QStringLiteral("measure"));
        m_a->manager()->liveValue = 42;
        m_m1->manager()->liveValue = 5;
        record(s);
        m_log.clear();
        if (steps.contains("b"))
            QTest::ignoreMessage(QtWarningMsg,
                "SwitchingViewsManager : no view or sub view with ID b exists in the current "
                "solution.");
        run(steps);

        QCOMPARE(m_log, expected);
        QCOMPARE(this->state(s), state);
        QCOMPARE(f->solution->getCurrentView(), s.getCurrentView());
        QCOMPARE(s.getCurrentViewManager(), s.getCurrentViewOrSubView()->getViewManager());
        if (s.getCurrentView() == m_m)
            QCOMPARE(static_cast<QStackedWidget*>(m_m->getWidget())->currentWidget(),
                m_m->getActiveSubView()->getWidget());
        // Without both ends there is nothing to pass.
        m_log.clear();
        s.passViewSettings(nullptr, m_b);
        s.passViewSettings(m_a, nullptr);
        QVERIFY(m_log.isEmpty());
    }

    void actionsStopOnSwitch()
    {
        // Every running action stops, the current one only if it asks to.
        f->switcher.switchToView(m_a);
        Action* older = runningTool(QStringLiteral("older"));
        Action* current = runningTool(QStringLiteral("current"));
        current->setStopOnViewSwitch(false);
        QCOMPARE(f->actions.getCurrentAction(), current);
        f->switcher.switchToView(m_b);
        QVERIFY(!older->isActive() && current->isActive());
        current->setStopOnViewSwitch(true);
        f->switcher.switchToView(m_a);
        QVERIFY(!current->isActive());
        // Without an action manager nothing is stopped.
        f->switcher.setActionManager(nullptr);
        older->start(false);
        f->switcher.switchToView(m_b);
        QVERIFY(older->isActive());
        QCOMPARE(state(f->switcher), "B/B: B");
    }

    void viewListingsAndSceneHandlers()
    {
        SwitchingViewsManager& s = f->switcher;
        QCOMPARE(s.getViews(), (QList<View*> {m_a, m_b, m_m, m_d}));
        QCOMPARE(s.getViewOrSubViews(), (QList<View*> {m_a, m_b, m_m1, m_m2, m_d}));
        QCOMPARE(s.getView(QStringLiteral("M")), m_m);
        QCOMPARE(f->solution->getViewById(QStringLiteral("B")), m_b);
        QCOMPARE(s.getView(QStringLiteral("M1")), nullptr);
        QCOMPARE(s.getView(QStringLiteral("d")), nullptr);
        QCOMPARE(s.getParentViewOfSubView(QStringLiteral("M2")), m_m);
        QCOMPARE(s.getParentViewOfSubView(QStringLiteral("A")), nullptr);
        QVERIFY(!s.isViewAvailable(QStringLiteral("A")));

        // Scene event handlers reach every manager, a multi view's through its active sub view.
        NullHandler handler;
        s.registerSceneEventHandler(&handler);
        s.unregisterSceneEventHandler(&handler);
        QCOMPARE(m_log,
            (QStringList {"A.register", "B.register", "M1.register", "A.unregister", "B.unregister",
                "M1.unregister"}));
    }

    void shortcutsCycleThroughSharedKey()
    {
        auto owner = std::make_unique<QWidget>();
        QWidget& window = *owner;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        f->switcher.installViewSwitchingShortcuts(&window);
        // A second installation must not make a view appear twice under its key.
        f->switcher.installViewSwitchingShortcuts(&window);
        QCOMPARE(f->shortcuts.getShortcuts().size(), std::size_t(2));
        QCOMPARE(f->switcher.getShortcutFor(QKeySequence(Qt::Key_F7)), nullptr);

        QStringList visited;
        const auto press = [&](Qt::Key key) {
            QTest::keyClick(&window, key);
            visited.append(f->switcher.getCurrentViewID());
        };
        for (Qt::Key key : {Qt::Key_F5, Qt::Key_F5, Qt::Key_F5, Qt::Key_F6, Qt::Key_F5, Qt::Key_F7})
            press(key);
        QCOMPARE(visited, (QStringList {"A", "B", "A", "D", "A", "A"}));

        f->switcher.enableShortcuts(false);
        QPointer<QShortcut> f5 = f->switcher.getShortcutFor(QKeySequence(Qt::Key_F5));
        QVERIFY(f5 && !f5->isEnabled());
        press(Qt::Key_F6);
        f->switcher.enableShortcuts(true);
        press(Qt::Key_F6);
        QCOMPARE(visited.mid(6), (QStringList {"A", "D"}));

        // A destroyed view's shortcut entries go, the other views' stay.
        f->solution->removeView(m_d);
        f->solutions.removeView(QStringLiteral("D")).reset();
        QCOMPARE(f->switcher.getShortcutFor(QKeySequence(Qt::Key_F6)), nullptr);
        QCOMPARE(f->switcher.getShortcutFor(QKeySequence(Qt::Key_F5)), f5.data());
        // The shortcuts belong to the window; once it is gone they are forgotten.
        owner.reset();
        QVERIFY(f5.isNull());
        QCOMPARE(f->switcher.getShortcutFor(QKeySequence(Qt::Key_F6)), nullptr);
        f->switcher.enableShortcuts(false);
    }

private:
    RecordingView* mortal(const char* id)
    {
        auto* view = new RecordingView(QString::fromLatin1(id), m_log);
        view->onDestroy = [this](RecordingView& dying) { m_log.append(dying.getID() + " gone"); };
        return view;
    }

    // The matrix never dereferences its viewers, so distinct addresses stand in for them.
    static ViewerBase* viewer(int i)
    {
        return reinterpret_cast<ViewerBase*>(quintptr(16 * (i + 1)));
    }

    // "current id/current view or sub view id: the active views", e.g. "M/M2: M M2".
    QString state(const SwitchingViewsManager& switcher) const
    {
        QStringList active;
        for (View* view : m_order + QList<View*> {m_m1, m_m2})
            if (view->isActive())
                active.append(view->getID());
        const View* current = switcher.getCurrentView();
        return (current ? current->getID() : QString()) + '/' + switcher.getCurrentViewOrSubViewID()
            + ": " + active.join(' ');
    }

    void record(SwitchingViewsManager& switcher)
    {
        connect(&switcher, &SwitchingViewsManager::switchingView, this, [this](View* view) {
            // The solution must already know the new view when listeners hear of it.
            m_log.append(QStringLiteral("switchingView(%1) solution at %2")
                             .arg(view->getID(), f->solution->getCurrentView()->getID()));
        });
        connect(&switcher, &SwitchingViewsManager::viewChanged, this,
            [this](const QString& id) { m_log.append(QStringLiteral("viewChanged(%1)").arg(id)); });
        connect(&f->actions, &action::ActionManager::actionStopped, this,
            [this](Action* action) { m_log.append("action stopped " + action->getID()); });
    }

    Action* runningTool(const QString& id)
    {
        f->handlers.push_back(std::make_unique<EmptyActionHandler>());
        f->tools.push_back(std::make_unique<Action>(id));
        Action* tool = f->tools.back().get();
        tool->setCheckable(true);
        tool->setMustBeStopped(true);
        tool->setActionHandler(f->handlers.back().get());
        f->solutions.addAction(tool);
        tool->start(false);
        return tool;
    }

    QStringList m_log;
    std::unique_ptr<Fixture> f;
    QList<View*> m_order;
    RecordingView *m_a, *m_b, *m_m1, *m_m2, *m_d;
    MultiView* m_m;
};

void tst_View::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_log.clear();
    f = std::make_unique<Fixture>();
    f->actions.setSolutionManager(&f->solutions);
    // The solution: A, B, M(M1, M2), D, in that order. A and B share F5, D has F6; the sub view
    // M1 asks for F7, which a sub view never gets.
    const auto make = [this](const char* id, Qt::Key key, bool managed = true) {
        auto* view = new RecordingView(QString::fromLatin1(id), m_log, managed);
        view->setShortCutKeySequence(QKeySequence(key));
        return view;
    };
    m_m = new MultiView(QStringLiteral("M"));
    m_m->addSubView(std::unique_ptr<View>(m_m1 = make("M1", Qt::Key_F7)));
    m_m->addSubView(std::unique_ptr<View>(m_m2 = make("M2", Qt::Key(0))));
    m_order = {m_a = make("A", Qt::Key_F5), m_b = make("B", Qt::Key_F5), m_m,
        m_d = make("D", Qt::Key_F6, false)};
    for (View* view : m_order) {
        f->solutions.addView(view);
        f->solution->addView(view);
    }
    f->solutions.setViewsSortPredicate(
        [this](const View* l, const View* r) { return m_order.indexOf(l) < m_order.indexOf(r); });
    f->solutions.addSolution(f->solution.get());
    f->solutions.setActiveSolution(f->solution->getID(), true);
    f->switcher.setSolutionManager(&f->solutions);
    f->switcher.setActionManager(&f->actions);
    f->switcher.setShortcutManager(&f->shortcuts);
}

QTEST_MAIN(tst_View)
#include "tst_view.moc"
