#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

namespace ui {

/// Which parts of the implants are drawn.
class GUICORE_EXPORT ImplantVisualizationOptionsNode
    : public NodeKind<ImplantVisualizationOptionsNode, Node>
{
public:
    /// @{
    /// The type id "ImplantVisualizationOptionsNode", and this level's table: format 1.1, stored
    /// properties "axisVisible", "safetyZoneVisible", "sleeveVisible", "anchorPinsVisible".
    static QString getClassTypeId() { return QStringLiteral("ImplantVisualizationOptionsNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// Whether the implants' axes are drawn; true by default.
    bool isAxisVisible() const { return m_axisVisible; }
    void setAxisVisible(bool axisVisible) { assign(m_axisVisible, axisVisible); }
    /// @}
    /// @{
    /// Whether the safety zones around the implants are drawn; true by default.
    bool isSafetyZoneVisible() const { return m_safetyZoneVisible; }
    void setSafetyZoneVisible(bool safetyZoneVisible)
    {
        assign(m_safetyZoneVisible, safetyZoneVisible);
    }
    /// @}
    /// @{
    /// Whether the guide sleeves are drawn; true by default.
    bool isSleeveVisible() const { return m_sleeveVisible; }
    void setSleeveVisible(bool sleeveVisible) { assign(m_sleeveVisible, sleeveVisible); }
    /// @}
    /// @{
    /// Whether the anchor pins are drawn; true by default.
    bool areAnchorPinsVisible() const { return m_anchorPinsVisible; }
    void setAnchorPinsVisible(bool anchorPinsVisible)
    {
        assign(m_anchorPinsVisible, anchorPinsVisible);
    }
    /// @}

private:
    bool m_axisVisible = true;
    bool m_safetyZoneVisible = true;
    bool m_sleeveVisible = true;
    bool m_anchorPinsVisible = true;
};

} // namespace ui
