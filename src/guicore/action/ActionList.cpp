#include "ActionList.h"

#include "Action.h"

#include <algorithm>

ActionList::ActionList(const QString& id, const QString& name, QObject* parent)
    : QObject(parent)
    , m_id(id)
    , m_name(name)
{
}

ActionList::~ActionList() = default;

QString ActionList::getID() const
{
    return m_id;
}

QString ActionList::getName() const
{
    return m_name;
}

void ActionList::setName(const QString& name)
{
    m_name = name;
}

QString ActionList::getTooltip() const
{
    return m_tooltip;
}

void ActionList::setTooltip(const QString& tooltip)
{
    m_tooltip = tooltip;
}

QIcon ActionList::getIcon() const
{
    return m_icon;
}

void ActionList::setIcon(const QIcon& icon)
{
    m_icon = icon;
}

void ActionList::addAction(Action* action)
{
    if (!action)
        return;
    m_actions.append(action);
    connect(action, &Action::enabled, this, &ActionList::setEnabled, Qt::UniqueConnection);
    connect(action, &QObject::destroyed, this, &ActionList::forgetAction, Qt::UniqueConnection);
    setEnabled();
}

QList<Action*> ActionList::getActions() const
{
    return m_actions;
}

Action* ActionList::getDefaultAction() const
{
    return m_defaultAction;
}

void ActionList::setDefaultAction(Action* action)
{
    if (!action)
        return;
    m_defaultAction = action;
    if (!m_actions.contains(action))
        addAction(action);
}

ActionList::ACTION_LIST_TYPE ActionList::getDefaultListType() const
{
    return m_defaultListType;
}

void ActionList::setDefaultListType(ACTION_LIST_TYPE type)
{
    m_defaultListType = type;
}

bool ActionList::isEnabled() const
{
    return m_enabled;
}

void ActionList::setEnabled()
{
    const bool enabled = std::any_of(
        m_actions.cbegin(), m_actions.cend(), [](const Action* a) { return a->isEnabled(); });
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    Q_EMIT enabledChanged();
}

void ActionList::forgetAction(QObject* action)
{
    const auto same = [action](Action* a) { return static_cast<QObject*>(a) == action; };
    m_actions.removeIf(same);
    if (m_defaultAction && same(m_defaultAction))
        m_defaultAction = nullptr;
    setEnabled();
}
