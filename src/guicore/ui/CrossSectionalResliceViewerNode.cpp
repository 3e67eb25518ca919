#include <guicore/ui/CrossSectionalResliceViewerNode.h>

namespace ui {

const NodePropertyTable& CrossSectionalResliceViewerNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property(
                "numberOfSlices", &CrossSectionalResliceViewerNode::m_numberOfSlices),
            NodePropertyTable::property(
                "sliceSpacing", &CrossSectionalResliceViewerNode::m_sliceSpacing),
            NodePropertyTable::property(
                "sliderIndex", &CrossSectionalResliceViewerNode::m_sliderIndex),
        }};
    return table;
}

} // namespace ui
