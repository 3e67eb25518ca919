#include <guicore/ui/Measurement2DNode.h>

#include <guicore/Logging_p.h>

namespace ui {

const NodePropertyTable& Measurement2DNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 0),
        {
            NodePropertyTable::property(
                "labelRelativePositions", &Measurement2DNode::m_labelRelativePositions),
        }};
    return table;
}

QPointF Measurement2DNode::getLabelRelativePosition(size_t index) const
{
    return index < m_labelRelativePositions.size() ? m_labelRelativePositions[index] : QPointF();
}

void Measurement2DNode::setLabelRelativePosition(size_t index, const QPointF& position)
{
    if (index >= m_labelRelativePositions.size()) {
        qCWarning(lcUi).nospace() << "Measurement2DNode : no label at index " << index << ".";
        return;
    }
    std::vector<QPointF> positions = m_labelRelativePositions;
    positions[index] = position;
    setLabelRelativePositions(positions);
}

} // namespace ui
