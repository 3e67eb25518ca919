#include "SolutionStep.h"

#include "Feature_p.h"
#include "SolutionActionGroup.h"

#include <algorithm>

SolutionStep::SolutionStep(const QString& id, const QString& name)
    : QObject(nullptr)
    , m_id(id)
    , m_name(name)
{
}

SolutionStep::~SolutionStep()
{
    // Solutions list their steps but are no QObjects, so they cannot listen to destroyed().
    solution::detail::FeatureWatchers::announceDestroyed(this);
}

QString SolutionStep::getID() const
{
    return m_id;
}

QString SolutionStep::getName() const
{
    return m_name;
}

QList<SolutionActionGroup*> SolutionStep::getActionGroups() const
{
    return m_actionGroups;
}

bool SolutionStep::isEnabled() const
{
    return m_enabled;
}

void SolutionStep::addActionGroup(SolutionActionGroup* group)
{
    if (!group || m_actionGroups.contains(group))
        return;
    m_actionGroups.append(group);
    connect(group, &SolutionActionGroup::enabledChanged, this, &SolutionStep::setEnabled,
        Qt::UniqueConnection);
    connect(
        group, &QObject::destroyed, this, &SolutionStep::forgetActionGroup, Qt::UniqueConnection);
    setEnabled();
}

void SolutionStep::removeActionGroup(SolutionActionGroup* group)
{
    if (!group || !m_actionGroups.removeOne(group))
        return;
    disconnect(group, nullptr, this, nullptr);
    setEnabled();
}

void SolutionStep::setEnabled()
{
    const bool enabled = std::any_of(m_actionGroups.cbegin(), m_actionGroups.cend(),
        [](const SolutionActionGroup* group) { return group->isEnabled(); });
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    Q_EMIT enabledChanged(enabled);
}

void SolutionStep::forgetActionGroup(QObject* group)
{
    // The solution manager owns the groups and may delete one while the step still shows it.
    m_actionGroups.removeIf(
        [group](SolutionActionGroup* g) { return static_cast<QObject*>(g) == group; });
    setEnabled();
}
