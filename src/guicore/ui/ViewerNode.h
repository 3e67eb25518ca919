#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// A viewer inside a view: its index in the view, whether it is maximized, and the data object it
/// shows.
class GUICORE_EXPORT ViewerNode : public NodeKind<ViewerNode, Node>
{
public:
    /// The viewer index of a viewer that has not been placed in its view.
    static constexpr int DEFAULT_VIEWER_INDEX = -1;

    /// @{
    /// The type id "ViewerNode", and this level's table: format 1.0, stored properties
    /// "viewerIndex", "maximized", "hadContentWhenGenerated", "associatedDataObjectUUID".
    static QString getClassTypeId() { return QStringLiteral("ViewerNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The viewer's place among the viewers of its view, counted from 0; DEFAULT_VIEWER_INDEX by
    /// default.
    int getViewerIndex() const { return m_viewerIndex; }
    void setViewerIndex(int viewerIndex) { assign(m_viewerIndex, viewerIndex); }
    /// @}
    /// @{
    /// Whether the viewer fills its view; false by default.
    bool isMaximized() const { return m_maximized; }
    void setMaximized(bool maximized) { assign(m_maximized, maximized); }
    /// @}
    /// @{
    /// Whether the viewer showed content when its node was generated; false by default.
    bool hadContentWhenGenerated() const { return m_hadContentWhenGenerated; }
    void setHadContentWhenGenerated(bool hadContentWhenGenerated)
    {
        assign(m_hadContentWhenGenerated, hadContentWhenGenerated);
    }
    /// @}
    /// @{
    /// The UUID of the data object the viewer shows; empty for none.
    const QString& getAssociatedDataObjectUUID() const { return m_associatedDataObjectUUID; }
    void setAssociatedDataObjectUUID(const QString& associatedDataObjectUUID)
    {
        assign(m_associatedDataObjectUUID, associatedDataObjectUUID);
    }
    /// @}
    /// Sets the associated UUID to empty (marking the node altered if it was not).
    void clearAssociatedDataObjectUUID();

private:
    int m_viewerIndex = DEFAULT_VIEWER_INDEX;
    bool m_maximized = false;
    bool m_hadContentWhenGenerated = false;
    QString m_associatedDataObjectUUID;
};

} // namespace ui
