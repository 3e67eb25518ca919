#include "CustomGraphicsPixmapItem.h"

CustomGraphicsPixmapItem::CustomGraphicsPixmapItem(
    const QString& name, QGraphicsItem* parent, const QPixmap& pixmap)
    : QObject()
    , CustomGraphicsItemEvents(pixmap, parent)
{
    setObjectName(name);
}
