#pragma once

#include "MouseSimulator.h"

#include <QEvent>
#include <QPoint>
#include <QPointer>

class QWindow;

// MouseSimulator for platforms without a system-wide input injection API at hand (X11 without
// the XTest development files, Wayland, offscreen). The pointer is moved with QCursor::setPos,
// which warps the real pointer where the platform allows it; presses, releases and wheel turns
// are delivered as Qt events to this application's window under the pointer, with an implicit
// grab while a button is held as a window system would do. Other applications see no clicks.
class MouseSimulatorQt : public MouseSimulator
{
    Q_OBJECT

public:
    MouseSimulatorQt() = default;

public Q_SLOTS:
    void move(int x, int y) override;
    void scroll(int amount) override;
    void press(MouseSimulator::Buttons buttons) override;
    void release(MouseSimulator::Buttons buttons) override;

private:
    // The pointer's position: QCursor::pos() where the platform tracks the pointer, else the
    // last position moved to.
    QPoint pointerPosition() const;
    // The window that receives events at \a global: the grabbing window while a button is held,
    // else the top-level window under the point; may be null (does not pass ownership).
    QWindow* targetWindow(const QPoint& global) const;
    void sendButtonEvent(QEvent::Type type, Qt::MouseButton button);

    QPoint lastPosition;
    bool moved = false;
    // False where QCursor::setPos has no effect (Wayland), so the pointer is what we moved.
    bool pointerWarps = true;
    Qt::MouseButtons heldButtons;
    QPointer<QWindow> grabWindow;
};
