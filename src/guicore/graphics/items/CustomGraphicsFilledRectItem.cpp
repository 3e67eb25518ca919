#include "CustomGraphicsFilledRectItem.h"

#include <QPainter>

CustomGraphicsFilledRectItem::CustomGraphicsFilledRectItem(
    const QString& name, QGraphicsItem* parent)
    : CustomGraphicsItem(name, parent)
{
}

void CustomGraphicsFilledRectItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    QGraphicsPathItem::paint(painter, option, widget);
    painter->fillPath(getPainterPath(), QBrush(pen().color(), Qt::SolidPattern));
}

void CustomGraphicsFilledRectItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    paintScaled(painter, option, widget);
}
