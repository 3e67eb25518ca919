#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/ReslicePlaneNode.h>

#include <QString>

namespace ui {

/// A reslice snapped to a fixed plane: origin, in-plane directions and the orientation name.
class GUICORE_EXPORT SnappedResliceNode : public ReslicePlaneNode<SnappedResliceNode, Node>
{
public:
    /// @{
    /// The type id "SnappedResliceNode", and this level's table: format 1.0, stored properties
    /// "origin", "direction0", "direction1", "planeOrientation" (the first three declared by
    /// ReslicePlaneNode).
    static QString getClassTypeId() { return QStringLiteral("SnappedResliceNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// The name of the fixed plane the reslice is snapped to, as the application names them; empty
    /// by default.
    const QString& getPlaneOrientation() const { return m_planeOrientation; }
    void setPlaneOrientation(const QString& planeOrientation)
    {
        assign(m_planeOrientation, planeOrientation);
    }
    /// @}

private:
    QString m_planeOrientation;
};

} // namespace ui
