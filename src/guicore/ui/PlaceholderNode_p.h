#pragma once

#include <guicore/ui/Node.h>

#include <QJsonObject>

namespace ui::detail {

/// Stands in for a node whose kind this build does not know (a state written by a newer version,
/// or a plain "Node"), so that the rest of the tree still loads. It keeps the type id and the raw
/// properties it was read with, so writing the tree back loses nothing.
class PlaceholderNode final : public Node
{
public:
    PlaceholderNode() = default;

    /// Placeholders are never meant to be copied: the warning points at a tree that still holds
    /// an unknown kind. Returns a new, empty placeholder; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    QString getStoredTypeId() const { return m_storedTypeId; }
    void setStoredTypeId(const QString& typeId) { m_storedTypeId = typeId; }
    QJsonObject getStoredProperties() const { return m_storedProperties; }
    void setStoredProperties(const QJsonObject& properties) { m_storedProperties = properties; }

private:
    QString m_storedTypeId;
    QJsonObject m_storedProperties;
};

} // namespace ui::detail
