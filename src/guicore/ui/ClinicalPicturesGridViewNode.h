#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/LayoutViewNode.h>

namespace ui {

/// The clinical pictures grid view and its active layout.
class GUICORE_EXPORT ClinicalPicturesGridViewNode
    : public LayoutViewNode<ClinicalPicturesGridViewNode>
{
public:
    static QString getClassTypeId() { return QStringLiteral("ClinicalPicturesGridViewNode"); }
    static const NodePropertyTable& properties();
};

} // namespace ui
