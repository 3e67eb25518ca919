#pragma once

#include <guicore/graphics/items/CustomGraphicsItemEvents.h>
#include <guicore/guicore_export.h>

#include <QGraphicsSvgItem>

/// A vector picture in the overlay that reports clicks, hover, wheel and visibility like
/// `CustomGraphicsPixmapItem`. Its QObject base is the one QGraphicsSvgItem already has.
class GUICORE_EXPORT CustomGraphicsSvgItem
    : public CustomGraphicsItemEvents<CustomGraphicsSvgItem, QGraphicsSvgItem>
{
    Q_OBJECT
    Q_DISABLE_COPY(CustomGraphicsSvgItem)

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsSvgItem(
        const QString& name = QString(), QGraphicsItem* parent = nullptr);

Q_SIGNALS:
    GUICORE_OVERLAY_POINTER_SIGNALS
    GUICORE_OVERLAY_WHEEL_SIGNALS
};
