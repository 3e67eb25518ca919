#include "CustomGraphicsSvgItem.h"

CustomGraphicsSvgItem::CustomGraphicsSvgItem(const QString& name, QGraphicsItem* parent)
    : CustomGraphicsItemEvents(parent)
{
    setObjectName(name);
}
