#pragma once

#include <guicore/action/Action.h>
#include <guicore/guicore_export.h>

#include <QList>
#include <QMultiMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

class SolutionManager;
namespace action {
class ActionRegistry;
}
/// The application's wizard type; only its pointer passes through the action manager.
class WizardCore;
Q_DECLARE_OPAQUE_POINTER(WizardCore*)
Q_DECLARE_METATYPE(WizardCore*)

namespace action {

/// Keeps the application-wide run picture of every action the solution manager registers: which
/// actions are active, which one is current (the most recently started one still running), which
/// must be disabled while an exclusive action runs, and a queue of actions waiting to start. It
/// owns no action.
///
/// Set the solution manager before plug-ins register their actions: actions registered earlier
/// are never seen.
class GUICORE_EXPORT ActionManager : public QObject
{
    Q_OBJECT

public:
    /// A manager without parent and without solution manager.
    ActionManager();
    /// Neither stops nor disables any action.
    ~ActionManager() override;

    /// Listens to `manager`'s actionAdded(); does not take ownership, does not disconnect an
    /// earlier manager and does not visit actions registered before. The full action set is
    /// read from the manager as an ActionRegistry.
    void setSolutionManager(SolutionManager* manager);
    /// Not owned by the caller; null once the manager is destroyed.
    SolutionManager* getSolutionManager() const;

    /// The most recently started action that still runs, or null; not owned by the caller.
    Action* getCurrentAction() const;
    /// How many actions run now, counted once each.
    int getActiveActionsCount() const;
    /// Whether queued actions wait (their front one is disabled).
    bool hasActionsInQueue() const;
    /// False while setEnableUpdates(false) calls outnumber the true ones.
    bool getEnableUpdates() const;

    /// Queues `action` (not owned) with parameters to copy onto it, then starts whatever the queue
    /// allows. Queued actions start forced, in strict order; a disabled action at the front holds
    /// back the ones behind it until it is enabled when some action stops.
    void queueAction(Action& action, QMultiMap<QString, QVariant> parameters);

    /// Stops every active action that must be stopped, except those whose id is listed and,
    /// unless `stopCurrentAction`, the current action.
    void stopActiveMustBeStoppedActions(
        bool stopCurrentAction, const QList<QString>& exceptActionIds);
    /// Stops every active action, the current one included, whatever its flags.
    void stopAllActiveActions();
    /// Disables every registered action that must be disabled, except the current one.
    void disableAllActions();
    /// Sets every registered action's state back to 0 without any actionStateChanged().
    void resetActions();

    /// Emits wizardActionStartedSignal() with the current action rather than `action`: listeners
    /// want the tool the wizard runs inside. Neither pointer is owned.
    virtual void wizardActionStarted(WizardCore* wizard, Action* action);
    /// Emits wizardActionStoppedSignal() with `action`, then updates all actions. Neither pointer
    /// is owned.
    virtual void wizardActionStopped(WizardCore* wizard, Action* action);

public Q_SLOTS:
    /// Calls update() on every registered action in id order, unless updates are off or an
    /// exclusive action runs.
    void updateActions() const;
    /// Nests: each false must be matched by a true. Surplus trues are banked, so two enables and
    /// one disable leave updates on; application code depends on this.
    virtual void setEnableUpdates(bool enable);
    /// @{
    /// Both run updateActions(); connect the document's change and deletion notices to them.
    void objectsChanged();
    void objectsDeleted();
    /// @}

private Q_SLOTS:
    /// Tracks the sending action's start (true) or stop (false).
    void actionTriggered(bool checked);

public Q_SLOTS:
    /// Watches a newly registered action (not owned).
    void actionAdded(Action* action);

Q_SIGNALS:
    /// A registered action started and was not yet counted as active; emitted before
    /// actionTriggeredSignal(true, action).
    void actionStarted(Action* action);
    /// An active registered action stopped, after the current action was recomputed and all
    /// actions updated; emitted before actionTriggeredSignal(false, action).
    void actionStopped(Action* action);
    /// Every triggered() of a registered action, relayed with the action: also a start of an
    /// already active action and a stop of one never counted as active.
    void actionTriggeredSignal(bool checked, Action* action);
    /// From wizardActionStarted(), with the current action.
    void wizardActionStartedSignal(WizardCore* wizard, Action* action);
    /// From wizardActionStopped(), before the actions are updated.
    void wizardActionStoppedSignal(WizardCore* wizard, Action* action);

protected:
    /// Starts queued actions from the front while the front one is enabled.
    void executeQueuedActionsIfPossible();

private:
    struct QueuedAction
    {
        QPointer<Action> action;
        QMultiMap<QString, QVariant> parameters;
    };

    void forgetAction(QObject* action);
    /// The solution manager as the registry of all actions, or null while there is none.
    ActionRegistry* actionRegistry() const;

    QList<Action*> m_activeActions;
    Action* m_currentAction = nullptr;
    bool m_enableUpdates = true;
    int m_updatesCounter = 0;
    QPointer<SolutionManager> m_solutionManager;
    // The same object as m_solutionManager, seen as what this framework may know of it; valid
    // exactly while m_solutionManager is not null.
    ActionRegistry* m_actionRegistry = nullptr;
    QList<QueuedAction> m_queue;
};

} // namespace action
