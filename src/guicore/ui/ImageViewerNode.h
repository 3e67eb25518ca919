#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Viewer2DNode.h>

namespace ui {

/// A 2-D viewer of a picture.
class GUICORE_EXPORT ImageViewerNode : public Viewer2DNode
{
public:
    ImageViewerNode();
    /// Copies the properties of every class level; the children are not copied.
    ImageViewerNode(const ImageViewerNode& other);
    ImageViewerNode& operator=(const ImageViewerNode&) = delete;
    ~ImageViewerNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

protected:
    bool operator==(const ImageViewerNode& other) const;
};

} // namespace ui
