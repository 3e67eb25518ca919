#include <guicore/ui/SnappedResliceNode.h>

namespace ui {

const NodePropertyTable& SnappedResliceNode::properties()
{
    static const NodePropertyTable table = [] {
        std::vector<NodePropertyTable::Property> properties = planeProperties();
        properties.push_back(NodePropertyTable::property(
            "planeOrientation", &SnappedResliceNode::m_planeOrientation));
        return NodePropertyTable {getClassTypeId(), QVersionNumber(1, 0), std::move(properties)};
    }();
    return table;
}

} // namespace ui
