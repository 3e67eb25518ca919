#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

namespace ui {

/// Which parts of the implants are drawn.
class GUICORE_EXPORT ImplantVisualizationOptionsNode
    : public NodeKind<ImplantVisualizationOptionsNode, Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("ImplantVisualizationOptionsNode"); }
    static const NodePropertyTable& properties();

    bool isAxisVisible() const { return m_axisVisible; }
    void setAxisVisible(bool axisVisible) { assign(m_axisVisible, axisVisible); }
    bool isSafetyZoneVisible() const { return m_safetyZoneVisible; }
    void setSafetyZoneVisible(bool safetyZoneVisible)
    {
        assign(m_safetyZoneVisible, safetyZoneVisible);
    }
    bool isSleeveVisible() const { return m_sleeveVisible; }
    void setSleeveVisible(bool sleeveVisible) { assign(m_sleeveVisible, sleeveVisible); }
    bool areAnchorPinsVisible() const { return m_anchorPinsVisible; }
    void setAnchorPinsVisible(bool anchorPinsVisible)
    {
        assign(m_anchorPinsVisible, anchorPinsVisible);
    }

private:
    bool m_axisVisible = true;
    bool m_safetyZoneVisible = true;
    bool m_sleeveVisible = true;
    bool m_anchorPinsVisible = true;
};

} // namespace ui
