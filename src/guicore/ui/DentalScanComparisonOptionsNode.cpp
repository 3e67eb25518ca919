#include <guicore/ui/DentalScanComparisonOptionsNode.h>

#include <QJsonObject>

namespace ui {

/// The four members, by name, so stored states stay readable.
template <> struct NodePropertyTraits<DentalScanComparisonOptionsNode::ScanSetupVisualState>
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
        if (!NodePropertyTraits<bool>::fromJson(
                object.value(QStringLiteral("visible")), state.visible)
            || !NodePropertyTraits<bool>::fromJson(
                object.value(QStringLiteral("wireframe")), state.wireframe)
            || !NodePropertyTraits<std::int32_t>::fromJson(
                object.value(QStringLiteral("color")), state.color)
            || !NodePropertyTraits<std::int32_t>::fromJson(
                object.value(QStringLiteral("opacityPercent")), state.opacityPercent))
            return false;
        out = state;
        return true;
    }
};

const NodePropertyTable& DentalScanComparisonOptionsNode::properties()
{
    static const NodePropertyTable table {getClassTypeId(), QVersionNumber(1, 1),
        {
            NodePropertyTable::property("comparisonScanTransparency",
                &DentalScanComparisonOptionsNode::m_comparisonScanTransparency),
            NodePropertyTable::property(
                "visualizationMode", &DentalScanComparisonOptionsNode::m_visualizationMode),
            NodePropertyTable::property("referenceScanVisualState",
                &DentalScanComparisonOptionsNode::m_referenceScanVisualState),
            NodePropertyTable::property("shown", &DentalScanComparisonOptionsNode::m_shown),
        }};
    return table;
}

void DentalScanComparisonOptionsNode::setReferenceScanVisualState(const ScanSetupVisualState& state)
{
    // Out of line: the comparison of the state is defined next to its table, above.
    assign(m_referenceScanVisualState, state);
}

} // namespace ui
