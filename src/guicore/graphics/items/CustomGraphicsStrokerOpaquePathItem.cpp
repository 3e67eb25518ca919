#include "CustomGraphicsStrokerOpaquePathItem.h"

#include <QPainter>

CustomGraphicsStrokerOpaquePathItem::CustomGraphicsStrokerOpaquePathItem(
    const QString& name, QGraphicsItem* parent)
    : CustomGraphicsStrokerPathItem(name, parent)
{
}

void CustomGraphicsStrokerOpaquePathItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintStroke(painter, painter->worldTransform().m11(), brush());
}
