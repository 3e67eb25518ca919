#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// A node that refers to one data object of the patient by its UUID.
class GUICORE_EXPORT DataObjectNode : public NodeKind<DataObjectNode, Node>
{
public:
    explicit DataObjectNode(const QString& dataObjectUUID = QString())
        : m_dataObjectUUID(dataObjectUUID)
    {
    }

    static QString getClassTypeId() { return QStringLiteral("DataObjectNode"); }
    static const NodePropertyTable& properties();

    const QString& getDataObjectUUID() const { return m_dataObjectUUID; }
    void setDataObjectUUID(const QString& dataObjectUUID)
    {
        assign(m_dataObjectUUID, dataObjectUUID);
    }

private:
    QString m_dataObjectUUID;
};

} // namespace ui
