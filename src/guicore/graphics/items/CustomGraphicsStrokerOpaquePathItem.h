#pragma once

#include <guicore/graphics/items/CustomGraphicsStrokerPathItem.h>

/// A thick line drawn as the outline of its stroke, filled with the item's brush. Unless
/// zoom-agnostic it draws its painter path as a plain path item does.
class GUICORE_EXPORT CustomGraphicsStrokerOpaquePathItem : public CustomGraphicsStrokerPathItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsStrokerOpaquePathItem(
        const QString& name = QString(), QGraphicsItem* parent = nullptr);

protected:
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
};
