#pragma once

#include <guicore/ui/NodePropertyTraits.h>

#include <QJsonValue>
#include <QString>
#include <QVersionNumber>

#include <functional>
#include <vector>

namespace ui {

class Node;

/// The properties that one class level of a node kind adds, with the level's type id and format
/// version. It is the single list that comparison, hashing and persistence walk, so a property
/// cannot be forgotten in one of them: a kind lists each data member once, with property().
///
///     const ui::NodePropertyTable& ToothNumberingNode::properties()
///     {
///         static const ui::NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
///             {ui::NodePropertyTable::property("system", &ToothNumberingNode::m_system)}};
///         return table;
///     }
///
/// The property names are the keys of the stored data; renaming one is a format change.
class NodePropertyTable
{
public:
    /// One property: its stored name and the ways it is walked.
    struct Property
    {
        /// The key of the property in the stored data.
        QString name;
        /// True when the property has equal values in a and b, both of the owning class.
        std::function<bool(const Node& a, const Node& b)> equal;
        /// Equal values hash alike, unless the property is tolerant (compared within a
        /// tolerance), when only identical ones do.
        std::function<size_t(const Node& node)> hash;
        /// Whether equal compares within a tolerance (floating-point values).
        bool tolerant = false;
        /// The value as stored.
        std::function<QJsonValue(const Node& node)> toJson;
        /// False, leaving the node as it was, when json does not hold a value of the type.
        std::function<bool(Node& node, const QJsonValue& json)> fromJson;
    };

    /// The entry of a data member of the class level Owner; T needs a NodePropertyTraits.
    template <typename Owner, typename T>
    static Property property(const char* name, T Owner::*member)
    {
        using Traits = NodePropertyTraits<T>;
        Property entry;
        entry.name = QString::fromLatin1(name);
        entry.equal = [member](const Node& a, const Node& b) {
            return Traits::equal(
                static_cast<const Owner&>(a).*member, static_cast<const Owner&>(b).*member);
        };
        entry.hash = [member](const Node& node) {
            return detail::valueHash(static_cast<const Owner&>(node).*member);
        };
        entry.tolerant = detail::IsTolerant<T>::value;
        entry.toJson = [member](const Node& node) {
            return Traits::toJson(static_cast<const Owner&>(node).*member);
        };
        entry.fromJson = [member](Node& node, const QJsonValue& json) {
            return Traits::fromJson(json, static_cast<Owner&>(node).*member);
        };
        return entry;
    }

    /// True when a and b, both of this level's class, agree in every property of this level.
    bool equal(const Node& a, const Node& b) const
    {
        return std::all_of(properties.begin(), properties.end(),
            [&a, &b](const Property& entry) { return entry.equal(a, b); });
    }

    /// The level's type id, the key of its properties in the stored data.
    QString typeId;
    /// The format version this level writes; stored with every node, so that a reader can
    /// recognise data written by an older layout of the level.
    QVersionNumber version;
    /// The level's properties, in the order they are compared and stored.
    std::vector<Property> properties;
};

} // namespace ui
