#include "CustomGraphicsPointDraggerItem.h"

#include "ItemViewZoom_p.h"

#include <QGraphicsSceneMouseEvent>
#include <QLineF>
#include <QPainter>

CustomGraphicsPointDraggerItem::CustomGraphicsPointDraggerItem(
    const QString& name, QGraphicsItem* parent, float radius)
    : CustomGraphicsItem(name, parent)
{
    setPen(QPen(QBrush(Qt::black), 0.0));
    setBrush(QBrush(Qt::white));
    setCursor(Qt::SizeAllCursor);
    setUseZoomAgnostic(true);
    setScreenRadius(radius);
}

void CustomGraphicsPointDraggerItem::setScreenRadius(float radius)
{
    screenRadius = radius;
    QPainterPath disc;
    const double r = radiusInItemUnits(currentViewScale());
    disc.addEllipse(QPointF(0.0, 0.0), r, r);
    setPainterPath(disc);
}

double CustomGraphicsPointDraggerItem::radiusInItemUnits(double scale) const
{
    return DevicePixelRatio::value() * screenRadius / (scale > 0.0 ? scale : 1.0);
}

double CustomGraphicsPointDraggerItem::currentViewScale() const
{
    return firstViewZoom(*this);
}

bool CustomGraphicsPointDraggerItem::isMouseOver(const QPointF& scenePos)
{
    if (!isVisible() || !isEnabled())
        return false;
    const double r = radiusInItemUnits(currentViewScale());
    return QLineF(mapFromScene(scenePos), QPointF(0.0, 0.0)).length() <= r;
}

void CustomGraphicsPointDraggerItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    CustomGraphicsItem::mousePressEvent(event);
    if (isDragging() && event->isAccepted()) {
        grabOffset = event->scenePos() - scenePos();
        Q_EMIT dragStarted();
    }
}

void CustomGraphicsPointDraggerItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    CustomGraphicsItem::mouseMoveEvent(event);
    if (!isDragging())
        return;
    const QPointF sceneTarget = event->scenePos() - grabOffset;
    const QPointF target = parentItem() ? parentItem()->mapFromScene(sceneTarget) : sceneTarget;
    Q_EMIT positionChangeRequested(target);
}

void CustomGraphicsPointDraggerItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    const bool wasDragging = isDragging();
    CustomGraphicsItem::mouseReleaseEvent(event);
    if (wasDragging)
        Q_EMIT dragFinished();
}

void CustomGraphicsPointDraggerItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const double r = radiusInItemUnits(painter->worldTransform().m11());
    QPainterPath disc;
    disc.addEllipse(QPointF(0.0, 0.0), r, r);
    if (disc != getPainterPath())
        adoptPaintedPath(disc);
    painter->setPen(pen());
    painter->setBrush(brush());
    paintPath(painter);
}
