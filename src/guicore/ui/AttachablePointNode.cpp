#include <guicore/ui/AttachablePointNode.h>

namespace ui {

const NodePropertyTable& AttachablePointNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property(
                "attachedPosition", &AttachablePointNode::m_attachedPosition),
            NodePropertyTable::property(
                "attachedDirection", &AttachablePointNode::m_attachedDirection),
            NodePropertyTable::property(
                "attachedUpperDirection", &AttachablePointNode::m_attachedUpperDirection),
        }};
    return table;
}

} // namespace ui
