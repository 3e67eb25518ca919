#pragma once

#include <guicore/graphics/items/CustomGraphicsItemEvents.h>
#include <guicore/guicore_export.h>

#include <QGraphicsPixmapItem>
#include <QObject>

/// A picture in the overlay that reports clicks, hover, wheel and visibility like the other
/// overlay items. Any press on a visible, enabled item counts: there is no separate clickable
/// region, no dragging state and no custom children.
class GUICORE_EXPORT CustomGraphicsPixmapItem
    : public QObject,
      public CustomGraphicsItemEvents<CustomGraphicsPixmapItem, QGraphicsPixmapItem>
{
    Q_OBJECT
    Q_DISABLE_COPY(CustomGraphicsPixmapItem)

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsPixmapItem(const QString& name = QString(),
        QGraphicsItem* parent = nullptr, const QPixmap& pixmap = QPixmap());

Q_SIGNALS:
    GUICORE_OVERLAY_POINTER_SIGNALS
    GUICORE_OVERLAY_WHEEL_SIGNALS
};
