#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/NodeKind.h>

namespace ui {

/// The patient whose case the tree describes; its UUID may be empty.
class GUICORE_EXPORT PatientNode : public NodeKind<PatientNode, DataObjectNode>
{
public:
    explicit PatientNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    static QString getClassTypeId() { return QStringLiteral("PatientNode"); }
    static const NodePropertyTable& properties();
};

} // namespace ui
