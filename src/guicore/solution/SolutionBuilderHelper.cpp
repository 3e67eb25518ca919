#include "SolutionBuilderHelper.h"

#include "SolutionActionGroup.h"
#include "SolutionManager.h"
#include "SolutionStep.h"

#include <guicore/action/ActionList.h>
#include <guicore/action/CustomAction.h>

SolutionActionGroup* SolutionBuilderHelper::addActionGroupToSolution(
    SolutionManager& manager, SolutionStep* step, int& counter)
{
    if (!step)
        return nullptr;
    const QString id = step->getID().left(3) + QStringLiteral("_%1").arg(counter);
    ++counter;
    auto* group = new SolutionActionGroup(id, id);
    step->addActionGroup(group);
    manager.addActionGroup(group);
    return group;
}

ActionList* SolutionBuilderHelper::addActionListToGroup(
    SolutionManager& manager, const QString& id, SolutionActionGroup* group)
{
    auto* list = new ActionList(id, id, nullptr);
    if (group)
        group->addActionList(list);
    manager.addActionList(list);
    return list;
}

Action* SolutionBuilderHelper::addActionToGroup(SolutionManager& manager, const QString& actionId,
    const QString& listId, SolutionActionGroup* group)
{
    if (!manager.hasAction(actionId))
        return nullptr;
    Action* action = manager.getAction(actionId);
    ActionList* list = addActionListToGroup(manager, listId, group);
    addActionsToList({action}, list);
    return action;
}

void SolutionBuilderHelper::addActionsToList(const QList<Action*>& actions, ActionList* list)
{
    if (!list || actions.isEmpty())
        return;
    for (Action* action : actions)
        list->addAction(action);
    Action* first = actions.first();
    list->setDefaultListType(
        qobject_cast<CustomAction*>(first) ? ActionList::CUSTOM_LIST : ActionList::BUTTON_LIST);
    list->setDefaultAction(first);
}
