#include "ToothNumberingNode.h"

const ui::NodePropertyTable& ToothNumberingNode::properties()
{
    static const ui::NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {ui::NodePropertyTable::property("notation", &ToothNumberingNode::m_notation)}};
    return table;
}
