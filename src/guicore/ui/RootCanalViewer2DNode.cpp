#include <guicore/ui/RootCanalViewer2DNode.h>

namespace ui {

const NodePropertyTable& RootCanalViewer2DNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0), {}};
    return table;
}

} // namespace ui
