#include <guicore/ui/PanoramicResliceViewerNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

PanoramicResliceViewerNode::PanoramicResliceViewerNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

PanoramicResliceViewerNode::PanoramicResliceViewerNode(const PanoramicResliceViewerNode& other)
    : Viewer2DNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

PanoramicResliceViewerNode::~PanoramicResliceViewerNode() = default;

QString PanoramicResliceViewerNode::getClassTypeId()
{
    return QStringLiteral("PanoramicResliceViewerNode");
}

QString PanoramicResliceViewerNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> PanoramicResliceViewerNode::clone() const
{
    return std::make_unique<PanoramicResliceViewerNode>(*this);
}

bool PanoramicResliceViewerNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const PanoramicResliceViewerNode*>(&other);
    return same && *this == *same;
}

bool PanoramicResliceViewerNode::operator==(const PanoramicResliceViewerNode& other) const
{
    return Viewer2DNode::operator==(other);
}

} // namespace ui
