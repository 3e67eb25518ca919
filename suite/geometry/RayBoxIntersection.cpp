#include <geometry/RayBoxIntersection.h>

#include <geometry/BoundingBox.h>

#include <algorithm>
#include <limits>

namespace primitives {

utility::Optional<std::pair<QVector3D, QVector3D>> RayBoxIntersection::calculateIntersectionPoints(
    const BoundingBox& box, const QVector3D& origin, const QVector3D& direction)
{
    if (!box.isValid() || direction.isNull())
        return std::nullopt;

    // Slab method over the whole line (the parameter runs over all reals, not only t >= 0).
    float tEnter = -std::numeric_limits<float>::infinity();
    float tLeave = std::numeric_limits<float>::infinity();
    const QVector3D min = box.getMin();
    const QVector3D max = box.getMax();
    for (int axis = 0; axis < 3; ++axis) {
        const float o = origin[axis];
        const float d = direction[axis];
        if (d == 0.0f) {
            // Parallel to this slab: dividing would give infinities or NaN (0 * inf); the line
            // is either inside the slab everywhere or nowhere.
            if (o < min[axis] || o > max[axis])
                return std::nullopt;
            continue;
        }
        float t1 = (min[axis] - o) / d;
        float t2 = (max[axis] - o) / d;
        if (t1 > t2)
            std::swap(t1, t2);
        tEnter = std::max(tEnter, t1);
        tLeave = std::min(tLeave, t2);
        if (tEnter > tLeave)
            return std::nullopt;
    }
    return std::make_pair(origin + direction * tEnter, origin + direction * tLeave);
}

} // namespace primitives
