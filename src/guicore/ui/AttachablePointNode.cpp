#include <guicore/ui/AttachablePointNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

AttachablePointNode::AttachablePointNode(const QString& dataObjectUUID)
    : DataObjectNode(dataObjectUUID)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

AttachablePointNode::AttachablePointNode(const AttachablePointNode& other)
    : DataObjectNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

AttachablePointNode::~AttachablePointNode() = default;

QString AttachablePointNode::getClassTypeId()
{
    return QStringLiteral("AttachablePointNode");
}

QString AttachablePointNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> AttachablePointNode::clone() const
{
    return std::make_unique<AttachablePointNode>(*this);
}

bool AttachablePointNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const AttachablePointNode*>(&other);
    return same && *this == *same;
}

bool AttachablePointNode::operator==(const AttachablePointNode& other) const
{
    return DataObjectNode::operator==(other)
        && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& AttachablePointNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("attachedPosition", &AttachablePointNode::m_attachedPosition),
            detail::makeProperty("attachedDirection", &AttachablePointNode::m_attachedDirection),
            detail::makeProperty(
                "attachedUpperDirection", &AttachablePointNode::m_attachedUpperDirection),
        }};
    return table;
}

void AttachablePointNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    DataObjectNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void AttachablePointNode::setAttachedPosition(const QVector3D& attachedPosition)
{
    if (detail::assignIfChanged(m_attachedPosition, attachedPosition))
        setAltered();
}

void AttachablePointNode::setAttachedDirection(const QVector3D& attachedDirection)
{
    if (detail::assignIfChanged(m_attachedDirection, attachedDirection))
        setAltered();
}

void AttachablePointNode::setAttachedUpperDirection(const QVector3D& attachedUpperDirection)
{
    if (detail::assignIfChanged(m_attachedUpperDirection, attachedUpperDirection))
        setAltered();
}

} // namespace ui
