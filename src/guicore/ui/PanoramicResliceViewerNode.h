#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Viewer2DNode.h>

namespace ui {

/// A 2-D viewer of the panoramic reslice.
class GUICORE_EXPORT PanoramicResliceViewerNode : public Viewer2DNode
{
public:
    PanoramicResliceViewerNode();
    /// Copies the properties of every class level; the children are not copied.
    PanoramicResliceViewerNode(const PanoramicResliceViewerNode& other);
    PanoramicResliceViewerNode& operator=(const PanoramicResliceViewerNode&) = delete;
    ~PanoramicResliceViewerNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

protected:
    bool operator==(const PanoramicResliceViewerNode& other) const;
};

} // namespace ui
