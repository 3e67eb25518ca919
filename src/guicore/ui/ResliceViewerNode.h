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
    static QString getClassTypeId() { return QStringLiteral("ResliceViewerNode"); }
    static const NodePropertyTable& properties();

    const QString& getPlaneOrientation() const { return m_planeOrientation; }
    void setPlaneOrientation(const QString& planeOrientation)
    {
        assign(m_planeOrientation, planeOrientation);
    }
    int getSliderIndex() const { return m_sliderIndex; }
    void setSliderIndex(int sliderIndex) { assign(m_sliderIndex, sliderIndex); }

private:
    QString m_planeOrientation;
    int m_sliderIndex = 0;
};

} // namespace ui
