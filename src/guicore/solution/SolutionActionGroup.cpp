#include "SolutionActionGroup.h"

#include <guicore/action/ActionList.h>

#include <algorithm>

SolutionActionGroup::SolutionActionGroup(QString id, QString name)
    : QObject(nullptr)
    , m_id(std::move(id))
    , m_name(std::move(name))
{
}

SolutionActionGroup::~SolutionActionGroup() = default;

QString SolutionActionGroup::getID() const
{
    return m_id;
}

QString SolutionActionGroup::getName() const
{
    return m_name;
}

QList<ActionList*> SolutionActionGroup::getActionLists() const
{
    return m_actionLists;
}

bool SolutionActionGroup::isEnabled() const
{
    return m_enabled;
}

void SolutionActionGroup::addActionList(ActionList* list)
{
    if (!list)
        return;
    m_actionLists.append(list);
    connect(list, &ActionList::enabledChanged, this, &SolutionActionGroup::setEnabled,
        Qt::UniqueConnection);
    connect(list, &QObject::destroyed, this, &SolutionActionGroup::forgetActionList,
        Qt::UniqueConnection);
    setEnabled();
}

void SolutionActionGroup::setEnabled()
{
    const bool enabled = std::any_of(m_actionLists.cbegin(), m_actionLists.cend(),
        [](const ActionList* list) { return list->isEnabled(); });
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    Q_EMIT enabledChanged();
}

void SolutionActionGroup::forgetActionList(QObject* list)
{
    m_actionLists.removeIf([list](ActionList* l) { return static_cast<QObject*>(l) == list; });
    setEnabled();
}
