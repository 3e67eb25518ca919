#include <guicore/ui/ViewerNode.h>

namespace ui {

const NodePropertyTable& ViewerNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("viewerIndex", &ViewerNode::m_viewerIndex),
            NodePropertyTable::property("maximized", &ViewerNode::m_maximized),
            NodePropertyTable::property(
                "hadContentWhenGenerated", &ViewerNode::m_hadContentWhenGenerated),
            NodePropertyTable::property(
                "associatedDataObjectUUID", &ViewerNode::m_associatedDataObjectUUID),
        }};
    return table;
}

void ViewerNode::clearAssociatedDataObjectUUID()
{
    setAssociatedDataObjectUUID(QString());
}

} // namespace ui
