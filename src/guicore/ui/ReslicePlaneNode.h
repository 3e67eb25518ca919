#pragma once

#include <guicore/ui/NodeKind.h>

#include <QVector3D>

namespace ui {

/// The part that the reslice kinds share: the plane's origin and its two in-plane directions,
/// stored as "origin", "direction0" and "direction1". Kind lists planeProperties() in its own
/// table.
template <typename Kind, typename Base> class ReslicePlaneNode : public NodeKind<Kind, Base>
{
public:
    /// A point of the plane. Compared exactly, as are the directions: they are copied, never
    /// recomputed.
    const QVector3D& getOrigin() const { return m_origin; }
    /// Marks the node altered only when the value changes.
    void setOrigin(const QVector3D& origin) { this->assign(m_origin, origin); }
    /// The first in-plane direction.
    const QVector3D& getDirection0() const { return m_direction0; }
    /// Marks the node altered only when the value changes.
    void setDirection0(const QVector3D& direction0) { this->assign(m_direction0, direction0); }
    /// The second in-plane direction.
    const QVector3D& getDirection1() const { return m_direction1; }
    /// Marks the node altered only when the value changes.
    void setDirection1(const QVector3D& direction1) { this->assign(m_direction1, direction1); }

protected:
    using NodeKind<Kind, Base>::NodeKind;

    /// The entries "origin", "direction0" and "direction1", for Kind's property table.
    static std::vector<NodePropertyTable::Property> planeProperties()
    {
        return {NodePropertyTable::property("origin", &ReslicePlaneNode::m_origin),
            NodePropertyTable::property("direction0", &ReslicePlaneNode::m_direction0),
            NodePropertyTable::property("direction1", &ReslicePlaneNode::m_direction1)};
    }

private:
    QVector3D m_origin;
    QVector3D m_direction0;
    QVector3D m_direction1;
};

} // namespace ui
