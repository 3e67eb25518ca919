#pragma once

#include <guicore/graphics/items/CustomGraphicsStrokerPathItem.h>

/// A thick line drawn as the outline of its stroke only, its inside left see-through.
class GUICORE_EXPORT CustomGraphicsStrokerTransparentPathItem : public CustomGraphicsStrokerPathItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsStrokerTransparentPathItem(
        const QString& name = QString(), QGraphicsItem* parent = nullptr);

protected:
    void paintScaled(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
};
