#pragma once

#include <geometry/geometry_export.h>

#include <QVector3D>

namespace primitives {

/// Axis-aligned box in single precision. Valid when min <= max on every axis; a box of zero
/// extent along some axis (a rectangle, a point) is valid.
class GEOMETRY_EXPORT BoundingBox
{
public:
    /// An invalid box.
    BoundingBox();
    BoundingBox(const QVector3D& min, const QVector3D& max);

    QVector3D getMin() const { return m_min; }
    QVector3D getMax() const { return m_max; }
    bool isValid() const;
    /// True for points inside or on the boundary; always false for an invalid box.
    bool contains(const QVector3D& point) const;

private:
    QVector3D m_min;
    QVector3D m_max;
};

} // namespace primitives
