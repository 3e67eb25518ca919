#pragma once

#include <guicore/guicore_export.h>
#include <guicore/ui/DataObjectNode.h>

#include <QPointF>

#include <vector>

namespace ui {

/// A 2-D measurement; remembers where the user moved its labels, relative to the measurement.
class GUICORE_EXPORT Measurement2DNode : public DataObjectNode
{
public:
    explicit Measurement2DNode(const QString& dataObjectUUID = QString());
    /// Copies the properties of every class level; the children are not copied.
    Measurement2DNode(const Measurement2DNode& other);
    Measurement2DNode& operator=(const Measurement2DNode&) = delete;
    ~Measurement2DNode() override;

    static QString getClassTypeId();
    QString getTypeId() const override;
    /// A copy without children; ownership passes to the caller.
    std::unique_ptr<Node> clone() const override;
    bool isEqual(const Node& other) const override;

    const std::vector<QPointF>& getLabelRelativePositions() const
    {
        return m_labelRelativePositions;
    }
    void setLabelRelativePositions(const std::vector<QPointF>& labelRelativePositions);

    /// The label position at index, or a null point when there is no such label.
    QPointF getLabelRelativePosition(size_t index) const;
    /// Replaces the label position at index; an index past the end is ignored with a warning,
    /// because the labels are created by the measurement, never by the state.
    void setLabelRelativePosition(size_t index, const QPointF& position);

    void collectPropertyTables(
        std::vector<const detail::NodePropertyTable*>& tables) const override;

protected:
    bool operator==(const Measurement2DNode& other) const;

private:
    static const detail::NodePropertyTable& ownProperties();

    std::vector<QPointF> m_labelRelativePositions;
};

} // namespace ui
