#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

#include <QColor>
#include <QLineF>
#include <QList>

/// A set of independent line segments. With a valid fill colour, segments that link up into
/// closed loops are drawn as filled polygons instead.
///
/// Open segments are hit along their stroke, closed polygons on their area.
class GUICORE_EXPORT CustomGraphicsLineSetItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsLineSetItem(
        const QString& name = QString(), QGraphicsItem* parent = nullptr);

    /// Draws the loops the segments close as polygons when a fill colour is set and they close
    /// any; otherwise each segment on its own.
    void setLineSet(const QList<QLineF>& lines);
    /// Draws the segments as one closed outline through their end points.
    void setClosedLineSet(const QList<QLineF>& lines);
    /// Removes every line and repaints.
    void clearLineSet();
    /// Stored only: takes effect at the next setLineSet and at painting.
    void setFillColor(const QColor& color) { fillColor = color; }
    /// The colour the lines are drawn with.
    QColor getFillColor() const { return fillColor; }
    /// The lines, in item coordinates.
    const QList<QLineF>& getLineSet() const { return lineSet; }
    /// True when the current painter path consists of closed polygons.
    bool isClosed() const { return closed; }

    /// The closed polygons that the segments form by sharing end points (matched with a
    /// relative tolerance of 1e-12); segments in any order and direction. Segments that close no
    /// loop (open chains, dangling branches) are left out; at a branching point the segments
    /// are split into as many loops as they close. Empty when they form none.
    static QPainterPath createPathWithClosedPolygons(const QList<QLineF>& lines);
    /// The points of one closed outline that follows the segments, starting at the first
    /// segment's first point in the first segment's direction; at a branching point the
    /// rightmost turn is taken. The start point is not repeated at the end. With fewer than
    /// three distinct points, the distinct points as they come.
    static QList<QPointF> getPointsForClosedPolygonFromLines(const QList<QLineF>& lines);

protected:
    void paintScaled(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QList<QLineF> lineSet;
    QColor fillColor;
    bool closed = false;
};
