#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// A tile of a layout, by its identifier.
class GUICORE_EXPORT LayoutTileNode : public NodeKind<LayoutTileNode, Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("LayoutTileNode"); }
    static const NodePropertyTable& properties();

    const QString& getLayoutTileId() const { return m_layoutTileId; }
    void setLayoutTileId(const QString& layoutTileId) { assign(m_layoutTileId, layoutTileId); }

private:
    QString m_layoutTileId;
};

} // namespace ui
