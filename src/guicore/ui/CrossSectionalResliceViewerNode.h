#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Viewer2DNode.h>

#include <cstddef>

namespace ui {

/// A viewer of cross-sections: how many slices, how far apart, and which one is shown.
class GUICORE_EXPORT CrossSectionalResliceViewerNode : public Viewer2DNode
{
public:
    CrossSectionalResliceViewerNode();
    /// Copies the properties of every class level; the children are not copied.
    CrossSectionalResliceViewerNode(const CrossSectionalResliceViewerNode& other);
    CrossSectionalResliceViewerNode& operator=(const CrossSectionalResliceViewerNode&) = delete;
    ~CrossSectionalResliceViewerNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    size_t getNumberOfSlices() const { return m_numberOfSlices; }
    void setNumberOfSlices(size_t numberOfSlices);
    float getSliceSpacing() const { return m_sliceSpacing; }
    void setSliceSpacing(float sliceSpacing);
    int getSliderIndex() const { return m_sliderIndex; }
    void setSliderIndex(int sliderIndex);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const CrossSectionalResliceViewerNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    size_t m_numberOfSlices = 1;
    float m_sliceSpacing = 1.0f;
    int m_sliderIndex = 0;
};

} // namespace ui
