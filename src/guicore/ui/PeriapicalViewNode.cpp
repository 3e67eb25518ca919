#include <guicore/ui/PeriapicalViewNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

PeriapicalViewNode::PeriapicalViewNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

PeriapicalViewNode::PeriapicalViewNode(const PeriapicalViewNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

PeriapicalViewNode::~PeriapicalViewNode() = default;

QString PeriapicalViewNode::getClassTypeId()
{
    return QStringLiteral("PeriapicalViewNode");
}

QString PeriapicalViewNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> PeriapicalViewNode::clone() const
{
    return std::make_unique<PeriapicalViewNode>(*this);
}

bool PeriapicalViewNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const PeriapicalViewNode*>(&other);
    return same && *this == *same;
}

bool PeriapicalViewNode::operator==(const PeriapicalViewNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& PeriapicalViewNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("activeLayoutId", &PeriapicalViewNode::m_activeLayoutId),
        }};
    return table;
}

void PeriapicalViewNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void PeriapicalViewNode::setActiveLayoutId(const QString& activeLayoutId)
{
    if (detail::assignIfChanged(m_activeLayoutId, activeLayoutId))
        setAltered();
}

} // namespace ui
