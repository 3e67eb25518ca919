#pragma once

#include <events/events_export.h>

#include <QHash>
#include <QPoint>
#include <QPointF>

#include <functional>

/// The suite's events library: telling clicks from drags, and the scene event handlers that an
/// application puts in front of its viewers' own items.
namespace events {

/// Tells a click from a drag, per mouse button.
///
/// A gesture becomes a drag once the pointer is QStyleHints::startDragDistance() or further from
/// where the button was pressed (or, when no press was seen, from the first move). Buttons are
/// tracked independently, so a right drag during a left press is told apart correctly.
///
/// Feed it the press, move and release events of one widget or scene in the order they arrive.
/// globalPos is in screen pixels, where the threshold is measured, so zooming a view does not
/// change it; localPos is only stored, in whatever coordinates the caller works in. A plain
/// value without thread affinity; the threshold needs a QGuiApplication.
class EVENTS_EXPORT ClickOrDragDeterminer
{
public:
    /// Starts a gesture of button at globalPos, replacing any unfinished one of that button.
    void handleMousePressedEvent(Qt::MouseButton button, const QPoint& globalPos);
    /// Calls onDragStart once when the gesture turns into a drag (on that very move), then
    /// onDragMove on each further move. Empty callbacks are allowed. A move of a button whose
    /// press was not seen starts the gesture there and calls nothing.
    void handleMouseDraggingEvent(Qt::MouseButton button, const QPoint& globalPos,
        const QPointF& localPos, std::function<void()> onDragStart,
        std::function<void()> onDragMove);
    /// Calls onClick when no drag happened, else onDragEnd; then forgets the gesture.
    void handleMouseReleasedEvent(
        Qt::MouseButton button, std::function<void()> onClick, std::function<void()> onDragEnd);

    /// True from the move that made the gesture of button a drag until its release.
    bool isDragging(Qt::MouseButton button) const;
    /// The local position of the last move of a drag of this button; a null point when the
    /// button has no gesture.
    QPointF lastDragPosition(Qt::MouseButton button) const;

private:
    struct Gesture
    {
        QPoint origin;
        QPointF lastLocalPos;
        bool dragging = false;
    };
    QHash<int, Gesture> m_gestures;
};

} // namespace events
