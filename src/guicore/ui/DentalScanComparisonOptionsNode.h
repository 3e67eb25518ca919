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
        bool visible = true;
        bool wireframe = false;
        std::int32_t color = 0; ///< ARGB
        std::int32_t opacityPercent = 100;

        bool operator==(const ScanSetupVisualState& other) const
        {
            return visible == other.visible && wireframe == other.wireframe && color == other.color
                && opacityPercent == other.opacityPercent;
        }
        bool operator!=(const ScanSetupVisualState& other) const { return !(*this == other); }
    };

    explicit DentalScanComparisonOptionsNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    static QString getClassTypeId() { return QStringLiteral("DentalScanComparisonOptionsNode"); }
    static const NodePropertyTable& properties();

    int getComparisonScanTransparency() const { return m_comparisonScanTransparency; }
    void setComparisonScanTransparency(int comparisonScanTransparency)
    {
        assign(m_comparisonScanTransparency, comparisonScanTransparency);
    }
    const QString& getVisualizationMode() const { return m_visualizationMode; }
    void setVisualizationMode(const QString& visualizationMode)
    {
        assign(m_visualizationMode, visualizationMode);
    }
    const ScanSetupVisualState& getReferenceScanVisualState() const
    {
        return m_referenceScanVisualState;
    }
    void setReferenceScanVisualState(const ScanSetupVisualState& state);
    bool isShown() const { return m_shown; }
    void setShown(bool shown) { assign(m_shown, shown); }

private:
    int m_comparisonScanTransparency = 0;
    QString m_visualizationMode;
    ScanSetupVisualState m_referenceScanVisualState;
    bool m_shown = true;
};

} // namespace ui
