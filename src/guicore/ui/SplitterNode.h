#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

namespace ui {

/// A cell of a splitter layout: its row and column and their relative sizes.
class GUICORE_EXPORT SplitterNode : public Node
{
public:
    SplitterNode();
    /// Copies the properties of every class level; the children are not copied.
    SplitterNode(const SplitterNode& other);
    SplitterNode& operator=(const SplitterNode&) = delete;
    ~SplitterNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    int getRow() const { return m_row; }
    void setRow(int row);
    int getColumn() const { return m_column; }
    void setColumn(int column);
    int getRelativeRowSize() const { return m_relativeRowSize; }
    void setRelativeRowSize(int relativeRowSize);
    int getRelativeColumnSize() const { return m_relativeColumnSize; }
    void setRelativeColumnSize(int relativeColumnSize);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const SplitterNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    int m_row = 0;
    int m_column = 0;
    int m_relativeRowSize = 1;
    int m_relativeColumnSize = 1;
};

} // namespace ui
