#include <guicore/ui/SplitterNode.h>

namespace ui {

const NodePropertyTable& SplitterNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property("row", &SplitterNode::m_row),
            NodePropertyTable::property("column", &SplitterNode::m_column),
            NodePropertyTable::property("relativeRowSize", &SplitterNode::m_relativeRowSize),
            NodePropertyTable::property("relativeColumnSize", &SplitterNode::m_relativeColumnSize),
        }};
    return table;
}

} // namespace ui
