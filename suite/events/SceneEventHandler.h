#pragma once

#include <events/SceneEventViewerFilter.h>
#include <events/events_export.h>

class QEvent;
class QString;

namespace events {

/// Base of the scene event handlers an application supplies to its viewers: a handler sees a
/// viewer's input events before the viewer's own items do.
///
/// The application registers a handler with the view managers (in GuiCore through
/// SwitchingViewsManager::registerSceneEventHandler), which borrow it: it must be unregistered
/// before it is destroyed. It is called on the GUI thread, from the viewers' event dispatch.
class EVENTS_EXPORT SceneEventHandler
{
public:
    virtual ~SceneEventHandler();

    /// Returns true when the handler consumed the event, which then reaches no item. event is
    /// borrowed for the duration of the call; viewerTag names the viewer it came from.
    virtual bool handleSceneEvent(QEvent* event, const QString& viewerTag) = 0;

    /// The kinds of viewer this handler wants events from; all of them unless overridden.
    virtual SceneEventViewerFilter viewerFilter() const;
};

} // namespace events
