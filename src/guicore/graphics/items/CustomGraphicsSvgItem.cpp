#include "CustomGraphicsSvgItem.h"

#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>

CustomGraphicsSvgItem::CustomGraphicsSvgItem(const QString& name, QGraphicsItem* parent)
    : QGraphicsSvgItem(parent)
{
    setObjectName(name);
}

void CustomGraphicsSvgItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->ignore();
    if (!isVisible() || !isEnabled())
        return;
    if (event->buttons() == Qt::LeftButton) {
        event->accept();
        Q_EMIT leftClicked(event);
    } else if (event->buttons() == Qt::RightButton) {
        event->accept();
        Q_EMIT rightClicked(event);
    }
}

void CustomGraphicsSvgItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    Q_EMIT mouseMoved(event);
}

void CustomGraphicsSvgItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    Q_EMIT mouseReleased(event);
}

void CustomGraphicsSvgItem::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    Q_EMIT mouseWheelChanged(event);
}

void CustomGraphicsSvgItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    Q_EMIT mouseHoverEnter(event);
}

void CustomGraphicsSvgItem::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    Q_EMIT mouseHoverMove(event);
}

void CustomGraphicsSvgItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    Q_EMIT mouseHoverLeave(event);
}

QVariant CustomGraphicsSvgItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemVisibleChange && scene())
        Q_EMIT visibilityChanged(value.toBool());
    return QGraphicsSvgItem::itemChange(change, value);
}
