#pragma once

#include <guicore/guicore_export.h>

#include <QObject>

class QGraphicsSceneWheelEvent;

/// Turns the fine wheel deltas of high-resolution mice and touchpads into whole wheel steps
/// (one step is a delta of 120) without losing the fractions in between. A change of direction
/// drops the carried fraction, so a reversal never applies what was collected the other way.
class GUICORE_EXPORT WheelEventHandler : public QObject
{
    Q_OBJECT

public:
    /// A handler with nothing carried over.
    explicit WheelEventHandler(QObject* parent = nullptr);

    /// The number of whole steps to apply now, positive or negative. A null event gives 0.
    int handleWheelEvent(QGraphicsSceneWheelEvent* event);

    /// The fraction of a step carried over, strictly between -1 and 1.
    double remainder() const { return m_remainder; }

private:
    double m_remainder = 0.0;
};
