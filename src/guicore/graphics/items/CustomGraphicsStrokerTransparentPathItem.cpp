#include "CustomGraphicsStrokerTransparentPathItem.h"

#include <QPainter>

CustomGraphicsStrokerTransparentPathItem::CustomGraphicsStrokerTransparentPathItem(
    const QString& name, QGraphicsItem* parent)
    : CustomGraphicsStrokerPathItem(name, parent)
{
}

// Without a brush only the outline of the stroke is drawn: what lies under the line stays
// visible.
void CustomGraphicsStrokerTransparentPathItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintStroke(painter, 1.0, Qt::NoBrush);
}

void CustomGraphicsStrokerTransparentPathItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintStroke(painter, painter->worldTransform().m11(), Qt::NoBrush);
}
