#pragma once

#include <guicore/graphics/items/CustomGraphicsPathItem.h>

/// A curve hit near its line rather than inside its area.
class GUICORE_EXPORT CustomGraphicsSpline : public CustomGraphicsPathItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsSpline(const QString& name = QString(), QGraphicsItem* parent = nullptr);

    /// True when a sample of the clickable region (every 2 percent of its length) lies closer
    /// to the scene point than half the path width plus the tolerance.
    bool isUnderMouse(const QPointF& scenePos, float tolerance) const;
    bool isMouseOver(const QPointF& scenePos) override;
    /// Tests the clickable region, not the filled curve.
    bool contains(const QPointF& point) const override;

    /// Takes the press only while the spline is visible and enabled, then as the base item.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
};
