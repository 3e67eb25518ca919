#include <guicore/ui/IntraOralPicturesViewNode.h>

namespace ui {

const NodePropertyTable& IntraOralPicturesViewNode::properties()
{
    static const NodePropertyTable table {
        getClassTypeId(), QVersionNumber(1, 0), layoutProperties()};
    return table;
}

} // namespace ui
