#pragma once

#include <geometry/geometry_export.h>
#include <objectmodel/Optional.h>

#include <QVector3D>

#include <utility>

namespace primitives {

class BoundingBox;

/// Where a line crosses an axis-aligned box.
class GEOMETRY_EXPORT RayBoxIntersection
{
public:
    RayBoxIntersection() = delete;

    /// Where the whole line through origin along direction enters and leaves the box, ordered
    /// along direction (both points are equal when the line only touches an edge or corner).
    /// Nothing for a zero direction, an invalid box, or a line that misses the box.
    static utility::Optional<std::pair<QVector3D, QVector3D>> calculateIntersectionPoints(
        const BoundingBox& box, const QVector3D& origin, const QVector3D& direction);
};

} // namespace primitives
