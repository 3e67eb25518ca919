#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/NodeKind.h>

#include <QPointF>

#include <vector>

namespace ui {

/// A 2-D measurement; remembers where the user moved its labels, relative to the measurement.
class GUICORE_EXPORT Measurement2DNode : public NodeKind<Measurement2DNode, DataObjectNode>
{
public:
    /// A node that refers to the data object dataObjectUUID (none by default).
    explicit Measurement2DNode(const QString& dataObjectUUID = QString())
        : NodeKind(dataObjectUUID)
    {
    }

    /// @{
    /// The type id "Measurement2DNode", and this level's table: format 1.0, stored property
    /// "labelRelativePositions".
    static QString getClassTypeId() { return QStringLiteral("Measurement2DNode"); }
    static const NodePropertyTable& properties();
    /// @}

    /// @{
    /// Where the user moved each label, relative to the measurement, one entry per label in the
    /// order the measurement creates them. Compared within twelve significant digits, so positions
    /// that went through a text file compare equal.
    const std::vector<QPointF>& getLabelRelativePositions() const
    {
        return m_labelRelativePositions;
    }
    void setLabelRelativePositions(const std::vector<QPointF>& labelRelativePositions)
    {
        assign(m_labelRelativePositions, labelRelativePositions);
    }
    /// @}

    /// The label position at index, or a null point when there is no such label.
    QPointF getLabelRelativePosition(size_t index) const;
    /// Replaces the label position at index; an index past the end is ignored with a warning,
    /// because the labels are created by the measurement, never by the state.
    void setLabelRelativePosition(size_t index, const QPointF& position);

private:
    std::vector<QPointF> m_labelRelativePositions;
};

} // namespace ui
