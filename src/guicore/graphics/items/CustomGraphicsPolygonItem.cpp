#include "CustomGraphicsPolygonItem.h"

CustomGraphicsPolygonItem::CustomGraphicsPolygonItem(
    const QString& name, QGraphicsItem* parent, const QPolygonF& p)
    : CustomGraphicsItem(name, parent)
{
    setPolygon(p);
}

void CustomGraphicsPolygonItem::setPolygon(const QPolygonF& p)
{
    polygon = p;
    QPainterPath path;
    if (!polygon.isEmpty()) {
        path.addPolygon(polygon);
        path.closeSubpath();
    }
    setPainterPath(path);
}
