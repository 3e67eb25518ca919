#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/ReslicePlaneNode.h>

namespace ui {

/// A reslice at an arbitrary angle through the volume: its origin and its two in-plane directions.
class GUICORE_EXPORT AngulatedResliceNode
    : public ReslicePlaneNode<AngulatedResliceNode, DataObjectNode>
{
public:
    /// A reslice of the data object dataObjectUUID (none by default).
    explicit AngulatedResliceNode(const QString& dataObjectUUID = QString())
        : ReslicePlaneNode(dataObjectUUID)
    {
    }

    /// @{
    /// The type id "AngulatedResliceNode", and this level's table: format 1.0, stored properties
    /// "origin", "direction0", "direction1", declared by ReslicePlaneNode.
    static QString getClassTypeId() { return QStringLiteral("AngulatedResliceNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
