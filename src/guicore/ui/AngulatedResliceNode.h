#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>

#include <QVector3D>

namespace ui {

/// A reslice at an arbitrary angle through the volume: its origin and its two in-plane directions.
class GUICORE_EXPORT AngulatedResliceNode : public DataObjectNode
{
public:
    explicit AngulatedResliceNode(const QString& dataObjectUUID = QString());
    /// Copies the properties of every class level; the children are not copied.
    AngulatedResliceNode(const AngulatedResliceNode& other);
    AngulatedResliceNode& operator=(const AngulatedResliceNode&) = delete;
    ~AngulatedResliceNode() override;

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

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const AngulatedResliceNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QVector3D m_origin;
    QVector3D m_direction0;
    QVector3D m_direction1;
};

} // namespace ui
