#include "CustomGraphicsSpline.h"

#include <QGraphicsSceneMouseEvent>
#include <QLineF>

CustomGraphicsSpline::CustomGraphicsSpline(const QString& name, QGraphicsItem* parent)
    : CustomGraphicsPathItem(name, parent)
{
}

bool CustomGraphicsSpline::isUnderMouse(const QPointF& scenePos, float tolerance) const
{
    const QPainterPath& region = getClickableRegion();
    if (region.isEmpty())
        return false;
    const QPointF p = mapFromScene(scenePos);
    const float reach = getPathWidth() / 2.0f + tolerance;
    for (float t = 0.0f; t < 1.0f; t += 0.02f) {
        if (QLineF(p, region.pointAtPercent(t)).length() < reach)
            return true;
    }
    return false;
}

bool CustomGraphicsSpline::isMouseOver(const QPointF& scenePos)
{
    return isUnderMouse(scenePos, 0.0f);
}

bool CustomGraphicsSpline::contains(const QPointF& point) const
{
    return isUnderMouse(mapToScene(point), 0.0f) || CustomGraphicsPathItem::contains(point);
}

void CustomGraphicsSpline::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (!isVisible() || !isEnabled()) {
        event->ignore();
        return;
    }
    CustomGraphicsPathItem::mousePressEvent(event);
}
