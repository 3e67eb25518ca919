#pragma once

#include <guicore/guicore_export.h>

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace ui {

class Node;

/// Makes nodes from their stored type ids, and copies state trees onto re-imported data.
///
/// All functions are static and may be called from any thread: the registry of application
/// kinds is locked, the built-in kinds are fixed.
class GUICORE_EXPORT NodeFactory
{
public:
    /// Old data-object UUID, then the new one.
    using DataObjectUuidConversion = std::pair<QString, QString>;

    NodeFactory() = delete;

    /// Makes a new, default-constructed node of one kind; ownership passes to the caller.
    using Creator = std::function<std::unique_ptr<Node>()>;

    /// A new, default-constructed node of the kind whose type id is typeId (case-sensitive),
    /// built in or registered; ownership passes to the caller. "Node" and unknown ids give a
    /// placeholder node, so that a tree written by a newer version, or holding the kind of a
    /// plug-in that is not loaded, still loads.
    static std::unique_ptr<Node> createSpecificNode(const QString& typeId);

    /// Adds an application's node kind, so that NodeSerializer reads it back as itself instead of
    /// a placeholder. baseTypeId names the kind it derives from ("Node" or any known kind);
    /// creator is called once here to check that it makes nodes of typeId that derive from it.
    /// Refused (false), with a warning, for an empty id or creator, an id that is already known,
    /// an unknown base, or a creator that makes something else; the warnings, in that order:
    /// "NodeFactory : a node kind needs a type id and a creator.",
    /// `NodeFactory : the node kind "<id>" is already registered.`,
    /// `NodeFactory : the base "<base>" of the node kind "<id>" is not registered.` and
    /// `NodeFactory : the creator of "<id>" does not make nodes of that kind derived from
    /// "<base>".` The creator is kept by value and called whenever a node of the kind is made, on
    /// the calling thread.
    static bool registerNodeKind(
        const QString& typeId, const QString& baseTypeId, const Creator& creator);
    /// The same for a kind written with NodeKind<Kind, Base>.
    template <typename Kind> static bool registerNodeKind()
    {
        return registerNodeKind(Kind::getClassTypeId(), Kind::BaseNode::getClassTypeId(),
            [] { return std::unique_ptr<Node>(new Kind()); });
    }
    /// Removes a kind that registerNodeKind added, before the code that makes it is unloaded;
    /// later reads give placeholders for it. Built-in kinds stay; an unknown id is ignored. Both
    /// with a warning: `NodeFactory : the built-in node kind "<id>" stays registered.` and
    /// `NodeFactory : no node kind "<id>" is registered.`
    static bool unregisterNodeKind(const QString& typeId);
    /// The type ids of every kind that createSpecificNode makes, built in and registered,
    /// sorted; "Node" (the placeholder) is not among them.
    static QStringList getNodeKindTypeIds();

    /// A copy of the tree under node in which every data-object node refers to its new UUID.
    /// A data-object node with an empty UUID or without a conversion is dropped with its
    /// subtree; a patient without UUID is kept as it is. Runs under the modification lock, so
    /// the copy is not altered. node is not taken over; ownership of the copy passes to the
    /// caller; a null node gives null.
    ///
    /// An empty UUID logs the warning "Empty uuid in DataObjectNode. This should only happen
    /// when importing older patients."; a UUID without conversion logs, at information level,
    /// "Adapted UUID not found for DataObject. This should only happen when importing older
    /// patients.". The old UUIDs are matched exactly, the first matching conversion wins. A
    /// placeholder (a node of a kind this build does not know) is copied empty, with the warning
    /// "Trying to clone a base ui::Node. This should never happen!": its stored properties are
    /// lost, its children are copied.
    static std::unique_ptr<Node> replicateRecursively(
        const Node* node, const std::vector<DataObjectUuidConversion>& conversions);
};

} // namespace ui
