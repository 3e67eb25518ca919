#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/Viewer3DNode.h>

namespace ui {

/// A 3-D viewer of CT data.
class GUICORE_EXPORT CtDataViewer3DNode : public NodeKind<CtDataViewer3DNode, Viewer3DNode>
{
public:
    /// @{
    /// The type id "CtDataViewer3DNode", and this level's table: format 1.0, stored property
    /// "updateCameraWhenPatientOrientationChanges".
    static QString getClassTypeId() { return QStringLiteral("CtDataViewer3DNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// Whether the camera follows when the patient's orientation in the volume is changed; true by
    /// default.
    bool hasToUpdateCameraWhenPatientOrientationChanges() const
    {
        return m_updateCameraWhenPatientOrientationChanges;
    }
    void setUpdateCameraWhenPatientOrientationChanges(
        bool updateCameraWhenPatientOrientationChanges)
    {
        assign(
            m_updateCameraWhenPatientOrientationChanges, updateCameraWhenPatientOrientationChanges);
    }
    /// @}

private:
    bool m_updateCameraWhenPatientOrientationChanges = true;
};

} // namespace ui
