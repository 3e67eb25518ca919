#include <guicore/ui/AngulatedResliceNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

AngulatedResliceNode::AngulatedResliceNode(const QString& dataObjectUUID)
    : DataObjectNode(dataObjectUUID)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

AngulatedResliceNode::AngulatedResliceNode(const AngulatedResliceNode& other)
    : DataObjectNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

AngulatedResliceNode::~AngulatedResliceNode() = default;

QString AngulatedResliceNode::getClassTypeId()
{
    return QStringLiteral("AngulatedResliceNode");
}

QString AngulatedResliceNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> AngulatedResliceNode::clone() const
{
    return std::make_unique<AngulatedResliceNode>(*this);
}

bool AngulatedResliceNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const AngulatedResliceNode*>(&other);
    return same && *this == *same;
}

bool AngulatedResliceNode::operator==(const AngulatedResliceNode& other) const
{
    return DataObjectNode::operator==(other)
        && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& AngulatedResliceNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("origin", &AngulatedResliceNode::m_origin),
            detail::makeProperty("direction0", &AngulatedResliceNode::m_direction0),
            detail::makeProperty("direction1", &AngulatedResliceNode::m_direction1),
        }};
    return table;
}

void AngulatedResliceNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    DataObjectNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void AngulatedResliceNode::setOrigin(const QVector3D& origin)
{
    if (detail::assignIfChanged(m_origin, origin))
        setAltered();
}

void AngulatedResliceNode::setDirection0(const QVector3D& direction0)
{
    if (detail::assignIfChanged(m_direction0, direction0))
        setAltered();
}

void AngulatedResliceNode::setDirection1(const QVector3D& direction1)
{
    if (detail::assignIfChanged(m_direction1, direction1))
        setAltered();
}

} // namespace ui
