#include "CustomGraphicsStrokerTransparentPathItem.h"

#include <QPainter>

CustomGraphicsStrokerTransparentPathItem::CustomGraphicsStrokerTransparentPathItem(
    const QString& name, QGraphicsItem* parent)
    : CustomGraphicsItem(name, parent)
{
}

void CustomGraphicsStrokerTransparentPathItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintStroke(painter, 1.0);
}

void CustomGraphicsStrokerTransparentPathItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintStroke(painter, painter->worldTransform().m11());
}

void CustomGraphicsStrokerTransparentPathItem::paintStroke(QPainter* painter, double scale)
{
    // Only the outline of the stroke is drawn: what lies under the line stays visible.
    QPen scaledPen = pen();
    scaledPen.setWidthF(scaledPen.widthF() / scale);
    stroker.setWidth(strokerWidth / scale);
    stroker.setCapStyle(capStyle);
    stroker.setJoinStyle(joinStyle);
    adoptPaintedPath(stroker.createStroke(strokerPath).simplified());
    painter->setPen(scaledPen);
    painter->setBrush(Qt::NoBrush);
    paintPath(painter);
}
