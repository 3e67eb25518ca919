#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

#include <QPolygonF>

/// A polygon, closed back to its first point.
class GUICORE_EXPORT CustomGraphicsPolygonItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsPolygonItem(const QString& name = QString(),
        QGraphicsItem* parent = nullptr, const QPolygonF& polygon = QPolygonF());

    /// @{
    /// The polygon in item coordinates; setting it rebuilds the painter path.
    void setPolygon(const QPolygonF& polygon);
    QPolygonF getPolygon() const { return polygon; }
    /// @}

private:
    QPolygonF polygon;
};
