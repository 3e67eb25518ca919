#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/Viewer3DNode.h>

#include <toothchart/ToothChart.h>

namespace ui {

/// A 3-D viewer of a dental scan of one arch.
class GUICORE_EXPORT DentalScanViewer3DNode : public NodeKind<DentalScanViewer3DNode, Viewer3DNode>
{
public:
    /// @{
    /// The type id "DentalScanViewer3DNode", and this level's table: format 1.0, stored property
    /// "archType".
    static QString getClassTypeId() { return QStringLiteral("DentalScanViewer3DNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The arch whose scan the viewer shows; ToothChart::Upper by default. Stored as its number.
    ToothChart::ArchType getArchType() const { return m_archType; }
    void setArchType(ToothChart::ArchType archType) { assign(m_archType, archType); }
    /// @}

private:
    ToothChart::ArchType m_archType = ToothChart::Upper;
};

} // namespace ui
