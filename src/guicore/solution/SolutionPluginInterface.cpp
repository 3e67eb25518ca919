#include "SolutionPluginInterface.h"

#include "Feature.h"
#include "Feature_p.h"
#include "SolutionPluginInterface_p.h"
#include <guicore/view/View.h>

#include <guicore/action/Action.h>

#include <QPointer>

using solution::detail::FeatureWatchers;
using solution::detail::LivePlugins;

namespace solution::detail {

QList<SolutionPluginInterface*>& LivePlugins::all()
{
    // Made on first use and never destroyed: a plug-in instance that Qt's plug-in loader deletes
    // among the static destructors at exit must still find its list alive.
    static auto* live = new QList<SolutionPluginInterface*>;
    return *live;
}

void LivePlugins::release(View* view)
{
    for (SolutionPluginInterface* plugin : std::as_const(all()))
        plugin->m_views.removeAll(view);
}

} // namespace solution::detail

SolutionPluginInterface::SolutionPluginInterface()
{
    LivePlugins::all().append(this);
    // A solution manager deletes the views it holds when it goes or replaces one; views are no
    // QObjects, so their destructors announce it.
    FeatureWatchers::add(this, [this](const void* destroyed) {
        m_views.removeIf([destroyed](View* view) { return view == destroyed; });
    });
}

SolutionPluginInterface::~SolutionPluginInterface()
{
    SolutionPluginInterface::close();
    FeatureWatchers::remove(this);
    LivePlugins::all().removeAll(this);
}

void SolutionPluginInterface::close()
{
    // Whatever borrows these (solution managers, solutions, view switching) forgets each one as
    // it is destroyed.
    m_features.clear();

    // An action may delete another one (a multi-action its children, say); guard each pointer.
    QList<QPointer<Action>> actions;
    for (Action* action : std::as_const(m_actions))
        actions.append(action);
    m_actions.clear();
    for (const QPointer<Action>& action : std::as_const(actions))
        delete action.data();

    qDeleteAll(std::exchange(m_views, {}));
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
