#pragma once

// Probe items and event helpers for the scene tests: real overlay items that write what reaches
// them into one shared log and can run an action (which may delete items, themselves included)
// after the stock handling of an event.

#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/items/HoverableItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>

#include <QCoreApplication>
#include <QGraphicsRectItem>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QHash>
#include <QPainterPath>
#include <QRegularExpression>
#include <QStringList>

#include <functional>

// Logs, runs the stock handler, then the action. The action may delete this item: it is copied
// out of the member first and nothing is touched after it.
#define PROBE_HANDLER(handler, Event, what, action)                                                \
    void handler(Event* e) override                                                                \
    {                                                                                              \
        log->append(objectName() + ':' + (what));                                                  \
        CustomGraphicsItem::handler(e);                                                            \
        if (const Action copy = (action))                                                          \
            copy();                                                                                \
    }

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

    PROBE_HANDLER(mousePressEvent, QGraphicsSceneMouseEvent, "press", onPress)
    PROBE_HANDLER(mouseMoveEvent, QGraphicsSceneMouseEvent, "move", onMove)
    PROBE_HANDLER(mouseReleaseEvent, QGraphicsSceneMouseEvent, "release", onRelease)
    PROBE_HANDLER(hoverEnterEvent, QGraphicsSceneHoverEvent, "enter", onHoverEnter)
    PROBE_HANDLER(hoverMoveEvent, QGraphicsSceneHoverEvent, "hover", Action())
    PROBE_HANDLER(hoverLeaveEvent, QGraphicsSceneHoverEvent, "leave", Action())
    PROBE_HANDLER(
        wheelEvent, QGraphicsSceneWheelEvent, "wheel" + QString::number(e->delta()), onWheel)
    PROBE_HANDLER(keyPressEvent, QKeyEvent, "key", Action())
    PROBE_HANDLER(keyReleaseEvent, QKeyEvent, "keyRelease", Action())

private:
    QStringList* log;
};

/// A hover-priority item that is no QObject, which the scene can only find in its item list.
class PlainHoverable : public QGraphicsRectItem, public HoverableItem
{
public:
    using QGraphicsRectItem::QGraphicsRectItem;
    std::function<void(bool)> onHoverState;
    QStringList* hoverLog = nullptr;

    bool isHoverHit(const QPointF& scenePos) const override
    {
        return sceneBoundingRect().contains(scenePos);
    }
    void hoverStateChanged(bool state) override
    {
        hoverLog->append(data(0).toString() + (state ? ":hovered" : ":unhovered"));
        if (const auto copy = onHoverState)
            copy(state);
    }
};

inline Qt::MouseButtons buttonsOf(const QString& letters)
{
    Qt::MouseButtons buttons;
    for (QChar letter : letters) {
        const int index = QStringLiteral("LRM").indexOf(letter);
        if (index >= 0)
            buttons |= Qt::MouseButton(Qt::LeftButton << index);
    }
    return buttons;
}

/// Sends a space-separated script of events and returns what was logged meanwhile, joined by
/// spaces. A step is a letter, buttons (default "L", "N" for none), then x,y: "p" press and "r"
/// release of the first button with the others held, "m" move holding the buttons, "d" double
/// click, "h" hover move, "l" hover leave, "w" and "W" vertical and horizontal wheel turns by a
/// third number.
inline QString play(GraphicsSceneExtra& scene, QStringList& log, const QString& script)
{
    static const QRegularExpression step("^([prmdhlwW])([LRMN]*)(-?\\d+),(-?\\d+),?(-?\\d*)$");
    log.clear();
    for (const QString& token : script.split(' ', Qt::SkipEmptyParts)) {
        const QRegularExpressionMatch m = step.match(token);
        Q_ASSERT(m.hasMatch());
        const QChar op = m.captured(1).at(0);
        const QString letters = m.captured(2).isEmpty() ? QStringLiteral("L") : m.captured(2);
        const Qt::MouseButtons buttons = buttonsOf(letters);
        const auto first = Qt::MouseButton(int(buttonsOf(letters.left(1))));
        const QPointF at(m.captured(3).toInt(), m.captured(4).toInt());
        if (op == 'h' || op == 'l') {
            QGraphicsSceneHoverEvent event(
                op == 'l' ? QEvent::GraphicsSceneHoverLeave : QEvent::GraphicsSceneHoverMove);
            event.setScenePos(at);
            op == 'l' ? scene.hoverLeaveEvent(&event) : scene.hoverEvent(&event);
        } else if (op.toLower() == 'w') {
            QGraphicsSceneWheelEvent event(QEvent::GraphicsSceneWheel);
            event.setScenePos(at);
            event.setDelta(m.captured(5).toInt());
            event.setOrientation(op == 'w' ? Qt::Vertical : Qt::Horizontal);
            event.setAccepted(false);
            QCoreApplication::sendEvent(&scene, &event);
        } else {
            static const QHash<QChar, QEvent::Type> types {{'p', QEvent::GraphicsSceneMousePress},
                {'r', QEvent::GraphicsSceneMouseRelease}, {'m', QEvent::GraphicsSceneMouseMove},
                {'d', QEvent::GraphicsSceneMouseDoubleClick}};
            QGraphicsSceneMouseEvent event(types.value(op));
            event.setScenePos(at);
            event.setScreenPos(at.toPoint());
            event.setButton(op == 'm' ? Qt::NoButton : first);
            event.setButtons(op == 'r' ? buttons & ~first : buttons);
            if (op != 'm')
                event.setButtonDownScenePos(first, at);
            event.setAccepted(false);
            QCoreApplication::sendEvent(&scene, &event);
        }
    }
    return log.join(' ');
}
