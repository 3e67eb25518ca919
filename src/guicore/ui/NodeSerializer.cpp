#include <guicore/ui/NodeSerializer.h>

#include <guicore/ui/Node.h>
#include <guicore/ui/NodeFactory.h>

#include "NodeSerializer_p.h"
#include "PlaceholderNode_p.h"
#include <guicore/ui/NodePropertyTable.h>

#include <objectmodel/ModificationLock.h>

#include <QFile>
#include <QJsonArray>
#include <QSaveFile>
#include <guicore/Logging_p.h>

namespace ui {

namespace {

const QString kFormatKey = QStringLiteral("format");
const QString kFormatName = QStringLiteral("GuiCoreStateTree");
const QString kFormatVersionKey = QStringLiteral("formatVersion");
const QString kRootKey = QStringLiteral("root");
const QString kTypeKey = QStringLiteral("type");
const QString kVersionsKey = QStringLiteral("versions");
const QString kPropertiesKey = QStringLiteral("properties");
const QString kChildrenKey = QStringLiteral("children");

/// State of one read: nested reads (nodes owned by properties) share the depth and report into
/// the same error, which the outermost read turns into its single warning.
struct ReadState
{
    int depth = 0;
    QString error;
};

thread_local ReadState* currentRead = nullptr;

bool fail(const QString& error)
{
    if (currentRead && currentRead->error.isEmpty())
        currentRead->error = error;
    return false;
}

int depthOf(const Node& node)
{
    int deepest = 0;
    for (const Node* child : node.getNodes())
        deepest = std::max(deepest, depthOf(*child));
    return deepest + 1;
}

QJsonObject versionsToJson(const QMap<QString, QVersionNumber>& versions)
{
    QJsonObject object;
    for (auto it = versions.cbegin(); it != versions.cend(); ++it)
        object.insert(it.key(), it.value().toString());
    return object;
}

bool versionsFromJson(const QJsonValue& json, QMap<QString, QVersionNumber>& versions)
{
    if (!json.isObject())
        return false;
    const QJsonObject object = json.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) {
        if (!it.value().isString())
            return false;
        const QString text = it.value().toString();
        qsizetype suffix = 0;
        const QVersionNumber version = QVersionNumber::fromString(text, &suffix);
        if (version.isNull() || suffix != text.size())
            return false;
        versions.insert(it.key(), version);
    }
    return true;
}

bool readProperties(Node& node, const QJsonValue& json, const QString& typeId)
{
    if (json.isUndefined())
        return true;
    if (!json.isObject())
        return fail(QStringLiteral("the properties of \"%1\" are not an object").arg(typeId));
    const QJsonObject levels = json.toObject();
    if (auto* placeholder = dynamic_cast<detail::PlaceholderNode*>(&node)) {
        placeholder->setStoredProperties(levels);
        return true;
    }
    std::vector<const NodePropertyTable*> tables;
    node.collectPropertyTables(tables);
    for (const NodePropertyTable* table : tables) {
        const QJsonValue levelJson = levels.value(table->typeId);
        // A level or property missing from older data keeps its default.
        if (levelJson.isUndefined())
            continue;
        if (!levelJson.isObject())
            return fail(QStringLiteral("the properties of level \"%1\" in \"%2\" are not an object")
                            .arg(table->typeId, typeId));
        const QJsonObject values = levelJson.toObject();
        for (const NodePropertyTable::Property& property : table->properties) {
            const QJsonValue value = values.value(property.name);
            if (value.isUndefined())
                continue;
            if (!property.fromJson(node, value))
                return fail(QStringLiteral("property \"%1\" of \"%2\" in \"%3\" has the wrong type")
                                .arg(property.name, table->typeId, typeId));
        }
    }
    return true;
}

std::unique_ptr<Node> readNode(const QJsonValue& json)
{
    if (!json.isObject()) {
        fail(QStringLiteral("a node is not a JSON object"));
        return nullptr;
    }
    const QJsonObject object = json.toObject();
    const QJsonValue typeJson = object.value(kTypeKey);
    if (!typeJson.isString() || typeJson.toString().isEmpty()) {
        fail(QStringLiteral("a node has no type id"));
        return nullptr;
    }
    const QString typeId = typeJson.toString();

    QMap<QString, QVersionNumber> versions;
    if (!versionsFromJson(object.value(kVersionsKey), versions)) {
        fail(QStringLiteral("the versions of \"%1\" are missing or malformed").arg(typeId));
        return nullptr;
    }

    std::unique_ptr<Node> node = NodeFactory::createSpecificNode(typeId);
    if (auto* placeholder = dynamic_cast<detail::PlaceholderNode*>(node.get()))
        placeholder->setStoredTypeId(typeId);
    node->setLoadingVersions(versions);
    if (!readProperties(*node, object.value(kPropertiesKey), typeId))
        return nullptr;

    const QJsonValue childrenJson = object.value(kChildrenKey);
    if (childrenJson.isUndefined())
        return node;
    if (!childrenJson.isArray()) {
        fail(QStringLiteral("the children of \"%1\" are not an array").arg(typeId));
        return nullptr;
    }
    for (const QJsonValue& childJson : childrenJson.toArray()) {
        std::unique_ptr<Node> child = detail::readNodeObject(childJson);
        if (!child)
            return nullptr;
        node->addNode(std::move(child));
    }
    return node;
}

} // namespace

namespace detail {

QJsonObject writeNodeObject(const Node& node)
{
    QJsonObject object;
    QJsonObject properties;
    if (const auto* placeholder = dynamic_cast<const PlaceholderNode*>(&node)) {
        const QString storedType = placeholder->getStoredTypeId();
        object.insert(kTypeKey, storedType.isEmpty() ? node.getTypeId() : storedType);
        // An unknown kind is written back with the versions it was read with.
        const bool wasRead = !node.getLoadingVersions().isEmpty();
        object.insert(
            kVersionsKey, versionsToJson(wasRead ? node.getLoadingVersions() : node.getVersions()));
        properties = placeholder->getStoredProperties();
    } else {
        object.insert(kTypeKey, node.getTypeId());
        object.insert(kVersionsKey, versionsToJson(node.getVersions()));
        std::vector<const NodePropertyTable*> tables;
        node.collectPropertyTables(tables);
        for (const NodePropertyTable* table : tables) {
            QJsonObject values;
            for (const NodePropertyTable::Property& property : table->properties)
                values.insert(property.name, property.toJson(node));
            properties.insert(table->typeId, values);
        }
    }
    if (!properties.isEmpty())
        object.insert(kPropertiesKey, properties);

    QJsonArray children;
    for (const Node* child : node.getNodes())
        children.append(writeNodeObject(*child));
    if (!children.isEmpty())
        object.insert(kChildrenKey, children);
    return object;
}

std::unique_ptr<Node> readNodeObject(const QJsonValue& json)
{
    ReadState* state = currentRead;
    if (!state)
        return nullptr;
    if (state->depth >= NodeSerializer::MAXIMUM_DEPTH) {
        fail(QStringLiteral("the tree is nested deeper than %1 levels")
                 .arg(NodeSerializer::MAXIMUM_DEPTH));
        return nullptr;
    }
    ++state->depth;
    std::unique_ptr<Node> node = readNode(json);
    --state->depth;
    return node;
}

} // namespace detail

QJsonDocument NodeSerializer::toDocument(const Node& root)
{
    if (depthOf(root) > MAXIMUM_DEPTH) {
        qCWarning(lcUi).noquote() << QStringLiteral(
            "NodeSerializer : the state tree is nested deeper than %1 "
            "levels and was not written.")
                                         .arg(MAXIMUM_DEPTH);
        return QJsonDocument();
    }
    QJsonObject document;
    document.insert(kFormatKey, kFormatName);
    document.insert(kFormatVersionKey, FORMAT_VERSION);
    document.insert(kRootKey, detail::writeNodeObject(root));
    return QJsonDocument(document);
}

std::unique_ptr<Node> NodeSerializer::fromDocument(const QJsonDocument& document)
{
    const QJsonObject object = document.object();
    const QJsonValue formatVersion = object.value(kFormatVersionKey);
    if (!document.isObject() || object.value(kFormatKey).toString() != kFormatName
        || !object.value(kRootKey).isObject() || !formatVersion.isDouble()
        || formatVersion.toDouble() < 1) {
        qCWarning(lcUi, "NodeSerializer : the document does not hold a state tree.");
        return nullptr;
    }
    if (formatVersion.toDouble() > FORMAT_VERSION) {
        qCWarning(lcUi).noquote() << QStringLiteral(
            "NodeSerializer : the state tree was written in "
            "format %1, newer than this build reads (%2).")
                                         .arg(formatVersion.toDouble())
                                         .arg(FORMAT_VERSION);
        return nullptr;
    }

    // Loading is not editing: nothing read may come out altered.
    const utility::ModificationLock lock(utility::ModificationLock::Scope::UserInterfaceState);
    ReadState state;
    ReadState* outer = currentRead;
    currentRead = &state;
    std::unique_ptr<Node> root = detail::readNodeObject(object.value(kRootKey));
    currentRead = outer;
    if (!root) {
        qCWarning(lcUi).noquote() << QStringLiteral(
            "NodeSerializer : malformed state tree, nothing "
            "was read: %1.")
                                         .arg(state.error);
    }
    return root;
}

QByteArray NodeSerializer::write(const Node& root)
{
    const QJsonDocument document = toDocument(root);
    if (document.isNull())
        return QByteArray();
    return document.toJson(QJsonDocument::Indented);
}

std::unique_ptr<Node> NodeSerializer::read(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        qCWarning(lcUi).noquote() << QStringLiteral(
            "NodeSerializer : the state tree is not valid JSON: "
            "%1 at offset %2.")
                                         .arg(error.errorString())
                                         .arg(error.offset);
        return nullptr;
    }
    return fromDocument(document);
}

bool NodeSerializer::writeFile(const Node& root, const QString& filePath)
{
    const QByteArray json = write(root);
    if (json.isEmpty())
        return false;
    QSaveFile file(filePath);
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size() || !file.commit()) {
        qCWarning(lcUi).noquote()
            << QStringLiteral("NodeSerializer : cannot write %1.").arg(filePath);
        return false;
    }
    return true;
}

std::unique_ptr<Node> NodeSerializer::readFile(const QString& filePath)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(lcUi).noquote()
            << QStringLiteral("NodeSerializer : cannot read %1.").arg(filePath);
        return nullptr;
    }
    return read(file.readAll());
}

} // namespace ui
