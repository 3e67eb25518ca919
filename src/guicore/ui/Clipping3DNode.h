#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

#include <QString>

namespace ui {

/// The reslice by which the 3-D viewers clip, and on which side.
class GUICORE_EXPORT Clipping3DNode : public Node
{
public:
    Clipping3DNode();
    /// Copies the properties of every class level; the children are not copied.
    Clipping3DNode(const Clipping3DNode& other);
    Clipping3DNode& operator=(const Clipping3DNode&) = delete;
    ~Clipping3DNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QString& getClippingResliceUUID() const { return m_clippingResliceUUID; }
    void setClippingResliceUUID(const QString& clippingResliceUUID);
    bool getMirrored() const { return m_mirrored; }
    void setMirrored(bool mirrored);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const Clipping3DNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QString m_clippingResliceUUID;
    bool m_mirrored = false;
};

} // namespace ui
