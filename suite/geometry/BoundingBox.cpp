#include <geometry/BoundingBox.h>

namespace primitives {

BoundingBox::BoundingBox()
    : m_min(1.0f, 1.0f, 1.0f)
    , m_max(-1.0f, -1.0f, -1.0f)
{
}

BoundingBox::BoundingBox(const QVector3D& min, const QVector3D& max)
    : m_min(min)
    , m_max(max)
{
}

bool BoundingBox::isValid() const
{
    return m_min.x() <= m_max.x() && m_min.y() <= m_max.y() && m_min.z() <= m_max.z();
}

bool BoundingBox::contains(const QVector3D& point) const
{
    for (int axis = 0; axis < 3; ++axis) {
        if (!(point[axis] >= m_min[axis] && point[axis] <= m_max[axis]))
            return false;
    }
    return true;
}

} // namespace primitives
