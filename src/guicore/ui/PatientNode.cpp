#include <guicore/ui/PatientNode.h>

#include "NodeProperty_p.h"

namespace ui {

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 0);
}

PatientNode::PatientNode(const QString& dataObjectUUID)
    : DataObjectNode(dataObjectUUID)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

PatientNode::PatientNode(const PatientNode& other)
    : DataObjectNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

PatientNode::~PatientNode() = default;

QString PatientNode::getClassTypeId()
{
    return QStringLiteral("PatientNode");
}

QString PatientNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> PatientNode::clone() const
{
    return std::make_unique<PatientNode>(*this);
}

bool PatientNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const PatientNode*>(&other);
    return same && *this == *same;
}

bool PatientNode::operator==(const PatientNode& other) const
{
    return DataObjectNode::operator==(other);
}

} // namespace ui
