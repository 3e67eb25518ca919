#pragma once

#include <memory>
#include <vector>

namespace ui {
class Node;
}

namespace ui::detail {

/// Multiset equality of two node lists under isEqual. Candidates are bucketed by their type name
/// and a hash of their exactly compared properties (equal nodes agree on both), so wide trees do
/// not pay for comparing every child with every other.
bool equalAsMultisets(const std::vector<const Node*>& mine, const std::vector<const Node*>& theirs);
bool equalAsMultisets(const std::vector<std::unique_ptr<Node>>& mine,
    const std::vector<std::unique_ptr<Node>>& theirs);

} // namespace ui::detail
