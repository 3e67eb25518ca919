#pragma once

#include <guicore/guicore_export.h>

#include <QString>

#include <memory>
#include <utility>
#include <vector>

namespace ui {

class Node;

/// Makes nodes from their stored type ids, and copies state trees onto re-imported data.
class GUICORE_EXPORT NodeFactory
{
public:
    /// Old data-object UUID, then the new one.
    using DataObjectUuidConversion = std::pair<QString, QString>;

    NodeFactory() = delete;

    /// A new, default-constructed node of the kind whose type id is typeId (case-sensitive);
    /// ownership passes to the caller. "Node" and unknown ids give a placeholder node, so that a
    /// tree written by a newer version still loads.
    static std::unique_ptr<Node> createSpecificNode(const QString& typeId);

    /// A copy of the tree under node in which every data-object node refers to its new UUID.
    /// A data-object node with an empty UUID or without a conversion is dropped with its
    /// subtree; a patient without UUID is kept as it is. Runs under the modification lock, so
    /// the copy is not altered. node is not taken over; ownership of the copy passes to the
    /// caller; a null node gives null.
    static std::unique_ptr<Node> replicateRecursively(
        const Node* node, const std::vector<DataObjectUuidConversion>& conversions);
};

} // namespace ui
