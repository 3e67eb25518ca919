#include "InvisibleLineDragger.h"

#include <QPen>

InvisibleLineDragger::InvisibleLineDragger(QGraphicsItem* parent)
    : QObject()
    , QGraphicsLineItem(parent)
{
    setFlag(ItemIsMovable);
    // Drawn under the visible line so that the visible line's colour is never tinted.
    setFlag(ItemStacksBehindParent);

    QPen pen(QBrush(Qt::transparent, Qt::SolidPattern), 2.0, Qt::SolidLine, Qt::SquareCap,
        Qt::BevelJoin);
    pen.setCosmetic(true);
    setPen(pen);
    setOpacity(0.5);
}

InvisibleLineDragger::~InvisibleLineDragger() = default;
