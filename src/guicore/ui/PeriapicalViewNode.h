#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/LayoutViewNode.h>

namespace ui {

/// The periapical view and its active layout.
class GUICORE_EXPORT PeriapicalViewNode : public LayoutViewNode<PeriapicalViewNode>
{
public:
    static QString getClassTypeId() { return QStringLiteral("PeriapicalViewNode"); }
    static const NodePropertyTable& properties();
};

} // namespace ui
