#pragma once

#include <events/events_export.h>

#include <QHash>
#include <QPoint>
#include <QPointF>

#include <functional>

namespace events {

/// Tells a click from a drag, per mouse button.
///
/// A gesture becomes a drag once the pointer is QStyleHints::startDragDistance() or further from
/// where the button was pressed (or, when no press was seen, from the first move). Buttons are
/// tracked independently, so a right drag during a left press is told apart correctly.
class EVENTS_EXPORT ClickOrDragDeterminer
{
public:
    void handleMousePressedEvent(Qt::MouseButton button, const QPoint& globalPos);
    /// Calls onDragStart once when the gesture turns into a drag (on that very move), then
    /// onDragMove on each further move. Empty callbacks are allowed.
    void handleMouseDraggingEvent(Qt::MouseButton button, const QPoint& globalPos,
        const QPointF& localPos, std::function<void()> onDragStart,
        std::function<void()> onDragMove);
    /// Calls onClick when no drag happened, else onDragEnd; then forgets the gesture.
    void handleMouseReleasedEvent(
        Qt::MouseButton button, std::function<void()> onClick, std::function<void()> onDragEnd);

    bool isDragging(Qt::MouseButton button) const;
    /// The local position of the last move of a drag of this button.
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
