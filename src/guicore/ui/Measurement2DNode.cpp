#include <guicore/ui/Measurement2DNode.h>

#include "NodeProperty_p.h"
#include <guicore/Logging_p.h>

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

Measurement2DNode::Measurement2DNode(const QString& dataObjectUUID)
    : DataObjectNode(dataObjectUUID)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

Measurement2DNode::Measurement2DNode(const Measurement2DNode& other)
    : DataObjectNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

Measurement2DNode::~Measurement2DNode() = default;

QString Measurement2DNode::getClassTypeId()
{
    return QStringLiteral("Measurement2DNode");
}

QString Measurement2DNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> Measurement2DNode::clone() const
{
    return std::make_unique<Measurement2DNode>(*this);
}

bool Measurement2DNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const Measurement2DNode*>(&other);
    return same && *this == *same;
}

bool Measurement2DNode::operator==(const Measurement2DNode& other) const
{
    return DataObjectNode::operator==(other)
        && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& Measurement2DNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty(
                "labelRelativePositions", &Measurement2DNode::m_labelRelativePositions),
        }};
    return table;
}

void Measurement2DNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    DataObjectNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void Measurement2DNode::setLabelRelativePositions(
    const std::vector<QPointF>& labelRelativePositions)
{
    if (detail::assignIfChanged(m_labelRelativePositions, labelRelativePositions))
        setAltered();
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
