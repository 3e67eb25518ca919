#include <guicore/ui/DentalScanViewer3DNode.h>

namespace ui {

const NodePropertyTable& DentalScanViewer3DNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("archType", &DentalScanViewer3DNode::m_archType),
        }};
    return table;
}

} // namespace ui
