#include "MouseSimulatorQt_p.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWindow>

void MouseSimulatorQt::move(int x, int y)
{
    const QPoint global(x, y);
    QCursor::setPos(global);
    lastPosition = global;
    moved = true;
    pointerWarps = QCursor::pos() == global;

    // Platforms that warp the pointer also report the move, but without the buttons held here;
    // a move of our own keeps drags going.
    QWindow* window = targetWindow(global);
    if (!window)
        return;
    const QPointF local = window->mapFromGlobal(QPointF(global));
    QMouseEvent event(QEvent::MouseMove, local, local, QPointF(global), Qt::NoButton, heldButtons,
        QGuiApplication::keyboardModifiers());
    QCoreApplication::sendEvent(window, &event);
}

void MouseSimulatorQt::scroll(int amount)
{
    if (amount == 0)
        return;
    const QPoint global = pointerPosition();
    QWindow* window = targetWindow(global);
    if (!window)
        return;
    const QPointF local = window->mapFromGlobal(QPointF(global));
    QWheelEvent event(local, QPointF(global), QPoint(), QPoint(0, amount), heldButtons,
        QGuiApplication::keyboardModifiers(), Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window, &event);
}

void MouseSimulatorQt::press(MouseSimulator::Buttons buttons)
{
    if (buttons.testFlag(LeftButton))
        sendButtonEvent(QEvent::MouseButtonPress, Qt::LeftButton);
    if (buttons.testFlag(RightButton))
        sendButtonEvent(QEvent::MouseButtonPress, Qt::RightButton);
}

void MouseSimulatorQt::release(MouseSimulator::Buttons buttons)
{
    if (buttons.testFlag(LeftButton))
        sendButtonEvent(QEvent::MouseButtonRelease, Qt::LeftButton);
    if (buttons.testFlag(RightButton))
        sendButtonEvent(QEvent::MouseButtonRelease, Qt::RightButton);
}

QPoint MouseSimulatorQt::pointerPosition() const
{
    return moved && !pointerWarps ? lastPosition : QCursor::pos();
}

QWindow* MouseSimulatorQt::targetWindow(const QPoint& global) const
{
    if (heldButtons != Qt::NoButton && grabWindow)
        return grabWindow;
    return QGuiApplication::topLevelAt(global);
}

void MouseSimulatorQt::sendButtonEvent(QEvent::Type type, Qt::MouseButton button)
{
    const QPoint global = pointerPosition();
    QWindow* window = targetWindow(global);
    if (type == QEvent::MouseButtonPress) {
        if (heldButtons == Qt::NoButton)
            grabWindow = window;
        heldButtons |= button;
    } else {
        heldButtons &= ~Qt::MouseButtons(button);
    }
    if (heldButtons == Qt::NoButton)
        grabWindow.clear();
    if (!window)
        return;
    const QPointF local = window->mapFromGlobal(QPointF(global));
    QMouseEvent event(type, local, local, QPointF(global), button, heldButtons,
        QGuiApplication::keyboardModifiers());
    QCoreApplication::sendEvent(window, &event);
}
