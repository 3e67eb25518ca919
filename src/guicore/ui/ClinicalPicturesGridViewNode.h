#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/LayoutViewNode.h>

namespace ui {

/// The clinical pictures grid view and its active layout.
class GUICORE_EXPORT ClinicalPicturesGridViewNode
    : public LayoutViewNode<ClinicalPicturesGridViewNode>
{
public:
    /// @{
    /// The type id "ClinicalPicturesGridViewNode", and this level's table: format 1.0, stored
    /// property "activeLayoutId", declared by LayoutViewNode.
    static QString getClassTypeId() { return QStringLiteral("ClinicalPicturesGridViewNode"); }
    static const NodePropertyTable& properties();
    /// @}
};

} // namespace ui
