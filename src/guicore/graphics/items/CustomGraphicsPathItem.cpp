#include "CustomGraphicsPathItem.h"

#include <QPainter>

CustomGraphicsPathItem::CustomGraphicsPathItem(const QString& name, QGraphicsItem* parent)
    : CustomGraphicsItem(name, parent)
{
}

float CustomGraphicsPathItem::getPathWidth() const
{
    return static_cast<float>(pen().widthF());
}

void CustomGraphicsPathItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintWithPen(painter, pen());
}

void CustomGraphicsPathItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    QPen scaledPen = pen();
    scaledPen.setWidthF(scaledPen.widthF() / painter->worldTransform().m11());
    paintWithPen(painter, scaledPen);
}

void CustomGraphicsPathItem::paintWithPen(QPainter* painter, const QPen& p)
{
    painter->setPen(p);
    painter->setBrush(brush());
    paintPath(painter);
}
