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

    const QList<QString>& getInheritanceList() const;
    /// The most derived type name; empty when no class level registered one.
    QString getTypeName() const;
    bool isOfType(const QString& typeName) const;

protected:
    CoreObject();
    CoreObject(const CoreObject& other);
    /// Assignment copies no type names: the target stays the type it was constructed as.
    CoreObject& operator=(const CoreObject& other);

    // NOLINTNEXTLINE(readability-identifier-naming): the suite's established spelling.
    void CORE_OBJECT_INIT(const QString& typeName);

private:
    QList<QString> m_inheritanceList;
};
