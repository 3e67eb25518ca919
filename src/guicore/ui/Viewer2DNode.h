#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/ViewerNode.h>

#include <objectmodel/Optional.h>

#include <QRectF>

namespace ui {

/// A 2-D viewer; remembers the zoomed region, if the user zoomed.
class GUICORE_EXPORT Viewer2DNode : public NodeKind<Viewer2DNode, ViewerNode>
{
public:
    /// @{
    /// The type id "Viewer2DNode", and this level's table: format 1.0, stored property "zoomBox";
    /// no zoom box is stored as null.
    static QString getClassTypeId() { return QStringLiteral("Viewer2DNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// Whether the user zoomed; false by default.
    bool hasZoomBox() const { return m_zoomBox.has_value(); }
    /// The zoomed region, or a null rectangle when there is none.
    QRectF getZoomBox() const { return m_zoomBox.value_or(QRectF()); }
    /// Stores the zoomed region, in the viewer's scene coordinates; a null rectangle counts as a
    /// region too. Compared within twelve significant digits.
    void setZoomBox(const QRectF& zoomBox)
    {
        assign(m_zoomBox, utility::Optional<QRectF>(zoomBox));
    }
    /// Forgets the zoomed region: the viewer shows its whole content.
    void clearZoomBox() { assign(m_zoomBox, utility::Optional<QRectF>()); }

private:
    utility::Optional<QRectF> m_zoomBox;
};

} // namespace ui
