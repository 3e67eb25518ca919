#pragma once

#include <guicore/guicore_export.h>

#include <vector>

class ViewerBase;

/// Which viewer sits at which row and column of a view's grid, so that a view can find a viewer
/// by position, list its viewers and size its grid. The viewers are borrowed: the matrix never
/// dereferences or deletes them.
class GUICORE_EXPORT ViewerMatrix
{
public:
    /// One grid cell and the viewer in it.
    struct ViewerWithIndex
    {
        int row = 0;    ///< grid row
        int column = 0; ///< grid column
        ViewerBase* viewer = nullptr; ///< not owned
    };

    ViewerMatrix() = default;
    /// @{
    /// Copies the entries; both matrices then borrow the same viewers.
    ViewerMatrix(const ViewerMatrix& other) = default;
    ViewerMatrix& operator=(const ViewerMatrix& other) = default;
    /// @}

    /// Puts viewer (not owned, may be null) at row and column; an existing entry there keeps its
    /// place in the order and gets the new viewer.
    void addViewer(int row, int column, ViewerBase* viewer);
    /// The viewer at row and column, or null; not owned.
    ViewerBase* getViewer(int row, int column) const;
    /// Every viewer in insertion order, nulls included; not owned.
    std::vector<ViewerBase*> getViewers() const;
    /// The entries in insertion order.
    const std::vector<ViewerWithIndex>& getViewersWithIndex() const { return m_viewers; }

    /// The largest column number used in row, or 0 when the row is empty. This is an index, not
    /// a count: grids number rows and columns from 1, where the two agree, and callers that use
    /// index 0 rely on the index.
    int numberOfColumnsInRow(int row) const;
    /// The largest row number used, or 0 when the matrix is empty; an index, as above.
    int numberOfRows() const;

private:
    std::vector<ViewerWithIndex> m_viewers;
};
