#include <guicore/ui/Node.h>

#include "NodeEquality_p.h"

#include <guicore/ui/NodePropertyTable.h>

#include <objectmodel/ModificationLock.h>

#include <QHash>

#include <algorithm>
#include <limits>
#include <typeinfo>
#include <unordered_map>
#include <utility>

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
    // Nodes of one class have the same versions map. The inheritance list just extended is
    // shared by every object of this class level (see CORE_OBJECT_INIT), so its data names the
    // level; each level's map is made once per thread and shared, as the lists are.
    using Key = std::pair<const void*, QVersionNumber>;
    struct KeyHash
    {
        size_t operator()(const Key& key) const noexcept
        {
            return qHashMulti(0, key.first, key.second);
        }
    };
    thread_local std::unordered_map<Key, QMap<QString, QVersionNumber>, KeyHash> levels;
    Key key {static_cast<const void*>(getInheritanceList().constData()), version};
    auto level = levels.find(key);
    if (level == levels.end()) {
        QMap<QString, QVersionNumber> versions = m_versions;
        versions.insert(typeName, version);
        level = levels.emplace(std::move(key), std::move(versions)).first;
    }
    m_versions = level->second;
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

void Node::collectPropertyTables(std::vector<const NodePropertyTable*>&) const { }

bool Node::operator==(const Node& other) const
{
    // Each class level registers its one type name from its constructor, so two nodes of one
    // class have the same list; only nodes of different classes need it read. QList compares size
    // first, then element by element, case-sensitively.
    if (typeid(*this) != typeid(other) && getInheritanceList() != other.getInheritanceList())
        return false;
    if (m_childNodes.size() != other.m_childNodes.size())
        return false;

    return detail::equalAsMultisets(m_childNodes, other.m_childNodes);
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

// Every node kind's isEqual requires the other node to be of its own class, so equal nodes share
// their class and their exactly compared properties; nodes that differ in either never need the
// full comparison.
struct BucketKey
{
    const std::type_info* type;
    size_t hash;
    bool operator==(const BucketKey& other) const
    {
        return hash == other.hash && *type == *other.type;
    }
};

size_t qHash(const BucketKey& key, size_t seed = 0)
{
    return key.hash ^ seed;
}

struct NodeKeys
{
    BucketKey equal; ///< shared by all nodes that can be equal
    BucketKey identity; ///< shared by nodes whose values are all identical
    bool tolerant; ///< whether the node has tolerantly compared properties at all
};

/// tables is scratch space, reused across the nodes of one comparison.
NodeKeys nodeKeys(const Node* node, std::vector<const NodePropertyTable*>& tables)
{
    tables.clear();
    node->collectPropertyTables(tables);
    const std::type_info& type = typeid(*node);
    size_t exact = type.hash_code();
    size_t identity = 0;
    bool tolerant = false;
    for (const NodePropertyTable* table : tables) {
        for (const NodePropertyTable::Property& property : table->properties) {
            if (property.tolerant) {
                tolerant = true;
                identity = identity * 31 + property.hash(*node);
            } else {
                exact = exact * 31 + property.hash(*node);
            }
        }
    }
    return {{&type, exact}, {&type, exact * 31 + identity}, tolerant};
}

constexpr size_t none = std::numeric_limits<size_t>::max();

const Node* nodeAt(const Node* node)
{
    return node;
}

const Node* nodeAt(const std::unique_ptr<Node>& node)
{
    return node.get();
}

template <typename List> const Node* nodeAt(const List& list, size_t position)
{
    return nodeAt(list[position]);
}

/// Candidates of one bucket, chained through a shared array in the order given. Those used by an
/// earlier match are skipped for good from the front.
struct Chain
{
    size_t head = none;
    size_t tail = none;
};

void append(Chain& chain, std::vector<size_t>& next, size_t position)
{
    if (chain.tail == none)
        chain.head = position;
    else
        next[chain.tail] = position;
    chain.tail = position;
}

/// Marks the first unused candidate of chain that node equals as used; false when there is none.
template <typename List>
bool takeMatch(const Node* node, Chain& chain, const std::vector<size_t>& next,
    const List& candidates, std::vector<bool>& used)
{
    while (chain.head != none && used[chain.head])
        chain.head = next[chain.head];
    for (size_t position = chain.head; position != none; position = next[position]) {
        if (!used[position] && node->isEqual(*nodeAt(candidates, position))) {
            used[position] = true;
            return true;
        }
    }
    return false;
}

/// Multiset equality of two child lists, of borrowed or of owned nodes alike.
template <typename List> bool equalLists(const List& mine, const List& theirs)
{
    if (mine.size() != theirs.size())
        return false;

    // Each child takes one candidate that it equals, and no candidate is taken twice. A few
    // children are simply tried against each other; building the buckets costs more than that.
    constexpr size_t fewChildren = 8;
    if (theirs.size() <= fewChildren) {
        bool used[fewChildren] = {};
        for (const auto& entry : mine) {
            const Node* node = nodeAt(entry);
            size_t position = 0;
            while (position < theirs.size()
                && (used[position] || !node->isEqual(*nodeAt(theirs, position))))
                ++position;
            if (position == theirs.size())
                return false;
            used[position] = true;
        }
        return true;
    }

    // Among many children, a candidate with identical values is tried first; only when none is
    // left are the nearly equal ones of the child's bucket walked in order.
    std::vector<const NodePropertyTable*> tables;
    tables.reserve(8);
    QHash<BucketKey, Chain> equalChains;
    QHash<BucketKey, Chain> identityChains;
    equalChains.reserve(qsizetype(theirs.size()));
    std::vector<size_t> nextEqual(theirs.size(), none);
    std::vector<size_t> nextIdentity(theirs.size(), none);
    for (size_t position = 0; position < theirs.size(); ++position) {
        const NodeKeys keys = nodeKeys(nodeAt(theirs, position), tables);
        append(equalChains[keys.equal], nextEqual, position);
        if (keys.tolerant)
            append(identityChains[keys.identity], nextIdentity, position);
    }

    std::vector<bool> used(theirs.size(), false);
    for (const auto& entry : mine) {
        const Node* node = nodeAt(entry);
        const NodeKeys keys = nodeKeys(node, tables);
        if (keys.tolerant) {
            const auto twins = identityChains.find(keys.identity);
            if (twins != identityChains.end()
                && takeMatch(node, twins.value(), nextIdentity, theirs, used))
                continue;
        }
        const auto chain = equalChains.find(keys.equal);
        if (chain == equalChains.end() || !takeMatch(node, chain.value(), nextEqual, theirs, used))
            return false;
    }
    return true;
}

} // namespace

bool equalAsMultisets(const std::vector<const Node*>& mine, const std::vector<const Node*>& theirs)
{
    return equalLists(mine, theirs);
}

bool equalAsMultisets(const std::vector<std::unique_ptr<Node>>& mine,
    const std::vector<std::unique_ptr<Node>>& theirs)
{
    return equalLists(mine, theirs);
}

} // namespace detail

} // namespace ui
