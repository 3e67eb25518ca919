#pragma once

#include <guicore/guicore_export.h>

#include <objectmodel/CoreObject.h>

#include <QMap>
#include <QString>
#include <QVersionNumber>

#include <memory>
#include <vector>

/// The user-interface state tree: ui::Node, its kinds, the factory that makes them from stored
/// type ids, the serializer and the interactors that connect the tree to running views.
namespace ui {

class NodePropertyTable;

/// A node of the user-interface state tree: which viewers are shown, how they are laid out and
/// what they show. A node owns its children, carries the format version of every class level
/// that wrote it, and remembers whether it changed since the tree was last saved.
///
/// While utility::ModificationLock holds the UserInterfaceState scope (loading, replication),
/// changes do not mark nodes altered, so a freshly loaded tree is not reported as modified.
/// That lock is process-wide: while NodeSerializer reads or NodeFactory replicates a tree on one
/// thread, edits of any tree on another thread are not marked either.
///
/// A tree is a plain object graph without signals: nothing tells the application that a node
/// changed; it asks isAlteredRecursively() when it decides whether to save. Trees may be built,
/// read and written on any thread, one thread per tree at a time.
class GUICORE_EXPORT Node : public CoreObject
{
public:
    Node& operator=(const Node&) = delete;

    /// The stored type id of the node's class, getClassTypeId() of its most derived kind;
    /// "Node" for the base and for placeholders of kinds this build does not know.
    virtual QString getTypeId() const;
    /// Destroys the children with the node.
    ~Node() override;
    /// A copy of this node's own fields, without its children; ownership passes to the caller.
    /// The copy starts unaltered and registers its own versions.
    virtual std::unique_ptr<Node> clone() const = 0;
    /// True when other is of this node's class and equal in every property and, as a multiset,
    /// in its children. Altered flags and versions are not compared.
    virtual bool isEqual(const Node& other) const = 0;

    /// "Node", the type id of the base level.
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

    /// Whether this node itself changed (a setter stored a new value, a child was added or
    /// removed) since it was made or last cleared.
    bool isAltered() const { return m_altered; }
    /// Whether this node or any node below it is altered; what decides whether to save.
    bool isAlteredRecursively() const;
    /// Clears the altered flag of this node and of every node below it; call it after saving.
    void clearAlteredRecursively();

    /// One entry per class level, from its type id to the format version it writes, for
    /// example "Node" 1.0, "ViewerNode" 1.0, "Viewer3DNode" 1.1, "CtDataViewer3DNode" 1.0.
    const QMap<QString, QVersionNumber>& getVersions() const { return m_versions; }
    /// The versions found in the stored data the node was read from, by level; empty for a node
    /// that was not read. Compare them with getVersions() to recognise older data.
    const QMap<QString, QVersionNumber>& getLoadingVersions() const { return m_loadingVersions; }
    /// Replaces the loading versions; the reader calls it. Does not mark the node altered.
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
