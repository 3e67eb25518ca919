#pragma once

#include <guicore/graphics/manipulators/InvisibleLineDragger.h>
#include <guicore/guicore_export.h>

#include <QGraphicsLineItem>
#include <QLineF>
#include <QObject>
#include <QRectF>

class QColor;
class QCursor;
class QGraphicsSceneHoverEvent;
class QGraphicsSceneMouseEvent;
class QVector2D;

/// An infinite reference line, drawn across the visible part of a view, that the user rotates
/// about its rotation point or translates, depending on where along the line the mouse is
/// pressed: the outer third of each side of the rotation point rotates, the rest translates.
///
/// The item never changes its own line while manipulated. It reports a rotation angle through
/// lineRotated() or a target position through lineTranslated(); the owner computes the new line
/// and hands it back with setLine(). The owner also calls startManipulation() on press and
/// stopManipulation() on release, and feeds it hover and mouse move events.
class GUICORE_EXPORT LineManipulationGraphicsItem : public QObject, public QGraphicsLineItem
{
    Q_OBJECT

public:
    /// Does not take ownership of \a parent; the new item becomes its child item when given.
    explicit LineManipulationGraphicsItem(QGraphicsItem* parent = nullptr);
    ~LineManipulationGraphicsItem() override;

    /// The line through \a point along \a direction; \a point is the rotation point. The drawn
    /// segment is recomputed only when the line changes.
    void setLine(const QPointF& point, const QVector2D& direction);
    /// The part of the scene the line is drawn across; a fuzzily equal rectangle is ignored.
    void setViewportRectangle(const QRectF& rect);

    /// Changes only the colour of the line's pen.
    void setColor(const QColor& color);
    /// Changes only the width of the pick line, the area in which the line can be grabbed.
    void setPickWidth(int width);

    /// @{
    /// Whether a press may rotate, or translate, the line; both on by default.
    void enableRotation(bool enabled);
    bool isRotationEnabled() const;
    void enableTranslation(bool enabled);
    bool isTranslationEnabled() const;
    /// @}

    /// Chooses rotation or translation for a press at \a scenePos and changes the override
    /// cursor (pushed on hover enter) to match. Nothing while manipulation is disabled or when
    /// neither rotation nor translation is allowed.
    void startManipulation(const QPointF& scenePos);
    /// Ends a rotation or translation; GraphicsSceneExtra calls it on every release.
    void stopManipulation();
    /// True between startManipulation() and stopManipulation().
    bool isManipulating() const;

    /// The point given to setLine(), in scene coordinates.
    QPointF getRotationPoint() const;

    /// True when a press at \a point rotates the line, false when it translates it.
    bool shouldRotateAt(const QPointF& point) const;
    /// True when \a point lies on the direction side of the rotation point, that is when the
    /// line from the rotation point to \a point is less than 90 degrees away from the line.
    bool isRotatingParallelLine(const QPointF& point) const;

    /// @{
    /// The cursor for rotating or translating, or for the hover position.
    QCursor getCursor(bool rotate) const;
    QCursor getCursor(const QGraphicsSceneHoverEvent& event) const;
    /// @}
    /// A resize cursor across the drawn line, the way it translates.
    QCursor getTranslationCursor() const;

    /// Emits lineRotated() with the angle from the current line to \a line, unless it is 0.
    void emitLineRotated(const QLineF& line);

    /// Clips the line to the viewport rectangle; a line that misses it, or a zero direction,
    /// gives a null drawn line, which draws nothing and cannot be hit.
    void intersectLineWithRect();

    /// The pick line's bounding rectangle: the line is hit wherever its wider twin is.
    QRectF boundingRect() const override;
    /// True within the pick line's area.
    bool contains(const QPointF& point) const override;

Q_SIGNALS:
    /// Counter-clockwise degrees in [0, 360) from the current line; never 0.
    void lineRotated(float angle);
    /// The pointer, translating, reached this scene position.
    void lineTranslated(const QPointF& translatedToPosition);

public Q_SLOTS:
    /// @{
    /// Switches manipulation off and on; while off, presses and hovers change nothing.
    void disableManipulation();
    void enableManipulation();
    /// @}

protected:
    /// Pushes an override cursor; paired with the pop in hoverLeaveEvent().
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    /// Updates the override cursor for the hover position.
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    /// Pops the override cursor pushed on hover enter.
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    /// Does not take ownership of \a event.
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;

private:
    /// What the current press does.
    enum ManipulationMode {
        /// No press is being followed.
        NoManipulation = 0,
        /// Rotating, pressed on the direction side of the rotation point.
        RotatingOnDirectionSide = 1,
        /// Rotating, pressed on the other side.
        RotatingOnOppositeSide = 2,
        /// Translating.
        Translating = 3
    };

    Q_DISABLE_COPY(LineManipulationGraphicsItem)

    QRectF m_viewportRectangle;
    QLineF m_line;
    InvisibleLineDragger m_pickLine;
    int m_manipulationMode = NoManipulation;
    bool m_manipulationEnabled = true;
    bool m_rotationEnabled = true;
    bool m_translationEnabled = true;
};
