#include <guicore/ui/DiagnosisNode.h>

namespace ui {

const NodePropertyTable& DiagnosisNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0), {}};
    return table;
}

} // namespace ui
