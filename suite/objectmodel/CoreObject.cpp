#include <objectmodel/CoreObject.h>

#include <QHashFunctions>

#include <unordered_map>
#include <utility>

CoreObject::CoreObject() = default;

CoreObject::CoreObject(const CoreObject& /*other*/) { }

CoreObject::~CoreObject() = default;

CoreObject& CoreObject::operator=(const CoreObject& /*other*/)
{
    return *this;
}

const QList<QString>& CoreObject::getInheritanceList() const
{
    return m_inheritanceList;
}

QString CoreObject::getTypeName() const
{
    return m_inheritanceList.isEmpty() ? QString() : m_inheritanceList.constLast();
}

bool CoreObject::isOfType(const QString& typeName) const
{
    return m_inheritanceList.contains(typeName);
}

void CoreObject::CORE_OBJECT_INIT(const QString& typeName)
{
    // Objects of one class build the same list, level by level. Each level's list is kept once
    // per thread and shared by every object that reaches it, keyed by the list below it (itself
    // shared, so its data identifies it) and the name added: objects stay small, and a million
    // of them do not make a million lists.
    using Key = std::pair<const void*, QString>;
    struct KeyHash
    {
        size_t operator()(const Key& key) const noexcept
        {
            return qHashMulti(0, key.first, key.second);
        }
    };
    thread_local std::unordered_map<Key, QList<QString>, KeyHash> levels;
    Key key {static_cast<const void*>(m_inheritanceList.constData()), typeName};
    auto level = levels.find(key);
    if (level == levels.end()) {
        QList<QString> list = m_inheritanceList;
        list.append(typeName);
        level = levels.emplace(std::move(key), std::move(list)).first;
    }
    m_inheritanceList = level->second;
}
