#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/NodeKind.h>

namespace ui {

/// A diagnosis data object shown in the case.
class GUICORE_EXPORT DiagnosisNode : public NodeKind<DiagnosisNode, DataObjectNode>
{
public:
    /// A node that refers to the data object dataObjectUUID (none by default).
    explicit DiagnosisNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    /// @{
    /// The type id "DiagnosisNode", and this level's table: format 1.0, no properties of its own.
    static QString getClassTypeId() { return QStringLiteral("DiagnosisNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
