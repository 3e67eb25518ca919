#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

namespace ui {

/// A cell of a splitter layout: its row and column and their relative sizes.
class GUICORE_EXPORT SplitterNode : public NodeKind<SplitterNode, Node>
{
public:
    /// @{
    /// The type id "SplitterNode", and this level's table: format 1.0, stored properties "row",
    /// "column", "relativeRowSize", "relativeColumnSize".
    static QString getClassTypeId() { return QStringLiteral("SplitterNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The row of the cell, counted from 0.
    int getRow() const { return m_row; }
    void setRow(int row) { assign(m_row, row); }
    /// @}
    /// @{
    /// The column of the cell, counted from 0.
    int getColumn() const { return m_column; }
    void setColumn(int column) { assign(m_column, column); }
    /// @}
    /// @{
    /// The share of the height that the cell's row takes, relative to the other rows; 1 by default.
    int getRelativeRowSize() const { return m_relativeRowSize; }
    void setRelativeRowSize(int relativeRowSize) { assign(m_relativeRowSize, relativeRowSize); }
    /// @}
    /// @{
    /// The share of the width that the cell's column takes, relative to the other columns; 1 by
    /// default.
    int getRelativeColumnSize() const { return m_relativeColumnSize; }
    void setRelativeColumnSize(int relativeColumnSize)
    {
        assign(m_relativeColumnSize, relativeColumnSize);
    }
    /// @}

private:
    int m_row = 0;
    int m_column = 0;
    int m_relativeRowSize = 1;
    int m_relativeColumnSize = 1;
};

} // namespace ui
