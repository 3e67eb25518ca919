#include <guicore/ui/IntraOralPicturesViewNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

IntraOralPicturesViewNode::IntraOralPicturesViewNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

IntraOralPicturesViewNode::IntraOralPicturesViewNode(const IntraOralPicturesViewNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

IntraOralPicturesViewNode::~IntraOralPicturesViewNode() = default;

QString IntraOralPicturesViewNode::getClassTypeId()
{
    return QStringLiteral("IntraOralPicturesViewNode");
}

QString IntraOralPicturesViewNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> IntraOralPicturesViewNode::clone() const
{
    return std::make_unique<IntraOralPicturesViewNode>(*this);
}

bool IntraOralPicturesViewNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const IntraOralPicturesViewNode*>(&other);
    return same && *this == *same;
}

bool IntraOralPicturesViewNode::operator==(const IntraOralPicturesViewNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& IntraOralPicturesViewNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("activeLayoutId", &IntraOralPicturesViewNode::m_activeLayoutId),
        }};
    return table;
}

void IntraOralPicturesViewNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void IntraOralPicturesViewNode::setActiveLayoutId(const QString& activeLayoutId)
{
    if (detail::assignIfChanged(m_activeLayoutId, activeLayoutId))
        setAltered();
}

} // namespace ui
