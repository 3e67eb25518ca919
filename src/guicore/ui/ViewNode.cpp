#include <guicore/ui/ViewNode.h>

namespace ui {

const NodePropertyTable& ViewNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("viewId", &ViewNode::m_viewId),
            NodePropertyTable::property("angulatedReslicesHorizontalSlidersPosition",
                &ViewNode::m_angulatedReslicesHorizontalSlidersPosition),
        }};
    return table;
}

} // namespace ui
