#pragma once

#include <QJsonObject>
#include <QJsonValue>

#include <memory>

namespace ui {
class Node;
}

namespace ui::detail {

/// One node and its subtree as a JSON object; shared with properties that own whole nodes.
QJsonObject writeNodeObject(const Node& node);

/// The node stored in json, or null when it is malformed (the reason is reported by the
/// outermost read). Must be called under the modification lock; ownership passes to the caller.
std::unique_ptr<Node> readNodeObject(const QJsonValue& json);

} // namespace ui::detail
