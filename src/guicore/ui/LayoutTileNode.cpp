#include <guicore/ui/LayoutTileNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

LayoutTileNode::LayoutTileNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

LayoutTileNode::LayoutTileNode(const LayoutTileNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

LayoutTileNode::~LayoutTileNode() = default;

QString LayoutTileNode::getClassTypeId()
{
    return QStringLiteral("LayoutTileNode");
}

QString LayoutTileNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> LayoutTileNode::clone() const
{
    return std::make_unique<LayoutTileNode>(*this);
}

bool LayoutTileNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const LayoutTileNode*>(&other);
    return same && *this == *same;
}

bool LayoutTileNode::operator==(const LayoutTileNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& LayoutTileNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("layoutTileId", &LayoutTileNode::m_layoutTileId),
        }};
    return table;
}

void LayoutTileNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void LayoutTileNode::setLayoutTileId(const QString& layoutTileId)
{
    if (detail::assignIfChanged(m_layoutTileId, layoutTileId))
        setAltered();
}

} // namespace ui
