#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/NodeKind.h>

namespace ui {

/// A diagnosis data object shown in the case.
class GUICORE_EXPORT DiagnosisNode : public NodeKind<DiagnosisNode, DataObjectNode>
{
public:
    explicit DiagnosisNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    static QString getClassTypeId() { return QStringLiteral("DiagnosisNode"); }
    static const NodePropertyTable& properties();
};

} // namespace ui
