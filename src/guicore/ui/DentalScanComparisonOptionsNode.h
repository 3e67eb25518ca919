#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>

#include <QString>

#include <cstdint>

namespace ui {

/// How a comparison of two dental scans is shown: transparency and mode of the comparison scan, and
/// how the reference scan looks.
class GUICORE_EXPORT DentalScanComparisonOptionsNode : public DataObjectNode
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

    explicit DentalScanComparisonOptionsNode(const QString& dataObjectUUID = QString());
    /// Copies the properties of every class level; the children are not copied.
    DentalScanComparisonOptionsNode(const DentalScanComparisonOptionsNode& other);
    DentalScanComparisonOptionsNode& operator=(const DentalScanComparisonOptionsNode&) = delete;
    ~DentalScanComparisonOptionsNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    int getComparisonScanTransparency() const { return m_comparisonScanTransparency; }
    void setComparisonScanTransparency(int comparisonScanTransparency);
    const QString& getVisualizationMode() const { return m_visualizationMode; }
    void setVisualizationMode(const QString& visualizationMode);
    const ScanSetupVisualState& getReferenceScanVisualState() const
    {
        return m_referenceScanVisualState;
    }
    void setReferenceScanVisualState(const ScanSetupVisualState& referenceScanVisualState);
    bool isShown() const { return m_shown; }
    void setShown(bool shown);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const DentalScanComparisonOptionsNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    int m_comparisonScanTransparency = 0;
    QString m_visualizationMode;
    ScanSetupVisualState m_referenceScanVisualState;
    bool m_shown = true;
};

} // namespace ui
