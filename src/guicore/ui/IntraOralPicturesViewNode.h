#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

#include <QString>

namespace ui {

/// The intra-oral pictures view and its active layout.
class GUICORE_EXPORT IntraOralPicturesViewNode : public Node
{
public:
    IntraOralPicturesViewNode();
    /// Copies the properties of every class level; the children are not copied.
    IntraOralPicturesViewNode(const IntraOralPicturesViewNode& other);
    IntraOralPicturesViewNode& operator=(const IntraOralPicturesViewNode&) = delete;
    ~IntraOralPicturesViewNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QString& getActiveLayoutId() const { return m_activeLayoutId; }
    void setActiveLayoutId(const QString& activeLayoutId);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const IntraOralPicturesViewNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QString m_activeLayoutId;
};

} // namespace ui
