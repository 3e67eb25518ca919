#include "PlaceholderNode_p.h"

#include <QtDebug>

namespace ui::detail {

std::unique_ptr<Node> PlaceholderNode::clone() const
{
    qWarning("Trying to clone a base ui::Node. This should never happen!");
    return std::make_unique<PlaceholderNode>();
}

bool PlaceholderNode::isEqual(const Node& other) const
{
    const auto* placeholder = dynamic_cast<const PlaceholderNode*>(&other);
    return placeholder && Node::operator==(*placeholder);
}

} // namespace ui::detail
