#pragma once

#include <guicore/guicore_export.h>

#include <QGraphicsEllipseItem>
#include <QObject>
#include <QRectF>

#include <optional>

class QGraphicsSceneMouseEvent;

/// A round handle that moves freely, or inside a bounding rectangle once one is set. It is kept
/// practically invisible but still takes the mouse; its owner sets the disc with setRect().
class GUICORE_EXPORT CenterDragger : public QObject, public QGraphicsEllipseItem
{
    Q_OBJECT

public:
    /// Does not take ownership of \a parent; the new item becomes its child item when given.
    explicit CenterDragger(QGraphicsItem* parent = nullptr);
    ~CenterDragger() override;

    /// From now on positions are clamped into \a rect (edges included).
    void setBoundingRect(const QRectF& rect);
    /// Whether the user can drag the handle.
    void setMovable(bool movable);

    /// Pushes the move-all override cursor and emits hoveringStarted() when movable. Calls must
    /// be paired with stopHovering().
    void startHovering();
    /// Pops the override cursor and emits hoveringStopped() when movable.
    void stopHovering();

Q_SIGNALS:
    /// The handle's position after every change, and once more when the mouse releases it.
    void dragged(QPointF position);
    /// @{
    /// Emitted by startHovering() and stopHovering() while the handle is movable.
    void hoveringStarted();
    void hoveringStopped();
    /// @}

protected:
    /// Emits dragged() with every position change of the handle.
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    /// Does not take ownership of \a event.
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private:
    Q_DISABLE_COPY(CenterDragger)

    std::optional<QRectF> m_boundingRect;
};
