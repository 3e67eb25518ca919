#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

#include <QString>
#include <QVector3D>

namespace ui {

/// A reslice snapped to a fixed plane: origin, in-plane directions and the orientation name.
class GUICORE_EXPORT SnappedResliceNode : public Node
{
public:
    SnappedResliceNode();
    /// Copies the properties of every class level; the children are not copied.
    SnappedResliceNode(const SnappedResliceNode& other);
    SnappedResliceNode& operator=(const SnappedResliceNode&) = delete;
    ~SnappedResliceNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QVector3D& getOrigin() const { return m_origin; }
    void setOrigin(const QVector3D& origin);
    const QVector3D& getDirection0() const { return m_direction0; }
    void setDirection0(const QVector3D& direction0);
    const QVector3D& getDirection1() const { return m_direction1; }
    void setDirection1(const QVector3D& direction1);
    const QString& getPlaneOrientation() const { return m_planeOrientation; }
    void setPlaneOrientation(const QString& planeOrientation);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const SnappedResliceNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QVector3D m_origin;
    QVector3D m_direction0;
    QVector3D m_direction1;
    QString m_planeOrientation;
};

} // namespace ui
