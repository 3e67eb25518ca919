#include <guicore/ui/BookmarkNode.h>

#include "NodeEquality_p.h"
#include "NodeSerializer_p.h"

#include <algorithm>

namespace ui {

/// Dependencies are owned nodes: compared as a multiset, stored as nodes.
template <> struct NodePropertyTraits<BookmarkNode::Dependencies>
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
        return detail::equalAsMultisets(view(a), view(b));
    }
    static QJsonValue toJson(const Dependencies& dependencies)
    {
        QJsonArray array;
        for (const std::unique_ptr<DataObjectNode>& dependency : dependencies)
            array.append(detail::writeNodeObject(*dependency));
        return array;
    }
    static bool fromJson(const QJsonValue& json, Dependencies& out)
    {
        if (!json.isArray())
            return false;
        Dependencies dependencies;
        for (const QJsonValue& item : json.toArray()) {
            std::unique_ptr<Node> node = detail::readNodeObject(item);
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

BookmarkNode::BookmarkNode(const BookmarkNode& other)
    : NodeKind(other)
    , m_associatedDataObjectUUID(other.m_associatedDataObjectUUID)
{
    for (const std::unique_ptr<DataObjectNode>& dependency : other.m_dependencies) {
        std::unique_ptr<Node> copy = dependency->clone();
        if (auto* dataObject = dynamic_cast<DataObjectNode*>(copy.get())) {
            copy.release();
            m_dependencies.emplace_back(dataObject);
        }
    }
}

const NodePropertyTable& BookmarkNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property(
                "associatedDataObjectUUID", &BookmarkNode::m_associatedDataObjectUUID),
            NodePropertyTable::property("dependencies", &BookmarkNode::m_dependencies),
        }};
    return table;
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
