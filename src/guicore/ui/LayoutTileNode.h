#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// A tile of a layout, by its identifier.
class GUICORE_EXPORT LayoutTileNode : public NodeKind<LayoutTileNode, Node>
{
public:
    /// @{
    /// The type id "LayoutTileNode", and this level's table: format 1.0, stored property
    /// "layoutTileId".
    static QString getClassTypeId() { return QStringLiteral("LayoutTileNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The id of the tile within its layout, as the application names them; empty by default.
    const QString& getLayoutTileId() const { return m_layoutTileId; }
    void setLayoutTileId(const QString& layoutTileId) { assign(m_layoutTileId, layoutTileId); }
    /// @}

private:
    QString m_layoutTileId;
};

} // namespace ui
