#include <guicore/ui/Viewer2DNode.h>

namespace ui {

const NodePropertyTable& Viewer2DNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("zoomBox", &Viewer2DNode::m_zoomBox),
        }};
    return table;
}

} // namespace ui
