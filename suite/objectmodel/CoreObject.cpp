#include <objectmodel/CoreObject.h>

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
    m_inheritanceList.append(typeName);
}
