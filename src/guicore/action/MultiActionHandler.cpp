#include "MultiActionHandler.h"

#include "Action.h"

MultiActionHandler::MultiActionHandler() = default;

MultiActionHandler::~MultiActionHandler()
{
    qDeleteAll(m_handlers);
}

void MultiActionHandler::addActionHandler(QString actionId, ActionHandler* handler)
{
    ActionHandler* previous = m_handlers.value(actionId);
    if (previous == handler)
        return;
    if (handler)
        m_handlers.insert(actionId, handler);
    else
        m_handlers.remove(actionId);
    delete previous;
}

void MultiActionHandler::start()
{
    Action* action = getCurrentAction();
    ActionHandler* handler = action ? m_handlers.value(action->getID()) : nullptr;
    if (!handler) {
        stopCurrentAction();
        return;
    }
    handler->startHandler(action);
}

void MultiActionHandler::stop()
{
    Action* action = getCurrentAction();
    if (!action)
        return;
    if (ActionHandler* handler = m_handlers.value(action->getID()))
        handler->stopHandler(action);
}
