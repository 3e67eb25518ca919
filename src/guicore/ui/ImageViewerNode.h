#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/Viewer2DNode.h>

namespace ui {

/// A 2-D viewer of a picture.
class GUICORE_EXPORT ImageViewerNode : public NodeKind<ImageViewerNode, Viewer2DNode>
{
public:
    /// @{
    /// The type id "ImageViewerNode", and this level's table: format 1.0, no properties of its own.
    static QString getClassTypeId() { return QStringLiteral("ImageViewerNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
