#include <guicore/ui/RootCanalViewer2DNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

RootCanalViewer2DNode::RootCanalViewer2DNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

RootCanalViewer2DNode::RootCanalViewer2DNode(const RootCanalViewer2DNode& other)
    : ResliceViewerNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

RootCanalViewer2DNode::~RootCanalViewer2DNode() = default;

QString RootCanalViewer2DNode::getClassTypeId()
{
    return QStringLiteral("RootCanalViewer2DNode");
}

QString RootCanalViewer2DNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> RootCanalViewer2DNode::clone() const
{
    return std::make_unique<RootCanalViewer2DNode>(*this);
}

bool RootCanalViewer2DNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const RootCanalViewer2DNode*>(&other);
    return same && *this == *same;
}

bool RootCanalViewer2DNode::operator==(const RootCanalViewer2DNode& other) const
{
    return ResliceViewerNode::operator==(other);
}

} // namespace ui
