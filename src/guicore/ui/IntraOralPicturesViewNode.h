#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/LayoutViewNode.h>

namespace ui {

/// The intra-oral pictures view and its active layout.
class GUICORE_EXPORT IntraOralPicturesViewNode : public LayoutViewNode<IntraOralPicturesViewNode>
{
public:
    /// @{
    /// The type id "IntraOralPicturesViewNode", and this level's table: format 1.0, stored
    /// property "activeLayoutId", declared by LayoutViewNode.
    static QString getClassTypeId() { return QStringLiteral("IntraOralPicturesViewNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
