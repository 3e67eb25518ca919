#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/ViewerNode.h>

#include <QQuaternion>
#include <QVector3D>

namespace ui {

/// A 3-D viewer and its camera.
class GUICORE_EXPORT Viewer3DNode : public ViewerNode
{
public:
    Viewer3DNode();
    /// Copies the properties of every class level; the children are not copied.
    Viewer3DNode(const Viewer3DNode& other);
    Viewer3DNode& operator=(const Viewer3DNode&) = delete;
    ~Viewer3DNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QVector3D& getCameraPosition() const { return m_cameraPosition; }
    void setCameraPosition(const QVector3D& cameraPosition);
    const QQuaternion& getRotation() const { return m_rotation; }
    void setRotation(const QQuaternion& rotation);
    float getNearDistance() const { return m_nearDistance; }
    void setNearDistance(float nearDistance);
    float getFarDistance() const { return m_farDistance; }
    void setFarDistance(float farDistance);
    float getFocalDistance() const { return m_focalDistance; }
    void setFocalDistance(float focalDistance);
    float getMinimalFOV() const { return m_minimalFOV; }
    void setMinimalFOV(float minimalFOV);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const Viewer3DNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QVector3D m_cameraPosition;
    QQuaternion m_rotation;
    float m_nearDistance = 1.0f;
    float m_farDistance = 1000.0f;
    float m_focalDistance = 100.0f;
    float m_minimalFOV = 30.0f;
};

} // namespace ui
