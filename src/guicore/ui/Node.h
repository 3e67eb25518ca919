#pragma once

#include <guicore/guicore_export.h>

#include <objectmodel/CoreObject.h>

#include <QMap>
#include <QString>
#include <QVersionNumber>

#include <memory>
#include <vector>

namespace ui {

class NodePropertyTable;

/// A node of the user-interface state tree: which viewers are shown, how they are laid out and
/// what they show. A node owns its children, carries the format version of every class level
/// that wrote it, and remembers whether it changed since the tree was last saved.
///
/// While utility::ModificationLock holds the UserInterfaceState scope (loading, replication),
/// changes do not mark nodes altered, so a freshly loaded tree is not reported as modified.
class GUICORE_EXPORT Node : public CoreObject
{
public:
    Node& operator=(const Node&) = delete;

    virtual QString getTypeId() const;
    ~Node() override;
    /// A copy of this node's own fields, without its children; ownership passes to the caller.
    /// The copy starts unaltered and registers its own versions.
    virtual std::unique_ptr<Node> clone() const = 0;
    /// True when other is of this node's class and equal in every property and, as a multiset,
    /// in its children. Altered flags and versions are not compared.
    virtual bool isEqual(const Node& other) const = 0;

    static QString getClassTypeId();

    /// Appends child; ownership passes to this node. A null child is ignored.
    void addNode(std::unique_ptr<Node> child);
    /// Appends every non-null child in order; ownership passes to this node.
    void addNodes(std::vector<std::unique_ptr<Node>> children);
    /// The children in order; the pointers are borrowed and stay owned by this node.
    std::vector<Node*> getNodes() const;
    /// Moves all children out in order; ownership passes to the caller. Does not mark altered.
    std::vector<std::unique_ptr<Node>> takeNodes();
    /// Destroys the child that is that very object; an equal but different node, or a node that
    /// is not a child, is ignored.
    void removeNode(const Node& child);

    bool isAltered() const { return m_altered; }
    bool isAlteredRecursively() const;
    void clearAlteredRecursively();

    const QMap<QString, QVersionNumber>& getVersions() const { return m_versions; }
    const QMap<QString, QVersionNumber>& getLoadingVersions() const { return m_loadingVersions; }
    void setLoadingVersions(const QMap<QString, QVersionNumber>& versions);

    /// Appends the property table of every class level below Node, root first. The tables are
    /// the single list of a class's properties that comparison and persistence walk; the
    /// pointers refer to static tables. NodeKind implements it for every kind.
    virtual void collectPropertyTables(std::vector<const NodePropertyTable*>& tables) const;

protected:
    Node();
    /// Copies the loading versions; children are not copied and the copy is not altered.
    Node(const Node& other);

    /// Registers a class level: its type name and the format version it writes.
    // NOLINTNEXTLINE(readability-identifier-naming): matches CORE_OBJECT_INIT.
    void UI_NODE_INIT(const QString& typeName, const QVersionNumber& version);

    /// Marks this node altered unless the state tree is locked against modification.
    void setAltered();

    /// Same class chain, then the children compared as multisets with isEqual.
    bool operator==(const Node& other) const;

    /// The first candidate that node isEqual to, or null; the pointer is one of the candidates.
    const Node* findCorrespondingNode(const Node& node, const std::vector<Node*>& candidates) const;

private:
    bool m_altered = false;
    std::vector<std::unique_ptr<Node>> m_childNodes;
    QMap<QString, QVersionNumber> m_versions;
    QMap<QString, QVersionNumber> m_loadingVersions;
};

} // namespace ui
