#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Viewer2DNode.h>

#include <QString>

namespace ui {

/// A 2-D viewer of a reslice: the plane orientation and the slider position.
class GUICORE_EXPORT ResliceViewerNode : public Viewer2DNode
{
public:
    ResliceViewerNode();
    /// Copies the properties of every class level; the children are not copied.
    ResliceViewerNode(const ResliceViewerNode& other);
    ResliceViewerNode& operator=(const ResliceViewerNode&) = delete;
    ~ResliceViewerNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QString& getPlaneOrientation() const { return m_planeOrientation; }
    void setPlaneOrientation(const QString& planeOrientation);
    int getSliderIndex() const { return m_sliderIndex; }
    void setSliderIndex(int sliderIndex);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const ResliceViewerNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QString m_planeOrientation;
    int m_sliderIndex = 0;
};

} // namespace ui
