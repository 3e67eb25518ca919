#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

#include <set>
#include <vector>

namespace ui {

/// A bookmarked state. It owns the data-object nodes it depends on, so that the bookmark can
/// tell whether it still applies when data objects go away.
class GUICORE_EXPORT BookmarkNode : public NodeKind<BookmarkNode, Node>
{
public:
    /// The owned dependencies, in the order they were added.
    using Dependencies = std::vector<std::unique_ptr<DataObjectNode>>;

    /// Adds a dependency; ownership passes to the bookmark. A null node is ignored.
    void addDependency(std::unique_ptr<DataObjectNode>&& dependency);
    /// The dependencies, borrowed; they stay owned by the bookmark.
    std::set<DataObjectNode*> getDependencies() const;
    /// True when a dependency refers to dataObjectUUID (exact comparison).
    bool isDependantOn(const QString& dataObjectUUID) const;
    /// True when dataObjectUUID is the associated data object's UUID (exact comparison).
    bool isAssociatedWith(const QString& dataObjectUUID) const;

    /// A bookmark without dependencies or associated data object.
    BookmarkNode() = default;
    /// Copies the associated UUID and clones the dependencies; the children are not copied.
    BookmarkNode(const BookmarkNode& other);

    /// @{
    /// The type id "BookmarkNode", and this level's table: format 1.0, stored properties
    /// "associatedDataObjectUUID", "dependencies". The dependencies are stored as nodes and
    /// compared as a multiset.
    static QString getClassTypeId() { return QStringLiteral("BookmarkNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The UUID of the data object the bookmark belongs to; empty for none.
    const QString& getAssociatedDataObjectUUID() const { return m_associatedDataObjectUUID; }
    void setAssociatedDataObjectUUID(const QString& associatedDataObjectUUID)
    {
        assign(m_associatedDataObjectUUID, associatedDataObjectUUID);
    }
    /// @}

private:
    QString m_associatedDataObjectUUID;
    Dependencies m_dependencies;
};

} // namespace ui
