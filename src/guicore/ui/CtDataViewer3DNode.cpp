#include <guicore/ui/CtDataViewer3DNode.h>

namespace ui {

const NodePropertyTable& CtDataViewer3DNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("updateCameraWhenPatientOrientationChanges",
                &CtDataViewer3DNode::m_updateCameraWhenPatientOrientationChanges),
        }};
    return table;
}

} // namespace ui
