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

    void setHorizontalLine(const QPointF& point, const QVector2D& direction);
    void setVerticalLine(const QPointF& point, const QVector2D& direction);
    void setHorizontalColor(const QColor& color);
    void setVerticalColor(const QColor& color);
    void setViewportRectangle(const QRectF& rect);

    /// The centre handle is shown only while both lines are.
    void showHorizontalLine(bool visible);
    void showVerticalLine(bool visible);

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
    void horizontalLineTranslated(const QPointF& translatedToPosition);
    void verticalLineTranslated(const QPointF& translatedToPosition);
    void horizontalLineRotated(float angle);
    void verticalLineRotated(float angle);

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
