#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

namespace ui {

/// Which parts of the implants are drawn.
class GUICORE_EXPORT ImplantVisualizationOptionsNode : public Node
{
public:
    ImplantVisualizationOptionsNode();
    /// Copies the properties of every class level; the children are not copied.
    ImplantVisualizationOptionsNode(const ImplantVisualizationOptionsNode& other);
    ImplantVisualizationOptionsNode& operator=(const ImplantVisualizationOptionsNode&) = delete;
    ~ImplantVisualizationOptionsNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    bool isAxisVisible() const { return m_axisVisible; }
    void setAxisVisible(bool axisVisible);
    bool isSafetyZoneVisible() const { return m_safetyZoneVisible; }
    void setSafetyZoneVisible(bool safetyZoneVisible);
    bool isSleeveVisible() const { return m_sleeveVisible; }
    void setSleeveVisible(bool sleeveVisible);
    bool areAnchorPinsVisible() const { return m_anchorPinsVisible; }
    void setAnchorPinsVisible(bool anchorPinsVisible);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const ImplantVisualizationOptionsNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    bool m_axisVisible = true;
    bool m_safetyZoneVisible = true;
    bool m_sleeveVisible = true;
    bool m_anchorPinsVisible = true;
};

} // namespace ui
