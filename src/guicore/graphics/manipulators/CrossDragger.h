#pragma once

#include <guicore/guicore_export.h>

#include <QGraphicsItemGroup>
#include <QObject>
#include <QPointF>

#include <memory>

class CenterDragger;
class LineDragger;
class QColor;
class QRectF;

/// A cross of one horizontal and one vertical LineDragger with a CenterDragger at their
/// crossing. Dragging a line moves that line; dragging the handle moves both. The cross reports
/// the lines' new positions and leaves their meaning to its owner.
class GUICORE_EXPORT CrossDragger : public QObject, public QGraphicsItemGroup
{
    Q_OBJECT

public:
    /// Does not take ownership of \a parent; the new item becomes its child item when given.
    explicit CrossDragger(QGraphicsItem* parent = nullptr);
    ~CrossDragger() override;

    /// Owned by the cross; valid for its lifetime.
    LineDragger* getHorizontalDragger() const;
    /// Owned by the cross; valid for its lifetime.
    LineDragger* getVerticalDragger() const;

    /// Disabling a side hides the centre handle; the line itself keeps its visibility.
    void enableHorizontalDragger(bool enabled);
    /// Whether the horizontal side takes part; on by default.
    bool isHorizontalDraggerEnabled() const;
    /// @{
    /// The vertical side's counterpart of enableHorizontalDragger().
    void enableVerticalDragger(bool enabled);
    bool isVerticalDraggerEnabled() const;
    /// @}

    /// @{
    /// Per-line settings passed to the LineDragger of that side: colour, snapping step (tick, in
    /// scene units) and whether positions sit half a tick off the grid.
    void setHorizontalColor(const QColor& color);
    void setVerticalColor(const QColor& color);
    void setHorizontalTick(float tick);
    void setVerticalTick(float tick);
    void setHorizontalHalfOffset(bool halfOffset);
    void setVerticalHalfOffset(bool halfOffset);
    /// @}

    /// Applies to both lines and to the centre handle.
    void setMovable(bool movable);
    /// The horizontal line's movable flag alone.
    bool getMovable() const;

    /// The scene rectangle the lines are drawn across.
    void setRect(const QRectF& rect);
    /// The scene rectangle the lines must stay in.
    void setBoundingRect(const QRectF& rect);

    /// Shows or hides both lines and the handle.
    void setDraggerVisible(bool visible);
    /// Shows or hides the horizontal line (only while that side is enabled); the centre handle
    /// is shown only when both lines are.
    void setHorizontalDraggerVisible(bool visible);
    /// Mirrors setHorizontalDraggerVisible() for the vertical side.
    void setVerticalDraggerVisible(bool visible);

    /// Places the centre handle where the two lines cross; parallel lines leave it in place.
    void updateCenter();

Q_SIGNALS:
    /// The user moved the horizontal line (directly or with the handle), to this scene position.
    void horizontalMoved(QPointF position);
    /// The user moved the vertical line (directly or with the handle), to this scene position.
    void verticalMoved(QPointF position);

public Q_SLOTS:
    /// Moves the horizontal line and the handle without emitting horizontalMoved().
    void moveHorizontal(QPointF position);
    /// Moves the vertical line and the handle without emitting verticalMoved().
    void moveVertical(QPointF position);
    /// Follows a line the user dragged: moves the handle and emits that side's moved signal.
    void lineDraggerMoved(QPointF position);
    /// Moves both lines to the handle; emits verticalMoved() and then horizontalMoved(), each
    /// only when that line really moved.
    void centerDraggerMoved(QPointF position);

private:
    Q_DISABLE_COPY(CrossDragger)

    std::unique_ptr<LineDragger> m_horizontalDragger;
    std::unique_ptr<LineDragger> m_verticalDragger;
    std::unique_ptr<CenterDragger> m_centerDragger;
    bool m_horizontalDraggerEnabled = true;
    bool m_verticalDraggerEnabled = true;
    // Set while one dragger moves another, so that the moved dragger's own signal does not
    // come back into the cross.
    bool m_updating = false;
};
