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
/// Concrete handlers implement start() and stop().
class GUICORE_EXPORT ActionHandler : public QObject
{
    Q_OBJECT

public:
    ActionHandler();
    ~ActionHandler() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Begins a run for `action` (not owned). Refuses with a warning while another run is in
    /// progress.
    virtual bool startHandler(Action* action);
    /// Ends the run; `action` (not owned, may be null) becomes the current action again so that
    /// stop() sees the parameters set during the run. A no-op on an idle handler.
    virtual bool stopHandler(Action* action);
    /// Whether the application may close now; a handler with unsaved work answers false.
    virtual bool allowClose();

protected:
    virtual void start() = 0;
    virtual void stop() = 0;

public Q_SLOTS:
    virtual void stopCurrentAction() const;

protected:
    virtual void handleEscapePressed(QEvent* event);
    virtual void handleRightClick(QEvent* event);

    /// The action being or last served, or null; not owned.
    Action* getCurrentAction() const;
    /// Does not take ownership.
    void setCurrentAction(Action* action);
    bool isActive() const;
    /// A run counts as cancelled until the concrete handler says it completed.
    bool isCanceled() const;
    void setCanceled(bool canceled);
    QMap<QString, QVariant> getCurrentParameters() const;
    QVariant getParameter(const QString& key) const;
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
