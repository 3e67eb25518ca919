#pragma once

#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// The part that the views showing pictures in a grid layout share: the active layout's id,
/// stored as "activeLayoutId". Kind lists layoutProperties() in its own table.
template <typename Kind> class LayoutViewNode : public NodeKind<Kind, Node>
{
public:
    const QString& getActiveLayoutId() const { return m_activeLayoutId; }
    void setActiveLayoutId(const QString& activeLayoutId)
    {
        this->assign(m_activeLayoutId, activeLayoutId);
    }

protected:
    static std::vector<NodePropertyTable::Property> layoutProperties()
    {
        return {NodePropertyTable::property("activeLayoutId", &LayoutViewNode::m_activeLayoutId)};
    }

private:
    QString m_activeLayoutId;
};

} // namespace ui
