#include <events/SceneEventHandler.h>

namespace events {

SceneEventHandler::~SceneEventHandler() = default;

SceneEventViewerFilter SceneEventHandler::viewerFilter() const
{
    return SceneEventViewerFilterFlag::AllViewers;
}

} // namespace events
