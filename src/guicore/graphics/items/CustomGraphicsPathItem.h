#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

/// A free path. Zoom-agnostic, its pen width is in screen pixels.
class GUICORE_EXPORT CustomGraphicsPathItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsPathItem(
        const QString& name = QString(), QGraphicsItem* parent = nullptr);

    /// The pen width the path is drawn with.
    float getPathWidth() const;

protected:
    void paintScaled(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    void paintWithPen(QPainter* painter, const QPen& pen);
};
