#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/NodeKind.h>

namespace ui {

/// The patient whose case the tree describes; its UUID may be empty.
class GUICORE_EXPORT PatientNode : public NodeKind<PatientNode, DataObjectNode>
{
public:
    /// A node that refers to the data object dataObjectUUID (none by default).
    explicit PatientNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    /// @{
    /// The type id "PatientNode", and this level's table: format 1.0, no properties of its own.
    static QString getClassTypeId() { return QStringLiteral("PatientNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
