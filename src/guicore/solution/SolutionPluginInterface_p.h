#pragma once

#include <QList>

class SolutionPluginInterface;
class View;

namespace solution::detail {

/// The live plug-ins, so that a view a solution manager hands out with removeView() is no longer
/// deleted by the plug-in that made it: ownership has passed to the caller. GUI thread only, like
/// both registries.
struct LivePlugins
{
    static QList<SolutionPluginInterface*>& all();
    /// Called by a manager right before it hands out a view.
    static void release(View* view);
};

} // namespace solution::detail
