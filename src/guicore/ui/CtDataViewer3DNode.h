#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Viewer3DNode.h>

namespace ui {

/// A 3-D viewer of CT data.
class GUICORE_EXPORT CtDataViewer3DNode : public Viewer3DNode
{
public:
    CtDataViewer3DNode();
    /// Copies the properties of every class level; the children are not copied.
    CtDataViewer3DNode(const CtDataViewer3DNode& other);
    CtDataViewer3DNode& operator=(const CtDataViewer3DNode&) = delete;
    ~CtDataViewer3DNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    bool hasToUpdateCameraWhenPatientOrientationChanges() const
    {
        return m_updateCameraWhenPatientOrientationChanges;
    }
    void setUpdateCameraWhenPatientOrientationChanges(
        bool updateCameraWhenPatientOrientationChanges);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const CtDataViewer3DNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    bool m_updateCameraWhenPatientOrientationChanges = true;
};

} // namespace ui
