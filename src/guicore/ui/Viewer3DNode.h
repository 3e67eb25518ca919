#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>
#include <guicore/ui/ViewerNode.h>

#include <QQuaternion>
#include <QVector3D>

namespace ui {

/// A 3-D viewer and its camera.
class GUICORE_EXPORT Viewer3DNode : public NodeKind<Viewer3DNode, ViewerNode>
{
public:
    /// @{
    /// The type id "Viewer3DNode", and this level's table: format 1.1, stored properties
    /// "cameraPosition", "rotation", "nearDistance", "farDistance", "focalDistance", "minimalFOV".
    static QString getClassTypeId() { return QStringLiteral("Viewer3DNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The camera's position, in the coordinates of the 3-D scene; the origin by default. Compared
    /// exactly.
    const QVector3D& getCameraPosition() const { return m_cameraPosition; }
    void setCameraPosition(const QVector3D& cameraPosition)
    {
        assign(m_cameraPosition, cameraPosition);
    }
    /// @}
    /// @{
    /// The camera's rotation; the identity by default. Compared exactly.
    const QQuaternion& getRotation() const { return m_rotation; }
    void setRotation(const QQuaternion& rotation) { assign(m_rotation, rotation); }
    /// @}
    /// @{
    /// The distance of the near clipping plane, in scene units; 1 by default.
    float getNearDistance() const { return m_nearDistance; }
    void setNearDistance(float nearDistance) { assign(m_nearDistance, nearDistance); }
    /// @}
    /// @{
    /// The distance of the far clipping plane, in scene units; 1000 by default.
    float getFarDistance() const { return m_farDistance; }
    void setFarDistance(float farDistance) { assign(m_farDistance, farDistance); }
    /// @}
    /// @{
    /// The camera's focal distance, in scene units; 100 by default.
    float getFocalDistance() const { return m_focalDistance; }
    void setFocalDistance(float focalDistance) { assign(m_focalDistance, focalDistance); }
    /// @}
    /// @{
    /// The camera's minimal field of view; 30 by default. The distances and the field of view
    /// compare within twelve significant digits.
    float getMinimalFOV() const { return m_minimalFOV; }
    void setMinimalFOV(float minimalFOV) { assign(m_minimalFOV, minimalFOV); }
    /// @}

private:
    QVector3D m_cameraPosition;
    QQuaternion m_rotation;
    float m_nearDistance = 1.0f;
    float m_farDistance = 1000.0f;
    float m_focalDistance = 100.0f;
    float m_minimalFOV = 30.0f;
};

} // namespace ui
