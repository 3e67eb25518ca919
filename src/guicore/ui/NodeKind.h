#pragma once

#include <guicore/ui/Node.h>
#include <guicore/ui/NodePropertyTable.h>

#include <memory>
#include <vector>

namespace ui {

/// The plumbing that every node kind shares, written once: registering the class level and its
/// format version, the type ids, clone() through the copy constructor, isEqual() with its class
/// test, comparison of the base levels before this one, and the property tables.
///
/// A kind derives from NodeKind<Kind, Base>, where Base is ui::Node or another kind, and declares
/// ```
/// static QString getClassTypeId();                  // the stored type id
/// static const ui::NodePropertyTable& properties(); // this level's id, version, properties
/// ```
/// plus its data members and their getters and setters (setters store through assign(), which
/// marks the node altered only on a real change). Its copy constructor copies its members; the
/// children are never copied. Register an application's kind with NodeFactory::registerNodeKind
/// so that stored trees can hold it.
template <typename Kind, typename Base> class NodeKind : public Base
{
public:
    /// The class level below this one: ui::Node or another kind.
    using BaseNode = Base;

    /// Kind::getClassTypeId().
    QString getTypeId() const override { return Kind::getClassTypeId(); }

    /// A copy without children; ownership passes to the caller. The copy is not altered.
    std::unique_ptr<Node> clone() const override
    {
        return std::make_unique<Kind>(static_cast<const Kind&>(*this));
    }

    /// False when other is not of this class; else every level's properties, then the children
    /// as a multiset.
    bool isEqual(const Node& other) const override
    {
        const auto* same = dynamic_cast<const Kind*>(&other);
        return same && *this == *same;
    }

    /// The tables of the levels below, then Kind::properties().
    void collectPropertyTables(std::vector<const NodePropertyTable*>& tables) const override
    {
        Base::collectPropertyTables(tables);
        tables.push_back(&Kind::properties());
    }

protected:
    /// Registers this level's type id and format version.
    NodeKind() { registerLevel(); }
    /// Passes a constructor argument (a data-object UUID) on to the base level.
    template <typename Argument>
    explicit NodeKind(const Argument& argument)
        : Base(argument)
    {
        registerLevel();
    }
    /// Copies the levels below (never the children) and registers this level again; Kind's own
    /// copy constructor copies its members.
    NodeKind(const NodeKind& other)
        : Base(other)
    {
        registerLevel();
    }

    /// The levels below (the class chain and the children, at the bottom), then this level's
    /// properties.
    bool operator==(const NodeKind& other) const
    {
        return Base::operator==(other) && Kind::properties().equal(*this, other);
    }

    /// Stores value into member and marks the node altered, unless the two are equal by the
    /// property's own comparison.
    template <typename T> void assign(T& member, const T& value)
    {
        if (NodePropertyTraits<T>::equal(member, value))
            return;
        member = value;
        this->setAltered();
    }

private:
    void registerLevel()
    {
        const NodePropertyTable& table = Kind::properties();
        this->UI_NODE_INIT(table.typeId, table.version);
    }
};

} // namespace ui
