#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Viewer3DNode.h>

#include <toothchart/ToothChart.h>

namespace ui {

/// A 3-D viewer of a dental scan of one arch.
class GUICORE_EXPORT DentalScanViewer3DNode : public Viewer3DNode
{
public:
    DentalScanViewer3DNode();
    /// Copies the properties of every class level; the children are not copied.
    DentalScanViewer3DNode(const DentalScanViewer3DNode& other);
    DentalScanViewer3DNode& operator=(const DentalScanViewer3DNode&) = delete;
    ~DentalScanViewer3DNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    ToothChart::ArchType getArchType() const { return m_archType; }
    void setArchType(ToothChart::ArchType archType);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const DentalScanViewer3DNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    ToothChart::ArchType m_archType = ToothChart::Upper;
};

} // namespace ui
