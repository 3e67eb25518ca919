#include "PlaceholderNode_p.h"

#include <guicore/Logging_p.h>

namespace ui::detail {

std::unique_ptr<Node> PlaceholderNode::clone() const
{
    qCWarning(lcUi, "Trying to clone a base ui::Node. This should never happen!");
    return std::make_unique<PlaceholderNode>();
}

bool PlaceholderNode::isEqual(const Node& other) const
{
    const auto* placeholder = dynamic_cast<const PlaceholderNode*>(&other);
    return placeholder && Node::operator==(*placeholder);
}

} // namespace ui::detail
