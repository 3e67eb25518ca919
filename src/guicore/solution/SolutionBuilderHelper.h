#pragma once

#include <guicore/guicore_export.h>

#include <QList>
#include <QString>

class Action;
class ActionList;
class SolutionActionGroup;
class SolutionManager;
class SolutionStep;

/// Lays out the tool panels of a solution step (groups, lists, actions) and registers them with
/// the solution manager in one call.
class GUICORE_EXPORT SolutionBuilderHelper
{
public:
    /// Creates a group whose id and name are the step id cut to three characters plus "_<counter>",
    /// adds it to `step` and to `manager` (which owns it) and increments `counter`. Returns the
    /// group, not owned by the caller.
    static SolutionActionGroup* addActionGroupToSolution(
        SolutionManager& manager, SolutionStep* step, int& counter);
    /// Creates a parentless list with `id` as id and name, adds it to `group` and to `manager`
    /// (which deletes it on destruction). Returns the list, not owned by the caller.
    static ActionList* addActionListToGroup(
        SolutionManager& manager, const QString& id, SolutionActionGroup* group);
    /// Puts the registered action `actionId` alone into a new list `listId` of `group`. Returns the
    /// action (not owned by the caller), or null without creating anything when it is unknown.
    static Action* addActionToGroup(SolutionManager& manager, const QString& actionId,
        const QString& listId, SolutionActionGroup* group);
    /// Adds the actions (not owned) to `list` in order and makes the first one the default; the
    /// list type becomes CUSTOM_LIST when that one is a CustomAction. An empty list of actions
    /// changes nothing.
    static void addActionsToList(const QList<Action*>& actions, ActionList* list);
};
