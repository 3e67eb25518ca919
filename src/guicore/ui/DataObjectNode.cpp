#include <guicore/ui/DataObjectNode.h>

namespace ui {

const NodePropertyTable& DataObjectNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("dataObjectUUID", &DataObjectNode::m_dataObjectUUID),
        }};
    return table;
}

} // namespace ui
