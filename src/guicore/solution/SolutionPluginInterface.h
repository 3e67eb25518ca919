#pragma once

#include <guicore/guicore_export.h>

#include <QList>
#include <QString>

#include <memory>
#include <vector>

class Action;
class View;
namespace solution {
class Feature;
namespace detail {
struct LivePlugins;
}
} // namespace solution

/// The base of every solution plug-in: it keeps what the plug-in creates (actions, features,
/// views) and releases all of it on close(). The host registers these objects with the
/// SolutionManager; whatever is deleted here is dropped from every registry that borrows it
/// (solution managers, solutions, action lists and groups, the action manager, view switching),
/// and a view a solution manager deletes or hands out first is dropped from here.
class GUICORE_EXPORT SolutionPluginInterface
{
public:
    SolutionPluginInterface();
    /// Deletes whatever close() has not released yet.
    virtual ~SolutionPluginInterface();

    SolutionPluginInterface(const SolutionPluginInterface&) = delete;
    SolutionPluginInterface& operator=(const SolutionPluginInterface&) = delete;

    /// The host's entry into the plug-in.
    virtual void initialize() = 0;
    /// Deletes every feature, action and view the plug-in holds and empties the collections.
    virtual void close();
    /// @{
    /// Called by the host to let the plug-in make its actions, features and views (the order is the
    /// host's); the base versions do nothing. Keep what you make with addAction(), addFeature()
    /// and addView(), and register it with the host's SolutionManager.
    virtual void loadActions();
    virtual void loadFeatures();
    virtual void loadViews();
    /// @}

    /// Takes ownership; null is ignored.
    void addFeature(std::unique_ptr<solution::Feature> feature);
    /// Creates and keeps a bare feature that carries only `id`.
    void addFeature(QString id);
    /// Takes ownership; null is ignored.
    void addView(std::unique_ptr<View> view);

    /// The actions the plug-in owns; not owned by the caller.
    const QList<Action*>& getActions() const;
    /// The views the plug-in owns; not owned by the caller.
    const QList<View*>& getViews() const;
    /// The features the plug-in owns.
    std::vector<std::unique_ptr<solution::Feature>>& getFeatures();

protected:
    /// Takes ownership of an action the plug-in made; null is ignored.
    void addAction(Action* action);

private:
    friend struct solution::detail::LivePlugins;

    QList<Action*> m_actions;
    std::vector<std::unique_ptr<solution::Feature>> m_features;
    QList<View*> m_views;
};
