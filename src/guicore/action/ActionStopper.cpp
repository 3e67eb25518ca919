#include "ActionStopper.h"

#include "Action.h"

ActionStopper::ActionStopper(Action* action)
    : m_action(action)
{
}

ActionStopper::~ActionStopper()
{
    if (m_action)
        m_action->stop();
}
