#include <guicore/ui/LayoutTileNode.h>

namespace ui {

const NodePropertyTable& LayoutTileNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("layoutTileId", &LayoutTileNode::m_layoutTileId),
        }};
    return table;
}

} // namespace ui
