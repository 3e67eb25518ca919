#include <guicore/ui/DataObjectNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

DataObjectNode::DataObjectNode(const QString& dataObjectUUID)
    : m_dataObjectUUID(dataObjectUUID)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

DataObjectNode::DataObjectNode(const DataObjectNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

DataObjectNode::~DataObjectNode() = default;

QString DataObjectNode::getClassTypeId()
{
    return QStringLiteral("DataObjectNode");
}

QString DataObjectNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> DataObjectNode::clone() const
{
    return std::make_unique<DataObjectNode>(*this);
}

bool DataObjectNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const DataObjectNode*>(&other);
    return same && *this == *same;
}

bool DataObjectNode::operator==(const DataObjectNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& DataObjectNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("dataObjectUUID", &DataObjectNode::m_dataObjectUUID),
        }};
    return table;
}

void DataObjectNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void DataObjectNode::setDataObjectUUID(const QString& dataObjectUUID)
{
    if (detail::assignIfChanged(m_dataObjectUUID, dataObjectUUID))
        setAltered();
}

} // namespace ui
