#pragma once

#include <guicore/guicore_export.h>

class QGraphicsSceneHoverEvent;
class QGraphicsSceneMouseEvent;
class QKeyEvent;
class QString;

/// The application's optional first say over the input of a GraphicsSceneExtra. Every operation
/// receives the event (not owned) and the viewer tag of the scene it came from, so that one handler
/// can serve several viewers, and returns true when it consumed the event.
class GUICORE_EXPORT GraphicsSceneEventHandler
{
public:
    virtual ~GraphicsSceneEventHandler();

    virtual bool handleMousePressEvent(QGraphicsSceneMouseEvent* event, const QString& viewerTag)
        = 0;
    /// The scene ignores the result: a double click always reaches the scene as well.
    virtual bool handleMouseDoubleClickEvent(
        QGraphicsSceneMouseEvent* event, const QString& viewerTag)
        = 0;
    virtual bool handleMouseMoveEvent(QGraphicsSceneMouseEvent* event, const QString& viewerTag)
        = 0;
    virtual bool handleHoverEvent(QGraphicsSceneHoverEvent* event, const QString& viewerTag) = 0;
    virtual bool handleHoverLeaveEvent(QGraphicsSceneHoverEvent* event, const QString& viewerTag)
        = 0;
    virtual bool handleMouseReleaseEvent(QGraphicsSceneMouseEvent* event, const QString& viewerTag)
        = 0;
    virtual bool handleKeyPressEvent(QKeyEvent* event, const QString& viewerTag) = 0;
    virtual bool handleKeyReleaseEvent(QKeyEvent* event, const QString& viewerTag) = 0;
};
