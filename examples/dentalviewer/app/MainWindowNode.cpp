#include "MainWindowNode.h"

const ui::NodePropertyTable& MainWindowNode::properties()
{
    static const ui::NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {ui::NodePropertyTable::property("geometry", &MainWindowNode::m_geometry),
            ui::NodePropertyTable::property("layout", &MainWindowNode::m_layout)}};
    return table;
}
