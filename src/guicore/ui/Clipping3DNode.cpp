#include <guicore/ui/Clipping3DNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

Clipping3DNode::Clipping3DNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

Clipping3DNode::Clipping3DNode(const Clipping3DNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

Clipping3DNode::~Clipping3DNode() = default;

QString Clipping3DNode::getClassTypeId()
{
    return QStringLiteral("Clipping3DNode");
}

QString Clipping3DNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> Clipping3DNode::clone() const
{
    return std::make_unique<Clipping3DNode>(*this);
}

bool Clipping3DNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const Clipping3DNode*>(&other);
    return same && *this == *same;
}

bool Clipping3DNode::operator==(const Clipping3DNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& Clipping3DNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("clippingResliceUUID", &Clipping3DNode::m_clippingResliceUUID),
            detail::makeProperty("mirrored", &Clipping3DNode::m_mirrored),
        }};
    return table;
}

void Clipping3DNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void Clipping3DNode::setClippingResliceUUID(const QString& clippingResliceUUID)
{
    if (detail::assignIfChanged(m_clippingResliceUUID, clippingResliceUUID))
        setAltered();
}

void Clipping3DNode::setMirrored(bool mirrored)
{
    if (detail::assignIfChanged(m_mirrored, mirrored))
        setAltered();
}

} // namespace ui
