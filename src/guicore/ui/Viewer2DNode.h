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
    static QString getClassTypeId() { return QStringLiteral("Viewer2DNode"); }
    static const NodePropertyTable& properties();

    bool hasZoomBox() const { return m_zoomBox.has_value(); }
    /// The zoomed region, or a null rectangle when there is none.
    QRectF getZoomBox() const { return m_zoomBox.value_or(QRectF()); }
    void setZoomBox(const QRectF& zoomBox)
    {
        assign(m_zoomBox, utility::Optional<QRectF>(zoomBox));
    }
    void clearZoomBox() { assign(m_zoomBox, utility::Optional<QRectF>()); }

private:
    utility::Optional<QRectF> m_zoomBox;
};

} // namespace ui
