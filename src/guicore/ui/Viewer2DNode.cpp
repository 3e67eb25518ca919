#include <guicore/ui/Viewer2DNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

Viewer2DNode::Viewer2DNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

Viewer2DNode::Viewer2DNode(const Viewer2DNode& other)
    : ViewerNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

Viewer2DNode::~Viewer2DNode() = default;

QString Viewer2DNode::getClassTypeId()
{
    return QStringLiteral("Viewer2DNode");
}

QString Viewer2DNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> Viewer2DNode::clone() const
{
    return std::make_unique<Viewer2DNode>(*this);
}

bool Viewer2DNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const Viewer2DNode*>(&other);
    return same && *this == *same;
}

bool Viewer2DNode::operator==(const Viewer2DNode& other) const
{
    return ViewerNode::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& Viewer2DNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("zoomBox", &Viewer2DNode::m_zoomBox),
        }};
    return table;
}

void Viewer2DNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    ViewerNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void Viewer2DNode::setZoomBox(const QRectF& zoomBox)
{
    if (detail::assignIfChanged(m_zoomBox, utility::Optional<QRectF>(zoomBox)))
        setAltered();
}

void Viewer2DNode::clearZoomBox()
{
    if (detail::assignIfChanged(m_zoomBox, utility::Optional<QRectF>()))
        setAltered();
}

} // namespace ui
