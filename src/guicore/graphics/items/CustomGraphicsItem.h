#pragma once

#include <guicore/graphics/items/CustomGraphicsItemEvents.h>
#include <guicore/guicore_export.h>
#include <guicore/style/DevicePixelRatio.h>

#include <QGraphicsPathItem>
#include <QList>
#include <QObject>
#include <QPainterPath>

class QKeyEvent;
class QPainter;
class QStyleOptionGraphicsItem;
class QTransform;
class QWidget;

/// The base of the overlay items drawn over images.
///
/// Turns mouse, hover, wheel and visibility events into signals, keeps a clickable region apart
/// from the drawn shape (optionally widened to the stroke of the shape), forwards presses and
/// context-menu events to its custom children and can draw itself at a constant on-screen size
/// whatever the view's zoom. The item never moves itself: `ItemIsMovable` is cleared.
class GUICORE_EXPORT CustomGraphicsItem
    : public QObject,
      public CustomGraphicsItemEvents<CustomGraphicsItem, QGraphicsPathItem>,
      public DevicePixelRatio::Listener
{
    Q_OBJECT
    Q_DISABLE_COPY(CustomGraphicsItem)

public:
    /// Ownership follows Qt: a non-null parent item owns the item.
    explicit CustomGraphicsItem(const QString& name = QString(), QGraphicsItem* parent = nullptr);
    ~CustomGraphicsItem() override;

    /// Stores the drawn path and recomputes the clickable region from it.
    void setPainterPath(const QPainterPath& path);
    /// The drawn path, in item coordinates.
    const QPainterPath& getPainterPath() const { return painterPath; }
    /// The region presses and hovers are tested against, in item coordinates.
    const QPainterPath& getClickableRegion() const { return clickableRegion; }

    /// Recomputes the clickable region before the pen is replaced, that is from the pen still in
    /// place; the next setPainterPath or setUseStroker brings the region up to date. Kept so
    /// because callers rely on the order in which the two take effect.
    virtual void setPen(const QPen& pen);
    /// True: the clickable region is the stroke of the drawn path made with the pen's width, cap
    /// and join; false: the drawn path itself. An empty path gives an empty region either way.
    void setUseStroker(bool use);
    /// Off by default.
    bool isUsingStroker() const { return useStroker; }

    /// @{
    /// Zoom-agnostic items are painted at a constant on-screen size (device-independent pixels)
    /// whatever the view's zoom, through paintScaleAgnostic(). Off by default.
    void setUseZoomAgnostic(bool agnostic);
    bool isZoomAgnostic() const { return zoomAgnostic; }
    /// @}
    /// @{
    /// Whether the item takes right clicks and, in GraphicsSceneExtra, the wheel when it lies under
    /// the pointer. On by default.
    void setHandleRightClick(bool handle);
    bool getHandleRightClick() const { return handleRightClick; }
    /// @}
    /// @{
    /// Set by the item's owner while the item is being dragged; hover signals are held back
    /// meanwhile.
    void setDragging(bool drag);
    bool isDragging() const { return dragging; }
    /// @}

    /// Makes this item the child's parent item and reports the child's clicks as this item's
    /// own. Null is ignored. Ownership passes to this item through the parent relation.
    void addCustomChildItem(CustomGraphicsItem* child);
    /// Clears the child's parent item and the signal forwarding; ownership passes back to the
    /// caller. Null is ignored.
    void removeCustomChildItem(CustomGraphicsItem* child);
    /// The custom children in the order they were added; they are owned by this item.
    const QList<CustomGraphicsItem*>& getCustomChildItems() const { return customChildItems; }

    /// True when the clickable region, mapped to the scene, holds the point and the item is
    /// visible and enabled.
    virtual bool isMouseOver(const QPointF& scenePos);

    /// @{
    /// The scale a transform applies along each axis (the length of its mapped unit vector).
    static float getScaleFactorXAxis(const QTransform& transform);
    static float getScaleFactorYAxis(const QTransform& transform);
    /// @}
    /// The transform with the view's scale taken out, so that item units become pixels.
    static QTransform getScaleAgnosticTransform(const QTransform& transform);

    /// Draws the painter path with the painter's pen and brush. Does not take ownership.
    void paintPath(QPainter* painter);
    /// Draws the painter path, then fills it with the colour. Does not take ownership.
    void fillPath(QPainter* painter, const QColor& color);

    void devicePixelRatioChanged() override;

    /// The clickable region, so that the stock scene hit-tests what the user can click.
    QPainterPath shape() const override;
    /// Paints scale-agnostically or scaled as the item is set; the painter is borrowed.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
        QWidget* widget = nullptr) override;

    // Event handlers, public so that a scene dispatching by itself can call them; the events
    // are borrowed. Moves, wheel turns and visibility changes are reported as every overlay
    // item reports them; presses go by the clickable region and the custom children, and a
    // drag holds back the hover signals.
    /// @{
    /// The item's input handlers, public so that GraphicsSceneExtra can call them directly,
    /// outside the stock grabber logic: a press inside the clickable region with exactly the left
    /// or right button is accepted and reported (leftClicked(), rightClicked()), also for the
    /// custom children; releases, keys and context menus are reported or passed to the children;
    /// hover signals are held back while dragging. The events are borrowed.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    /// @}

Q_SIGNALS:
    GUICORE_OVERLAY_POINTER_SIGNALS
    GUICORE_OVERLAY_WHEEL_SIGNALS

protected:
    /// Painting at the view's scale; the plain path-item painting. The painter is borrowed.
    virtual void paintScaled(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget);
    /// Painting at constant screen size, between a save and a restore of the painter; the
    /// base draws as paintScaled. The painter is borrowed.
    virtual void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget);

    /// Replaces the clickable region directly, for items with their own hit geometry.
    void setClickableRegion(const QPainterPath& region) { clickableRegion = region; }
    /// Adopts a path rebuilt while painting (for a new zoom): the drawn path and clickable
    /// region follow it, and the item's geometry grows when the path no longer fits in it.
    void adoptPaintedPath(const QPainterPath& path);

private:
    QPainterPath clickableRegion;
    QList<CustomGraphicsItem*> customChildItems;
    QPainterPath painterPath;
    bool handleRightClick = true;
    bool useStroker = false;
    bool dragging = false;
    bool zoomAgnostic = false;
};
