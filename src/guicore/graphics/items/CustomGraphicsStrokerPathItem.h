#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

#include <QPainterPathStroker>

/// The common part of the thick lines drawn as the outline of their stroke: the centre line, the
/// stroke's width, cap and join, and the painting of the stroke. Zoom-agnostic, the stroke width
/// is in screen pixels. The kinds differ in what they fill the stroke with.
class GUICORE_EXPORT CustomGraphicsStrokerPathItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// The centre line whose stroke is drawn. Stored only; used at the next paint.
    void setStrokerPath(const QPainterPath& path) { strokerPath = path; }
    /// @{
    /// The stroke that outlines the path: width, cap and join. Take effect with the next path.
    void setStrokerWidth(int width) { strokerWidth = width; }
    void setCapStyle(Qt::PenCapStyle style) { capStyle = style; }
    void setJointStyle(Qt::PenJoinStyle style) { joinStyle = style; }
    /// @}
    /// The stroked outline of the path, in item coordinates.
    const QPainterPath& getStrokerPath() const { return strokerPath; }
    /// The stroke width.
    int getStrokerWidth() const { return strokerWidth; }

protected:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsStrokerPathItem(const QString& name, QGraphicsItem* parent);

    /// Makes the stroke of the centre line, at a view scale of `scale`, the painter path and
    /// draws it with the pen, also scaled, and `brush`. The painter is borrowed.
    void paintStroke(QPainter* painter, double scale, const QBrush& brush);

private:
    QPainterPath strokerPath;
    QPainterPathStroker stroker;
    int strokerWidth = 1;
    Qt::PenCapStyle capStyle = Qt::RoundCap;
    Qt::PenJoinStyle joinStyle = Qt::RoundJoin;
};
