#include <events/ClickOrDragDeterminer.h>

#include <QGuiApplication>
#include <QStyleHints>

namespace events {

void ClickOrDragDeterminer::handleMousePressedEvent(Qt::MouseButton button, const QPoint& globalPos)
{
    Gesture gesture;
    gesture.origin = globalPos;
    m_gestures.insert(int(button), gesture);
}

void ClickOrDragDeterminer::handleMouseDraggingEvent(Qt::MouseButton button,
    const QPoint& globalPos, const QPointF& localPos, std::function<void()> onDragStart,
    std::function<void()> onDragMove)
{
    auto it = m_gestures.find(int(button));
    if (it == m_gestures.end()) {
        // No press was seen (it went to another widget, say): measure from this first move.
        Gesture gesture;
        gesture.origin = globalPos;
        gesture.lastLocalPos = localPos;
        m_gestures.insert(int(button), gesture);
        return;
    }
    it->lastLocalPos = localPos;
    if (it->dragging) {
        if (onDragMove)
            onDragMove();
        return;
    }
    const int threshold = QGuiApplication::styleHints()->startDragDistance();
    if ((globalPos - it->origin).manhattanLength() >= threshold) {
        it->dragging = true;
        if (onDragStart)
            onDragStart();
    }
}

void ClickOrDragDeterminer::handleMouseReleasedEvent(
    Qt::MouseButton button, std::function<void()> onClick, std::function<void()> onDragEnd)
{
    const bool dragged = isDragging(button);
    m_gestures.remove(int(button));
    if (dragged) {
        if (onDragEnd)
            onDragEnd();
    } else if (onClick) {
        onClick();
    }
}

bool ClickOrDragDeterminer::isDragging(Qt::MouseButton button) const
{
    const auto it = m_gestures.constFind(int(button));
    return it != m_gestures.constEnd() && it->dragging;
}

QPointF ClickOrDragDeterminer::lastDragPosition(Qt::MouseButton button) const
{
    return m_gestures.value(int(button)).lastLocalPos;
}

} // namespace events
