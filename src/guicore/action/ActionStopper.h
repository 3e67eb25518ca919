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
    /// @{
    /// Both stoppers stop the same action; the second stop finds it inactive and does nothing.
    ActionStopper(const ActionStopper& other) = default;
    ActionStopper& operator=(const ActionStopper& other) = default;
    /// @}
    /// Calls Action::stop() when the action still exists.
    ~ActionStopper();

private:
    QPointer<Action> m_action;
};
