#include <guicore/ui/ResliceViewerNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

ResliceViewerNode::ResliceViewerNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

ResliceViewerNode::ResliceViewerNode(const ResliceViewerNode& other)
    : Viewer2DNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

ResliceViewerNode::~ResliceViewerNode() = default;

QString ResliceViewerNode::getClassTypeId()
{
    return QStringLiteral("ResliceViewerNode");
}

QString ResliceViewerNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> ResliceViewerNode::clone() const
{
    return std::make_unique<ResliceViewerNode>(*this);
}

bool ResliceViewerNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const ResliceViewerNode*>(&other);
    return same && *this == *same;
}

bool ResliceViewerNode::operator==(const ResliceViewerNode& other) const
{
    return Viewer2DNode::operator==(other)
        && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& ResliceViewerNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("planeOrientation", &ResliceViewerNode::m_planeOrientation),
            detail::makeProperty("sliderIndex", &ResliceViewerNode::m_sliderIndex),
        }};
    return table;
}

void ResliceViewerNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Viewer2DNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void ResliceViewerNode::setPlaneOrientation(const QString& planeOrientation)
{
    if (detail::assignIfChanged(m_planeOrientation, planeOrientation))
        setAltered();
}

void ResliceViewerNode::setSliderIndex(int sliderIndex)
{
    if (detail::assignIfChanged(m_sliderIndex, sliderIndex))
        setAltered();
}

} // namespace ui
