#pragma once

#include <QFlags>

namespace events {

/// Which kinds of viewer a scene event handler or cursor applies to.
enum class SceneEventViewerFilterFlag {
    None = 0,
    Viewer2D = 1,
    Viewer3D = 2,
    AllViewers = Viewer2D | Viewer3D,
};
Q_DECLARE_FLAGS(SceneEventViewerFilter, SceneEventViewerFilterFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(SceneEventViewerFilter)

} // namespace events
