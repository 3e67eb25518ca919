#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/NodeKind.h>

#include <QString>

namespace ui {

/// The reslice by which the 3-D viewers clip, and on which side.
class GUICORE_EXPORT Clipping3DNode : public NodeKind<Clipping3DNode, Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("Clipping3DNode"); }
    static const NodePropertyTable& properties();

    const QString& getClippingResliceUUID() const { return m_clippingResliceUUID; }
    void setClippingResliceUUID(const QString& clippingResliceUUID)
    {
        assign(m_clippingResliceUUID, clippingResliceUUID);
    }
    bool getMirrored() const { return m_mirrored; }
    void setMirrored(bool mirrored) { assign(m_mirrored, mirrored); }

private:
    QString m_clippingResliceUUID;
    bool m_mirrored = false;
};

} // namespace ui
