#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// The reslice by which the 3-D viewers clip, and on which side.
class GUICORE_EXPORT Clipping3DNode : public NodeKind<Clipping3DNode, Node>
{
public:
    /// @{
    /// The type id "Clipping3DNode", and this level's table: format 1.0, stored properties
    /// "clippingResliceUUID", "mirrored".
    static QString getClassTypeId() { return QStringLiteral("Clipping3DNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The UUID of the reslice whose plane clips the 3-D viewers; empty for none.
    const QString& getClippingResliceUUID() const { return m_clippingResliceUUID; }
    void setClippingResliceUUID(const QString& clippingResliceUUID)
    {
        assign(m_clippingResliceUUID, clippingResliceUUID);
    }
    /// @}
    /// @{
    /// Whether the clipping is mirrored to the other side of the plane; false by default.
    bool getMirrored() const { return m_mirrored; }
    void setMirrored(bool mirrored) { assign(m_mirrored, mirrored); }
    /// @}

private:
    QString m_clippingResliceUUID;
    bool m_mirrored = false;
};

} // namespace ui
