#include <guicore/graphics/scene/WheelEventHandler.h>

#include <QGraphicsSceneWheelEvent>

WheelEventHandler::WheelEventHandler(QObject* parent)
    : QObject(parent)
{
}

int WheelEventHandler::handleWheelEvent(QGraphicsSceneWheelEvent* event)
{
    if (!event)
        return 0;
    const double steps = event->delta() / 120.0;
    double carried = m_remainder;
    if (carried != 0.0 && steps / carried < 0.0)
        carried = 0.0;
    const double total = carried + steps;
    const int result = static_cast<int>(total); // truncation toward zero
    m_remainder = total - result;
    return result;
}
