#include <guicore/ui/ImageViewerNode.h>

namespace ui {

const NodePropertyTable& ImageViewerNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0), {}};
    return table;
}

} // namespace ui
