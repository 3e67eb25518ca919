#pragma once

#include <guicore/guicore_export.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QString>

#include <memory>

namespace ui {

class Node;

/// Writes a state tree to JSON and reads it back.
///
/// Each node is stored with its type id, the versions of its class levels, its properties
/// grouped by the class level that declares them, and its children. Reading builds the nodes
/// with NodeFactory under the modification lock, so the tree read is not altered, and keeps the
/// versions it found as the nodes' loading versions. Nodes of a kind this build does not know are
/// kept as placeholders with their children, and written back as they were read. Malformed input
/// gives no tree at all and one warning, never a partial tree.
///
/// The document is an object {"format": "GuiCoreStateTree", "formatVersion": 1, "root": node};
/// a node is {"type": id, "versions": {level: "1.0", ...}, "properties": {level: {name: value,
/// ...}, ...}, "children": [node, ...]}, the last two left out when empty. A level or property
/// missing from the data keeps its default; a property of the wrong JSON type makes the input
/// malformed.
///
/// The warnings, all in the category "guicore.ui":
/// - `NodeSerializer : the state tree is nested deeper than 400 levels and was not written.`
/// - "NodeSerializer : the document does not hold a state tree."
/// - `NodeSerializer : the state tree was written in format <n>, newer than this build reads (1).`
/// - `NodeSerializer : malformed state tree, nothing was read: <what and where>.`
/// - `NodeSerializer : the state tree is not valid JSON: <parser error> at offset <n>.`
/// - `NodeSerializer : cannot write <path>.` and `NodeSerializer : cannot read <path>.`
///
/// Any thread, one tree per call. Reading holds the process-wide modification lock (see Node):
/// while a tree is read on a worker thread, edits made on the GUI thread are not marked altered.
class GUICORE_EXPORT NodeSerializer
{
public:
    /// Trees deeper than this are neither written nor read: the JSON parser has its own limit,
    /// and a tree that cannot be read back must not be written.
    static constexpr int MAXIMUM_DEPTH = 400;
    /// The layout of the document around the tree. Documents of a later layout are refused,
    /// with a warning, rather than misread; nodes of kinds this build does not know are not a
    /// later layout and load as placeholders.
    static constexpr int FORMAT_VERSION = 1;

    NodeSerializer() = delete;

    /// The tree under root as a document; a null document, with a warning, if it is too deep.
    static QJsonDocument toDocument(const Node& root);
    /// The tree stored in document; ownership passes to the caller; null on malformed input.
    static std::unique_ptr<Node> fromDocument(const QJsonDocument& document);

    /// The tree as indented JSON text; empty, with a warning, if it is too deep.
    static QByteArray write(const Node& root);
    /// The tree stored in json; ownership passes to the caller; null on malformed input.
    static std::unique_ptr<Node> read(const QByteArray& json);

    /// Writes the tree to filePath, replacing the file only once all was written (QSaveFile):
    /// a failed write leaves the old file as it was. False, with a warning, on failure.
    static bool writeFile(const Node& root, const QString& filePath);
    /// The tree stored in filePath; ownership passes to the caller; null when the file cannot be
    /// read or is malformed.
    static std::unique_ptr<Node> readFile(const QString& filePath);
};

} // namespace ui
