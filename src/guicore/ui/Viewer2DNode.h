#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/ViewerNode.h>

#include <objectmodel/Optional.h>

#include <QRectF>

namespace ui {

/// A 2-D viewer; remembers the zoomed region, if the user zoomed.
class GUICORE_EXPORT Viewer2DNode : public ViewerNode
{
public:
    Viewer2DNode();
    /// Copies the properties of every class level; the children are not copied.
    Viewer2DNode(const Viewer2DNode& other);
    Viewer2DNode& operator=(const Viewer2DNode&) = delete;
    ~Viewer2DNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    bool hasZoomBox() const { return m_zoomBox.has_value(); }
    /// The zoomed region, or a null rectangle when there is none.
    QRectF getZoomBox() const { return m_zoomBox.value_or(QRectF()); }
    void setZoomBox(const QRectF& zoomBox);
    void clearZoomBox();

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const Viewer2DNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    utility::Optional<QRectF> m_zoomBox;
};

} // namespace ui
