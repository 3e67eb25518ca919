#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

#include <QString>

namespace ui {

/// A tile of a layout, by its identifier.
class GUICORE_EXPORT LayoutTileNode : public Node
{
public:
    LayoutTileNode();
    /// Copies the properties of every class level; the children are not copied.
    LayoutTileNode(const LayoutTileNode& other);
    LayoutTileNode& operator=(const LayoutTileNode&) = delete;
    ~LayoutTileNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QString& getLayoutTileId() const { return m_layoutTileId; }
    void setLayoutTileId(const QString& layoutTileId);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const LayoutTileNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QString m_layoutTileId;
};

} // namespace ui
