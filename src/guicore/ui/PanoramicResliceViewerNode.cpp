#include <guicore/ui/PanoramicResliceViewerNode.h>

namespace ui {

const NodePropertyTable& PanoramicResliceViewerNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0), {}};
    return table;
}

} // namespace ui
