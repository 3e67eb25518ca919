#include <guicore/action/Action.h>
#include <guicore/action/ActionManager.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/utility/shortcuts/ShortcutManager.h>
#include <guicore/view/MultiView.h>
#include <guicore/view/SwitchingViewsManager.h>
#include <guicore/view/ViewManager.h>

#include <events/SceneEventHandler.h>

#include <QHash>
#include <QPointer>
#include <QRegularExpression>
#include <QShortcut>
#include <QStackedWidget>
#include <QTest>
#include <QWidget>

#include <memory>
#include <vector>

#include "ViewTestDoubles.h"

namespace {

class NullHandler : public events::SceneEventHandler
{
public:
    bool handleSceneEvent(QEvent*, const QString&) override { return false; }
};

} // namespace

class tst_SwitchingViews : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void warnsWithoutActiveSolution_data();
    void warnsWithoutActiveSolution();
    void switchRunsInOrder();
    void currentOrUnknownViewChangesNothing();
    void nullTargetLeavesOldViewStopped();
    void switchToSubView_data();
    void switchToSubView();
    void actionsStopOnSwitch_data();
    void actionsStopOnSwitch();
    void passViewSettings_data();
    void passViewSettings();
    void viewListings();
    void shortcutsCycleThroughSharedKey();
    void destroyedShortcutsAreForgotten();
    void sceneEventHandlersReachEveryManager();

private:
    void installSolution(SwitchingViewsManager& switcher);
    void record(SwitchingViewsManager& switcher);
    Action* runningTool(const QString& id);

    QStringList m_log;
    std::unique_ptr<SolutionManager> m_solutions;
    std::unique_ptr<action::ActionManager> m_actions;
    std::unique_ptr<ShortcutManager> m_shortcuts;
    std::unique_ptr<Solution> m_solution;
    std::unique_ptr<SwitchingViewsManager> m_switcher;
    std::vector<std::unique_ptr<EmptyActionHandler>> m_handlers;
    std::vector<std::unique_ptr<Action>> m_tools;
    QHash<const View*, int> m_rank;
    RecordingView* m_a = nullptr;
    RecordingView* m_b = nullptr;
    MultiView* m_m = nullptr;
    RecordingView* m_m1 = nullptr;
    RecordingView* m_m2 = nullptr;
    RecordingView* m_d = nullptr;
};

void tst_SwitchingViews::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_log.clear();
    m_solutions = std::make_unique<SolutionManager>();
    m_actions = std::make_unique<action::ActionManager>();
    m_actions->setSolutionManager(m_solutions.get());
    m_shortcuts = std::make_unique<ShortcutManager>();
    m_solution = std::make_unique<Solution>(QStringLiteral("implant"), QStringLiteral("Implant"));
    m_solutions->setViewsSortPredicate(
        [this](const View* l, const View* r) { return m_rank.value(l) < m_rank.value(r); });

    // The solution: A, B, M(M1, M2), D. A and B share F5, D has F6; the sub view M1 asks for F7,
    // which a sub view never gets.
    const auto add = [this](View* view) {
        m_rank.insert(view, m_rank.size());
        m_solutions->addView(view);
        m_solution->addView(view);
    };
    m_a = new RecordingView(QStringLiteral("A"), m_log);
    m_a->setShortCutKeySequence(QKeySequence(Qt::Key_F5));
    m_b = new RecordingView(QStringLiteral("B"), m_log);
    m_b->setShortCutKeySequence(QKeySequence(Qt::Key_F5));
    m_m = new MultiView(QStringLiteral("M"));
    auto m1 = std::make_unique<RecordingView>(QStringLiteral("M1"), m_log);
    m1->setShortCutKeySequence(QKeySequence(Qt::Key_F7));
    auto m2 = std::make_unique<RecordingView>(QStringLiteral("M2"), m_log);
    m_m1 = m1.get();
    m_m2 = m2.get();
    m_m->addSubView(std::move(m1));
    m_m->addSubView(std::move(m2));
    m_d = new RecordingView(QStringLiteral("D"), m_log, false);
    m_d->setShortCutKeySequence(QKeySequence(Qt::Key_F6));
    add(m_a);
    add(m_b);
    add(m_m);
    add(m_d);
    m_solutions->addSolution(m_solution.get());
    m_solutions->setActiveSolution(m_solution->getID(), true);

    m_switcher = std::make_unique<SwitchingViewsManager>();
    installSolution(*m_switcher);
}

void tst_SwitchingViews::cleanup()
{
    m_switcher.reset();
    m_tools.clear();
    m_handlers.clear();
    m_actions.reset();
    m_shortcuts.reset();
    m_solutions.reset();
    m_solution.reset();
    m_rank.clear();
}

void tst_SwitchingViews::installSolution(SwitchingViewsManager& switcher)
{
    switcher.setSolutionManager(m_solutions.get());
    switcher.setActionManager(m_actions.get());
    switcher.setShortcutManager(m_shortcuts.get());
}

void tst_SwitchingViews::record(SwitchingViewsManager& switcher)
{
    connect(&switcher, &SwitchingViewsManager::switchingView, this, [this](View* view) {
        // The solution must already know the new view when listeners hear of it.
        m_log.append(QStringLiteral("switchingView(%1) solution at %2")
                         .arg(view->getID(), m_solution->getCurrentView()->getID()));
    });
    connect(&switcher, &SwitchingViewsManager::viewChanged, this,
        [this](const QString& id) { m_log.append(QStringLiteral("viewChanged(%1)").arg(id)); });
    connect(m_actions.get(), &action::ActionManager::actionStopped, this,
        [this](Action* action) { m_log.append("action stopped " + action->getID()); });
}

Action* tst_SwitchingViews::runningTool(const QString& id)
{
    m_handlers.push_back(std::make_unique<EmptyActionHandler>());
    m_tools.push_back(std::make_unique<Action>(id));
    Action* tool = m_tools.back().get();
    tool->setCheckable(true);
    tool->setMustBeStopped(true);
    tool->setActionHandler(m_handlers.back().get());
    m_solutions->addAction(tool);
    tool->start(false);
    return tool;
}

void tst_SwitchingViews::warnsWithoutActiveSolution_data()
{
    QTest::addColumn<bool>("withSolutionManager");
    QTest::newRow("no solution manager") << false;
    QTest::newRow("no active solution") << true;
}

void tst_SwitchingViews::warnsWithoutActiveSolution()
{
    QFETCH(bool, withSolutionManager);
    SwitchingViewsManager switcher;
    if (withSolutionManager) {
        m_solutions->clearActiveSolution();
        switcher.setSolutionManager(m_solutions.get());
    }
    record(switcher);
    QWidget window;
    NullHandler handler;

    const char* noSolution
        = "SwitchingViewsManager : no solution manager or active solution is set.";
    QTest::ignoreMessage(QtWarningMsg, noSolution);
    switcher.switchToView(QStringLiteral("A"));
    QTest::ignoreMessage(QtWarningMsg, noSolution);
    switcher.switchToView(m_a);
    const char* noActive = "SwitchingViewsManager : no solution is currently active.";
    QTest::ignoreMessage(QtWarningMsg, noActive);
    switcher.installViewSwitchingShortcuts(&window);
    QTest::ignoreMessage(QtWarningMsg, noActive);
    switcher.registerSceneEventHandler(&handler);
    QTest::ignoreMessage(QtWarningMsg, noActive);
    switcher.unregisterSceneEventHandler(&handler);

    QVERIFY(m_log.isEmpty());
    QCOMPARE(switcher.getCurrentView(), nullptr);
    QVERIFY(switcher.getCurrentViewOrSubViewID().isEmpty());
    QCOMPARE(switcher.getShortcutFor(QKeySequence(Qt::Key_F5)), nullptr);
    QCOMPARE(switcher.getParentViewOfSubView(QStringLiteral("M1")), nullptr);
    QCOMPARE(switcher.getViews().size(), withSolutionManager ? 4 : 0);
}

void tst_SwitchingViews::switchRunsInOrder()
{
    m_switcher->switchToView(QStringLiteral("A"));
    QCOMPARE(m_switcher->getCurrentView(), m_a);
    runningTool(QStringLiteral("measure"));
    m_a->manager()->liveValue = 42;
    record(*m_switcher);
    m_log.clear();

    m_switcher->switchToView(QStringLiteral("B"));

    QCOMPARE(m_log,
        (QStringList {"A.stop", "action stopped measure", "B.read(42)",
            "switchingView(B) solution at B", "B.start", "viewChanged(B)"}));
    QCOMPARE(m_switcher->getCurrentView(), m_b);
    QCOMPARE(m_switcher->getCurrentViewID(), QStringLiteral("B"));
    QCOMPARE(m_switcher->getCurrentViewManager(), m_b->getViewManager());
    QVERIFY(!m_a->isActive());
    QVERIFY(m_b->isActive());
}

void tst_SwitchingViews::currentOrUnknownViewChangesNothing()
{
    m_switcher->switchToView(m_a);
    record(*m_switcher);
    m_log.clear();
    m_switcher->switchToView(m_a);
    m_switcher->switchToView(QStringLiteral("A"));
    QTest::ignoreMessage(QtWarningMsg,
        "SwitchingViewsManager : no view or sub view with ID a exists in the current solution.");
    m_switcher->switchToView(QStringLiteral("a"));
    QVERIFY(m_log.isEmpty());
    QVERIFY(m_a->isActive());
}

void tst_SwitchingViews::nullTargetLeavesOldViewStopped()
{
    // A null view, or one outside the solution, stops the old view and changes nothing else.
    RecordingView stray(QStringLiteral("stray"), m_log);
    for (View* target : {static_cast<View*>(nullptr), static_cast<View*>(&stray)}) {
        m_switcher->switchToView(m_a);
        m_switcher->startCurrentView();
        QVERIFY(m_a->isActive());
        record(*m_switcher);
        m_log.clear();
        m_switcher->switchToView(target);
        QCOMPARE(m_log, (QStringList {"A.stop"}));
        QCOMPARE(m_switcher->getCurrentView(), m_a);
        QCOMPARE(m_solution->getCurrentView(), m_a);
        QVERIFY(!m_a->isActive());
        m_switcher->disconnect(this);
        m_actions->disconnect(this);
    }

    // The stopped view can be brought back.
    m_switcher->startCurrentView();
    QVERIFY(m_a->isActive());
    m_switcher->stopCurrentView();
    QVERIFY(!m_a->isActive());
}

void tst_SwitchingViews::switchToSubView_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<bool>("byPointer");
    QTest::addColumn<QStringList>("expected");

    const QStringList restart {
        "M2.read(0)", "switchingView(M) solution at M", "M2.start", "viewChanged(M)"};
    // By id, the sub view is chosen inside the idle multi view before anything else happens.
    QTest::newRow("id, idle multi view")
        << "A" << false << QStringList {"viewChanged(M)", "A.stop"} + restart;
    // The running multi view switches its page in place; the outer switch finds it current.
    QTest::newRow("id, current multi view")
        << "M" << false << QStringList {"M1.stop", "M2.start", "viewChanged(M)"};
    // The multi view is stopped, its new page chosen, and the multi view started again; its
    // settings pass from the manager it now reports to that same manager (M1's value is unread).
    QTest::newRow("pointer, current multi view")
        << "M" << true << QStringList {"M1.stop", "viewChanged(M)"} + restart;
}

void tst_SwitchingViews::switchToSubView()
{
    QFETCH(QString, from);
    QFETCH(bool, byPointer);
    QFETCH(QStringList, expected);
    m_switcher->switchToView(from);
    m_m1->manager()->liveValue = 5;
    record(*m_switcher);
    m_log.clear();

    if (byPointer)
        m_switcher->switchToView(m_m2);
    else
        m_switcher->switchToView(QStringLiteral("M2"));

    QCOMPARE(m_log, expected);
    QCOMPARE(m_switcher->getCurrentView(), m_m);
    QVERIFY(m_m->isActive());
    QCOMPARE(m_m->getActiveSubView(), m_m2);
    QCOMPARE(m_switcher->getCurrentViewOrSubView(), m_m2);
    QCOMPARE(m_switcher->getCurrentViewOrSubViewID(), QStringLiteral("M2"));
    QCOMPARE(m_switcher->getCurrentViewManager(), m_m2->getViewManager());
    QCOMPARE(static_cast<QStackedWidget*>(m_m->getWidget())->currentWidget(), m_m2->getWidget());
    QVERIFY(!m_m1->isActive());
}

void tst_SwitchingViews::actionsStopOnSwitch_data()
{
    QTest::addColumn<bool>("withActionManager");
    QTest::addColumn<bool>("currentStopsOnSwitch");
    QTest::addColumn<QStringList>("stillRunning");

    QTest::newRow("current action stops too") << true << true << QStringList {};
    QTest::newRow("current action survives the switch") << true << false << QStringList {"current"};
    QTest::newRow("no action manager") << false << true << QStringList {"older", "current"};
}

void tst_SwitchingViews::actionsStopOnSwitch()
{
    QFETCH(bool, withActionManager);
    QFETCH(bool, currentStopsOnSwitch);
    QFETCH(QStringList, stillRunning);

    SwitchingViewsManager switcher;
    switcher.setSolutionManager(m_solutions.get());
    if (withActionManager)
        switcher.setActionManager(m_actions.get());
    switcher.switchToView(m_a);

    Action* older = runningTool(QStringLiteral("older"));
    Action* current = runningTool(QStringLiteral("current"));
    current->setStopOnViewSwitch(currentStopsOnSwitch);
    QCOMPARE(m_actions->getCurrentAction(), current);

    switcher.switchToView(m_b);

    QStringList running;
    for (Action* tool : {older, current}) {
        if (tool->isActive())
            running.append(tool->getID());
    }
    QCOMPARE(running, stillRunning);
    QCOMPARE(switcher.getCurrentView(), m_b);
}

void tst_SwitchingViews::passViewSettings_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QStringList>("expectedLog");

    const auto row = [](const char* name, const char* from, const char* to, QStringList log) {
        QTest::newRow(name) << QString(from) << QString(to) << log;
    };
    row("both managed", "A", "B", {"B.read(9)"});
    row("multi view uses its active sub view", "A", "M", {"M1.read(9)"});
    row("source without manager", "D", "B", {});
    row("target without manager", "A", "D", {});
    row("no source", "", "B", {});
    row("no target", "A", "", {});
}

void tst_SwitchingViews::passViewSettings()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QStringList, expectedLog);

    m_a->manager()->liveValue = 9;
    m_switcher->passViewSettings(m_switcher->getView(from), m_switcher->getView(to));
    QCOMPARE(m_log, expectedLog);
    if (!expectedLog.isEmpty()) {
        View* target = m_switcher->getView(to);
        QCOMPARE(target->getViewManager()->getViewSettings().firstValue, 0);
        QCOMPARE(target->getViewManager()->getViewSettings().factor, 1.0f);
    }
}

void tst_SwitchingViews::viewListings()
{
    QCOMPARE(m_switcher->getViews(), (QList<View*> {m_a, m_b, m_m, m_d}));
    QCOMPARE(m_switcher->getViewOrSubViews(), (QList<View*> {m_a, m_b, m_m1, m_m2, m_d}));
    QCOMPARE(m_switcher->getView(QStringLiteral("M")), m_m);
    QCOMPARE(m_switcher->getView(QStringLiteral("M1")), nullptr);
    QCOMPARE(m_switcher->getView(QStringLiteral("d")), nullptr);
    QCOMPARE(m_switcher->getParentViewOfSubView(QStringLiteral("M2")), m_m);
    QCOMPARE(m_switcher->getParentViewOfSubView(QStringLiteral("A")), nullptr);
    QVERIFY(!m_switcher->isViewAvailable(QStringLiteral("A")));
}

void tst_SwitchingViews::shortcutsCycleThroughSharedKey()
{
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    m_switcher->installViewSwitchingShortcuts(&window);
    // A second installation must not make a view appear twice under its key.
    m_switcher->installViewSwitchingShortcuts(&window);
    QCOMPARE(m_shortcuts->getShortcuts().size(), std::size_t(2));
    QCOMPARE(m_switcher->getShortcutFor(QKeySequence(Qt::Key_F7)), nullptr);

    QStringList visited;
    const auto press = [&](Qt::Key key) {
        QTest::keyClick(&window, key);
        visited.append(m_switcher->getCurrentViewID());
    };
    for (Qt::Key key : {Qt::Key_F5, Qt::Key_F5, Qt::Key_F5, Qt::Key_F6, Qt::Key_F5, Qt::Key_F7})
        press(key);
    QCOMPARE(visited, (QStringList {"A", "B", "A", "D", "A", "A"}));

    m_switcher->enableShortcuts(false);
    QShortcut* f5 = m_switcher->getShortcutFor(QKeySequence(Qt::Key_F5));
    QVERIFY(f5 && !f5->isEnabled());
    press(Qt::Key_F6);
    QCOMPARE(visited.last(), QStringLiteral("A"));
    m_switcher->enableShortcuts(true);
    press(Qt::Key_F6);
    QCOMPARE(visited.last(), QStringLiteral("D"));
}

void tst_SwitchingViews::destroyedShortcutsAreForgotten()
{
    auto window = std::make_unique<QWidget>();
    m_switcher->installViewSwitchingShortcuts(window.get());
    QPointer<QShortcut> f6 = m_switcher->getShortcutFor(QKeySequence(Qt::Key_F6));
    QVERIFY(f6);
    QCOMPARE(f6->parent(), window.get());

    window.reset();
    QVERIFY(f6.isNull());
    QCOMPARE(m_switcher->getShortcutFor(QKeySequence(Qt::Key_F5)), nullptr);
    QCOMPARE(m_switcher->getShortcutFor(QKeySequence(Qt::Key_F6)), nullptr);
    m_switcher->enableShortcuts(false);
}

void tst_SwitchingViews::sceneEventHandlersReachEveryManager()
{
    NullHandler handler;
    m_switcher->registerSceneEventHandler(&handler);
    m_switcher->unregisterSceneEventHandler(&handler);
    QCOMPARE(m_log,
        (QStringList {"A.register", "B.register", "M1.register", "A.unregister", "B.unregister",
            "M1.unregister"}));
}

QTEST_MAIN(tst_SwitchingViews)
#include "tst_switchingviews.moc"
