#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

#include <QRectF>

/// A rectangle, rounded when the corner radius is not 0. Hit along its stroke; right clicks
/// are left to the items around it. Zoom-agnostic, its units are screen pixels.
class GUICORE_EXPORT CustomGraphicsRectItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsRectItem(const QString& name = QString(),
        QGraphicsItem* parent = nullptr, const QRectF& rect = QRectF(), double cornerRadius = 0.0);

    /// @{
    /// The rectangle in item coordinates; setting it rebuilds the painter path.
    void setRect(const QRectF& rect);
    void setRect(float x, float y, float w, float h);
    /// @}
    /// The rectangle as stored (not normalised).
    QRectF getRect() const { return rect; }
    /// The radius of the rounded corners given at construction.
    double getCornerRadius() const { return cornerRadius; }

protected:
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    void rebuildPath();

    QRectF rect;
    double cornerRadius = 0.0;
};
