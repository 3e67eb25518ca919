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
    static constexpr int DEFAULT_VIEWER_INDEX = -1;

    static QString getClassTypeId() { return QStringLiteral("ViewerNode"); }
    static const NodePropertyTable& properties();

    int getViewerIndex() const { return m_viewerIndex; }
    void setViewerIndex(int viewerIndex) { assign(m_viewerIndex, viewerIndex); }
    bool isMaximized() const { return m_maximized; }
    void setMaximized(bool maximized) { assign(m_maximized, maximized); }
    bool hadContentWhenGenerated() const { return m_hadContentWhenGenerated; }
    void setHadContentWhenGenerated(bool hadContentWhenGenerated)
    {
        assign(m_hadContentWhenGenerated, hadContentWhenGenerated);
    }
    const QString& getAssociatedDataObjectUUID() const { return m_associatedDataObjectUUID; }
    void setAssociatedDataObjectUUID(const QString& associatedDataObjectUUID)
    {
        assign(m_associatedDataObjectUUID, associatedDataObjectUUID);
    }
    void clearAssociatedDataObjectUUID();

private:
    int m_viewerIndex = DEFAULT_VIEWER_INDEX;
    bool m_maximized = false;
    bool m_hadContentWhenGenerated = false;
    QString m_associatedDataObjectUUID;
};

} // namespace ui
