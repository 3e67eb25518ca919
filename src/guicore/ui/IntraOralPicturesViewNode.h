#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/LayoutViewNode.h>

namespace ui {

/// The intra-oral pictures view and its active layout.
class GUICORE_EXPORT IntraOralPicturesViewNode : public LayoutViewNode<IntraOralPicturesViewNode>
{
public:
    static QString getClassTypeId() { return QStringLiteral("IntraOralPicturesViewNode"); }
    static const NodePropertyTable& properties();
};

} // namespace ui
