#pragma once

#include <QFlags>

namespace events {

/// Which kinds of viewer a scene event handler or cursor applies to.
enum class SceneEventViewerFilterFlag {
    None = 0, ///< No viewer.
    Viewer2D = 1, ///< The 2-D viewers, which show a graphics scene.
    Viewer3D = 2, ///< The 3-D viewers.
    AllViewers = Viewer2D | Viewer3D, ///< Every viewer.
};
/// A combination of SceneEventViewerFilterFlag values.
Q_DECLARE_FLAGS(SceneEventViewerFilter, SceneEventViewerFilterFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(SceneEventViewerFilter)

} // namespace events
