#include <guicore/ui/Node.h>

#include "NodeProperty_p.h"

#include <objectmodel/ModificationLock.h>

#include <QHash>

#include <algorithm>

namespace ui {

Node::Node()
{
    UI_NODE_INIT(getClassTypeId(), QVersionNumber(1, 0));
}

Node::Node(const Node& other)
    : CoreObject(other)
    , m_loadingVersions(other.m_loadingVersions)
{
    UI_NODE_INIT(getClassTypeId(), QVersionNumber(1, 0));
}

Node::~Node() = default;

QString Node::getTypeId() const
{
    return getClassTypeId();
}

QString Node::getClassTypeId()
{
    return QStringLiteral("Node");
}

bool Node::isEqual(const Node& other) const
{
    return *this == other;
}

void Node::UI_NODE_INIT(const QString& typeName, const QVersionNumber& version)
{
    CORE_OBJECT_INIT(typeName);
    m_versions.insert(typeName, version);
}

void Node::setAltered()
{
    if (!utility::ModificationLock::isLocked(utility::ModificationLock::Scope::UserInterfaceState))
        m_altered = true;
}

void Node::addNode(std::unique_ptr<Node> child)
{
    if (!child)
        return;
    m_childNodes.push_back(std::move(child));
    setAltered();
}

void Node::addNodes(std::vector<std::unique_ptr<Node>> children)
{
    bool added = false;
    for (std::unique_ptr<Node>& child : children) {
        if (!child)
            continue;
        m_childNodes.push_back(std::move(child));
        added = true;
    }
    if (added)
        setAltered();
}

std::vector<Node*> Node::getNodes() const
{
    std::vector<Node*> nodes;
    nodes.reserve(m_childNodes.size());
    for (const std::unique_ptr<Node>& child : m_childNodes)
        nodes.push_back(child.get());
    return nodes;
}

std::vector<std::unique_ptr<Node>> Node::takeNodes()
{
    std::vector<std::unique_ptr<Node>> children;
    children.swap(m_childNodes);
    return children;
}

void Node::removeNode(const Node& child)
{
    const QString nodeType = getClassTypeId();
    const auto found = std::find_if(m_childNodes.begin(), m_childNodes.end(),
        [&child, &nodeType](const std::unique_ptr<Node>& candidate) {
            return candidate->isOfType(nodeType) && candidate.get() == &child;
        });
    if (found == m_childNodes.end())
        return;
    // Take the child out of the list before destroying it, so the list never holds a dying node.
    std::unique_ptr<Node> removed = std::move(*found);
    m_childNodes.erase(found);
    removed.reset();
    setAltered();
}

bool Node::isAlteredRecursively() const
{
    if (m_altered)
        return true;
    return std::any_of(m_childNodes.begin(), m_childNodes.end(),
        [](const std::unique_ptr<Node>& child) { return child->isAlteredRecursively(); });
}

void Node::clearAlteredRecursively()
{
    m_altered = false;
    for (const std::unique_ptr<Node>& child : m_childNodes)
        child->clearAlteredRecursively();
}

void Node::setLoadingVersions(const QMap<QString, QVersionNumber>& versions)
{
    m_loadingVersions = versions;
}

void Node::collectPropertyTables(std::vector<const detail::NodePropertyTable*>&) const { }

bool Node::operator==(const Node& other) const
{
    // QList compares size first, then element by element, case-sensitively.
    if (getInheritanceList() != other.getInheritanceList())
        return false;
    if (m_childNodes.size() != other.m_childNodes.size())
        return false;

    std::vector<const Node*> mine;
    std::vector<const Node*> theirs;
    mine.reserve(m_childNodes.size());
    theirs.reserve(other.m_childNodes.size());
    for (const std::unique_ptr<Node>& child : m_childNodes)
        mine.push_back(child.get());
    for (const std::unique_ptr<Node>& child : other.m_childNodes)
        theirs.push_back(child.get());
    return detail::equalAsMultisets(mine, theirs);
}

const Node* Node::findCorrespondingNode(
    const Node& node, const std::vector<Node*>& candidates) const
{
    for (const Node* candidate : candidates) {
        if (candidate && node.isEqual(*candidate))
            return candidate;
    }
    return nullptr;
}

namespace detail {

namespace {

// Equal nodes share their whole inheritance list, hence their most derived type name, and their
// exactly compared properties; nodes that differ in either never need the full comparison.
struct BucketKey
{
    QString typeName;
    size_t exactProperties;
    bool operator==(const BucketKey& other) const
    {
        return exactProperties == other.exactProperties && typeName == other.typeName;
    }
};

size_t qHash(const BucketKey& key, size_t seed = 0)
{
    return ::qHash(key.typeName, seed) ^ key.exactProperties;
}

BucketKey bucketKey(const Node* node)
{
    std::vector<const NodePropertyTable*> tables;
    node->collectPropertyTables(tables);
    size_t hash = 0;
    for (const NodePropertyTable* table : tables) {
        for (const NodeProperty& property : table->properties)
            hash = hash * 31 + property.hash(*node);
    }
    return {node->getTypeName(), hash};
}

} // namespace

bool equalAsMultisets(const std::vector<const Node*>& mine, const std::vector<const Node*>& theirs)
{
    if (mine.size() != theirs.size())
        return false;

    // Within a bucket the matching is the plain greedy one, each candidate used at most once.
    QHash<BucketKey, std::vector<const Node*>> buckets;
    for (const Node* node : theirs)
        buckets[bucketKey(node)].push_back(node);

    for (const Node* node : mine) {
        const auto bucket = buckets.find(bucketKey(node));
        if (bucket == buckets.end())
            return false;
        std::vector<const Node*>& candidates = bucket.value();
        const auto match = std::find_if(candidates.begin(), candidates.end(),
            [node](const Node* candidate) { return node->isEqual(*candidate); });
        if (match == candidates.end())
            return false;
        candidates.erase(match);
    }
    return true;
}

} // namespace detail

} // namespace ui
