#pragma once

#include <guicore/action/ActionHandler.h>

#include <QMap>

/// Dispatches each run to the handler registered for the current action's id. An action without
/// a registered handler is stopped at once.
class GUICORE_EXPORT MultiActionHandler : public ActionHandler
{
    Q_OBJECT

public:
    MultiActionHandler();
    /// Deletes every registered handler.
    ~MultiActionHandler() override;

    /// Takes ownership of `handler`; one already registered under `actionId` is deleted at once.
    void addActionHandler(QString actionId, ActionHandler* handler);

protected:
    /// Calls startHandler() of the handler registered for the current action's id; without one,
    /// stops the action at once.
    void start() override;
    /// Calls stopHandler() of the handler registered for the current action's id, if any.
    void stop() override;

private:
    QMap<QString, ActionHandler*> m_handlers;
};
