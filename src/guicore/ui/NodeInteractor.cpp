#include <guicore/ui/NodeInteractor.h>

#include <guicore/ui/Node.h>
#include <guicore/ui/NodeFactory.h>

namespace ui {

NodeInteractor::NodeInteractor(const QString& nodeTypeId)
    : m_nodeTypeId(nodeTypeId)
{
}

NodeInteractor::NodeInteractor(NodeInteractor&& other) noexcept = default;
NodeInteractor& NodeInteractor::operator=(NodeInteractor&& other) noexcept = default;
NodeInteractor::~NodeInteractor() = default;

std::unique_ptr<Node> NodeInteractor::generate()
{
    return NodeFactory::createSpecificNode(m_nodeTypeId);
}

} // namespace ui
