#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// A node that refers to one data object of the patient by its UUID.
class GUICORE_EXPORT DataObjectNode : public NodeKind<DataObjectNode, Node>
{
public:
    /// A node that refers to the data object dataObjectUUID (none by default).
    explicit DataObjectNode(const QString& dataObjectUUID = QString())
        : m_dataObjectUUID(dataObjectUUID)
    {
    }

    /// @{
    /// The type id "DataObjectNode", and this level's table: format 1.0, stored property
    /// "dataObjectUUID".
    static QString getClassTypeId() { return QStringLiteral("DataObjectNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The UUID of the data object the node refers to. NodeFactory::replicateRecursively() rewrites
    /// it when the data is re-imported.
    const QString& getDataObjectUUID() const { return m_dataObjectUUID; }
    void setDataObjectUUID(const QString& dataObjectUUID)
    {
        assign(m_dataObjectUUID, dataObjectUUID);
    }
    /// @}

private:
    QString m_dataObjectUUID;
};

} // namespace ui
