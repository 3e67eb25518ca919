#include <guicore/ui/ViewerNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

ViewerNode::ViewerNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

ViewerNode::ViewerNode(const ViewerNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

ViewerNode::~ViewerNode() = default;

QString ViewerNode::getClassTypeId()
{
    return QStringLiteral("ViewerNode");
}

QString ViewerNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> ViewerNode::clone() const
{
    return std::make_unique<ViewerNode>(*this);
}

bool ViewerNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const ViewerNode*>(&other);
    return same && *this == *same;
}

bool ViewerNode::operator==(const ViewerNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& ViewerNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("viewerIndex", &ViewerNode::m_viewerIndex),
            detail::makeProperty("maximized", &ViewerNode::m_maximized),
            detail::makeProperty("hadContentWhenGenerated", &ViewerNode::m_hadContentWhenGenerated),
            detail::makeProperty(
                "associatedDataObjectUUID", &ViewerNode::m_associatedDataObjectUUID),
        }};
    return table;
}

void ViewerNode::collectPropertyTables(std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void ViewerNode::setViewerIndex(int viewerIndex)
{
    if (detail::assignIfChanged(m_viewerIndex, viewerIndex))
        setAltered();
}

void ViewerNode::setMaximized(bool maximized)
{
    if (detail::assignIfChanged(m_maximized, maximized))
        setAltered();
}

void ViewerNode::setHadContentWhenGenerated(bool hadContentWhenGenerated)
{
    if (detail::assignIfChanged(m_hadContentWhenGenerated, hadContentWhenGenerated))
        setAltered();
}

void ViewerNode::setAssociatedDataObjectUUID(const QString& associatedDataObjectUUID)
{
    if (detail::assignIfChanged(m_associatedDataObjectUUID, associatedDataObjectUUID))
        setAltered();
}

void ViewerNode::clearAssociatedDataObjectUUID()
{
    setAssociatedDataObjectUUID(QString());
}

} // namespace ui
