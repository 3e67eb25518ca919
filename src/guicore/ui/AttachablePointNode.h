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
    /// A node that refers to the data object dataObjectUUID (none by default).
    explicit AttachablePointNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    /// @{
    /// The type id "AttachablePointNode", and this level's table: format 1.0, stored properties
    /// "attachedPosition", "attachedDirection", "attachedUpperDirection".
    static QString getClassTypeId() { return QStringLiteral("AttachablePointNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// Where the point is attached. Compared exactly.
    const QVector3D& getAttachedPosition() const { return m_attachedPosition; }
    void setAttachedPosition(const QVector3D& attachedPosition)
    {
        assign(m_attachedPosition, attachedPosition);
    }
    /// @}
    /// @{
    /// The direction the point points in. Compared exactly.
    const QVector3D& getAttachedDirection() const { return m_attachedDirection; }
    void setAttachedDirection(const QVector3D& attachedDirection)
    {
        assign(m_attachedDirection, attachedDirection);
    }
    /// @}
    /// @{
    /// The upper direction, which fixes the roll about the pointing direction. Compared exactly.
    const QVector3D& getAttachedUpperDirection() const { return m_attachedUpperDirection; }
    void setAttachedUpperDirection(const QVector3D& attachedUpperDirection)
    {
        assign(m_attachedUpperDirection, attachedUpperDirection);
    }
    /// @}

private:
    QVector3D m_attachedPosition;
    QVector3D m_attachedDirection;
    QVector3D m_attachedUpperDirection;
};

} // namespace ui
