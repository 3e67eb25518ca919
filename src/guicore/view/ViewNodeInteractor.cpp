#include "ViewNodeInteractor.h"

#include "View.h"

#include <guicore/ui/Node.h>
#include <guicore/ui/ViewNode.h>

namespace ui {

ViewNodeInteractor::ViewNodeInteractor(View& view)
    : NodeInteractor(ViewNode::getClassTypeId())
    , m_view(view)
{
}

ViewNodeInteractor::~ViewNodeInteractor() = default;

std::unique_ptr<Node> ViewNodeInteractor::generate()
{
    std::unique_ptr<Node> node = NodeInteractor::generate();
    if (auto* viewNode = dynamic_cast<ViewNode*>(node.get()))
        viewNode->setViewId(getViewID());
    return node;
}

void ViewNodeInteractor::apply(Node*) { }

QString ViewNodeInteractor::getViewID() const
{
    return m_view.getID();
}

} // namespace ui
