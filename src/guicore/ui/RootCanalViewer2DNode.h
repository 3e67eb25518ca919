#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/ResliceViewerNode.h>

namespace ui {

/// A reslice viewer along a root canal.
class GUICORE_EXPORT RootCanalViewer2DNode
    : public NodeKind<RootCanalViewer2DNode, ResliceViewerNode>
{
public:
    /// @{
    /// The type id "RootCanalViewer2DNode", and this level's table: format 1.0, no properties of
    /// its own.
    static QString getClassTypeId() { return QStringLiteral("RootCanalViewer2DNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
