#include <guicore/ui/ImplantVisualizationOptionsNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 1);
}

ImplantVisualizationOptionsNode::ImplantVisualizationOptionsNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

ImplantVisualizationOptionsNode::ImplantVisualizationOptionsNode(
    const ImplantVisualizationOptionsNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

ImplantVisualizationOptionsNode::~ImplantVisualizationOptionsNode() = default;

QString ImplantVisualizationOptionsNode::getClassTypeId()
{
    return QStringLiteral("ImplantVisualizationOptionsNode");
}

QString ImplantVisualizationOptionsNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> ImplantVisualizationOptionsNode::clone() const
{
    return std::make_unique<ImplantVisualizationOptionsNode>(*this);
}

bool ImplantVisualizationOptionsNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const ImplantVisualizationOptionsNode*>(&other);
    return same && *this == *same;
}

bool ImplantVisualizationOptionsNode::operator==(const ImplantVisualizationOptionsNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& ImplantVisualizationOptionsNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("axisVisible", &ImplantVisualizationOptionsNode::m_axisVisible),
            detail::makeProperty(
                "safetyZoneVisible", &ImplantVisualizationOptionsNode::m_safetyZoneVisible),
            detail::makeProperty(
                "sleeveVisible", &ImplantVisualizationOptionsNode::m_sleeveVisible),
            detail::makeProperty(
                "anchorPinsVisible", &ImplantVisualizationOptionsNode::m_anchorPinsVisible),
        }};
    return table;
}

void ImplantVisualizationOptionsNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void ImplantVisualizationOptionsNode::setAxisVisible(bool axisVisible)
{
    if (detail::assignIfChanged(m_axisVisible, axisVisible))
        setAltered();
}

void ImplantVisualizationOptionsNode::setSafetyZoneVisible(bool safetyZoneVisible)
{
    if (detail::assignIfChanged(m_safetyZoneVisible, safetyZoneVisible))
        setAltered();
}

void ImplantVisualizationOptionsNode::setSleeveVisible(bool sleeveVisible)
{
    if (detail::assignIfChanged(m_sleeveVisible, sleeveVisible))
        setAltered();
}

void ImplantVisualizationOptionsNode::setAnchorPinsVisible(bool anchorPinsVisible)
{
    if (detail::assignIfChanged(m_anchorPinsVisible, anchorPinsVisible))
        setAltered();
}

} // namespace ui
