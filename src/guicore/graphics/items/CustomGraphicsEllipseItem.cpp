#include "CustomGraphicsEllipseItem.h"

#include <QPainter>

CustomGraphicsEllipseItem::CustomGraphicsEllipseItem(
    const QString& name, QGraphicsItem* parent, float radiusX, float radiusY)
    : CustomGraphicsItem(name, parent)
{
    setRadius(radiusX, radiusY);
}

CustomGraphicsEllipseItem::CustomGraphicsEllipseItem(
    float radiusX, float radiusY, const QString& name, QGraphicsItem* parent)
    : CustomGraphicsEllipseItem(name, parent, radiusX, radiusY)
{
}

void CustomGraphicsEllipseItem::setRadius(float radiusX, float radiusY)
{
    rx = radiusX;
    ry = radiusY;
    QPainterPath path;
    path.addEllipse(QPointF(0.0, 0.0), rx, ry);
    setPainterPath(path);
}

void CustomGraphicsEllipseItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    commonPaint(painter);
}

void CustomGraphicsEllipseItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    commonPaint(painter);
}

void CustomGraphicsEllipseItem::commonPaint(QPainter* painter)
{
    painter->save();
    preparePath(painter);
    painter->setPen(pen());
    painter->setBrush(brush());
    paintPath(painter);
    painter->restore();
}

void CustomGraphicsEllipseItem::preparePath(QPainter* painter)
{
    qreal radiusX = rx;
    qreal radiusY = ry;
    if (isZoomAgnostic()) {
        const QTransform& world = painter->worldTransform();
        const double ratio = DevicePixelRatio::value();
        radiusX = ratio * rx / world.m11();
        radiusY = ratio * ry / world.m22();
    }
    // Painted every frame: rebuild the path only when the zoom gave it other radii.
    const QRectF wanted(-radiusX, -radiusY, 2.0 * radiusX, 2.0 * radiusY);
    if (getPainterPath().boundingRect() == wanted)
        return;
    QPainterPath path;
    path.addEllipse(QPointF(0.0, 0.0), radiusX, radiusY);
    adoptPaintedPath(path);
}
