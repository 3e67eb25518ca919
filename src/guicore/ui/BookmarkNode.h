#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>

#include <QString>

#include <set>
#include <vector>

namespace ui {

/// A bookmarked state. It owns the data-object nodes it depends on, so that the bookmark can
/// tell whether it still applies when data objects go away.
class GUICORE_EXPORT BookmarkNode : public Node
{
public:
    using Dependencies = std::vector<std::unique_ptr<DataObjectNode>>;

    /// Adds a dependency; ownership passes to the bookmark. A null node is ignored.
    void addDependency(std::unique_ptr<DataObjectNode>&& dependency);
    /// The dependencies, borrowed; they stay owned by the bookmark.
    std::set<DataObjectNode*> getDependencies() const;
    bool isDependantOn(const QString& dataObjectUUID) const;
    bool isAssociatedWith(const QString& dataObjectUUID) const;

    BookmarkNode();
    /// Copies the properties of every class level; the children are not copied.
    BookmarkNode(const BookmarkNode& other);
    BookmarkNode& operator=(const BookmarkNode&) = delete;
    ~BookmarkNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QString& getAssociatedDataObjectUUID() const { return m_associatedDataObjectUUID; }
    void setAssociatedDataObjectUUID(const QString& associatedDataObjectUUID);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const BookmarkNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QString m_associatedDataObjectUUID;
    Dependencies m_dependencies;
};

} // namespace ui
