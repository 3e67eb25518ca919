#pragma once

// Probe items and event helpers shared by the scene tests: real overlay items that write what
// reaches them into one shared log and can run an action (which may delete items, themselves
// included) after the stock handling of an event.

#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/items/HoverableItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>

#include <QCoreApplication>
#include <QGraphicsRectItem>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QPainterPath>
#include <QStringList>

#include <functional>

class ProbeItem : public CustomGraphicsItem
{
public:
    using Action = std::function<void()>;

    ProbeItem(const QString& name, const QRectF& rect, QStringList* log)
        : log(log)
    {
        setObjectName(name);
        QPainterPath path;
        path.addRect(rect);
        setPainterPath(path);
    }

    Action onPress, onMove, onRelease, onHoverEnter, onWheel;

    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        log->append(objectName() + ":press");
        CustomGraphicsItem::mousePressEvent(event);
        run(onPress);
    }
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override
    {
        log->append(objectName() + ":move");
        CustomGraphicsItem::mouseMoveEvent(event);
        run(onMove);
    }
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override
    {
        log->append(objectName() + ":release");
        CustomGraphicsItem::mouseReleaseEvent(event);
        run(onRelease);
    }
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override
    {
        log->append(objectName() + ":enter");
        CustomGraphicsItem::hoverEnterEvent(event);
        run(onHoverEnter);
    }
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override
    {
        log->append(objectName() + ":hover");
        CustomGraphicsItem::hoverMoveEvent(event);
    }
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override
    {
        log->append(objectName() + ":leave");
        CustomGraphicsItem::hoverLeaveEvent(event);
    }
    void wheelEvent(QGraphicsSceneWheelEvent* event) override
    {
        log->append(objectName() + ":wheel" + QString::number(event->delta()));
        CustomGraphicsItem::wheelEvent(event);
        run(onWheel);
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        log->append(objectName() + ":key");
        CustomGraphicsItem::keyPressEvent(event);
    }
    void keyReleaseEvent(QKeyEvent* event) override
    {
        log->append(objectName() + ":keyRelease");
        CustomGraphicsItem::keyReleaseEvent(event);
    }

private:
    // The action may delete this item: copy it out of the member first, touch nothing after.
    static void run(const Action& action)
    {
        if (action) {
            const Action copy = action;
            copy();
        }
    }

    QStringList* log;
};

/// A hover-priority item that is a QObject (through CustomGraphicsItem).
class HoverableProbe : public ProbeItem, public HoverableItem
{
public:
    using ProbeItem::ProbeItem;
    std::function<void(bool)> onHoverState;

    bool isHoverHit(const QPointF& scenePos) const override
    {
        return mapToScene(getPainterPath()).contains(scenePos);
    }
    void hoverStateChanged(bool state) override
    {
        if (onHoverState) {
            const auto copy = onHoverState;
            copy(state);
        }
    }
};

/// A hover-priority item that is no QObject, so the scene can only find it in its item list.
class PlainHoverable : public QGraphicsRectItem, public HoverableItem
{
public:
    PlainHoverable(const QRectF& rect, QStringList* log, const QString& name)
        : QGraphicsRectItem(rect)
        , log(log)
        , name(name)
    {
    }
    std::function<void(bool)> onHoverState;

    bool isHoverHit(const QPointF& scenePos) const override
    {
        return sceneBoundingRect().contains(scenePos);
    }
    void hoverStateChanged(bool state) override
    {
        log->append(name + (state ? ":hovered" : ":unhovered"));
        if (onHoverState) {
            const auto copy = onHoverState;
            copy(state);
        }
    }

private:
    QStringList* log;
    QString name;
};

inline void sendMouse(QGraphicsScene& scene, QEvent::Type type, const QPointF& pos,
    Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(pos);
    event.setScreenPos(pos.toPoint());
    event.setButton(button);
    event.setButtons(buttons);
    if (button != Qt::NoButton)
        event.setButtonDownScenePos(button, pos);
    event.setAccepted(false);
    QCoreApplication::sendEvent(&scene, &event);
}

inline void press(QGraphicsScene& scene, const QPointF& pos,
    Qt::MouseButton button = Qt::LeftButton, Qt::MouseButtons held = Qt::NoButton)
{
    sendMouse(scene, QEvent::GraphicsSceneMousePress, pos, button, held | button);
}

inline void move(QGraphicsScene& scene, const QPointF& pos, Qt::MouseButtons held = Qt::LeftButton)
{
    sendMouse(scene, QEvent::GraphicsSceneMouseMove, pos, Qt::NoButton, held);
}

inline void release(QGraphicsScene& scene, const QPointF& pos,
    Qt::MouseButton button = Qt::LeftButton, Qt::MouseButtons stillHeld = Qt::NoButton)
{
    sendMouse(scene, QEvent::GraphicsSceneMouseRelease, pos, button, stillHeld);
}

inline void hover(GraphicsSceneExtra& scene, const QPointF& pos)
{
    QGraphicsSceneHoverEvent event(QEvent::GraphicsSceneHoverMove);
    event.setScenePos(pos);
    scene.hoverEvent(&event);
}

inline void wheel(QGraphicsScene& scene, const QPointF& pos, int delta,
    Qt::Orientation orientation = Qt::Vertical)
{
    QGraphicsSceneWheelEvent event(QEvent::GraphicsSceneWheel);
    event.setScenePos(pos);
    event.setDelta(delta);
    event.setOrientation(orientation);
    event.setAccepted(false);
    QCoreApplication::sendEvent(&scene, &event);
}
