#pragma once

#include <guicore/guicore_export.h>

#include <QGraphicsItemGroup>
#include <QObject>
#include <QPointF>

#include <memory>

class CenterDragger;
class LineManipulationGraphicsItem;
class QColor;
class QRectF;
class QVector2D;

/// Two manipulable lines, a horizontal and a vertical one, with a CenterDragger at their
/// crossing. While the mouse hovers the handle neither line can be grabbed, and dragging the
/// handle translates both lines to it. Rotations and translations of either line are passed on
/// as the group's own signals; the owner answers with setHorizontalLine() / setVerticalLine().
class GUICORE_EXPORT CrossedLinesManipulationGraphicsItemGroup : public QObject,
                                                                 public QGraphicsItemGroup
{
    Q_OBJECT

public:
    /// Does not take ownership of \a parent; the new item becomes its child item when given.
    explicit CrossedLinesManipulationGraphicsItemGroup(QGraphicsItem* parent = nullptr);
    ~CrossedLinesManipulationGraphicsItemGroup() override;

    /// @{
    /// The line through the point along the direction (scene coordinates); the point is its
    /// rotation point. See LineManipulationGraphicsItem::setLine().
    void setHorizontalLine(const QPointF& point, const QVector2D& direction);
    void setVerticalLine(const QPointF& point, const QVector2D& direction);
    /// @}
    /// @{
    /// The colour of each line.
    void setHorizontalColor(const QColor& color);
    void setVerticalColor(const QColor& color);
    /// @}
    /// The visible scene rectangle both lines are drawn across; call it when the view changes.
    void setViewportRectangle(const QRectF& rect);

    /// The centre handle is shown only while both lines are.
    void showHorizontalLine(bool visible);
    /// Shows or hides the vertical line.
    void showVerticalLine(bool visible);

    /// Allows or forbids rotating both lines.
    void enableRotation(bool enabled);
    /// Also makes the centre handle movable or fixed.
    void enableTranslation(bool enabled);
    /// The horizontal line's setting alone.
    bool isRotationEnabled() const;
    /// The horizontal line's setting alone.
    bool isTranslationEnabled() const;

    /// Adds a further line with pick width 2 and \a color to the group. The group owns it as a
    /// child item but keeps no other reference to it and connects none of its signals.
    LineManipulationGraphicsItem* addLineManipulator(const QColor& color);

    /// Moves the centre handle to where the two drawn lines (or their extensions) cross, without
    /// any signal; parallel or null lines leave it in place.
    void updateCenter();

Q_SIGNALS:
    /// @{
    /// The user dragged that line to the scene position; the owner moves it with
    /// setHorizontalLine() or setVerticalLine().
    void horizontalLineTranslated(const QPointF& translatedToPosition);
    void verticalLineTranslated(const QPointF& translatedToPosition);
    /// @}
    /// @{
    /// The user turned that line by the angle (counter-clockwise degrees); the owner turns it.
    void horizontalLineRotated(float angle);
    void verticalLineRotated(float angle);
    /// @}

public Q_SLOTS:
    /// Reports \a position as the new place of the vertical line first, then of the horizontal
    /// line.
    void emitLineTranslatedSignals(const QPointF& position);

private:
    Q_DISABLE_COPY(CrossedLinesManipulationGraphicsItemGroup)

    std::unique_ptr<LineManipulationGraphicsItem> m_horizontalLine;
    std::unique_ptr<LineManipulationGraphicsItem> m_verticalLine;
    std::unique_ptr<CenterDragger> m_centerDragger;
};
