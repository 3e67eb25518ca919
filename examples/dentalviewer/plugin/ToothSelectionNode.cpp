#include "ToothSelectionNode.h"

const ui::NodePropertyTable& ToothSelectionNode::properties()
{
    static const ui::NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {ui::NodePropertyTable::property("tooth", &ToothSelectionNode::m_tooth)}};
    return table;
}
