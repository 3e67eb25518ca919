#pragma once

#include <guicore/guicore_export.h>

#include <events/ClickOrDragDeterminer.h>

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

class Action;
class QEvent;

/// Does the work of an Action, one action at a time.
///
/// The action calls startHandler() when it starts and stopHandler() when it stops. The handler
/// keeps a copy of the action's parameters and, for actions that ask for it, watches the whole
/// application's input so that Escape or a right click (not a right drag) stops the action.
/// Concrete handlers implement start() and stop(). A handler is not owned by the actions it
/// serves; GUI thread only.
class GUICORE_EXPORT ActionHandler : public QObject
{
    Q_OBJECT

public:
    ActionHandler();
    ~ActionHandler() override;

    /// Installed on the application only while an action with the event filter on runs. Consumes
    /// an Escape key press (handleEscapePressed()); passes every other event on after
    /// handleRightClick() has looked at it.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Begins a run for `action` (not owned): copies its parameters, marks the run cancelled,
    /// installs the application event filter when the action asks for it, and calls start().
    /// While another run is in progress it refuses, returning false, and writes
    /// "ActionHandler::startHandler : there is still an action that is busy" to the debug log
    /// (plain qDebug(), no category rule needed); the action then falls back to inactive. A second
    /// action on a busy handler is ordinary use, so it is not a warning: it must not trip
    /// QT_FATAL_WARNINGS or fill warning-filtered logs.
    virtual bool startHandler(Action* action);
    /// Ends the run; `action` (not owned, may be null) becomes the current action again so that
    /// stop() sees the parameters set during the run. A no-op on an idle handler.
    virtual bool stopHandler(Action* action);
    /// Whether the application may close now; a handler with unsaved work answers false.
    virtual bool allowClose();

protected:
    /// The concrete handler's work for the current action, whose parameters are already copied.
    /// Call setCanceled(false) once the run has completed.
    virtual void start() = 0;
    /// Ends the work; the parameters were copied again from the action just before.
    virtual void stop() = 0;

public Q_SLOTS:
    /// Stops the current action (Action::stop()), which in turn calls stopHandler().
    virtual void stopCurrentAction() const;

protected:
    /// Stops the current action and accepts the event.
    virtual void handleEscapePressed(QEvent* event);
    /// Follows right-button presses, moves and releases; a release without a drag in between stops
    /// the current action on the next turn of the event loop (not inside the mouse dispatch).
    virtual void handleRightClick(QEvent* event);

    /// The action being or last served, or null; not owned.
    Action* getCurrentAction() const;
    /// Does not take ownership.
    void setCurrentAction(Action* action);
    /// True between startHandler() and stopHandler().
    bool isActive() const;
    /// A run counts as cancelled until the concrete handler says it completed.
    bool isCanceled() const;
    /// Concrete handlers clear it when their run completes; startHandler() sets it again.
    void setCanceled(bool canceled);
    /// The copy of the action's parameters taken at start (and again at stop).
    QMap<QString, QVariant> getCurrentParameters() const;
    /// The copied value, or an invalid QVariant when absent.
    QVariant getParameter(const QString& key) const;
    /// Whether the copy holds the key.
    bool containsParameter(const QString& key) const;
    /// Changes the handler's copy only, never the action's parameters.
    void removeParameter(const QString& key);
    /// Changes the handler's copy only, never the action's parameters.
    void clearParameters();

private:
    bool m_active = false;
    bool m_canceled = true;
    QMap<QString, QVariant> m_currentParameters;
    QPointer<Action> m_currentAction;
    events::ClickOrDragDeterminer m_clickOrDragDeterminer;
    bool m_rightReleaseHandled = true;
};
