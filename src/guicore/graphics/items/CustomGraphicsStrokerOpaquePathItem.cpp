#include "CustomGraphicsStrokerOpaquePathItem.h"

#include <QPainter>

CustomGraphicsStrokerOpaquePathItem::CustomGraphicsStrokerOpaquePathItem(
    const QString& name, QGraphicsItem* parent)
    : CustomGraphicsItem(name, parent)
{
}

void CustomGraphicsStrokerOpaquePathItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    CustomGraphicsItem::paintScaled(painter, option, widget);
}

void CustomGraphicsStrokerOpaquePathItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintStroke(painter, painter->worldTransform().m11());
}

void CustomGraphicsStrokerOpaquePathItem::paintStroke(QPainter* painter, double scale)
{
    QPen scaledPen = pen();
    scaledPen.setWidthF(scaledPen.widthF() / scale);
    stroker.setWidth(strokerWidth / scale);
    stroker.setCapStyle(capStyle);
    stroker.setJoinStyle(joinStyle);
    adoptPaintedPath(stroker.createStroke(strokerPath).simplified());
    painter->setPen(scaledPen);
    painter->setBrush(brush());
    paintPath(painter);
}
