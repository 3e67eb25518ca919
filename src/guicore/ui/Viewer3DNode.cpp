#include <guicore/ui/Viewer3DNode.h>

namespace ui {

const NodePropertyTable& Viewer3DNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 1),
        {
            NodePropertyTable::property("cameraPosition", &Viewer3DNode::m_cameraPosition),
            NodePropertyTable::property("rotation", &Viewer3DNode::m_rotation),
            NodePropertyTable::property("nearDistance", &Viewer3DNode::m_nearDistance),
            NodePropertyTable::property("farDistance", &Viewer3DNode::m_farDistance),
            NodePropertyTable::property("focalDistance", &Viewer3DNode::m_focalDistance),
            NodePropertyTable::property("minimalFOV", &Viewer3DNode::m_minimalFOV),
        }};
    return table;
}

} // namespace ui
