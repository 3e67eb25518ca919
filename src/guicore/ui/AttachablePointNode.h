#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>

#include <QVector3D>

namespace ui {

/// A point attached to a data object, with the direction it points in and its upper direction.
class GUICORE_EXPORT AttachablePointNode : public DataObjectNode
{
public:
    explicit AttachablePointNode(const QString& dataObjectUUID = QString());
    /// Copies the properties of every class level; the children are not copied.
    AttachablePointNode(const AttachablePointNode& other);
    AttachablePointNode& operator=(const AttachablePointNode&) = delete;
    ~AttachablePointNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QVector3D& getAttachedPosition() const { return m_attachedPosition; }
    void setAttachedPosition(const QVector3D& attachedPosition);
    const QVector3D& getAttachedDirection() const { return m_attachedDirection; }
    void setAttachedDirection(const QVector3D& attachedDirection);
    const QVector3D& getAttachedUpperDirection() const { return m_attachedUpperDirection; }
    void setAttachedUpperDirection(const QVector3D& attachedUpperDirection);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const AttachablePointNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QVector3D m_attachedPosition;
    QVector3D m_attachedDirection;
    QVector3D m_attachedUpperDirection;
};

} // namespace ui
