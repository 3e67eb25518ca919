#include <guicore/ui/DentalScanComparisonOptionsNode.h>

#include "NodeProperty_p.h"

namespace ui {

namespace detail {

/// The four members, by name, so stored states stay readable.
template <> struct PropertyTraits<DentalScanComparisonOptionsNode::ScanSetupVisualState>
{
    using State = DentalScanComparisonOptionsNode::ScanSetupVisualState;
    static bool equal(const State& a, const State& b) { return a == b; }
    static QJsonValue toJson(const State& state)
    {
        return QJsonObject {{QStringLiteral("visible"), state.visible},
            {QStringLiteral("wireframe"), state.wireframe}, {QStringLiteral("color"), state.color},
            {QStringLiteral("opacityPercent"), state.opacityPercent}};
    }
    static bool fromJson(const QJsonValue& json, State& out)
    {
        if (!json.isObject())
            return false;
        const QJsonObject object = json.toObject();
        State state;
        if (!PropertyTraits<bool>::fromJson(object.value(QStringLiteral("visible")), state.visible)
            || !PropertyTraits<bool>::fromJson(
                object.value(QStringLiteral("wireframe")), state.wireframe)
            || !PropertyTraits<std::int32_t>::fromJson(
                object.value(QStringLiteral("color")), state.color)
            || !PropertyTraits<std::int32_t>::fromJson(
                object.value(QStringLiteral("opacityPercent")), state.opacityPercent))
            return false;
        out = state;
        return true;
    }
};

} // namespace detail

static QVersionNumber formatVersion()
{
    return QVersionNumber(1, 1);
}

DentalScanComparisonOptionsNode::DentalScanComparisonOptionsNode(const QString& dataObjectUUID)
    : DataObjectNode(dataObjectUUID)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
}

DentalScanComparisonOptionsNode::DentalScanComparisonOptionsNode(
    const DentalScanComparisonOptionsNode& other)
    : DataObjectNode(other)
{
    UI_NODE_INIT(getClassTypeId(), formatVersion());
    detail::copyProperties(ownProperties(), *this, other);
}

DentalScanComparisonOptionsNode::~DentalScanComparisonOptionsNode() = default;

QString DentalScanComparisonOptionsNode::getClassTypeId()
{
    return QStringLiteral("DentalScanComparisonOptionsNode");
}

QString DentalScanComparisonOptionsNode::getTypeId() const
{
    return getClassTypeId();
}

std::unique_ptr<Node> DentalScanComparisonOptionsNode::clone() const
{
    return std::make_unique<DentalScanComparisonOptionsNode>(*this);
}

bool DentalScanComparisonOptionsNode::isEqual(const Node& other) const
{
    const auto* same = dynamic_cast<const DentalScanComparisonOptionsNode*>(&other);
    return same && *this == *same;
}

bool DentalScanComparisonOptionsNode::operator==(const DentalScanComparisonOptionsNode& other) const
{
    return DataObjectNode::operator==(other)
        && detail::propertiesEqual(ownProperties(), *this, other);
}

const detail::NodePropertyTable& DentalScanComparisonOptionsNode::ownProperties()
{
    // The single list of this level's properties: copy, comparison and persistence walk it.
    static const detail::NodePropertyTable table {getClassTypeId(),
        {
            detail::makeProperty("comparisonScanTransparency",
                &DentalScanComparisonOptionsNode::m_comparisonScanTransparency),
            detail::makeProperty(
                "visualizationMode", &DentalScanComparisonOptionsNode::m_visualizationMode),
            detail::makeProperty("referenceScanVisualState",
                &DentalScanComparisonOptionsNode::m_referenceScanVisualState),
            detail::makeProperty("shown", &DentalScanComparisonOptionsNode::m_shown),
        }};
    return table;
}

void DentalScanComparisonOptionsNode::collectPropertyTables(
    std::vector<const detail::NodePropertyTable*>& tables) const
{
    DataObjectNode::collectPropertyTables(tables);
    tables.push_back(&ownProperties());
}

void DentalScanComparisonOptionsNode::setComparisonScanTransparency(int comparisonScanTransparency)
{
    if (detail::assignIfChanged(m_comparisonScanTransparency, comparisonScanTransparency))
        setAltered();
}

void DentalScanComparisonOptionsNode::setVisualizationMode(const QString& visualizationMode)
{
    if (detail::assignIfChanged(m_visualizationMode, visualizationMode))
        setAltered();
}

void DentalScanComparisonOptionsNode::setReferenceScanVisualState(
    const ScanSetupVisualState& referenceScanVisualState)
{
    if (detail::assignIfChanged(m_referenceScanVisualState, referenceScanVisualState))
        setAltered();
}

void DentalScanComparisonOptionsNode::setShown(bool shown)
{
    if (detail::assignIfChanged(m_shown, shown))
        setAltered();
}

} // namespace ui
