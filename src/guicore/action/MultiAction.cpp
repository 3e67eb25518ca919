#include "MultiAction.h"

#include "ActionRegistry.h"

MultiAction::MultiAction()
    : MultiAction(QStringLiteral("undefined_multi_action"))
{
}

MultiAction::MultiAction(const QString& id)
    : Action(id)
{
    setType(QStringLiteral("MultiAction"));
}

MultiAction::MultiAction(
    const QString& id, const QString& name, const QString& tooltip, const QIcon& icon)
    : Action(id, name, tooltip, icon)
{
    setType(QStringLiteral("MultiAction"));
}

MultiAction::~MultiAction()
{
    // Qualified: no override of a class derived from this one may run from here.
    MultiAction::clearActions();
}

// setSolutionManager() and getSolutionManager() are defined with SolutionManager
// (solution/SolutionManager.cpp): only there is it known to be an ActionRegistry.

action::ActionRegistry* MultiAction::actionRegistry() const
{
    return m_solutionManager.isNull() ? nullptr : m_actionRegistry;
}

void MultiAction::forgetChild(QObject* child)
{
    // Children are borrowed and may be deleted first; a dangling child would otherwise be
    // unregistered by id from this destructor.
    m_actions.removeIf([child](Action* a) { return static_cast<QObject*>(a) == child; });
}

void MultiAction::addAction(Action* child)
{
    if (!child)
        return;
    m_actions.append(child);
    connect(child, &QObject::destroyed, this, &MultiAction::forgetChild, Qt::UniqueConnection);
    if (action::ActionRegistry* registry = actionRegistry())
        registry->addAction(child);
    Q_EMIT actionAdded(child);
}

void MultiAction::insertAction(Action* child, int index)
{
    if (!child)
        return;
    m_actions.insert(qBound(0, index, int(m_actions.size())), child);
    connect(child, &QObject::destroyed, this, &MultiAction::forgetChild, Qt::UniqueConnection);
    if (action::ActionRegistry* registry = actionRegistry())
        registry->addAction(child);
}

void MultiAction::removeAction(Action* child)
{
    action::ActionRegistry* registry = actionRegistry();
    if (registry && child)
        registry->removeAction(child);
    if (m_actions.removeOne(child) && !m_actions.contains(child))
        disconnect(child, &QObject::destroyed, this, &MultiAction::forgetChild);
    Q_EMIT actionRemoved(child);
}

void MultiAction::clearActions()
{
    const QList<Action*> children = m_actions;
    for (Action* child : children)
        removeAction(child);
}

QList<Action*> MultiAction::getActions() const
{
    return m_actions;
}

bool MultiAction::hasActions() const
{
    return !m_actions.isEmpty();
}

QList<QAction*> MultiAction::getQActions()
{
    QList<QAction*> qactions;
    qactions.reserve(m_actions.size());
    for (Action* child : std::as_const(m_actions))
        qactions.append(child->getQAction());
    return qactions;
}

void MultiAction::setDisabled(bool disabled)
{
    Action::setDisabled(disabled);
    if (!m_syncEnabledStateWithChildren)
        return;
    const QList<Action*> children = m_actions;
    for (Action* child : children)
        child->setDisabled(disabled);
}

void MultiAction::syncEnabledStateWithChildren(bool sync)
{
    m_syncEnabledStateWithChildren = sync;
}

QString MultiAction::getMenuStyleSheetType() const
{
    return m_menuStyleSheetType;
}

void MultiAction::setMenuStyleSheetType(const QString& type)
{
    m_menuStyleSheetType = type;
}

QString MultiAction::getToolButtonStyleSheetType() const
{
    return m_toolButtonStyleSheetType;
}

void MultiAction::setToolButtonStyleSheetType(const QString& type)
{
    m_toolButtonStyleSheetType = type;
}

int MultiAction::getMenuItemIconSize() const
{
    return m_menuItemIconSize;
}

void MultiAction::setMenuItemIconSize(int size)
{
    m_menuItemIconSize = size;
}
