#include <guicore/ui/AngulatedResliceNode.h>

namespace ui {

const NodePropertyTable& AngulatedResliceNode::properties()
{
    static const NodePropertyTable table {
        getClassTypeId(), QVersionNumber(1, 0), planeProperties()};
    return table;
}

} // namespace ui
