#include "EmptyActionHandler.h"

#include "Action.h"

EmptyActionHandler::EmptyActionHandler() = default;

void EmptyActionHandler::start()
{
    Action* action = getCurrentAction();
    if (action && !action->isCheckable())
        stopCurrentAction();
}

void EmptyActionHandler::stop() { }
