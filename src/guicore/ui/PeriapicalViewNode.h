#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/LayoutViewNode.h>

namespace ui {

/// The periapical view and its active layout.
class GUICORE_EXPORT PeriapicalViewNode : public LayoutViewNode<PeriapicalViewNode>
{
public:
    /// @{
    /// The type id "PeriapicalViewNode", and this level's table: format 1.0, stored property
    /// "activeLayoutId", declared by LayoutViewNode.
    static QString getClassTypeId() { return QStringLiteral("PeriapicalViewNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
