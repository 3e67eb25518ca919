#include <guicore/ui/ViewNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

ViewNode::ViewNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

ViewNode::ViewNode(const ViewNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

ViewNode::~ViewNode() = default;

QString ViewNode::getClassTypeId()
{
    return QStringLiteral("ViewNode");
}

QString ViewNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> ViewNode::clone() const
{
    return std::make_unique<ViewNode>(*this);
}

bool ViewNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const ViewNode*>(&other);
    return same && *this == *same;
}

bool ViewNode::operator==(const ViewNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& ViewNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("viewId", &ViewNode::m_viewId),
            detail::makeProperty("angulatedReslicesHorizontalSlidersPosition",
                &ViewNode::m_angulatedReslicesHorizontalSlidersPosition),
        }};
    return table;
}

void ViewNode::collectPropertyTables(std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void ViewNode::setViewId(const QString& viewId)
{
    if (detail::assignIfChanged(m_viewId, viewId))
        setAltered();
}

void ViewNode::setAngulatedReslicesHorizontalSlidersPosition(const utility::Optional<int>& position)
{
    if (detail::assignIfChanged(m_angulatedReslicesHorizontalSlidersPosition, position))
        setAltered();
}

} // namespace ui
