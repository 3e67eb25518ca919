#include "ActionManager.h"

#include "ActionRegistry.h"

namespace action {

ActionManager::ActionManager()
    : QObject(nullptr)
{
}

ActionManager::~ActionManager() = default;

// setSolutionManager() and getSolutionManager() are defined with SolutionManager
// (solution/SolutionManager.cpp): only there is it known to be an ActionRegistry.

ActionRegistry* ActionManager::actionRegistry() const
{
    return m_solutionManager.isNull() ? nullptr : m_actionRegistry;
}

Action* ActionManager::getCurrentAction() const
{
    return m_currentAction;
}

int ActionManager::getActiveActionsCount() const
{
    return int(m_activeActions.size());
}

bool ActionManager::hasActionsInQueue() const
{
    return !m_queue.isEmpty();
}

bool ActionManager::getEnableUpdates() const
{
    return m_enableUpdates;
}

void ActionManager::actionAdded(Action* action)
{
    if (!action)
        return;
    // An action may be registered more than once (a multi-action registers its children, and the
    // host may too); it must still be tracked once per start.
    connect(
        action, &Action::triggered, this, &ActionManager::actionTriggered, Qt::UniqueConnection);
    connect(action, &Action::handled, this, &ActionManager::updateActions, Qt::UniqueConnection);
    connect(action, &QObject::destroyed, this, &ActionManager::forgetAction, Qt::UniqueConnection);
}

void ActionManager::forgetAction(QObject* action)
{
    // Actions are borrowed from the plug-ins, which delete them on close.
    const auto same = [action](Action* a) { return static_cast<QObject*>(a) == action; };
    m_activeActions.removeIf(same);
    if (m_currentAction && same(m_currentAction))
        m_currentAction = m_activeActions.isEmpty() ? nullptr : m_activeActions.last();
    m_queue.removeIf([](const QueuedAction& queued) { return queued.action.isNull(); });
}

void ActionManager::actionTriggered(bool checked)
{
    auto* action = qobject_cast<Action*>(sender());
    if (!action)
        return;

    if (checked) {
        m_currentAction = action;
        if (action->shouldDisableOtherActionsOnStart())
            disableAllActions();
        if (m_activeActions.contains(action)) {
            Q_EMIT actionTriggeredSignal(true, action);
            return;
        }
        m_activeActions.append(action);
        Q_EMIT actionStarted(action);
        Q_EMIT actionTriggeredSignal(true, action);
        return;
    }

    const bool wasActive = m_activeActions.removeOne(action);
    if (action == m_currentAction)
        m_currentAction = m_activeActions.isEmpty() ? nullptr : m_activeActions.last();
    updateActions();
    if (wasActive)
        Q_EMIT actionStopped(action);
    Q_EMIT actionTriggeredSignal(false, action);
    executeQueuedActionsIfPossible();
}

void ActionManager::disableAllActions()
{
    ActionRegistry* registry = actionRegistry();
    if (!registry)
        return;
    const QMap<QString, Action*> actions = registry->getAllActions();
    for (Action* action : actions) {
        if (action == m_currentAction)
            continue;
        if (action->mustBeDisabled())
            action->setDisabled(true);
    }
}

void ActionManager::updateActions() const
{
    if (!m_enableUpdates)
        return;
    // While an exclusive action runs, the others stay disabled.
    if (m_currentAction && m_currentAction->isActive()
        && m_currentAction->shouldDisableOtherActionsOnStart())
        return;
    ActionRegistry* registry = actionRegistry();
    if (!registry)
        return;
    const QMap<QString, Action*> actions = registry->getAllActions();
    for (Action* action : actions)
        action->update();
}

void ActionManager::setEnableUpdates(bool enable)
{
    m_updatesCounter += enable ? 1 : -1;
    m_enableUpdates = m_updatesCounter >= 0;
    if (enable && m_updatesCounter == 0)
        updateActions();
}

void ActionManager::objectsChanged()
{
    updateActions();
}

void ActionManager::objectsDeleted()
{
    updateActions();
}

void ActionManager::queueAction(Action& action, QMultiMap<QString, QVariant> parameters)
{
    m_queue.append({&action, std::move(parameters)});
    executeQueuedActionsIfPossible();
}

void ActionManager::executeQueuedActionsIfPossible()
{
    while (!m_queue.isEmpty()) {
        QueuedAction& front = m_queue.first();
        if (!front.action) {
            m_queue.removeFirst();
            continue;
        }
        if (front.action->isDisabled())
            return;
        Action* action = front.action;
        for (auto it = front.parameters.cbegin(); it != front.parameters.cend(); ++it)
            action->setParameter(it.key(), it.value());
        // Removed before the start: a one-shot action stops inside start(), which brings us back
        // here for the rest of the queue.
        m_queue.removeFirst();
        action->start(true);
    }
}

void ActionManager::stopActiveMustBeStoppedActions(
    bool stopCurrentAction, const QList<QString>& exceptActionIds)
{
    // Each stop removes its action from the live list, and a stop may stop others in turn; the
    // snapshot makes the pass visit every action active at its start exactly once.
    QList<QPointer<Action>> snapshot;
    for (Action* action : std::as_const(m_activeActions))
        snapshot.append(action);
    for (const QPointer<Action>& action : std::as_const(snapshot)) {
        if (!action)
            continue;
        if (exceptActionIds.contains(action->getID()) || !action->mustBeStopped())
            continue;
        if (action == m_currentAction && !stopCurrentAction)
            continue;
        action->stop();
    }
}

void ActionManager::stopAllActiveActions()
{
    QList<QPointer<Action>> snapshot;
    for (Action* action : std::as_const(m_activeActions))
        snapshot.append(action);
    for (const QPointer<Action>& action : std::as_const(snapshot)) {
        if (action)
            action->stop();
    }
}

void ActionManager::resetActions()
{
    ActionRegistry* registry = actionRegistry();
    if (!registry)
        return;
    const QMap<QString, Action*> actions = registry->getAllActions();
    for (Action* action : actions) {
        action->blockSignals(true);
        action->setActionState(Action::NoState);
    }
    for (Action* action : actions)
        action->blockSignals(false);
}

void ActionManager::wizardActionStarted(WizardCore* wizard, Action* /*action*/)
{
    Q_EMIT wizardActionStartedSignal(wizard, m_currentAction);
}

void ActionManager::wizardActionStopped(WizardCore* wizard, Action* action)
{
    Q_EMIT wizardActionStoppedSignal(wizard, action);
    updateActions();
}

} // namespace action
