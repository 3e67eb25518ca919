#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

/// An ellipse centred on the item's origin. Zoom-agnostic, its radii are screen pixels (times
/// the device pixel ratio) whatever the view's zoom.
class GUICORE_EXPORT CustomGraphicsEllipseItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsEllipseItem(const QString& name = QString(),
        QGraphicsItem* parent = nullptr, float radiusX = 0.0f, float radiusY = 0.0f);
    /// A non-null parent item owns the item.
    CustomGraphicsEllipseItem(float radiusX, float radiusY, const QString& name = QString(),
        QGraphicsItem* parent = nullptr);

    /// @{
    /// The radii in item coordinates; setting them rebuilds the painter path.
    void setRadius(float radiusX, float radiusY);
    float getRadiusX() const { return rx; }
    float getRadiusY() const { return ry; }
    /// @}

protected:
    void paintScaled(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// Rebuilds the painter path for the painter's current zoom. The painter is borrowed.
    void preparePath(QPainter* painter);

private:
    void commonPaint(QPainter* painter);

    float rx = 0.0f;
    float ry = 0.0f;
};
