#include <guicore/ui/Clipping3DNode.h>

namespace ui {

const NodePropertyTable& Clipping3DNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property(
                "clippingResliceUUID", &Clipping3DNode::m_clippingResliceUUID),
            NodePropertyTable::property("mirrored", &Clipping3DNode::m_mirrored),
        }};
    return table;
}

} // namespace ui
