#include <guicore/action/ActionGroup.h>
#include <guicore/action/ActionList.h>
#include <guicore/action/ActionManager.h>
#include <guicore/action/ActionStopper.h>
#include <guicore/action/CustomAction.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/action/MultiAction.h>
#include <guicore/action/MultiActionHandler.h>
#include <guicore/action/SimpleActionHandlerInterface.h>
#include <guicore/action/SingleAction.h>
#include <guicore/solution/SolutionManager.h>

#include <objectmodel/StringConversions.h>

#include <QAction>
#include <QPointer>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTest>
#include <QWidget>

namespace {

QStringList journal; // what the probes, the recorded actions and the manager did, in order

// A concrete handler that logs its runs into the journal; it can refuse every start.
class Probe : public ActionHandler
{
public:
    bool startHandler(Action* action) override
    {
        return refuse ? (journal << "refused", false) : ActionHandler::startHandler(action);
    }
    using ActionHandler::clearParameters, ActionHandler::containsParameter,
        ActionHandler::getCurrentParameters, ActionHandler::getParameter, ActionHandler::isActive,
        ActionHandler::isCanceled, ActionHandler::removeParameter, ActionHandler::setCanceled;
    bool refuse = false;

protected:
    void start() override { journal.append("start " + getCurrentAction()->getID()); }
    void stop() override { journal.append("stop " + getCurrentAction()->getID()); }
};

// Counts the availability refreshes it is given.
class CountingAction : public Action
{
public:
    using Action::Action;
    void updateState() override
    {
        ++updates;
        Action::updateState();
    }
    int updates = 0;
};

// Opens up the protected building blocks the application's own multi-actions use.
class BuildingMultiAction : public MultiAction
{
public:
    using MultiAction::insertAction, MultiAction::MultiAction,
        MultiAction::syncEnabledStateWithChildren;
};

class CountingReceiver : public SimpleActionHandlerInterface
{
public:
    using SimpleActionHandlerInterface::SimpleActionHandlerInterface;
    void handleTriggered() override { ++calls; }
    int calls = 0;
};

// Counts the Escape presses and right releases it gets.
class KeyAndMouseRecorder : public QWidget
{
public:
    void keyPressEvent(QKeyEvent* event) override { escapes += event->key() == Qt::Key_Escape; }
    void mouseReleaseEvent(QMouseEvent* e) override { releases += e->button() == Qt::RightButton; }
    int escapes = 0, releases = 0;
};

// Logs the action's own signals into the test's log.
void record(Action* action)
{
    QObject::connect(action, &Action::triggered, [](bool on) { journal << (on ? "on" : "off"); });
    QObject::connect(action, &Action::handled, [] { journal << "handled"; });
    QObject::connect(
        action, &Action::disabled, [](bool on) { journal << "disabled=" + QString::number(on); });
    QObject::connect(
        action, &Action::enabled, [](bool on) { journal << "enabled=" + QString::number(on); });
}

// One argument of each recorded emission; an action shows as its id.
QStringList args(const QSignalSpy& spy, int index = 0)
{
    QStringList out;
    for (const QList<QVariant>& call : spy)
        out.append(call.at(index).value<Action*>() ? call.at(index).value<Action*>()->getID()
                                                   : call.at(index).toString());
    return out;
}

} // namespace

class tst_Action : public QObject
{
    Q_OBJECT

    std::unique_ptr<SolutionManager> m_solutions;
    std::unique_ptr<action::ActionManager> m_manager;
    std::vector<std::unique_ptr<ActionHandler>> m_handlers;
    std::vector<std::unique_ptr<CountingAction>> m_actions;

    // A checkable action served by the given handler (not owned), or else registered and served by
    // an empty handler of its own: a handler serves one run at a time.
    CountingAction* tool(const QString& id, bool checkable = true, ActionHandler* handler = nullptr)
    {
        if (!handler)
            m_handlers.push_back(std::make_unique<EmptyActionHandler>());
        m_actions.push_back(std::make_unique<CountingAction>(id));
        CountingAction* action = m_actions.back().get();
        action->setCheckable(checkable);
        action->setActionHandler(handler ? handler : m_handlers.back().get());
        if (!handler)
            m_solutions->addAction(action);
        return action;
    }

    Probe* probe(bool refuse = false)
    {
        m_handlers.push_back(std::make_unique<Probe>());
        static_cast<Probe*>(m_handlers.back().get())->refuse = refuse;
        return static_cast<Probe*>(m_handlers.back().get());
    }

    QStringList activeIds() const
    {
        QStringList ids;
        for (const auto& action : m_actions)
            ids.append(action && action->isActive() ? action->getID() : QString());
        ids.removeAll(QString());
        return ids;
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        m_actions.clear();
        m_handlers.clear();
        journal.clear();
        m_solutions = std::make_unique<SolutionManager>();
        m_manager = std::make_unique<action::ActionManager>();
        m_manager->setSolutionManager(m_solutions.get());
        // Every test sees what the manager announces in its log.
        using action::ActionManager;
        connect(m_manager.get(), &ActionManager::actionStarted, this,
            [](Action* a) { journal.append("started " + a->getID()); });
        connect(m_manager.get(), &ActionManager::actionStopped, this,
            [](Action* a) { journal.append("stopped " + a->getID()); });
        connect(m_manager.get(), &ActionManager::actionTriggeredSignal, this,
            [](bool on, Action* a) { journal.append((on ? "on " : "off ") + a->getID()); });
    }

    void actionsTheirQActionsListsAndMultiActions()
    {
        Action plain;
        QCOMPARE((QStringList {plain.getID(), plain.getType(), SingleAction().getType(),
                     CustomAction().getType(), MultiAction().getType()}),
            (QStringList {
                "undefined_action", "Action", "SingleAction", "CustomAction", "MultiAction"}));
        // Without a handler nothing holds a close back; a command (not checkable) disables the
        // other actions on start unless told otherwise.
        QVERIFY(plain.allowClose() && plain.shouldDisableOtherActionsOnStart());

        Action action(QStringLiteral("a"), QString(), QString(), QIcon());
        QSignalSpy names(&action, &Action::nameChanged);
        QSignalSpy tooltips(&action, &Action::tooltipChanged);
        for (const char* name : {"Angle", "Angle", "Distance"})
            action.setName(name);
        // The first name filled the empty tooltip, silently.
        QCOMPARE(action.getTooltip(), QStringLiteral("Angle"));

        const QList<QKeySequence> ctrlM {QKeySequence(Qt::CTRL | Qt::Key_M)};
        const QKeySequence f5(Qt::Key_F5);
        const QString suffix = StringConversions::qkeySequencesToAppendableString(ctrlM);
        const QString f5Suffix = StringConversions::qkeySequencesToAppendableString({f5});
        action.setShortcuts(ctrlM);
        action.setTooltip(QStringLiteral("Tip"));
        action.setTooltip(QStringLiteral("Tip"));
        QCOMPARE(action.getTooltip(), QStringLiteral("Tip") + suffix);
        action.setShortcutSequence(f5);
        action.setShowShortcutInTooltip(false);
        action.setShowShortcutInTooltip(false);
        QCOMPARE(action.getTooltip(), QStringLiteral("Tip"));
        action.setShortcuts(ctrlM);
        action.setShortcutSequence(f5);
        QCOMPARE(args(names), (QStringList {"Angle", "Distance"}));
        // A text change announces the bare text; shortcut changes announce the full tooltip.
        QCOMPARE(args(tooltips), (QStringList {"Angle" + suffix, "Tip", "Tip" + f5Suffix, "Tip"}));

        ActionList list(QStringLiteral("list"), QStringLiteral("List"), nullptr);
        QSignalSpy changed(&list, &ActionList::enabledChanged);
        Action a(QStringLiteral("a")), b(QStringLiteral("b"));
        QList<bool> enabled {list.isEnabled()};
        list.addAction(nullptr);
        list.addAction(&a);
        // The default action joins the list once; a null one changes nothing.
        list.setDefaultAction(&b);
        list.setDefaultAction(&b);
        list.setDefaultAction(nullptr);
        QCOMPARE(list.getActions() << list.getDefaultAction(), (QList<Action*> {&a, &b, &b}));
        // Enabled while any member is.
        for (Action* member : {&a, &b, &b}) {
            member->setDisabled(!member->isDisabled());
            enabled.append(list.isEnabled());
        }
        QCOMPARE(enabled, (QList<bool> {false, true, false, true}));
        QCOMPARE(changed.count(), 3);
        auto* shortLived = new Action(QStringLiteral("s"));
        list.setDefaultAction(shortLived);
        delete shortLived;
        QCOMPARE(list.getActions() << list.getDefaultAction(), (QList<Action*> {&a, &b, nullptr}));

        auto* multi = new BuildingMultiAction(QStringLiteral("multi"));
        multi->setSolutionManager(m_solutions.get());
        auto* doomed = new Action(QStringLiteral("doomed"));
        Action first(QStringLiteral("first")), grandchild(QStringLiteral("grandchild"));
        MultiAction nested(QStringLiteral("nested"));
        nested.addAction(&grandchild);
        QSignalSpy added(multi, &MultiAction::actionAdded);
        QSignalSpy removed(multi, &MultiAction::actionRemoved);
        multi->addAction(&first);
        multi->addAction(doomed);
        // Inserting registers but announces nothing.
        multi->insertAction(&nested, 0);
        QCOMPARE(args(added), (QStringList {"first", "doomed"}));
        QCOMPARE(m_solutions->getAllActions().keys(), (QStringList {"doomed", "first", "nested"}));
        delete doomed;
        QCOMPARE(multi->getActions(), (QList<Action*> {&nested, &first}));

        // Disabling reaches every descendant while synchronised, the multi-action alone otherwise.
        multi->setDisabled(true);
        QVERIFY(first.isDisabled() && nested.isDisabled() && grandchild.isDisabled());
        multi->syncEnabledStateWithChildren(false);
        multi->setEnabled(true);
        QVERIFY(multi->isEnabled() && first.isDisabled() && grandchild.isDisabled());

        // Removing a stranger (a grandchild) still announces it; the destructor removes and
        // unregisters the rest.
        multi->removeAction(&grandchild);
        QVERIFY(multi->hasActions());
        delete multi;
        QCOMPARE(args(removed), (QStringList {"grandchild", "nested", "first"}));
        QCOMPARE(m_solutions->getActionsCount(), 0);

        Action* measure = tool("measure");
        QAction* firstQ = measure->getQAction();
        QAction* secondQ = measure->getQAction();
        QCOMPARE(firstQ->parent(), measure);
        QVERIFY(firstQ->isCheckable() && !firstQ->isChecked());
        measure->setName(QStringLiteral("Distance"));
        measure->setTooltip(QStringLiteral("Measures a distance"));
        QCOMPARE(secondQ->text(), QStringLiteral("Distance"));
        QCOMPARE(secondQ->toolTip(), QStringLiteral("Measures a distance"));

        measure->start(false);
        QVERIFY(firstQ->isChecked() && secondQ->isChecked());
        // Unchecking a QAction stops the action; checking it starts the action again.
        firstQ->trigger();
        QVERIFY(!measure->isActive() && !secondQ->isChecked());
        firstQ->trigger();
        QVERIFY(measure->isActive());
        measure->setDisabled(true);
        QVERIFY(!firstQ->isEnabled());
        QVERIFY(measure->getQAction()->isChecked() && !measure->getQAction()->isEnabled());

        // A one-shot command runs and ends inside one trigger of its QAction.
        tool("command", false)->getQAction()->trigger();
        QCOMPARE(journal.filter("command"),
            (QStringList {"started command", "on command", "stopped command", "off command"}));

        // A simple handler follows its QAction's triggers and dies with it.
        auto* print = new QAction(QStringLiteral("Print"));
        QPointer<CountingReceiver> receiver = new CountingReceiver(print);
        print->trigger();
        QCOMPARE(receiver->calls, 1);
        delete print;
        QVERIFY(receiver.isNull());
        QCOMPARE(CountingReceiver(nullptr).parent(), nullptr);

        KeyAndMouseRecorder widget;
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        Action* watched = tool("watched");
        watched->enableStopWithEventFilter();

        watched->start(false);
        QTest::keyClick(&widget, Qt::Key_A);
        QTest::keyClick(&widget, Qt::Key_Escape);
        QVERIFY(!watched->isActive() && widget.escapes == 0);
        // The filter went with the run.
        QTest::keyClick(&widget, Qt::Key_Escape);
        QCOMPARE(widget.escapes, 1);

        watched->start(false);
        const QPoint at(50, 50);
        QTest::mouseClick(&widget, Qt::RightButton, {}, at);
        // The release itself still reaches the widget; the stop waits for the event loop.
        QCOMPARE(widget.releases, 1);
        QVERIFY(watched->isActive());
        QTRY_VERIFY(!watched->isActive());

        // Neither a left click nor a right drag stops it.
        watched->start(false);
        const int far = QGuiApplication::styleHints()->startDragDistance() * 4 + 10;
        const QPoint to = at + QPoint(far, far);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
        QTest::mousePress(&widget, Qt::RightButton, {}, at);
        QTest::mouseMove(&widget, to);
        QTest::mouseRelease(&widget, Qt::RightButton, {}, to);
        QTest::qWait(20);
        QVERIFY(watched->isActive());
    }

    void handlerRunsStartStopAndRepeats()
    {
        // handled() comes for a checkable action without an explicit choice, even when refused.
        const std::tuple<bool, bool, bool, QStringList> cases[]
            = {{true, false, false, {"on", "start a", "handled"}},
                {true, false, true, {"on", "refused", "handled", "off"}},
                {true, true, false, {"on", "start a"}}, {false, false, false, {"on", "start a"}},
                {false, false, true, {"on", "refused", "off"}}};
        for (const auto& [checkable, explicitChoice, refuse, expected] : cases) {
            journal.clear();
            Action* action = tool("a", checkable, probe(refuse));
            if (explicitChoice)
                action->disableOtherActionsOnStart(false);
            action->setCancelled(true);
            record(action);
            action->start(false);
            QCOMPARE(journal, expected);
            QCOMPARE(action->isActive(), !refuse);
            QVERIFY(!action->isCancelled());
            // Checking a running tool or triggering a running command again changes nothing.
            action->trigger(checkable);
            QCOMPARE(action->isActive(), !refuse);
        }

        journal.clear();
        Action* action = tool("a", true, probe());
        action->stop();
        action->trigger(false);
        action->start(false);
        record(action);
        // Starting a running action again, in any way, is silent; so is stopping or unchecking an
        // idle one.
        action->start(false);
        action->start(true);
        action->trigger(true);
        action->stop();
        action->stop();
        action->toggle();
        action->toggle();
        // Disabled blocks start() and toggle() both ways, but neither a forced start, trigger()
        // nor stop(); each change of the flag is announced once.
        action->setDisabled(true);
        action->setDisabled(true);
        action->start(false);
        action->toggle();
        QVERIFY(!action->isActive());
        action->start(true);
        action->stop();
        action->trigger(true);
        action->toggle();
        QVERIFY(action->isActive() && action->isDisabled());
        action->stop();
        action->setEnabled(true);
        QCOMPARE(journal,
            (QStringList {"start a", "stop a", "off", "on", "start a", "handled", "stop a", "off",
                "disabled=1", "enabled=0", "on", "start a", "handled", "stop a", "off", "on",
                "start a", "handled", "stop a", "off", "disabled=0", "enabled=1"}));

        init();
        Probe* handler = probe();
        Action* first = tool("first", true, handler);
        Action* second = tool("second", true, handler);
        first->setParameter("mode", 1);
        first->start(false);
        // A run counts as cancelled until the concrete handler completes it.
        QVERIFY(handler->isCanceled());
        handler->setCanceled(false);
        QSignalSpy secondTriggered(second, &Action::triggered);
        QTest::ignoreMessage(
            QtDebugMsg, "ActionHandler::startHandler : there is still an action that is busy");
        second->start(false);
        QCOMPARE(args(secondTriggered), (QStringList {"true", "false"}));
        QCOMPARE(activeIds(), QStringList {"first"});
        QVERIFY(handler->isActive() && !handler->isCanceled());

        // The handler works on a copy of the parameters, taken at start and again at stop.
        QVERIFY(handler->containsParameter("mode"));
        handler->removeParameter("mode");
        QVERIFY(!handler->getParameter("mode").isValid());
        handler->clearParameters();
        QCOMPARE(first->getParameter("mode"), QVariant(1));
        first->setParameter("result", 42);
        first->stop();
        QCOMPARE(handler->getCurrentParameters(), (QVariantMap {{"mode", 1}, {"result", 42}}));
        // Stopping an idle handler is a harmless no-op; the next run counts as cancelled again.
        QVERIFY(handler->stopHandler(first));
        first->start(false);
        QVERIFY(handler->isCanceled());
        QCOMPARE(journal, (QStringList {"start first", "stop first", "start first"}));
        QVERIFY(handler->allowClose() && first->allowClose());
        first->stop();

        // A multi-handler passes each run to the handler for the action's id, and owns them all.
        journal.clear();
        QPointer<ActionHandler> replaced = new Probe;
        QPointer<ActionHandler> forB = new Probe;
        auto multi = std::make_unique<MultiActionHandler>();
        multi->addActionHandler("a", replaced);
        multi->addActionHandler("a", new Probe);
        multi->addActionHandler("b", forB);
        QVERIFY(replaced.isNull());
        for (const char* id : {"a", "b"}) {
            tool(id, true, multi.get())->start(false);
            m_actions.back()->stop();
        }
        // An action without a handler of its own is stopped at once.
        tool("unknown", true, multi.get())->start(false);
        QCOMPARE(activeIds(), QStringList());
        QCOMPARE(journal, (QStringList {"start a", "stop a", "start b", "stop b"}));
        multi.reset();
        QVERIFY(forB.isNull());
    }

    void managerRefreshesQueuesStopsAndResets()
    {
        ActionGroup group;
        Action command(QStringLiteral("command"));
        group.addAction(&command);
        QVERIFY(!command.getActionGroup() && group.canToggleAction(&command));
        for (const char* id : {"a", "b", "c"})
            group.addAction(tool(id));
        Action* a = m_actions[0].get();
        Action* b = m_actions[1].get();
        QCOMPARE(a->getActionGroup(), &group);
        a->start(false);
        QVERIFY(!group.canToggleAction(a) && group.canToggleAction(b));
        // Exclusivity comes after the fact: the newcomer runs, the others are stopped; stopping a
        // member starts nobody.
        b->start(false);
        b->stop();
        QCOMPARE(journal,
            (QStringList {"started a", "on a", "started b", "on b", "stopped a", "off a",
                "stopped b", "off b"}));
        m_actions.back().reset();
        QCOMPARE(group.getActions(), (QList<Action*> {a, b}));

        // A stopper, and each copy of it, stops its action when it goes.
        journal.clear();
        a->start(false);
        {
            ActionStopper stopper(a);
            ActionStopper copy(nullptr);
            copy = stopper;
            QVERIFY(a->isActive());
        }
        QCOMPARE(journal, (QStringList {"started a", "on a", "stopped a", "off a"}));
        // An action deleted before its stopper is left alone.
        ActionStopper late(b);
        m_actions[1].reset();

        init();
        a = tool("a");
        b = tool("b");
        m_solutions->addAction(a); // registered twice, tracked once
        a->start(false);
        b->start(false);
        QCOMPARE(m_manager->getCurrentAction(), b);
        b->stop();
        QCOMPARE(m_manager->getCurrentAction(), a);
        a->stop();
        QCOMPARE(m_manager->getCurrentAction(), nullptr);
        // A one-shot command passes through without disturbing the running action.
        a->start(false);
        tool("command", false)->start(false);
        QCOMPARE(m_manager->getCurrentAction(), a);
        // A deleted action is forgotten; stopping all stops the rest.
        tool("doomed")->start(false);
        m_actions.back().reset();
        QCOMPARE(m_manager->getCurrentAction(), a);
        b->start(false);
        m_manager->stopAllActiveActions();
        QCOMPARE(m_manager->getActiveActionsCount(), 0);
        QCOMPARE(journal,
            (QStringList {"started a", "on a", "started b", "on b", "stopped b", "off b",
                "stopped a", "off a", "started a", "on a", "started command", "on command",
                "stopped command", "off command", "started doomed", "on doomed", "started b",
                "on b", "stopped a", "off a", "stopped b", "off b"}));

        init();
        CountingAction* other = tool("a_other");
        tool("b_spared")->setMustBeDisabled(false);
        CountingAction* exclusive = tool("c_exclusive");
        exclusive->disableOtherActionsOnStart(true);
        exclusive->start(false);
        QCOMPARE((QList<bool> {
                     other->isDisabled(), m_actions[1]->isDisabled(), exclusive->isDisabled()}),
            (QList<bool> {true, false, false}));
        // While it runs, refreshes change nothing; its stop refreshes everybody.
        m_manager->updateActions();
        m_manager->objectsChanged();
        QCOMPARE(other->updates, 0);
        exclusive->stop();
        QVERIFY(other->isEnabled());
        // handled() refreshes; an explicit choice about the others means no handled().
        tool("checkable")->start(false);
        CountingAction* explicitChoice = tool("explicit");
        explicitChoice->disableOtherActionsOnStart(false);
        explicitChoice->start(false);
        QCOMPARE(other->updates, 2);

        // Switching updates off nests; surplus enables are banked, so one disable after two
        // enables leaves updates on.
        for (const bool on : {false, false, true})
            m_manager->setEnableUpdates(on);
        m_manager->updateActions();
        QVERIFY(!m_manager->getEnableUpdates());
        m_manager->setEnableUpdates(true);
        QCOMPARE(other->updates, 3);
        for (const bool on : {true, true, false})
            m_manager->setEnableUpdates(on);
        m_manager->objectsDeleted();
        QCOMPARE(other->updates, 4);

        init();
        Action* running = tool("running");
        running->start(false);
        Action* queued = tool("queued");
        m_manager->queueAction(*queued, {{"p", 1}, {"q", "x"}});
        QCOMPARE(activeIds(), (QStringList {"running", "queued"}));
        QCOMPARE(queued->getParameters(), (QVariantMap {{"p", 1}, {"q", "x"}}));
        running->stop();
        queued->stop();

        // Blocked by the gate's state, first stays disabled through every refresh and holds
        // second back behind it.
        Action* gate = tool("gate");
        Action* first = tool("first");
        first->addBlockingAction(nullptr);
        first->addBlockingAction(gate);
        gate->setActionState(Action::Blocking);
        QVERIFY(first->isDisabled());
        m_manager->queueAction(*first, {});
        m_manager->queueAction(*tool("second"), {});
        QVERIFY(m_manager->hasActionsInQueue());
        running->start(false);
        running->stop();
        QCOMPARE(activeIds(), QStringList());
        // Enabling alone starts nothing; the next stop of any action does.
        gate->setActionState(Action::NoState);
        running->start(false);
        QCOMPARE(activeIds(), QStringList {"running"});
        running->stop();
        QCOMPARE(activeIds(), (QStringList {"first", "second"}));
        QVERIFY(!m_manager->hasActionsInQueue());
        QCOMPARE(m_manager->getCurrentAction()->getID(), QStringLiteral("second"));

        // A blocker deleted first is forgotten.
        gate->setActionState(Action::Blocking);
        QVERIFY(first->isDisabled());
        m_actions[2].reset();
        first->update();
        QVERIFY(first->isEnabled());

        // a, b, c must be stopped, d must not; c is current.
        const std::tuple<bool, QStringList, QStringList> cases[] = {{false, {}, {"d", "c"}},
            {true, {}, {"d"}}, {true, {"a"}, {"a", "d"}}, {true, {"A"}, {"d"}}};
        for (const auto& [stopCurrent, exceptions, stillActive] : cases) {
            init();
            for (const char* id : {"a", "b", "d", "c"}) {
                tool(id)->setMustBeStopped(QString(id) != "d");
                m_actions.back()->start(false);
            }
            m_manager->stopActiveMustBeStoppedActions(stopCurrent, exceptions);
            QCOMPARE(activeIds(), stillActive);
        }

        // a's stop also stops c; a pass over the live list would then skip b.
        init();
        for (const char* id : {"a", "b", "c", "current"})
            tool(id)->setMustBeStopped(true);
        connect(m_actions[0].get(), &Action::triggered, m_actions[2].get(), &Action::stop);
        for (const auto& action : m_actions)
            action->start(false);
        m_manager->stopActiveMustBeStoppedActions(false, {});
        QCOMPARE(activeIds(), QStringList {"current"});
        QCOMPARE(journal.filter("stopped"), (QStringList {"stopped a", "stopped c", "stopped b"}));

        init();
        a = tool("a");
        a->setActionState(Action::Blocking);
        QSignalSpy changed(a, &Action::actionStateChanged);
        m_manager->resetActions();
        QCOMPARE(a->getActionState(), Action::NoState);
        // Silent, and the signals are unblocked again afterwards.
        a->setActionState(Action::Blocking);
        QCOMPARE(changed.count(), 1);

        // The started notice carries the current action, not the argument.
        a->start(false);
        QSignalSpy started(m_manager.get(), &action::ActionManager::wizardActionStartedSignal);
        QSignalSpy stopped(m_manager.get(), &action::ActionManager::wizardActionStoppedSignal);
        m_manager->wizardActionStarted(nullptr, nullptr);
        m_manager->wizardActionStopped(nullptr, nullptr);
        QCOMPARE(args(started, 1) + args(stopped, 1), (QStringList {"a", ""}));

        // A manager without a solution manager does without.
        action::ActionManager lone;
        lone.disableAllActions();
        lone.resetActions();
        lone.updateActions();
        // An action the manager never saw start still reports its stop, without actionStopped().
        Action* action = tool("a", true, probe());
        action->start(false);
        lone.actionAdded(action);
        QSignalSpy loneStopped(&lone, &action::ActionManager::actionStopped);
        QSignalSpy loneTriggered(&lone, &action::ActionManager::actionTriggeredSignal);
        action->stop();
        QCOMPARE(loneStopped.count(), 0);
        QCOMPARE(args(loneTriggered), QStringList {"false"});
    }
};

QTEST_MAIN(tst_Action)
#include "tst_action.moc"
