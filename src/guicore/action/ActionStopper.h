#pragma once

#include <guicore/guicore_export.h>

#include <QPointer>

class Action;

/// Stops an action when the scope ends. Copies stop the same action; the later stops do nothing.
class GUICORE_EXPORT ActionStopper
{
public:
    /// Does not take ownership; an action deleted before the stopper is not touched.
    explicit ActionStopper(Action* action);
    ActionStopper(const ActionStopper& other) = default;
    ActionStopper& operator=(const ActionStopper& other) = default;
    ~ActionStopper();

private:
    QPointer<Action> m_action;
};
