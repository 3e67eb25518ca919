#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/Viewer2DNode.h>

#include <QString>

namespace ui {

/// A 2-D viewer of a reslice: the plane orientation and the slider position.
class GUICORE_EXPORT ResliceViewerNode : public NodeKind<ResliceViewerNode, Viewer2DNode>
{
public:
    /// @{
    /// The type id "ResliceViewerNode", and this level's table: format 1.0, stored properties
    /// "planeOrientation", "sliderIndex".
    static QString getClassTypeId() { return QStringLiteral("ResliceViewerNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The name of the reslice plane's orientation, as the application names them; empty by
    /// default.
    const QString& getPlaneOrientation() const { return m_planeOrientation; }
    void setPlaneOrientation(const QString& planeOrientation)
    {
        assign(m_planeOrientation, planeOrientation);
    }
    /// @}
    /// @{
    /// The position of the viewer's slice slider; 0 by default.
    int getSliderIndex() const { return m_sliderIndex; }
    void setSliderIndex(int sliderIndex) { assign(m_sliderIndex, sliderIndex); }
    /// @}

private:
    QString m_planeOrientation;
    int m_sliderIndex = 0;
};

} // namespace ui
