#pragma once

#include <guicore/guicore_export.h>

#include <QString>

#include <memory>

namespace ui {

class Node;

/// Connects a running part of the user interface to the state tree: it generates the node that
/// stands for that part. Subclasses add the way back (applying a node).
///
/// A view hands out its interactor with View::createNodeInteractor(); ViewNodeInteractor is the
/// one the library provides. Interactors are movable but not copyable; GUI thread, like the
/// part they stand for.
class GUICORE_EXPORT NodeInteractor
{
public:
    /// @{
    /// Takes over other's node type id; other is left with an empty one.
    NodeInteractor(NodeInteractor&& other) noexcept;
    NodeInteractor& operator=(NodeInteractor&& other) noexcept;
    /// @}
    NodeInteractor(const NodeInteractor&) = delete;
    NodeInteractor& operator=(const NodeInteractor&) = delete;

    /// A new, default node of this interactor's type; ownership passes to the caller.
    virtual std::unique_ptr<Node> generate();
    virtual ~NodeInteractor();

    /// The type id of the nodes generate() makes, as NodeFactory::createSpecificNode() takes it.
    QString getNodeTypeId() const { return m_nodeTypeId; }

protected:
    /// An interactor generating nodes of nodeTypeId; an unknown id generates placeholders.
    explicit NodeInteractor(const QString& nodeTypeId);

private:
    QString m_nodeTypeId;
};

} // namespace ui
