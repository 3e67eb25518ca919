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
    /// The scene does not own its handler; clear it with setEventHandler(nullptr) before deleting.
    virtual ~GraphicsSceneEventHandler();

    /// Asked after mousePressed() is emitted and before any overlay item; true keeps the press from
    /// items and the stock scene (no grabber is set).
    virtual bool handleMousePressEvent(QGraphicsSceneMouseEvent* event, const QString& viewerTag)
        = 0;
    /// The scene ignores the result: a double click always reaches the scene as well.
    virtual bool handleMouseDoubleClickEvent(
        QGraphicsSceneMouseEvent* event, const QString& viewerTag)
        = 0;
    /// Asked first; true keeps the move from items, from mouseMoved() and from the stock scene.
    virtual bool handleMouseMoveEvent(QGraphicsSceneMouseEvent* event, const QString& viewerTag)
        = 0;
    /// Asked first; true keeps the hover move from the overlay items.
    virtual bool handleHoverEvent(QGraphicsSceneHoverEvent* event, const QString& viewerTag) = 0;
    /// Asked first; true keeps the hovered items from their leave and the override cursor from
    /// being restored.
    virtual bool handleHoverLeaveEvent(QGraphicsSceneHoverEvent* event, const QString& viewerTag)
        = 0;
    /// Asked first; true only marks the release accepted: the scene still ends the gesture, tells
    /// its items and runs the stock release logic.
    virtual bool handleMouseReleaseEvent(QGraphicsSceneMouseEvent* event, const QString& viewerTag)
        = 0;
    /// Asked after the overlay items had the key; true keeps it from the stock scene (and so from
    /// the focus item).
    virtual bool handleKeyPressEvent(QKeyEvent* event, const QString& viewerTag) = 0;
    /// Asked after the text items had the release; true keeps it from the stock scene.
    virtual bool handleKeyReleaseEvent(QKeyEvent* event, const QString& viewerTag) = 0;
};
