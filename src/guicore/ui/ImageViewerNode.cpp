#include <guicore/ui/ImageViewerNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

ImageViewerNode::ImageViewerNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

ImageViewerNode::ImageViewerNode(const ImageViewerNode& other)
    : Viewer2DNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

ImageViewerNode::~ImageViewerNode() = default;

QString ImageViewerNode::getClassTypeId()
{
    return QStringLiteral("ImageViewerNode");
}

QString ImageViewerNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> ImageViewerNode::clone() const
{
    return std::make_unique<ImageViewerNode>(*this);
}

bool ImageViewerNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const ImageViewerNode*>(&other);
    return same && *this == *same;
}

bool ImageViewerNode::operator==(const ImageViewerNode& other) const
{
    return Viewer2DNode::operator==(other);
}

} // namespace ui
