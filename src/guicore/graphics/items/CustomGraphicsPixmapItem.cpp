#include "CustomGraphicsPixmapItem.h"

#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>

CustomGraphicsPixmapItem::CustomGraphicsPixmapItem(
    const QString& name, QGraphicsItem* parent, const QPixmap& pixmap)
    : QObject()
    , QGraphicsPixmapItem(pixmap, parent)
{
    setObjectName(name);
}

void CustomGraphicsPixmapItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
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

void CustomGraphicsPixmapItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    Q_EMIT mouseMoved(event);
}

void CustomGraphicsPixmapItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    Q_EMIT mouseReleased(event);
}

void CustomGraphicsPixmapItem::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    Q_EMIT mouseWheelChanged(event);
}

void CustomGraphicsPixmapItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    Q_EMIT mouseHoverEnter(event);
}

void CustomGraphicsPixmapItem::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    Q_EMIT mouseHoverMove(event);
}

void CustomGraphicsPixmapItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    Q_EMIT mouseHoverLeave(event);
}

QVariant CustomGraphicsPixmapItem::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemVisibleChange && scene())
        Q_EMIT visibilityChanged(value.toBool());
    return QGraphicsPixmapItem::itemChange(change, value);
}
