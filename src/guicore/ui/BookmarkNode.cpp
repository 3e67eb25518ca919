#include <guicore/ui/BookmarkNode.h>

#include "NodeProperty_p.h"
#include "NodeSerializer_p.h"

#include <algorithm>

namespace ui {

namespace detail {

/// Dependencies are owned nodes: copied by cloning, compared as a multiset, stored as nodes.
template <> struct PropertyTraits<BookmarkNode::Dependencies>
{
    using Dependencies = BookmarkNode::Dependencies;
    static std::vector<const Node*> view(const Dependencies& dependencies)
    {
        std::vector<const Node*> nodes;
        for (const std::unique_ptr<DataObjectNode>& dependency : dependencies)
            nodes.push_back(dependency.get());
        return nodes;
    }
    static bool equal(const Dependencies& a, const Dependencies& b)
    {
        return equalAsMultisets(view(a), view(b));
    }
    static void copy(Dependencies& target, const Dependencies& source)
    {
        target.clear();
        for (const std::unique_ptr<DataObjectNode>& dependency : source) {
            std::unique_ptr<Node> copy = dependency->clone();
            if (auto* dataObject = dynamic_cast<DataObjectNode*>(copy.get())) {
                copy.release();
                target.emplace_back(dataObject);
            }
        }
    }
    static QJsonValue toJson(const Dependencies& dependencies)
    {
        QJsonArray array;
        for (const std::unique_ptr<DataObjectNode>& dependency : dependencies)
            array.append(writeNodeObject(*dependency));
        return array;
    }
    static bool fromJson(const QJsonValue& json, Dependencies& out)
    {
        if (!json.isArray())
            return false;
        Dependencies dependencies;
        for (const QJsonValue& item : json.toArray()) {
            std::unique_ptr<Node> node = readNodeObject(item);
            auto* dataObject = dynamic_cast<DataObjectNode*>(node.get());
            if (!dataObject)
                return false;
            node.release();
            dependencies.emplace_back(dataObject);
        }
        out = std::move(dependencies);
        return true;
    }
};

} // namespace detail

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

BookmarkNode::BookmarkNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

BookmarkNode::BookmarkNode(const BookmarkNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

BookmarkNode::~BookmarkNode() = default;

QString BookmarkNode::getClassTypeId()
{
    return QStringLiteral("BookmarkNode");
}

QString BookmarkNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> BookmarkNode::clone() const
{
    return std::make_unique<BookmarkNode>(*this);
}

bool BookmarkNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const BookmarkNode*>(&other);
    return same && *this == *same;
}

bool BookmarkNode::operator==(const BookmarkNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& BookmarkNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty(
                "associatedDataObjectUUID", &BookmarkNode::m_associatedDataObjectUUID),
            detail::makeProperty("dependencies", &BookmarkNode::m_dependencies),
        }};
    return table;
}

void BookmarkNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void BookmarkNode::setAssociatedDataObjectUUID(const QString& associatedDataObjectUUID)
{
    if (detail::assignIfChanged(m_associatedDataObjectUUID, associatedDataObjectUUID))
        setAltered();
}

void BookmarkNode::addDependency(std::unique_ptr<DataObjectNode>&& dependency)
{
    if (!dependency)
        return;
    m_dependencies.push_back(std::move(dependency));
    setAltered();
}

std::set<DataObjectNode*> BookmarkNode::getDependencies() const
{
    std::set<DataObjectNode*> dependencies;
    for (const std::unique_ptr<DataObjectNode>& dependency : m_dependencies)
        dependencies.insert(dependency.get());
    return dependencies;
}

bool BookmarkNode::isDependantOn(const QString& dataObjectUUID) const
{
    return std::any_of(m_dependencies.begin(), m_dependencies.end(),
        [&dataObjectUUID](const std::unique_ptr<DataObjectNode>& dependency) {
            return dependency->getDataObjectUUID() == dataObjectUUID;
        });
}

bool BookmarkNode::isAssociatedWith(const QString& dataObjectUUID) const
{
    return m_associatedDataObjectUUID == dataObjectUUID;
}

} // namespace ui
