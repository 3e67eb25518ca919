#include <guicore/action/Action.h>
#include <guicore/action/ActionManager.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/utility/shortcuts/ShortcutManager.h>
#include <guicore/view/MultiView.h>
#include <guicore/view/SwitchingViewsManager.h>

#include <events/SceneEventHandler.h>

#include <QHash>
#include <QPointer>
#include <QRegularExpression>
#include <QShortcut>
#include <QStackedWidget>
#include <QTest>

#include <memory>
#include <vector>

#include "ViewTestDoubles.h"

namespace {

class NullHandler : public events::SceneEventHandler
{
public:
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

class tst_SwitchingViews : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { f.reset(); }

    void warnsWithoutActiveSolution_data()
    {
        QTest::addColumn<bool>("withSolutionManager");
        QTest::newRow("no solution manager") << false;
        QTest::newRow("no active solution") << true;
    }

    void warnsWithoutActiveSolution()
    {
        QFETCH(bool, withSolutionManager);
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
        QCOMPARE(state(switcher), "/: ");
        QCOMPARE(switcher.getShortcutFor(QKeySequence(Qt::Key_F5)), nullptr);
        QCOMPARE(switcher.getParentViewOfSubView(QStringLiteral("M1")), nullptr);
        QCOMPARE(switcher.getViews().size(), withSolutionManager ? 4 : 0);
    }

    void switchSequences_data()
    {
        // Steps name a view to switch to by id, or with "*" by pointer ("*null", "*stray": one
        // outside the solution); "start" and "stop" act on the current view. A tool runs from
        // the end of the "from" steps on; A's viewers report 42, M1's 5. Logs are "|"-separated.
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

    void actionsStopOnSwitch_data()
    {
        QTest::addColumn<bool>("withActionManager");
        QTest::addColumn<bool>("currentStopsOnSwitch");
        QTest::addColumn<QStringList>("stillRunning");
        QTest::newRow("current action stops too") << true << true << QStringList {};
        QTest::newRow("current action survives") << true << false << QStringList {"current"};
        QTest::newRow("no action manager") << false << true << QStringList {"older", "current"};
    }

    void actionsStopOnSwitch()
    {
        QFETCH(bool, withActionManager);
        QFETCH(bool, currentStopsOnSwitch);
        QFETCH(QStringList, stillRunning);
        SwitchingViewsManager switcher;
        switcher.setSolutionManager(&f->solutions);
        if (withActionManager)
            switcher.setActionManager(&f->actions);
        switcher.switchToView(m_a);

        Action* older = runningTool(QStringLiteral("older"));
        Action* current = runningTool(QStringLiteral("current"));
        current->setStopOnViewSwitch(currentStopsOnSwitch);
        QCOMPARE(f->actions.getCurrentAction(), current);
        switcher.switchToView(m_b);

        QStringList running;
        for (Action* tool : {older, current}) {
            if (tool->isActive())
                running.append(tool->getID());
        }
        QCOMPARE(running, stillRunning);
        QCOMPARE(state(switcher), "B/B: B");
    }

    void viewListingsAndSceneHandlers()
    {
        SwitchingViewsManager& s = f->switcher;
        QCOMPARE(s.getViews(), (QList<View*> {m_a, m_b, m_m, m_d}));
        QCOMPARE(s.getViewOrSubViews(), (QList<View*> {m_a, m_b, m_m1, m_m2, m_d}));
        QCOMPARE(s.getView(QStringLiteral("M")), m_m);
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
        QWidget window;
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
        QShortcut* f5 = f->switcher.getShortcutFor(QKeySequence(Qt::Key_F5));
        QVERIFY(f5 && !f5->isEnabled());
        press(Qt::Key_F6);
        QCOMPARE(visited.last(), QStringLiteral("A"));
        f->switcher.enableShortcuts(true);
        press(Qt::Key_F6);
        QCOMPARE(visited.last(), QStringLiteral("D"));
    }

    void destroyedShortcutsAreForgotten()
    {
        auto window = std::make_unique<QWidget>();
        f->switcher.installViewSwitchingShortcuts(window.get());
        QPointer<QShortcut> f6 = f->switcher.getShortcutFor(QKeySequence(Qt::Key_F6));
        QVERIFY(f6);
        QCOMPARE(f6->parent(), window.get());
        window.reset();
        QVERIFY(f6.isNull());
        QCOMPARE(f->switcher.getShortcutFor(QKeySequence(Qt::Key_F5)), nullptr);
        QCOMPARE(f->switcher.getShortcutFor(QKeySequence(Qt::Key_F6)), nullptr);
        f->switcher.enableShortcuts(false);
    }

private:
    // "current id/current view or sub view id: the active views", e.g. "M/M2: M M2".
    QString state(const SwitchingViewsManager& switcher) const
    {
        QStringList active;
        for (View* view : std::initializer_list<View*> {m_a, m_b, m_m, m_m1, m_m2, m_d}) {
            if (view->isActive())
                active.append(view->getID());
        }
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

void tst_SwitchingViews::init()
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

QTEST_MAIN(tst_SwitchingViews)
#include "tst_switchingviews.moc"
