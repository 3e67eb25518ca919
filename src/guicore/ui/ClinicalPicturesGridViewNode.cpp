#include <guicore/ui/ClinicalPicturesGridViewNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

ClinicalPicturesGridViewNode::ClinicalPicturesGridViewNode()
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

ClinicalPicturesGridViewNode::ClinicalPicturesGridViewNode(
    const ClinicalPicturesGridViewNode& other)
    : Node(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

ClinicalPicturesGridViewNode::~ClinicalPicturesGridViewNode() = default;

QString ClinicalPicturesGridViewNode::getClassTypeId()
{
    return QStringLiteral("ClinicalPicturesGridViewNode");
}

QString ClinicalPicturesGridViewNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> ClinicalPicturesGridViewNode::clone() const
{
    return std::make_unique<ClinicalPicturesGridViewNode>(*this);
}

bool ClinicalPicturesGridViewNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const ClinicalPicturesGridViewNode*>(&other);
    return same && *this == *same;
}

bool ClinicalPicturesGridViewNode::operator==(const ClinicalPicturesGridViewNode& other) const
{
    return Node::operator==(other) && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& ClinicalPicturesGridViewNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("activeLayoutId", &ClinicalPicturesGridViewNode::m_activeLayoutId),
        }};
    return table;
}

void ClinicalPicturesGridViewNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    Node::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void ClinicalPicturesGridViewNode::setActiveLayoutId(const QString& activeLayoutId)
{
    if (detail::assignIfChanged(m_activeLayoutId, activeLayoutId))
        setAltered();
}

} // namespace ui
