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
    /// @{
    /// The type id "CrossSectionalResliceViewerNode", and this level's table: format 1.0, stored
    /// properties "numberOfSlices", "sliceSpacing", "sliderIndex".
    static QString getClassTypeId() { return QStringLiteral("CrossSectionalResliceViewerNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// How many cross-sections the viewer shows; 1 by default.
    size_t getNumberOfSlices() const { return m_numberOfSlices; }
    void setNumberOfSlices(size_t numberOfSlices) { assign(m_numberOfSlices, numberOfSlices); }
    /// @}
    /// @{
    /// The distance between neighbouring cross-sections, in the length unit of the volume; 1.0 by
    /// default. Compared within twelve significant digits.
    float getSliceSpacing() const { return m_sliceSpacing; }
    void setSliceSpacing(float sliceSpacing) { assign(m_sliceSpacing, sliceSpacing); }
    /// @}
    /// @{
    /// The position of the viewer's slider, which selects the cross-sections shown; 0 by default.
    int getSliderIndex() const { return m_sliderIndex; }
    void setSliderIndex(int sliderIndex) { assign(m_sliderIndex, sliderIndex); }
    /// @}

private:
    size_t m_numberOfSlices = 1;
    float m_sliceSpacing = 1.0f;
    int m_sliderIndex = 0;
};

} // namespace ui
