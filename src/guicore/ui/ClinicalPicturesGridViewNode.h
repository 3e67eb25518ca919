#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

#include <QString>

namespace ui {

/// The clinical pictures grid view and its active layout.
class GUICORE_EXPORT ClinicalPicturesGridViewNode : public Node
{
public:
    ClinicalPicturesGridViewNode();
    /// Copies the properties of every class level; the children are not copied.
    ClinicalPicturesGridViewNode(const ClinicalPicturesGridViewNode& other);
    ClinicalPicturesGridViewNode& operator=(const ClinicalPicturesGridViewNode&) = delete;
    ~ClinicalPicturesGridViewNode() override;

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
    bool operator==(const ClinicalPicturesGridViewNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QString m_activeLayoutId;
};

} // namespace ui
