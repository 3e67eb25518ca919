#include <guicore/ui/CtDataViewer3DNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

CtDataViewer3DNode::CtDataViewer3DNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

CtDataViewer3DNode::CtDataViewer3DNode(const CtDataViewer3DNode& other)
    : Viewer3DNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

CtDataViewer3DNode::~CtDataViewer3DNode() = default;

QString CtDataViewer3DNode::getClassTypeId()
{
    return QStringLiteral("CtDataViewer3DNode");
}

QString CtDataViewer3DNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> CtDataViewer3DNode::clone() const
{
    return std::make_unique<CtDataViewer3DNode>(*this);
}

bool CtDataViewer3DNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const CtDataViewer3DNode*>(&other);
    return same && *this == *same;
}

bool CtDataViewer3DNode::operator==(const CtDataViewer3DNode& other) const
{
    return Viewer3DNode::operator==(other)
        && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& CtDataViewer3DNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("updateCameraWhenPatientOrientationChanges",
                &CtDataViewer3DNode::m_updateCameraWhenPatientOrientationChanges),
        }};
    return table;
}

void CtDataViewer3DNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Viewer3DNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void CtDataViewer3DNode::setUpdateCameraWhenPatientOrientationChanges(
    bool updateCameraWhenPatientOrientationChanges)
{
    if (detail::assignIfChanged(
            m_updateCameraWhenPatientOrientationChanges, updateCameraWhenPatientOrientationChanges))
        setAltered();
}

} // namespace ui
