#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

#include <QString>

namespace ui {

/// A node that refers to one data object of the patient by its UUID.
class GUICORE_EXPORT DataObjectNode : public Node
{
public:
    explicit DataObjectNode(const QString& dataObjectUUID = QString());
    /// Copies the properties of every class level; the children are not copied.
    DataObjectNode(const DataObjectNode& other);
    DataObjectNode& operator=(const DataObjectNode&) = delete;
    ~DataObjectNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const QString& getDataObjectUUID() const { return m_dataObjectUUID; }
    void setDataObjectUUID(const QString& dataObjectUUID);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const DataObjectNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    QString m_dataObjectUUID;
};

} // namespace ui
