#include <guicore/ui/ImplantVisualizationOptionsNode.h>

namespace ui {

const NodePropertyTable& ImplantVisualizationOptionsNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 1),
        {
            NodePropertyTable::property(
                "axisVisible", &ImplantVisualizationOptionsNode::m_axisVisible),
            NodePropertyTable::property(
                "safetyZoneVisible", &ImplantVisualizationOptionsNode::m_safetyZoneVisible),
            NodePropertyTable::property(
                "sleeveVisible", &ImplantVisualizationOptionsNode::m_sleeveVisible),
            NodePropertyTable::property(
                "anchorPinsVisible", &ImplantVisualizationOptionsNode::m_anchorPinsVisible),
        }};
    return table;
}

} // namespace ui
