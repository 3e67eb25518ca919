#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/NodeKind.h>

#include <QVector3D>

namespace ui {

/// A point attached to a data object, with the direction it points in and its upper direction.
class GUICORE_EXPORT AttachablePointNode : public NodeKind<AttachablePointNode, DataObjectNode>
{
public:
    explicit AttachablePointNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    static QString getClassTypeId() { return QStringLiteral("AttachablePointNode"); }
    static const NodePropertyTable& properties();

    const QVector3D& getAttachedPosition() const { return m_attachedPosition; }
    void setAttachedPosition(const QVector3D& attachedPosition)
    {
        assign(m_attachedPosition, attachedPosition);
    }
    const QVector3D& getAttachedDirection() const { return m_attachedDirection; }
    void setAttachedDirection(const QVector3D& attachedDirection)
    {
        assign(m_attachedDirection, attachedDirection);
    }
    const QVector3D& getAttachedUpperDirection() const { return m_attachedUpperDirection; }
    void setAttachedUpperDirection(const QVector3D& attachedUpperDirection)
    {
        assign(m_attachedUpperDirection, attachedUpperDirection);
    }

private:
    QVector3D m_attachedPosition;
    QVector3D m_attachedDirection;
    QVector3D m_attachedUpperDirection;
};

} // namespace ui
