#pragma once

#include <guicore/guicore_export.h>

#include <QString>

#include <memory>

namespace ui {

class Node;

/// Connects a running part of the user interface to the state tree: it generates the node that
/// stands for that part. Subclasses add the way back (applying a node).
class GUICORE_EXPORT NodeInteractor
{
public:
    NodeInteractor(NodeInteractor&& other) noexcept;
    NodeInteractor& operator=(NodeInteractor&& other) noexcept;
    NodeInteractor(const NodeInteractor&) = delete;
    NodeInteractor& operator=(const NodeInteractor&) = delete;

    /// A new, default node of this interactor's type; ownership passes to the caller.
    virtual std::unique_ptr<Node> generate();
    virtual ~NodeInteractor();

    QString getNodeTypeId() const { return m_nodeTypeId; }

protected:
    explicit NodeInteractor(const QString& nodeTypeId);

private:
    QString m_nodeTypeId;
};

} // namespace ui
