#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/Node.h>

#include <QString>

namespace ui {

/// A viewer inside a view: its index in the view, whether it is maximized, and the data object it
/// shows.
class GUICORE_EXPORT ViewerNode : public Node
{
public:
    static constexpr int DEFAULT_VIEWER_INDEX = -1;

    ViewerNode();
    /// Copies the properties of every class level; the children are not copied.
    ViewerNode(const ViewerNode& other);
    ViewerNode& operator=(const ViewerNode&) = delete;
    ~ViewerNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    int getViewerIndex() const { return m_viewerIndex; }
    void setViewerIndex(int viewerIndex);
    bool isMaximized() const { return m_maximized; }
    void setMaximized(bool maximized);
    bool hadContentWhenGenerated() const { return m_hadContentWhenGenerated; }
    void setHadContentWhenGenerated(bool hadContentWhenGenerated);
    const QString& getAssociatedDataObjectUUID() const { return m_associatedDataObjectUUID; }
    void setAssociatedDataObjectUUID(const QString& associatedDataObjectUUID);
    void clearAssociatedDataObjectUUID();

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const ViewerNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    int m_viewerIndex = DEFAULT_VIEWER_INDEX;
    bool m_maximized = false;
    bool m_hadContentWhenGenerated = false;
    QString m_associatedDataObjectUUID;
};

} // namespace ui
