#include <guicore/view/ViewerMatrix.h>

#include <algorithm>

void ViewerMatrix::addViewer(int row, int column, ViewerBase* viewer)
{
    const auto existing = std::find_if(
        m_viewers.begin(), m_viewers.end(), [row, column](const ViewerWithIndex& entry) {
            return entry.row == row && entry.column == column;
        });
    if (existing != m_viewers.end()) {
        existing->viewer = viewer;
        return;
    }
    m_viewers.push_back({row, column, viewer});
}

ViewerBase* ViewerMatrix::getViewer(int row, int column) const
{
    const auto found = std::find_if(
        m_viewers.begin(), m_viewers.end(), [row, column](const ViewerWithIndex& entry) {
            return entry.row == row && entry.column == column;
        });
    return found == m_viewers.end() ? nullptr : found->viewer;
}

std::vector<ViewerBase*> ViewerMatrix::getViewers() const
{
    std::vector<ViewerBase*> viewers;
    viewers.reserve(m_viewers.size());
    for (const ViewerWithIndex& entry : m_viewers)
        viewers.push_back(entry.viewer);
    return viewers;
}

int ViewerMatrix::numberOfColumnsInRow(int row) const
{
    int largest = 0;
    bool found = false;
    for (const ViewerWithIndex& entry : m_viewers) {
        if (entry.row != row)
            continue;
        largest = found ? std::max(largest, entry.column) : entry.column;
        found = true;
    }
    return largest;
}

int ViewerMatrix::numberOfRows() const
{
    if (m_viewers.empty())
        return 0;
    const auto largest = std::max_element(m_viewers.begin(), m_viewers.end(),
        [](const ViewerWithIndex& a, const ViewerWithIndex& b) { return a.row < b.row; });
    return largest->row;
}
