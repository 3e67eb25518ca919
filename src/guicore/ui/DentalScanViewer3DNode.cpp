#include <guicore/ui/DentalScanViewer3DNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

DentalScanViewer3DNode::DentalScanViewer3DNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

DentalScanViewer3DNode::DentalScanViewer3DNode(const DentalScanViewer3DNode& other)
    : Viewer3DNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

DentalScanViewer3DNode::~DentalScanViewer3DNode() = default;

QString DentalScanViewer3DNode::getClassTypeId()
{
    return QStringLiteral("DentalScanViewer3DNode");
}

QString DentalScanViewer3DNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> DentalScanViewer3DNode::clone() const
{
    return std::make_unique<DentalScanViewer3DNode>(*this);
}

bool DentalScanViewer3DNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const DentalScanViewer3DNode*>(&other);
    return same && *this == *same;
}

bool DentalScanViewer3DNode::operator==(const DentalScanViewer3DNode& other) const
{
    return Viewer3DNode::operator==(other)
        && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& DentalScanViewer3DNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("archType", &DentalScanViewer3DNode::m_archType),
        }};
    return table;
}

void DentalScanViewer3DNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Viewer3DNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void DentalScanViewer3DNode::setArchType(ToothChart::ArchType archType)
{
    if (detail::assignIfChanged(m_archType, archType))
        setAltered();
}

} // namespace ui
