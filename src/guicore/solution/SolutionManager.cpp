#include "SolutionManager.h"

#include "../Logging_p.h"
#include "Feature_p.h"
#include "Solution.h"
#include "SolutionActionGroup.h"
#include "SolutionPluginInterface_p.h"
#include "SolutionStep.h"
#include <guicore/view/View.h>

#include <guicore/action/ActionList.h>
#include <guicore/action/ActionManager.h>
#include <guicore/action/MultiAction.h>

#include <settings/MessageHandler.h>

#include <algorithm>
#include <utility>

using solution::detail::FeatureWatchers;
using solution::detail::LivePlugins;

namespace {
template <typename Map, typename Predicate> void eraseValuesIf(Map& map, Predicate matches)
{
    for (auto it = map.begin(); it != map.end();) {
        if (matches(it.value()))
            it = map.erase(it);
        else
            ++it;
    }
}
} // namespace

SolutionManager::SolutionManager()
    : QObject(nullptr)
{
    // Features, views and solutions are no QObjects; their destructors announce their end.
    FeatureWatchers::add(this, [this](const void* destroyed) { forgetFeature(destroyed); });
}

SolutionManager::~SolutionManager()
{
    // Stop watching and disconnect first: deleting owned objects must not come back into the
    // maps being emptied.
    FeatureWatchers::remove(this);
    for (auto* object : std::as_const(m_actions))
        disconnect(object, nullptr, this, nullptr);
    for (auto* object : std::as_const(m_solutionSteps))
        disconnect(object, nullptr, this, nullptr);
    for (auto* object : std::as_const(m_actionLists))
        disconnect(object, nullptr, this, nullptr);
    for (auto* object : std::as_const(m_actionGroups))
        disconnect(object, nullptr, this, nullptr);
    qDeleteAll(std::exchange(m_actionGroups, {}));
    qDeleteAll(std::exchange(m_adoptedActionLists, {}));
    clearViews();
}

void SolutionManager::forgetObject(QObject* object)
{
    // Only the QObject part is left of an object whose destroyed() arrives, so entries are matched
    // by address, never by id.
    const auto same = [object](auto* entry) { return static_cast<QObject*>(entry) == object; };
    eraseValuesIf(m_actions, same);
    eraseValuesIf(m_solutionSteps, same);
    eraseValuesIf(m_actionLists, same);
    eraseValuesIf(m_actionGroups, same);
    m_adoptedActionLists.removeIf(same);
}

void SolutionManager::forgetFeature(const void* feature)
{
    const auto same
        = [feature](const auto* entry) { return static_cast<const void*>(entry) == feature; };
    eraseValuesIf(m_features, same);
    eraseValuesIf(m_solutions, same);
    eraseValuesIf(m_views, same);
    if (same(m_activeSolution))
        m_activeSolution = nullptr;
}

void SolutionManager::addAction(Action* action)
{
    if (!action)
        return;
    m_actions.insert(action->getID(), action);
    connect(
        action, &QObject::destroyed, this, &SolutionManager::forgetObject, Qt::UniqueConnection);
    Q_EMIT actionAdded(action);
}

void SolutionManager::removeAction(Action* action)
{
    if (!action)
        return;
    m_actions.remove(action->getID());
}

void SolutionManager::clearActions()
{
    m_actions.clear();
}

Action* SolutionManager::getAction(const QString& id) const
{
    if (Action* action = m_actions.value(id))
        return action;
    const QString message = QStringLiteral("Action ") + id + QStringLiteral(" not found.");
    MessageHandler::setMessageSuppressed(message, 1);
    qCWarning(lcSolution).noquote() << message;
    return nullptr;
}

QList<Action*> SolutionManager::getActions(const QList<QString>& ids) const
{
    QList<Action*> actions;
    for (const QString& id : ids) {
        if (Action* action = getAction(id))
            actions.append(action);
    }
    return actions;
}

QMap<QString, Action*> SolutionManager::getAllActions() const
{
    return m_actions;
}

int SolutionManager::getActionsCount() const
{
    return int(m_actions.size());
}

bool SolutionManager::hasAction(const QString& id) const
{
    return m_actions.contains(id);
}

void SolutionManager::addFeature(solution::Feature* feature)
{
    if (!feature)
        return;
    const QString id = feature->getID();
    m_features.insert(id, feature);
    Q_EMIT featureAdded(id);
}

solution::Feature* SolutionManager::getFeature(const QString& id) const
{
    return m_features.value(id);
}

bool SolutionManager::hasFeature(const QString& id) const
{
    return m_features.contains(id);
}

void SolutionManager::addSolution(Solution* solution)
{
    if (!solution)
        return;
    m_solutions.insert(solution->getID(), solution);
}

Solution* SolutionManager::getSolution(const QString& id) const
{
    return m_solutions.value(id);
}

bool SolutionManager::hasSolution(const QString& id) const
{
    return m_solutions.contains(id);
}

void SolutionManager::addSolutionStep(SolutionStep* step)
{
    if (!step)
        return;
    m_solutionSteps.insert(step->getID(), step);
    connect(step, &QObject::destroyed, this, &SolutionManager::forgetObject, Qt::UniqueConnection);
}

SolutionStep* SolutionManager::getSolutionStep(const QString& id) const
{
    return m_solutionSteps.value(id);
}

bool SolutionManager::hasSolutionStep(const QString& id) const
{
    return m_solutionSteps.contains(id);
}

void SolutionManager::addActionGroup(SolutionActionGroup* group)
{
    if (!group)
        return;
    SolutionActionGroup* previous = m_actionGroups.value(group->getID());
    m_actionGroups.insert(group->getID(), group);
    connect(group, &QObject::destroyed, this, &SolutionManager::forgetObject, Qt::UniqueConnection);
    if (previous && previous != group) {
        disconnect(previous, nullptr, this, nullptr);
        delete previous;
    }
}

void SolutionManager::removeActionGroup(SolutionActionGroup* group)
{
    if (!group)
        return;
    m_actionGroups.remove(group->getID());
    disconnect(group, nullptr, this, nullptr);
    delete group;
}

SolutionActionGroup* SolutionManager::getActionGroup(const QString& id) const
{
    return m_actionGroups.value(id);
}

bool SolutionManager::hasActionGroup(const QString& id) const
{
    return m_actionGroups.contains(id);
}

void SolutionManager::addActionList(ActionList* list)
{
    if (!list)
        return;
    m_actionLists.insert(list->getID(), list);
    connect(list, &QObject::destroyed, this, &SolutionManager::forgetObject, Qt::UniqueConnection);
    if (!list->parent() && !m_adoptedActionLists.contains(list))
        m_adoptedActionLists.append(list);
}

ActionList* SolutionManager::getActionList(const QString& id) const
{
    return m_actionLists.value(id);
}

bool SolutionManager::hasActionList(const QString& id) const
{
    return m_actionLists.contains(id);
}

void SolutionManager::addView(View* view)
{
    if (!view)
        return;
    const QString id = view->getID();
    View* previous = m_views.value(id);
    m_views.insert(id, view);
    // A plug-in that also holds the view forgets it as it is destroyed.
    if (previous && previous != view)
        delete previous;
}

std::unique_ptr<View> SolutionManager::removeView(const QString& id)
{
    View* view = m_views.take(id);
    if (view)
        LivePlugins::release(view);
    return std::unique_ptr<View>(view);
}

void SolutionManager::clearViews()
{
    const QMap<QString, View*> views = std::exchange(m_views, {});
    qDeleteAll(views);
}

View* SolutionManager::getView(const QString& id) const
{
    return m_views.value(id);
}

bool SolutionManager::hasView(const QString& id) const
{
    return m_views.contains(id);
}

bool SolutionManager::hasView(const QList<QString>& ids) const
{
    return std::any_of(
        ids.cbegin(), ids.cend(), [this](const QString& id) { return m_views.contains(id); });
}

QList<View*> SolutionManager::getViews() const
{
    QList<View*> views = m_views.values();
    if (m_viewsSortPredicate)
        std::sort(views.begin(), views.end(), m_viewsSortPredicate);
    return views;
}

void SolutionManager::setViewsSortPredicate(
    std::function<bool(const View*, const View*)>&& predicate)
{
    m_viewsSortPredicate = std::move(predicate);
}

Solution* SolutionManager::setActiveSolution(const QString& id, bool startup)
{
    Solution* solution = m_solutions.value(id);
    if (!solution || solution == m_activeSolution)
        return solution;
    m_activeSolution = solution;
    Q_EMIT solutionChanged(startup);
    return solution;
}

Solution* SolutionManager::getActiveSolution() const
{
    return m_activeSolution;
}

void SolutionManager::clearActiveSolution()
{
    m_activeSolution = nullptr;
}

void SolutionManager::setCurrentSolutionStep(const QString& stepId)
{
    if (!m_solutionSteps.contains(stepId) || stepId == m_currentSolutionStepId)
        return;
    m_currentSolutionStepId = stepId;
    Q_EMIT solutionStepChanged(stepId);
}

SolutionStep* SolutionManager::getCurrentSolutionStep() const
{
    return m_solutionSteps.value(m_currentSolutionStepId);
}

// The action framework lies below this registry and knows it only as an action::ActionRegistry.
// Its members that take or return a SolutionManager must turn the one into the other, which only
// code that knows both can do, so they are defined here.

void action::ActionManager::setSolutionManager(SolutionManager* manager)
{
    m_solutionManager = manager;
    m_actionRegistry = manager;
    if (manager)
        connect(manager, &SolutionManager::actionAdded, this, &ActionManager::actionAdded,
            Qt::UniqueConnection);
}

SolutionManager* action::ActionManager::getSolutionManager() const
{
    return m_solutionManager;
}

void MultiAction::setSolutionManager(SolutionManager* manager)
{
    m_solutionManager = manager;
    m_actionRegistry = manager;
}

SolutionManager* MultiAction::getSolutionManager() const
{
    return m_solutionManager;
}
