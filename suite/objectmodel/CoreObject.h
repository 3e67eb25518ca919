#pragma once

#include <objectmodel/objectmodel_export.h>

#include <QList>
#include <QString>

/// Polymorphic base that knows its own type names without RTTI across library boundaries.
///
/// Every class level calls CORE_OBJECT_INIT with its type name from its constructor, so the
/// inheritance list reads root first, most derived last. Copies do not take the source's list:
/// each constructor level of the copy registers itself again, which keeps the list describing the
/// copy's own dynamic type (a base-class copy of a derived object is just a base).
class OBJECTMODEL_EXPORT CoreObject
{
public:
    virtual ~CoreObject();

    /// The type names of the class levels, root first, most derived last. The list is shared by
    /// the objects of one class; the reference stays valid as long as the object.
    const QList<QString>& getInheritanceList() const;
    /// The most derived type name; empty when no class level registered one.
    QString getTypeName() const;
    /// True when typeName is one of the object's class levels (exact, case-sensitive).
    bool isOfType(const QString& typeName) const;

protected:
    /// An object without type names; each class level adds its own with CORE_OBJECT_INIT.
    CoreObject();
    /// Copies no type names: the constructors of the copy's class levels register them again.
    CoreObject(const CoreObject& other);
    /// Assignment copies no type names: the target stays the type it was constructed as.
    CoreObject& operator=(const CoreObject& other);

    /// Appends typeName to the inheritance list. Each class level calls it once from each of its
    /// constructors, and nowhere else: a second call would make the object claim a level twice.
    // NOLINTNEXTLINE(readability-identifier-naming): the suite's established spelling.
    void CORE_OBJECT_INIT(const QString& typeName);

private:
    QList<QString> m_inheritanceList;
};
