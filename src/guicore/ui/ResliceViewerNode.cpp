#include <guicore/ui/ResliceViewerNode.h>

namespace ui {

const NodePropertyTable& ResliceViewerNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("planeOrientation", &ResliceViewerNode::m_planeOrientation),
            NodePropertyTable::property("sliderIndex", &ResliceViewerNode::m_sliderIndex),
        }};
    return table;
}

} // namespace ui
