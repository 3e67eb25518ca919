#include <guicore/ui/SplitterNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

SplitterNode::SplitterNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

SplitterNode::SplitterNode(const SplitterNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

SplitterNode::~SplitterNode() = default;

QString SplitterNode::getClassTypeId()
{
    return QStringLiteral("SplitterNode");
}

QString SplitterNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> SplitterNode::clone() const
{
    return std::make_unique<SplitterNode>(*this);
}

bool SplitterNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const SplitterNode*>(&other);
    return same && *this == *same;
}

bool SplitterNode::operator==(const SplitterNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& SplitterNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("row", &SplitterNode::m_row),
            detail::makeProperty("column", &SplitterNode::m_column),
            detail::makeProperty("relativeRowSize", &SplitterNode::m_relativeRowSize),
            detail::makeProperty("relativeColumnSize", &SplitterNode::m_relativeColumnSize),
        }};
    return table;
}

void SplitterNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void SplitterNode::setRow(int row)
{
    if (detail::assignIfChanged(m_row, row))
        setAltered();
}

void SplitterNode::setColumn(int column)
{
    if (detail::assignIfChanged(m_column, column))
        setAltered();
}

void SplitterNode::setRelativeRowSize(int relativeRowSize)
{
    if (detail::assignIfChanged(m_relativeRowSize, relativeRowSize))
        setAltered();
}

void SplitterNode::setRelativeColumnSize(int relativeColumnSize)
{
    if (detail::assignIfChanged(m_relativeColumnSize, relativeColumnSize))
        setAltered();
}

} // namespace ui
