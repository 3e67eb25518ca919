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
    static QString getClassTypeId() { return QStringLiteral("Viewer3DNode"); }
    static const NodePropertyTable& properties();

    const QVector3D& getCameraPosition() const { return m_cameraPosition; }
    void setCameraPosition(const QVector3D& cameraPosition)
    {
        assign(m_cameraPosition, cameraPosition);
    }
    const QQuaternion& getRotation() const { return m_rotation; }
    void setRotation(const QQuaternion& rotation) { assign(m_rotation, rotation); }
    float getNearDistance() const { return m_nearDistance; }
    void setNearDistance(float nearDistance) { assign(m_nearDistance, nearDistance); }
    float getFarDistance() const { return m_farDistance; }
    void setFarDistance(float farDistance) { assign(m_farDistance, farDistance); }
    float getFocalDistance() const { return m_focalDistance; }
    void setFocalDistance(float focalDistance) { assign(m_focalDistance, focalDistance); }
    float getMinimalFOV() const { return m_minimalFOV; }
    void setMinimalFOV(float minimalFOV) { assign(m_minimalFOV, minimalFOV); }

private:
    QVector3D m_cameraPosition;
    QQuaternion m_rotation;
    float m_nearDistance = 1.0f;
    float m_farDistance = 1000.0f;
    float m_focalDistance = 100.0f;
    float m_minimalFOV = 30.0f;
};

} // namespace ui
