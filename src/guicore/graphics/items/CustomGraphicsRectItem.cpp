#include "CustomGraphicsRectItem.h"

#include <QPainter>

CustomGraphicsRectItem::CustomGraphicsRectItem(
    const QString& name, QGraphicsItem* parent, const QRectF& r, double radius)
    : CustomGraphicsItem(name, parent)
    , rect(r)
    , cornerRadius(radius)
{
    rebuildPath();
    setUseStroker(true);
    setHandleRightClick(false);
}

void CustomGraphicsRectItem::setRect(const QRectF& r)
{
    rect = r;
    rebuildPath();
}

void CustomGraphicsRectItem::setRect(float x, float y, float w, float h)
{
    setRect(QRectF(x, y, w, h));
}

void CustomGraphicsRectItem::rebuildPath()
{
    QPainterPath path;
    if (cornerRadius != 0.0)
        path.addRoundedRect(rect, cornerRadius, cornerRadius, Qt::AbsoluteSize);
    else
        path.addRect(rect);
    setPainterPath(path);
}

void CustomGraphicsRectItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setWorldTransform(getScaleAgnosticTransform(painter->worldTransform()));
    painter->setPen(pen());
    painter->setBrush(brush());
    paintPath(painter);
}
