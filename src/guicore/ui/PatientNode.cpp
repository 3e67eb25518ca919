#include <guicore/ui/PatientNode.h>

namespace ui {

const NodePropertyTable& PatientNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0), {}};
    return table;
}

} // namespace ui
