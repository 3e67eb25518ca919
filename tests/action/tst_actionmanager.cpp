#include <guicore/action/ActionHandler.h>
#include <guicore/action/ActionManager.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/solution/SolutionManager.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

namespace {

// Counts the availability refreshes the manager drives.
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

// Stops another action from inside its own stop, as tools that end a helper tool do.
class ChainHandler : public EmptyActionHandler
{
public:
    QPointer<Action> alsoStop;

protected:
    void stop() override
    {
        if (alsoStop)
            alsoStop->stop();
    }
};

} // namespace

class tst_ActionManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void currentActionFollowsStartsAndStops();
    void oneShotSequence();
    void exclusiveActionDisablesOthers();
    void handledRefreshesAvailability();
    void queueStartsEnabledActionAtOnce();
    void queueWaitsForDisabledFront();
    void stopActiveMustBeStopped_data();
    void stopActiveMustBeStopped();
    void stopPassesVisitEachActionOnce();
    void enableUpdatesNests();
    void resetActionsIsSilent();
    void wizardNotices();
    void deletedActionIsForgotten();
    void worksWithoutSolutionManager();

private:
    CountingAction* tool(const QString& id, bool checkable = true);
    void recordManager();

    std::unique_ptr<SolutionManager> m_solutions;
    std::unique_ptr<action::ActionManager> m_manager;
    std::vector<std::unique_ptr<ActionHandler>> m_handlers;
    std::vector<std::unique_ptr<CountingAction>> m_actions;
    QStringList m_log;
};

void tst_ActionManager::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_solutions = std::make_unique<SolutionManager>();
    m_manager = std::make_unique<action::ActionManager>();
    m_manager->setSolutionManager(m_solutions.get());
    m_log.clear();
}

void tst_ActionManager::cleanup()
{
    m_actions.clear();
    m_handlers.clear();
    m_manager.reset();
    m_solutions.reset();
}

CountingAction* tst_ActionManager::tool(const QString& id, bool checkable)
{
    // Every action gets its own handler: a handler serves one run at a time.
    m_handlers.push_back(std::make_unique<EmptyActionHandler>());
    m_actions.push_back(std::make_unique<CountingAction>(id));
    CountingAction* action = m_actions.back().get();
    action->setCheckable(checkable);
    action->setActionHandler(m_handlers.back().get());
    m_solutions->addAction(action);
    return action;
}

void tst_ActionManager::recordManager()
{
    connect(m_manager.get(), &action::ActionManager::actionStarted, this,
        [this](Action* a) { m_log.append("started " + a->getID()); });
    connect(m_manager.get(), &action::ActionManager::actionStopped, this,
        [this](Action* a) { m_log.append("stopped " + a->getID()); });
    connect(m_manager.get(), &action::ActionManager::actionTriggeredSignal, this,
        [this](bool checked, Action* a) {
            m_log.append(
                QStringLiteral("triggered(%1) ").arg(checked ? "true" : "false") + a->getID());
        });
}

void tst_ActionManager::currentActionFollowsStartsAndStops()
{
    Action* a = tool("a");
    Action* b = tool("b");
    m_solutions->addAction(a); // registered twice, tracked once
    recordManager();

    a->start(false);
    b->start(false);
    QCOMPARE(m_manager->getCurrentAction(), b);
    QCOMPARE(m_manager->getActiveActionsCount(), 2);

    b->stop();
    QCOMPARE(m_manager->getCurrentAction(), a);
    a->stop();
    QCOMPARE(m_manager->getCurrentAction(), nullptr);
    QCOMPARE(m_manager->getActiveActionsCount(), 0);
    QCOMPARE(m_log,
        (QStringList {"started a", "triggered(true) a", "started b", "triggered(true) b",
            "stopped b", "triggered(false) b", "stopped a", "triggered(false) a"}));
}

void tst_ActionManager::oneShotSequence()
{
    Action* running = tool("running");
    running->start(false);
    Action* command = tool("command", false);
    command->disableOtherActionsOnStart(false);
    recordManager();

    command->start(false);
    QCOMPARE(m_log,
        (QStringList {"started command", "triggered(true) command", "stopped command",
            "triggered(false) command"}));
    QCOMPARE(m_manager->getActiveActionsCount(), 1);
    QCOMPARE(m_manager->getCurrentAction(), running);
}

void tst_ActionManager::exclusiveActionDisablesOthers()
{
    CountingAction* other = tool("a_other");
    CountingAction* spared = tool("b_spared");
    spared->setMustBeDisabled(false);
    CountingAction* exclusive = tool("c_exclusive");
    exclusive->disableOtherActionsOnStart(true);

    exclusive->start(false);
    QVERIFY(other->isDisabled());
    QVERIFY(spared->isEnabled());
    QVERIFY(exclusive->isEnabled());

    // While it runs, refreshes change nothing.
    const int before = other->updates;
    m_manager->updateActions();
    m_manager->objectsChanged();
    QCOMPARE(other->updates, before);
    QVERIFY(other->isDisabled());

    // Its stop refreshes everybody.
    exclusive->stop();
    QCOMPARE(other->updates, before + 1);
    QVERIFY(other->isEnabled());
}

void tst_ActionManager::handledRefreshesAvailability()
{
    CountingAction* watcher = tool("watcher");
    CountingAction* checkable = tool("checkable");
    QCOMPARE(watcher->updates, 0);

    checkable->start(false);
    QCOMPARE(watcher->updates, 1);

    // An explicit choice about the others means no handled() and no refresh on start.
    CountingAction* explicitChoice = tool("explicit");
    explicitChoice->disableOtherActionsOnStart(false);
    explicitChoice->start(false);
    QCOMPARE(watcher->updates, 1);
}

void tst_ActionManager::queueStartsEnabledActionAtOnce()
{
    Action* running = tool("running");
    running->start(false);
    Action* queued = tool("queued");
    const QMultiMap<QString, QVariant> parameters {{"p", 1}, {"q", "x"}};

    m_manager->queueAction(*queued, parameters);
    QVERIFY(queued->isActive());
    QVERIFY(running->isActive());
    QVERIFY(!m_manager->hasActionsInQueue());
    QCOMPARE(queued->getParameter("p"), QVariant(1));
    QCOMPARE(queued->getParameter("q"), QVariant("x"));
}

void tst_ActionManager::queueWaitsForDisabledFront()
{
    Action* other = tool("other");
    Action* gate = tool("gate");
    Action* first = tool("first");
    Action* second = tool("second");
    // Blocked by the gate's state, first stays disabled through every refresh.
    first->addBlockingAction(gate);
    gate->setActionState(Action::Blocking);
    QVERIFY(first->isDisabled());

    m_manager->queueAction(*first, {});
    m_manager->queueAction(*second, {});
    QVERIFY(m_manager->hasActionsInQueue());
    QVERIFY(!first->isActive());
    QVERIFY(!second->isActive()); // held back behind the disabled front

    other->start(false);
    other->stop();
    QVERIFY(!first->isActive());
    QVERIFY(!second->isActive());

    // Enabling alone starts nothing; the next stop of any action does.
    gate->setActionState(Action::NoState);
    QVERIFY(first->isEnabled());
    QVERIFY(!first->isActive());
    other->start(false);
    QVERIFY(!first->isActive());
    other->stop();
    QVERIFY(first->isActive());
    QVERIFY(second->isActive());
    QVERIFY(!m_manager->hasActionsInQueue());
    QCOMPARE(m_manager->getCurrentAction(), second);
}

void tst_ActionManager::stopActiveMustBeStopped_data()
{
    QTest::addColumn<bool>("stopCurrent");
    QTest::addColumn<QStringList>("exceptions");
    QTest::addColumn<QStringList>("stillActive");

    // a, b, c must be stopped, d must not; c is current.
    QTest::newRow("current kept") << false << QStringList {} << QStringList {"c", "d"};
    QTest::newRow("current stopped too") << true << QStringList {} << QStringList {"d"};
    QTest::newRow("exception kept") << true << QStringList {"a"} << QStringList {"a", "d"};
    QTest::newRow("exceptions are case-sensitive")
        << true << QStringList {"A"} << QStringList {"d"};
}

void tst_ActionManager::stopActiveMustBeStopped()
{
    QFETCH(bool, stopCurrent);
    QFETCH(QStringList, exceptions);
    QFETCH(QStringList, stillActive);

    for (const char* id : {"a", "b", "d", "c"}) {
        Action* action = tool(id);
        action->setMustBeStopped(QString(id) != "d");
        action->start(false);
    }
    QCOMPARE(m_manager->getCurrentAction()->getID(), QStringLiteral("c"));

    m_manager->stopActiveMustBeStoppedActions(stopCurrent, exceptions);
    QStringList active;
    for (const auto& action : m_actions) {
        if (action->isActive())
            active.append(action->getID());
    }
    active.sort();
    QCOMPARE(active, stillActive);
}

void tst_ActionManager::stopPassesVisitEachActionOnce()
{
    // a's stop also stops c; a pass over the live list would then skip b.
    auto chain = std::make_unique<ChainHandler>();
    Action* a = tool("a");
    a->setActionHandler(chain.get());
    Action* b = tool("b");
    Action* c = tool("c");
    Action* current = tool("current");
    chain->alsoStop = c;
    for (Action* action : {a, b, c, current}) {
        action->setMustBeStopped(true);
        action->start(false);
    }
    recordManager();

    m_manager->stopActiveMustBeStoppedActions(false, {});
    QVERIFY(!a->isActive() && !b->isActive() && !c->isActive());
    QVERIFY(current->isActive());
    QCOMPARE(m_log.filter("stopped"), (QStringList {"stopped c", "stopped a", "stopped b"}));
}

void tst_ActionManager::enableUpdatesNests()
{
    CountingAction* action = tool("a");
    m_manager->setEnableUpdates(false);
    m_manager->setEnableUpdates(false);
    m_manager->setEnableUpdates(true);
    QVERIFY(!m_manager->getEnableUpdates());
    m_manager->updateActions();
    QCOMPARE(action->updates, 0);

    m_manager->setEnableUpdates(true);
    QVERIFY(m_manager->getEnableUpdates());
    QCOMPARE(action->updates, 1);

    // Surplus enables are banked: one disable after two enables leaves updates on.
    m_manager->setEnableUpdates(true);
    m_manager->setEnableUpdates(true);
    QCOMPARE(action->updates, 1);
    m_manager->setEnableUpdates(false);
    QVERIFY(m_manager->getEnableUpdates());
    m_manager->objectsDeleted();
    QCOMPARE(action->updates, 2);
}

void tst_ActionManager::resetActionsIsSilent()
{
    Action* a = tool("a");
    Action* b = tool("b");
    a->setActionState(Action::Blocking);
    b->setActionState(static_cast<Action::ActionState>(7));
    QSignalSpy aChanged(a, &Action::actionStateChanged);
    QSignalSpy bChanged(b, &Action::actionStateChanged);

    m_manager->resetActions();
    QCOMPARE(a->getActionState(), Action::NoState);
    QCOMPARE(b->getActionState(), Action::NoState);
    QCOMPARE(aChanged.count(), 0);
    QCOMPARE(bChanged.count(), 0);
    QVERIFY(!a->signalsBlocked());

    a->setActionState(Action::Blocking);
    QCOMPARE(aChanged.count(), 1);
}

void tst_ActionManager::wizardNotices()
{
    Action* current = tool("current");
    Action* other = tool("other");
    current->start(false);
    auto* wizard = reinterpret_cast<WizardCore*>(quintptr(0x10));
    QSignalSpy started(m_manager.get(), &action::ActionManager::wizardActionStartedSignal);
    QSignalSpy stopped(m_manager.get(), &action::ActionManager::wizardActionStoppedSignal);

    // The started notice carries the current action, not the argument.
    m_manager->wizardActionStarted(wizard, other);
    QCOMPARE(started.count(), 1);
    QCOMPARE(started.at(0).at(1).value<Action*>(), current);

    m_manager->wizardActionStopped(wizard, other);
    QCOMPARE(stopped.count(), 1);
    QCOMPARE(stopped.at(0).at(1).value<Action*>(), other);
}

void tst_ActionManager::deletedActionIsForgotten()
{
    Action* a = tool("a");
    Action* b = tool("b");
    Action* doomed = tool("doomed");
    a->start(false);
    b->start(false);
    doomed->start(false);
    QCOMPARE(m_manager->getCurrentAction(), doomed);

    m_actions.back().reset();
    QCOMPARE(m_manager->getCurrentAction(), b);
    QCOMPARE(m_manager->getActiveActionsCount(), 2);
    recordManager();
    m_manager->stopAllActiveActions();
    QCOMPARE(m_log.filter("stopped"), (QStringList {"stopped a", "stopped b"}));
    QCOMPARE(m_manager->getActiveActionsCount(), 0);
}

void tst_ActionManager::worksWithoutSolutionManager()
{
    action::ActionManager lone;
    QCOMPARE(lone.getSolutionManager(), nullptr);
    lone.disableAllActions();
    lone.resetActions();
    lone.updateActions();

    // An action the manager never saw start still reports its stop, without actionStopped().
    EmptyActionHandler handler;
    Action stranger("stranger");
    stranger.setCheckable(true);
    stranger.setActionHandler(&handler);
    stranger.start(false);
    lone.actionAdded(&stranger);
    QSignalSpy stopped(&lone, &action::ActionManager::actionStopped);
    QSignalSpy triggered(&lone, &action::ActionManager::actionTriggeredSignal);
    stranger.stop();
    QCOMPARE(stopped.count(), 0);
    QCOMPARE(triggered.count(), 1);
    QCOMPARE(triggered.at(0).at(0).toBool(), false);
}

QTEST_MAIN(tst_ActionManager)
#include "tst_actionmanager.moc"
