#pragma once

#include <QList>

class SolutionManager;
class SolutionPluginInterface;
class View;

namespace solution {
class Feature;

namespace detail {

/// The live solution managers and plug-ins, so that a view or feature deleted on one side is
/// forgotten on the other instead of dangling there. GUI thread only, like both registries.
struct Registries
{
    static QList<SolutionManager*>& managers();
    static QList<SolutionPluginInterface*>& plugins();

    /// Called by a plug-in right before it deletes a view or a feature.
    static void releaseFromManagers(View* view);
    static void releaseFromManagers(Feature* feature);
    /// Called by a manager right before it deletes or hands out a view.
    static void releaseFromPlugins(View* view);
};

} // namespace detail
} // namespace solution
