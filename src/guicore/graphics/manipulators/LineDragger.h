#pragma once

#include <guicore/graphics/manipulators/InvisibleLineDragger.h>
#include <guicore/guicore_export.h>

#include <QGraphicsLineItem>
#include <QObject>
#include <QRectF>

class QColor;
class QGraphicsSceneMouseEvent;

/// A straight line that the user slides across a view: a horizontal line moves up and down, a
/// vertical line left and right. The line keeps its position inside a bounding rectangle and
/// snaps it to a grid of `tick` steps; every position change is reported through moved(), and the
/// owner decides what the new position means.
///
/// The two orientations constrain differently on purpose (see itemChange()); existing viewers
/// rely on the exact positions both produce, so the asymmetry is kept.
class GUICORE_EXPORT LineDragger : public QObject, public QGraphicsLineItem
{
    Q_OBJECT

public:
    /// Does not take ownership of \a parent; the new item becomes its child item when given.
    explicit LineDragger(Qt::Orientation orientation, QGraphicsItem* parent = nullptr);
    ~LineDragger() override;

    /// Moves the line to \a position; the bounding rectangle and the tick apply.
    void move(const QPointF& position);

    /// The rectangle that limits the line's position. The default, (-1000, -1000) sized
    /// 1000 x 1000, has its right and bottom edges at 0; callers set their own.
    void setBoundingRect(const QRectF& rect);
    /// Grid step for snapping; 0 disables snapping.
    void setTick(float tick);
    /// When set, the allowed range moves by half a tick and snapped positions lie in the middle
    /// of a tick.
    void setHalfOffset(bool halfOffset);

    /// When set, the line no longer follows the mouse itself; its owner moves it.
    void setIsMoveHandledByCaller(bool handledByCaller);
    /// Whether the owner moves the line itself in answer to moved().
    bool getIsMoveHandledByCaller() const;

    /// Set by the owner while the left button drags this line.
    void setDragging(bool dragging);
    /// True while a left-button drag of the line runs.
    bool isLeftDragging() const;

    /// Clearing the movable flag also ends a drag in progress.
    void setMovable(bool movable);
    /// Whether the user can drag the line.
    bool isMovable() const;

    /// Stretches the line over \a rect along its own direction; the position is not changed.
    void setRect(const QRectF& rect);
    /// The line's colour.
    void setDraggerColor(const QColor& color);
    /// Width of the invisible pick line, the area in which the line can be grabbed.
    void setPickWidth(int width);

    /// The pick line's bounding rectangle: the line is hit wherever its wider twin is.
    QRectF boundingRect() const override;
    /// @{
    /// True within the pick area around the line (item or scene coordinates respectively).
    bool contains(const QPointF& point) const override;
    bool underMousePos(const QPointF& point) const;
    /// @}

    /// Pushes a resize override cursor across the line when the line is movable. Calls must be
    /// paired with stopHovering(); the dragger does not count them.
    void startHovering();
    /// Pops the override cursor pushed by startHovering() when the line is movable.
    void stopHovering();

Q_SIGNALS:
    /// The line's new position, after every position change.
    void moved(QPointF position);

protected:
    /// Keeps a new position inside the bounding rectangle and on the tick grid, then reports it.
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    /// Does not take ownership of \a event.
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;

private:
    QPointF constrainedPosition(QPointF position) const;

    Q_DISABLE_COPY(LineDragger)

    bool m_halfOffset = true;
    Qt::Orientation m_orientation;
    QRectF m_boundingRect {-1000.0, -1000.0, 1000.0, 1000.0};
    InvisibleLineDragger m_invisibleLineDragger;
    float m_tick = 0.0f;
    bool m_leftDragging = false;
    bool m_moveHandledByCaller = false;
};
