#include <guicore/ui/DiagnosisNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

DiagnosisNode::DiagnosisNode(const QString& dataObjectUUID)
    : DataObjectNode(dataObjectUUID)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

DiagnosisNode::DiagnosisNode(const DiagnosisNode& other)
    : DataObjectNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

DiagnosisNode::~DiagnosisNode() = default;

QString DiagnosisNode::getClassTypeId()
{
    return QStringLiteral("DiagnosisNode");
}

QString DiagnosisNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> DiagnosisNode::clone() const
{
    return std::make_unique<DiagnosisNode>(*this);
}

bool DiagnosisNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const DiagnosisNode*>(&other);
    return same && *this == *same;
}

bool DiagnosisNode::operator==(const DiagnosisNode& other) const
{
    return DataObjectNode::operator==(other);
}

} // namespace ui
