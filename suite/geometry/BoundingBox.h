#pragma once

#include <geometry/geometry_export.h>

#include <QVector3D>

/// The suite's geometry library: boxes and the lines that cross them.
namespace primitives {

/// Axis-aligned box in single precision. Valid when min <= max on every axis; a box of zero
/// extent along some axis (a rectangle, a point) is valid.
class GEOMETRY_EXPORT BoundingBox
{
public:
    /// An invalid box.
    BoundingBox();
    /// The box between the two corners as given: corners in the wrong order make an invalid
    /// box, not a repaired one.
    BoundingBox(const QVector3D& min, const QVector3D& max);

    /// @{
    /// The corner with the smallest, and the one with the largest, coordinates.
    QVector3D getMin() const { return m_min; }
    QVector3D getMax() const { return m_max; }
    /// @}
    /// True when min <= max on every axis.
    bool isValid() const;
    /// True for points inside or on the boundary; always false for an invalid box.
    bool contains(const QVector3D& point) const;

private:
    QVector3D m_min;
    QVector3D m_max;
};

} // namespace primitives
