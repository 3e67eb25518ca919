#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/Viewer2DNode.h>

namespace ui {

/// A 2-D viewer of the panoramic reslice.
class GUICORE_EXPORT PanoramicResliceViewerNode
    : public NodeKind<PanoramicResliceViewerNode, Viewer2DNode>
{
public:
    /// @{
    /// The type id "PanoramicResliceViewerNode", and this level's table: format 1.0, no properties
    /// of its own.
    static QString getClassTypeId() { return QStringLiteral("PanoramicResliceViewerNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
