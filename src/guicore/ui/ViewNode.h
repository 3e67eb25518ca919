#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

#include <objectmodel/Optional.h>

#include <QString>

namespace ui {

/// One view of a solution, identified by its view id.
class GUICORE_EXPORT ViewNode : public Node
{
public:
    ViewNode();
    /// Copies the properties of every class level; the children are not copied.
    ViewNode(const ViewNode& other);
    ViewNode& operator=(const ViewNode&) = delete;
    ~ViewNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QString& getViewId() const { return m_viewId; }
    void setViewId(const QString& viewId);
    /// Empty until the view stored a position.
    const utility::Optional<int>& getAngulatedReslicesHorizontalSlidersPosition() const
    {
        return m_angulatedReslicesHorizontalSlidersPosition;
    }
    void setAngulatedReslicesHorizontalSlidersPosition(const utility::Optional<int>& position);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const ViewNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QString m_viewId;
    utility::Optional<int> m_angulatedReslicesHorizontalSlidersPosition;
};

} // namespace ui
