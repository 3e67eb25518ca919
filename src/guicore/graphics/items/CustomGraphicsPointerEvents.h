#pragma once

#include <QGraphicsSceneEvent>

// The pointer signals of every overlay item, in this order; each event pointer is the scene's,
// borrowed for the duration of the emission. The items' QObject bases differ (their own, or the
// one inside QGraphicsSvgItem and QGraphicsTextItem) and moc reads no signals from templates, so
// each item declares the list in its Q_SIGNALS section through this macro, which moc expands.
#define GUICORE_OVERLAY_POINTER_SIGNALS                                                            \
    /** A press of exactly the left button on the item; the event is accepted. */                  \
    void leftClicked(QGraphicsSceneMouseEvent* event);                                             \
    /** Every release: the scene gives each one to every overlay item, hit or not. */              \
    void mouseReleased(QGraphicsSceneMouseEvent* event);                                           \
    /** A move with a button held; the scene gives it to every overlay item. */                    \
    void mouseMoved(QGraphicsSceneMouseEvent* event);                                              \
    /** The pointer moved over the item, which is the topmost overlay item under it. */            \
    void mouseHoverMove(QGraphicsSceneHoverEvent* event);                                          \
    /** The pointer left the item's shape. */                                                      \
    void mouseHoverLeave(QGraphicsSceneHoverEvent* event);                                         \
    /** The pointer entered the item's shape, the item being the topmost overlay item there. */    \
    void mouseHoverEnter(QGraphicsSceneHoverEvent* event);                                         \
    /** A press of exactly the right button on the item; the event is accepted. */                 \
    void rightClicked(QGraphicsSceneMouseEvent* event);

/// Reports a Qt graphics item's pointer events through the signals of
/// GUICORE_OVERLAY_POINTER_SIGNALS, which Item (the class deriving from this one) declares.
/// Moves, releases and hover events are reported as they come; an item that reports them only
/// in some states overrides the handler.
template <class Item, class GraphicsItem> class CustomGraphicsPointerEvents : public GraphicsItem
{
public:
    using GraphicsItem::GraphicsItem;

    // Event handlers, public so that a scene dispatching by itself can call them; the events
    // are borrowed.
    /// Emits mouseMoved(); the event is borrowed.
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override
    {
        Q_EMIT self()->mouseMoved(event);
    }
    /// Emits mouseReleased(); the event is borrowed.
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override
    {
        Q_EMIT self()->mouseReleased(event);
    }
    /// Emits mouseHoverEnter(); the event is borrowed.
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override
    {
        Q_EMIT self()->mouseHoverEnter(event);
    }
    /// Emits mouseHoverMove(); the event is borrowed.
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override
    {
        Q_EMIT self()->mouseHoverMove(event);
    }
    /// Emits mouseHoverLeave(); the event is borrowed.
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override
    {
        Q_EMIT self()->mouseHoverLeave(event);
    }

protected:
    /// A press of exactly the left or exactly the right button is accepted and reported as a
    /// click; chords and other buttons leave the event as it is. The event is borrowed.
    void reportClick(QGraphicsSceneMouseEvent* event)
    {
        if (event->buttons() == Qt::LeftButton) {
            event->accept();
            Q_EMIT self()->leftClicked(event);
        } else if (event->buttons() == Qt::RightButton) {
            event->accept();
            Q_EMIT self()->rightClicked(event);
        }
    }

private:
    Item* self() { return static_cast<Item*>(this); }
};
