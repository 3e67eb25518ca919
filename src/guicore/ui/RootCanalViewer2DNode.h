#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/ResliceViewerNode.h>

namespace ui {

/// A reslice viewer along a root canal.
class GUICORE_EXPORT RootCanalViewer2DNode : public ResliceViewerNode
{
public:
    RootCanalViewer2DNode();
    /// Copies the properties of every class level; the children are not copied.
    RootCanalViewer2DNode(const RootCanalViewer2DNode& other);
    RootCanalViewer2DNode& operator=(const RootCanalViewer2DNode&) = delete;
    ~RootCanalViewer2DNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

protected:
    bool operator==(const RootCanalViewer2DNode& other) const;
};

} // namespace ui
