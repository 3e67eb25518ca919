#include <guicore/ui/SnappedResliceNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

SnappedResliceNode::SnappedResliceNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

SnappedResliceNode::SnappedResliceNode(const SnappedResliceNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

SnappedResliceNode::~SnappedResliceNode() = default;

QString SnappedResliceNode::getClassTypeId()
{
    return QStringLiteral("SnappedResliceNode");
}

QString SnappedResliceNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> SnappedResliceNode::clone() const
{
    return std::make_unique<SnappedResliceNode>(*this);
}

bool SnappedResliceNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const SnappedResliceNode*>(&other);
    return same && *this == *same;
}

bool SnappedResliceNode::operator==(const SnappedResliceNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& SnappedResliceNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("origin", &SnappedResliceNode::m_origin),
            detail::makeProperty("direction0", &SnappedResliceNode::m_direction0),
            detail::makeProperty("direction1", &SnappedResliceNode::m_direction1),
            detail::makeProperty("planeOrientation", &SnappedResliceNode::m_planeOrientation),
        }};
    return table;
}

void SnappedResliceNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void SnappedResliceNode::setOrigin(const QVector3D& origin)
{
    if (detail::assignIfChanged(m_origin, origin))
        setAltered();
}

void SnappedResliceNode::setDirection0(const QVector3D& direction0)
{
    if (detail::assignIfChanged(m_direction0, direction0))
        setAltered();
}

void SnappedResliceNode::setDirection1(const QVector3D& direction1)
{
    if (detail::assignIfChanged(m_direction1, direction1))
        setAltered();
}

void SnappedResliceNode::setPlaneOrientation(const QString& planeOrientation)
{
    if (detail::assignIfChanged(m_planeOrientation, planeOrientation))
        setAltered();
}

} // namespace ui
