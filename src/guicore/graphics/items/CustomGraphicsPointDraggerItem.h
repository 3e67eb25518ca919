#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

/// A small round handle with which the user drags a point.
///
/// Drawn as a disc of constant screen size (the radius is in screen pixels, times the device
/// pixel ratio) around the item's origin. The handle never moves itself: while the user drags it,
/// it proposes where it should go through positionChangeRequested (in parent coordinates, keeping
/// the offset between the press point and the handle's centre), and the owner applies the
/// position with setPos or not at all.
class GUICORE_EXPORT CustomGraphicsPointDraggerItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsPointDraggerItem(const QString& name = QString(),
        QGraphicsItem* parent = nullptr, float screenRadius = 5.0f);

    /// @{
    /// The handle's radius in screen pixels, whatever the zoom.
    void setScreenRadius(float radius);
    float getScreenRadius() const { return screenRadius; }
    /// @}

    /// Within the disc as it appears in the first view of the scene (without a view, the disc
    /// in item units), while the handle is visible and enabled.
    bool isMouseOver(const QPointF& scenePos) override;

    // The events are borrowed.
    /// @{
    /// A left press on the handle starts a drag (dragStarted()); moves propose positions through
    /// positionChangeRequested() without moving the handle; the release ends the drag
    /// (dragFinished()). The events are borrowed.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    /// @}

Q_SIGNALS:
    /// A drag of the handle began.
    void dragStarted();
    /// Where the handle should go, in its parent's coordinates (scene coordinates without one).
    void positionChangeRequested(const QPointF& position);
    /// The drag of the handle ended.
    void dragFinished();

protected:
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    double radiusInItemUnits(double scale) const;
    double currentViewScale() const;

    float screenRadius = 5.0f;
    QPointF grabOffset; // press point minus the handle's centre, in scene units
};
