#include "CustomGraphicsStrokerPathItem.h"

#include <QPainter>

CustomGraphicsStrokerPathItem::CustomGraphicsStrokerPathItem(
    const QString& name, QGraphicsItem* parent)
    : CustomGraphicsItem(name, parent)
{
}

void CustomGraphicsStrokerPathItem::paintStroke(
    QPainter* painter, double scale, const QBrush& brush)
{
    QPen scaledPen = pen();
    scaledPen.setWidthF(scaledPen.widthF() / scale);
    stroker.setWidth(strokerWidth / scale);
    stroker.setCapStyle(capStyle);
    stroker.setJoinStyle(joinStyle);
    adoptPaintedPath(stroker.createStroke(strokerPath).simplified());
    painter->setPen(scaledPen);
    painter->setBrush(brush);
    paintPath(painter);
}
