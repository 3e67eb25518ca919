#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

#include <cstdint>

namespace ui {

/// How a comparison of two dental scans is shown: transparency and mode of the comparison scan, and
/// how the reference scan looks.
class GUICORE_EXPORT DentalScanComparisonOptionsNode
    : public NodeKind<DentalScanComparisonOptionsNode, DataObjectNode>
{
public:
    /// How the reference scan is drawn; compared and assigned as a whole.
    struct ScanSetupVisualState
    {
        bool visible = true; ///< Whether the reference scan is drawn at all.
        bool wireframe = false; ///< Drawn as a wireframe rather than as a surface.
        std::int32_t color = 0; ///< ARGB
        std::int32_t opacityPercent = 100; ///< 0 (invisible) to 100 (opaque).

        /// @{
        /// All four members equal.
        bool operator==(const ScanSetupVisualState& other) const
        {
            return visible == other.visible && wireframe == other.wireframe && color == other.color
                && opacityPercent == other.opacityPercent;
        }
        bool operator!=(const ScanSetupVisualState& other) const { return !(*this == other); }
        /// @}
    };

    /// A node that refers to the data object dataObjectUUID (none by default).
    explicit DentalScanComparisonOptionsNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    /// @{
    /// The type id "DentalScanComparisonOptionsNode", and this level's table: format 1.1, stored
    /// properties "comparisonScanTransparency", "visualizationMode", "referenceScanVisualState",
    /// "shown"; the visual state is stored as an object of its four members by name.
    static QString getClassTypeId() { return QStringLiteral("DentalScanComparisonOptionsNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The transparency of the comparison scan; 0 by default.
    int getComparisonScanTransparency() const { return m_comparisonScanTransparency; }
    void setComparisonScanTransparency(int comparisonScanTransparency)
    {
        assign(m_comparisonScanTransparency, comparisonScanTransparency);
    }
    /// @}
    /// @{
    /// The name of the comparison's visualisation mode, as the application defines them; empty by
    /// default.
    const QString& getVisualizationMode() const { return m_visualizationMode; }
    void setVisualizationMode(const QString& visualizationMode)
    {
        assign(m_visualizationMode, visualizationMode);
    }
    /// @}
    /// How the reference scan is drawn.
    const ScanSetupVisualState& getReferenceScanVisualState() const
    {
        return m_referenceScanVisualState;
    }
    /// Stores state and marks the node altered when any of its four members differs.
    void setReferenceScanVisualState(const ScanSetupVisualState& state);
    /// @{
    /// Whether the comparison is shown; true by default.
    bool isShown() const { return m_shown; }
    void setShown(bool shown) { assign(m_shown, shown); }
    /// @}

private:
    int m_comparisonScanTransparency = 0;
    QString m_visualizationMode;
    ScanSetupVisualState m_referenceScanVisualState;
    bool m_shown = true;
};

} // namespace ui
