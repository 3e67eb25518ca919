#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/ReslicePlaneNode.h>

#include <QString>

namespace ui {

/// A reslice snapped to a fixed plane: origin, in-plane directions and the orientation name.
class GUICORE_EXPORT SnappedResliceNode : public ReslicePlaneNode<SnappedResliceNode, Node>
{
public:
    static QString getClassTypeId() { return QStringLiteral("SnappedResliceNode"); }
    static const NodePropertyTable& properties();

    const QString& getPlaneOrientation() const { return m_planeOrientation; }
    void setPlaneOrientation(const QString& planeOrientation)
    {
        assign(m_planeOrientation, planeOrientation);
    }

private:
    QString m_planeOrientation;
};

} // namespace ui
