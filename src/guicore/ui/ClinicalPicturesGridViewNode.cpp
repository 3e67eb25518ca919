#include <guicore/ui/ClinicalPicturesGridViewNode.h>

namespace ui {

const NodePropertyTable& ClinicalPicturesGridViewNode::properties()
{
    static const NodePropertyTable table {
        getClassTypeId(), QVersionNumber(1, 0), layoutProperties()};
    return table;
}

} // namespace ui
