#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/Viewer2DNode.h>

#include <cstddef>

namespace ui {

/// A viewer of cross-sections: how many slices, how far apart, and which one is shown.
class GUICORE_EXPORT CrossSectionalResliceViewerNode
    : public NodeKind<CrossSectionalResliceViewerNode, Viewer2DNode>
{
public:
    static QString getClassTypeId() { return QStringLiteral("CrossSectionalResliceViewerNode"); }
    static const NodePropertyTable& properties();

    size_t getNumberOfSlices() const { return m_numberOfSlices; }
    void setNumberOfSlices(size_t numberOfSlices) { assign(m_numberOfSlices, numberOfSlices); }
    float getSliceSpacing() const { return m_sliceSpacing; }
    void setSliceSpacing(float sliceSpacing) { assign(m_sliceSpacing, sliceSpacing); }
    int getSliderIndex() const { return m_sliderIndex; }
    void setSliderIndex(int sliderIndex) { assign(m_sliderIndex, sliderIndex); }

private:
    size_t m_numberOfSlices = 1;
    float m_sliceSpacing = 1.0f;
    int m_sliderIndex = 0;
};

} // namespace ui
