#pragma once

#include <guicore/action/Action.h>
#include <guicore/action/ActionRegistry.h>
#include <guicore/guicore_export.h>

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class ActionList;
class Solution;
class SolutionActionGroup;
class SolutionStep;
class View;
namespace solution {
class Feature;
}

/// The registry of everything solution plug-ins contribute, each kept by id: solutions, steps,
/// action groups, action lists, features, actions and views. It also holds the active solution
/// and the current step.
///
/// Ownership: action groups and views belong to the registry. A view that a plug-in also holds
/// is deleted by whichever side lets go of it first, and the other side forgets it. Action
/// lists without a QObject parent (as the builder helper makes them) are deleted with the
/// registry. Everything else is borrowed, and whatever is destroyed elsewhere is dropped from the
/// registry: actions, steps, lists, features, views and solutions, the active one included (which
/// then leaves no active solution, without solutionChanged()).
///
/// The action framework sees this registry as its action::ActionRegistry.
class GUICORE_EXPORT SolutionManager : public QObject, public action::ActionRegistry
{
    Q_OBJECT

public:
    /// An empty registry without parent and without active solution.
    SolutionManager();
    ~SolutionManager() override;

    /// Stores the action (not owned) under its id, replacing an earlier one, and emits
    /// actionAdded(). Null is ignored.
    void addAction(Action* action) override;
    /// Removes the entry under the action's id; the action is not deleted and nothing is emitted.
    void removeAction(Action* action) override;
    /// Forgets every action (none is deleted); emits nothing.
    void clearActions();
    /// The action, or null with the warning "Action <id> not found." (registered first with the
    /// message handler so that repeats are suppressed). Not owned by the caller.
    Action* getAction(const QString& id) const;
    /// getAction() for each id in order, leaving out (and warning about) those not found.
    QList<Action*> getActions(const QList<QString>& ids) const;
    /// Every action keyed by id, so iterating runs in ascending id order.
    QMap<QString, Action*> getAllActions() const override;
    /// How many actions are registered.
    int getActionsCount() const;
    /// Whether an action is registered under `id`; never warns.
    bool hasAction(const QString& id) const;

    /// Stores the feature (not owned) and emits featureAdded(). Null is ignored.
    void addFeature(solution::Feature* feature);
    /// Not owned by the caller; null when absent.
    solution::Feature* getFeature(const QString& id) const;
    /// Whether a feature is registered under `id`.
    bool hasFeature(const QString& id) const;

    /// Does not take ownership. Null is ignored.
    void addSolution(Solution* solution);
    /// Not owned by the caller; null when absent.
    Solution* getSolution(const QString& id) const;
    /// Whether a solution is registered under `id`.
    bool hasSolution(const QString& id) const;

    /// Does not take ownership. Null is ignored.
    void addSolutionStep(SolutionStep* step);
    /// Not owned by the caller; null when absent.
    SolutionStep* getSolutionStep(const QString& id) const;
    /// Whether a step is registered under `id`.
    bool hasSolutionStep(const QString& id) const;

    /// Takes ownership; a different group registered under the same id is deleted.
    void addActionGroup(SolutionActionGroup* group);
    /// Unregisters and deletes the group.
    void removeActionGroup(SolutionActionGroup* group);
    /// Not owned by the caller; null when absent.
    SolutionActionGroup* getActionGroup(const QString& id) const;
    /// Whether a group is registered under `id`.
    bool hasActionGroup(const QString& id) const;

    /// Borrows the list, or adopts it when it has no QObject parent. Null is ignored.
    void addActionList(ActionList* list);
    /// Not owned by the caller; null when absent.
    ActionList* getActionList(const QString& id) const;
    /// Whether a list is registered under `id`.
    bool hasActionList(const QString& id) const;

    /// Takes ownership; a different view registered under the same id is deleted.
    void addView(View* view);
    /// Unregisters the view and hands it to the caller (null when absent).
    std::unique_ptr<View> removeView(const QString& id);
    /// Unregisters and deletes every view.
    void clearViews();
    /// Not owned by the caller; null when absent.
    View* getView(const QString& id) const;
    /// Whether a view is registered under `id`.
    bool hasView(const QString& id) const;
    /// True when at least one registered view's id is listed.
    bool hasView(const QList<QString>& ids) const;
    /// Every view, ordered with the sort predicate (not a stable sort); without a predicate, in id
    /// order. Not owned by the caller.
    QList<View*> getViews() const;
    /// The "less than" with which getViews() orders the views (the order of the application's view
    /// bar); set it before views are listed.
    void setViewsSortPredicate(std::function<bool(const View*, const View*)>&& predicate);

    /// Makes the solution active and emits solutionChanged(startup), unless it is absent or
    /// already active. Returns the solution (null when absent); not owned by the caller.
    Solution* setActiveSolution(const QString& id, bool startup);
    /// Not owned by the caller.
    Solution* getActiveSolution() const;
    /// Clears the active solution without a signal.
    void clearActiveSolution();
    /// The step registered under the current step id, or null; not owned by the caller.
    SolutionStep* getCurrentSolutionStep() const;

public Q_SLOTS:
    /// Emits solutionStepChanged() when a registered step other than the current one is chosen.
    void setCurrentSolutionStep(const QString& stepId);

Q_SIGNALS:
    /// Emitted by setCurrentSolutionStep() with the new step's id.
    void solutionStepChanged(const QString& step);
    /// Emitted by addAction() for every action stored, also one replacing an earlier entry; the
    /// action manager watches the action from then on.
    void actionAdded(Action* action);
    /// Emitted by addFeature() with the feature's id.
    void featureAdded(const QString& featureId);
    /// Emitted by setActiveSolution() when another solution becomes active; `startup` is passed
    /// through from the call.
    void solutionChanged(bool startup);

private:
    void forgetObject(QObject* object);
    void forgetFeature(const void* feature);

    QString m_currentSolutionStepId;
    QMap<QString, Solution*> m_solutions;
    QMap<QString, SolutionStep*> m_solutionSteps;
    QMap<QString, SolutionActionGroup*> m_actionGroups;
    QMap<QString, ActionList*> m_actionLists;
    QMap<QString, solution::Feature*> m_features;
    QMap<QString, Action*> m_actions;
    QMap<QString, View*> m_views;
    Solution* m_activeSolution = nullptr;
    std::function<bool(const View*, const View*)> m_viewsSortPredicate;
    QList<ActionList*> m_adoptedActionLists;
};
