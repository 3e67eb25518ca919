#include "SimpleActionHandlerInterface.h"

#include <QAction>

SimpleActionHandlerInterface::SimpleActionHandlerInterface(QAction* action)
    : QObject(action)
{
    if (action)
        connect(action, &QAction::triggered, this, &SimpleActionHandlerInterface::handleTriggered);
}
