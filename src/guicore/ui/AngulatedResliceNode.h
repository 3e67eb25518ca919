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
    explicit AngulatedResliceNode(const QString& dataObjectUUID = QString())
        : ReslicePlaneNode(dataObjectUUID)
    {
    }

    static QString getClassTypeId() { return QStringLiteral("AngulatedResliceNode"); }
    static const NodePropertyTable& properties();
};

} // namespace ui
