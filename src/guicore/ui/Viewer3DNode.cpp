#include <guicore/ui/Viewer3DNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 1);
}

Viewer3DNode::Viewer3DNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

Viewer3DNode::Viewer3DNode(const Viewer3DNode& other)
    : ViewerNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

Viewer3DNode::~Viewer3DNode() = default;

QString Viewer3DNode::getClassTypeId()
{
    return QStringLiteral("Viewer3DNode");
}

QString Viewer3DNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> Viewer3DNode::clone() const
{
    return std::make_unique<Viewer3DNode>(*this);
}

bool Viewer3DNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const Viewer3DNode*>(&other);
    return same && *this == *same;
}

bool Viewer3DNode::operator==(const Viewer3DNode& other) const
{
    return ViewerNode::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& Viewer3DNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("cameraPosition", &Viewer3DNode::m_cameraPosition),
            detail::makeProperty("rotation", &Viewer3DNode::m_rotation),
            detail::makeProperty("nearDistance", &Viewer3DNode::m_nearDistance),
            detail::makeProperty("farDistance", &Viewer3DNode::m_farDistance),
            detail::makeProperty("focalDistance", &Viewer3DNode::m_focalDistance),
            detail::makeProperty("minimalFOV", &Viewer3DNode::m_minimalFOV),
        }};
    return table;
}

void Viewer3DNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    ViewerNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void Viewer3DNode::setCameraPosition(const QVector3D& cameraPosition)
{
    if (detail::assignIfChanged(m_cameraPosition, cameraPosition))
        setAltered();
}

void Viewer3DNode::setRotation(const QQuaternion& rotation)
{
    if (detail::assignIfChanged(m_rotation, rotation))
        setAltered();
}

void Viewer3DNode::setNearDistance(float nearDistance)
{
    if (detail::assignIfChanged(m_nearDistance, nearDistance))
        setAltered();
}

void Viewer3DNode::setFarDistance(float farDistance)
{
    if (detail::assignIfChanged(m_farDistance, farDistance))
        setAltered();
}

void Viewer3DNode::setFocalDistance(float focalDistance)
{
    if (detail::assignIfChanged(m_focalDistance, focalDistance))
        setAltered();
}

void Viewer3DNode::setMinimalFOV(float minimalFOV)
{
    if (detail::assignIfChanged(m_minimalFOV, minimalFOV))
        setAltered();
}

} // namespace ui
