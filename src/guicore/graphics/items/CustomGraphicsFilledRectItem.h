#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

/// An item whose painter path is drawn and then filled with the pen's colour.
class GUICORE_EXPORT CustomGraphicsFilledRectItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsFilledRectItem(
        const QString& name = QString(), QGraphicsItem* parent = nullptr);

protected:
    void paintScaled(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
};
