#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

#include <objectmodel/Optional.h>

#include <QString>

namespace ui {

/// One view of a solution, identified by its view id.
class GUICORE_EXPORT ViewNode : public NodeKind<ViewNode, Node>
{
public:
    /// @{
    /// The type id "ViewNode", and this level's table: format 1.0, stored properties "viewId",
    /// "angulatedReslicesHorizontalSlidersPosition"; an empty position is stored as null.
    static QString getClassTypeId() { return QStringLiteral("ViewNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The id of the view (View::getID()) the node stands for; ViewNodeInteractor fills it in.
    const QString& getViewId() const { return m_viewId; }
    void setViewId(const QString& viewId) { assign(m_viewId, viewId); }
    /// @}
    /// @{
    /// The position of the horizontal sliders of the view's angulated reslices, as the view
    /// stores it; empty until the view stored a position.
    const utility::Optional<int>& getAngulatedReslicesHorizontalSlidersPosition() const
    {
        return m_angulatedReslicesHorizontalSlidersPosition;
    }
    void setAngulatedReslicesHorizontalSlidersPosition(const utility::Optional<int>& position)
    {
        assign(m_angulatedReslicesHorizontalSlidersPosition, position);
    }
    /// @}

private:
    QString m_viewId;
    utility::Optional<int> m_angulatedReslicesHorizontalSlidersPosition;
};

} // namespace ui
