#pragma once

#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// The part that the views showing pictures in a grid layout share: the active layout's id,
/// stored as "activeLayoutId". Kind lists layoutProperties() in its own table.
template <typename Kind> class LayoutViewNode : public NodeKind<Kind, Node>
{
public:
    /// The id of the layout the view shows, as the application names them; empty by default.
    const QString& getActiveLayoutId() const { return m_activeLayoutId; }
    /// Marks the node altered only when the value changes.
    void setActiveLayoutId(const QString& activeLayoutId)
    {
        this->assign(m_activeLayoutId, activeLayoutId);
    }

protected:
    /// The entry "activeLayoutId", for Kind's property table.
    static std::vector<NodePropertyTable::Property> layoutProperties()
    {
        return {NodePropertyTable::property("activeLayoutId", &LayoutViewNode::m_activeLayoutId)};
    }

private:
    QString m_activeLayoutId;
};

} // namespace ui
