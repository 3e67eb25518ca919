#include "ActionGroup.h"

#include "Action.h"

ActionGroup::ActionGroup()
    : QObject(nullptr)
{
}

ActionGroup::~ActionGroup() = default;

void ActionGroup::addAction(Action* action)
{
    if (!action || !action->isCheckable())
        return;
    m_actions.append(action);
    action->setActionGroup(this);
    connect(action, &Action::triggered, this, &ActionGroup::actionTriggered);
    connect(action, &QObject::destroyed, this, &ActionGroup::forgetAction, Qt::UniqueConnection);
}

bool ActionGroup::canToggleAction(Action* action) const
{
    if (!m_actions.contains(action))
        return true;
    return !action->isActive();
}

QList<Action*> ActionGroup::getActions() const
{
    return m_actions;
}

void ActionGroup::actionTriggered(bool checked)
{
    if (!checked)
        return;
    auto* started = qobject_cast<Action*>(sender());
    const QList<Action*> members = m_actions;
    for (Action* member : members) {
        if (member != started && m_actions.contains(member) && member->isActive())
            member->stop();
    }
}

void ActionGroup::forgetAction(QObject* action)
{
    m_actions.removeIf([action](Action* a) { return static_cast<QObject*>(a) == action; });
}
