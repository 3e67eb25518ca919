#include <guicore/ui/PeriapicalViewNode.h>

namespace ui {

const NodePropertyTable& PeriapicalViewNode::properties()
{
    static const NodePropertyTable table {
        getClassTypeId(), QVersionNumber(1, 0), layoutProperties()};
    return table;
}

} // namespace ui
