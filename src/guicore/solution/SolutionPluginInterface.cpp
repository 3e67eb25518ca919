#include "SolutionPluginInterface.h"

#include "Feature.h"
#include "SolutionRegistries_p.h"
#include <guicore/view/View.h>

#include <guicore/action/Action.h>

#include <QPointer>

using solution::detail::Registries;

SolutionPluginInterface::SolutionPluginInterface()
{
    Registries::plugins().append(this);
}

SolutionPluginInterface::~SolutionPluginInterface()
{
    SolutionPluginInterface::close();
    Registries::plugins().removeAll(this);
}

void SolutionPluginInterface::close()
{
    for (const auto& feature : m_features)
        Registries::releaseFromManagers(feature.get());
    m_features.clear();

    // An action may delete another one (a multi-action its children, say); guard each pointer.
    QList<QPointer<Action>> actions;
    for (Action* action : std::as_const(m_actions))
        actions.append(action);
    m_actions.clear();
    for (const QPointer<Action>& action : std::as_const(actions))
        delete action.data();

    const QList<View*> views = std::exchange(m_views, {});
    for (View* view : views) {
        Registries::releaseFromManagers(view);
        delete view;
    }
}

void SolutionPluginInterface::loadActions() { }

void SolutionPluginInterface::loadFeatures() { }

void SolutionPluginInterface::loadViews() { }

void SolutionPluginInterface::addFeature(std::unique_ptr<solution::Feature> feature)
{
    if (feature)
        m_features.push_back(std::move(feature));
}

void SolutionPluginInterface::addFeature(QString id)
{
    m_features.push_back(std::make_unique<solution::Feature>(std::move(id)));
}

void SolutionPluginInterface::addView(std::unique_ptr<View> view)
{
    if (view)
        m_views.append(view.release());
}

void SolutionPluginInterface::addAction(Action* action)
{
    if (action && !m_actions.contains(action))
        m_actions.append(action);
}

const QList<Action*>& SolutionPluginInterface::getActions() const
{
    return m_actions;
}

const QList<View*>& SolutionPluginInterface::getViews() const
{
    return m_views;
}

std::vector<std::unique_ptr<solution::Feature>>& SolutionPluginInterface::getFeatures()
{
    return m_features;
}
