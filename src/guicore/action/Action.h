#pragma once

#include <guicore/guicore_export.h>
#include <guicore/solution/Feature.h>

#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <optional>

class QAction;
class ActionGroup;
class ActionHandler;

/// A user-invokable operation (a tool, a drawing mode, a view command).
///
/// The action carries identity, presentation and run state; the work is done by its
/// ActionHandler, which start() and stop() call. The action manager reads the policy flags
/// (mustBeStopped, mustBeDisabled, stopOnViewSwitch, disable others on start).
class GUICORE_EXPORT Action : public QObject, public solution::Feature
{
    Q_OBJECT

public:
    /// Application-defined state kept as an int. The library itself only knows the reset value and
    /// the blocking value; any other value belongs to the application.
    enum ActionState : int {
        /// The initial value, and the one ActionManager::resetActions() restores.
        NoState = 0,
        /// An action that lists this one as blocking disables itself on update().
        Blocking = 1
    };

    /// An action with the id "undefined_action".
    Action();
    /// An inactive, enabled, non-checkable action without handler; every field at its initial
    /// value.
    explicit Action(const QString& id);
    /// Name, tooltip and icon are stored as they are, without change signals.
    Action(const QString& id, const QString& name, const QString& tooltip, const QIcon& icon);
    /// Does not stop a running action; ActionStopper is there for scoped stopping.
    ~Action() override;

    /// @{
    /// The display text, which becomes the text of every QAction made from the action. Setting a
    /// new name while the tooltip is empty makes the name the tooltip too, deliberately without
    /// tooltipChanged(); then nameChanged() is emitted. Setting the same name emits nothing.
    QString getName() const;
    void setName(const QString& name);
    /// @}
    /// The tooltip, followed by the shortcut text when shortcuts are shown and there are any.
    QString getTooltip() const;
    /// Emits tooltipChanged() with the bare text, without the shortcut suffix.
    void setTooltip(const QString& text);
    /// @{
    /// The icon; setIcon() emits iconChanged() on every call, also for an equal icon.
    QIcon getIcon() const;
    void setIcon(const QIcon& icon);
    /// @}
    /// The class tag: "Action", "SingleAction", "CustomAction" or "MultiAction", or an
    /// application kind's own.
    QString getType() const;

    /// @{
    /// Help texts for the application's tool panels and manual; stored only, without signals.
    QString getDescription() const;
    void setDescription(const QString& description);
    QString getShortDescription() const;
    void setShortDescription(const QString& shortDescription);
    QString getTitle() const;
    void setTitle(const QString& title);
    QString getManualLink() const;
    void setManualLink(const QString& link);
    QString getIllustrationImage() const;
    void setIllustrationImage(const QString& path);
    /// @}

    /// @{
    /// A checkable action stays active until stopped; a non-checkable one is a one-shot command.
    /// Set it before QActions are made: they copy the flag.
    bool isCheckable() const;
    void setCheckable(bool checkable);
    /// @}
    /// @{
    /// Set by the handler or the application when a run is cancelled; every start clears it.
    bool isCancelled() const;
    void setCancelled(bool cancelled);
    /// @}
    /// @{
    /// Whether ActionManager::stopActiveMustBeStoppedActions() (called before every view switch)
    /// may stop the action. Off by default.
    bool mustBeStopped() const;
    void setMustBeStopped(bool mustBeStopped);
    /// @}
    /// @{
    /// Whether ActionManager::disableAllActions() disables the action while an exclusive action
    /// runs. On by default.
    bool mustBeDisabled() const;
    void setMustBeDisabled(bool mustBeDisabled);
    /// @}
    /// @{
    /// Read when this action is the current one at a view switch: false keeps it running across
    /// the switch (other must-be-stopped actions still stop). On by default.
    bool stopOnViewSwitch() const;
    void setStopOnViewSwitch(bool stop);
    /// @}
    /// @{
    /// Stored for the application, which reads it when the action starts; the library does not act
    /// on it.
    bool shouldClearObjectSelectionWhenStarted() const;
    void setClearObjectSelectionWhenStarted(bool clear);
    /// @}

    /// Sets an explicit choice; without one, starting disables the others exactly when the action
    /// is not checkable.
    void disableOtherActionsOnStart(bool disable);
    /// The explicit choice when one was made, otherwise `!isCheckable()`: a new one-shot command
    /// disables the others while it runs, a new checkable tool does not.
    bool shouldDisableOtherActionsOnStart() const;

    /// Whether the handler watches the application's input while this action runs (see
    /// enableStopWithEventFilter()).
    bool isStopWithEventFilterEnabled() const;
    /// One-way switch: Escape and a right click stop the running action from then on.
    void enableStopWithEventFilter();

    /// @{
    /// Whether getTooltip() appends the shortcuts; on by default. A change emits tooltipChanged()
    /// with the full tooltip.
    bool getShowShortcutInTooltip() const;
    void setShowShortcutInTooltip(bool show);
    /// @}
    /// The shortcuts shown in the tooltip. The action does not install them: the application
    /// registers them with its ShortcutManager.
    QList<QKeySequence> getShortcuts() const;
    /// Replaces the list; when shortcuts are shown, emits tooltipChanged() with the full tooltip
    /// (unlike setTooltip(), which emits the bare text).
    void setShortcuts(const QList<QKeySequence>& shortcuts);
    /// Makes `sequence` the only shortcut, with the signal of setShortcuts().
    void setShortcutSequence(QKeySequence sequence);

    /// Emits disabled(d) then enabled(!d) on a real change.
    virtual void setDisabled(bool disabled);
    /// The handler that does the work; not owned.
    ActionHandler* getActionHandler() const;
    /// Does not take ownership.
    virtual void setActionHandler(ActionHandler* handler);
    /// The exclusive group the action belongs to, or null; not owned.
    ActionGroup* getActionGroup() const;
    /// Does not take ownership.
    void setActionGroup(ActionGroup* group);

    /// @{
    /// The application-defined state; a change emits actionStateChanged(), on which actions that
    /// list this one as blocking update themselves.
    ActionState getActionState() const;
    void setActionState(ActionState state);
    /// @}

    /// True between a start the handler accepted and the stop.
    bool isActive() const;
    /// @{
    /// Disabled blocks start() (unless forced) and toggle(), never stop().
    bool isDisabled() const;
    bool isEnabled() const;
    /// @}
    /// setDisabled(!enabled), with its signals.
    void setEnabled(bool enabled);

    /// Asks the handler whether the application may close now.
    bool allowClose();

    /// @{
    /// Named arguments for the handler, which copies them at start and again at stop.
    /// setParameter() inserts or replaces one; removeParameter() and clearParameters() change the
    /// action's map only.
    QMap<QString, QVariant> getParameters() const;
    void setParameters(const QMap<QString, QVariant>& parameters);
    void setParameter(const QString& key, const QVariant& value);
    /// The value, or an invalid QVariant when the key is absent.
    QVariant getParameter(const QString& key) const;
    /// Removes the key and returns its value (an invalid QVariant when absent).
    QVariant takeParameter(const QString& key);
    void removeParameter(const QString& key);
    void clearParameters();
    /// @}

    /// Whenever `other` changes its state, this action updates; while `other` is in the blocking
    /// state, update() leaves this action disabled. Does not take ownership; duplicates are kept.
    void addBlockingAction(Action* other);

    /// Base: enables the action. Application actions compute their own availability here.
    virtual void updateState();
    /// Base: does nothing. Application actions recompute a name that depends on context here.
    virtual void updateName();

    /// A new QAction owned by `parent`, showing this action's icon, name, tooltip and checkable
    /// flag; it is not wired to the action.
    QAction* createQAction(QObject* parent);
    /// A new QAction owned by this action, wired both ways; every call makes another one.
    QAction* getQAction();

public Q_SLOTS:
    /// Driven by a QAction. Deliberately does not test the disabled flag: the QAction itself is
    /// disabled with the action, and application code relies on this path starting regardless.
    void trigger(bool checked);
    /// Stops an active action, otherwise starts it; does nothing while disabled.
    void toggle();
    /// Starts unless already active; a disabled action starts only when forced.
    void start(bool force);
    /// Calls the handler's stopHandler() and emits triggered(false); does nothing on an inactive
    /// action.
    void stop();
    /// Runs updateState(), then disables the action while any blocking action is in the blocking
    /// state.
    void update();

Q_SIGNALS:
    /// True when a run begins, before the handler starts (so a handler that refuses, or a one-shot
    /// command ending inside its start, gives true then false within one call); false when it ends.
    void triggered(bool checked);
    /// Emitted on a real change of the disabled flag, before enabled().
    void disabled(bool status);
    /// Emitted right after disabled(), with the opposite value.
    void enabled(bool status);
    /// Emitted on a real change of the application-defined state.
    void actionStateChanged();
    /// The new tooltip; bare from setTooltip(), with the shortcut suffix from the shortcut setters.
    void tooltipChanged(const QString& text);
    /// Emitted on a real change of the name.
    void nameChanged(const QString& text);
    /// Emitted by every setIcon().
    void iconChanged(const QIcon& icon);
    /// Emitted after every start attempt of a checkable action without an explicit choice about
    /// disabling the others; the action manager refreshes availability on it.
    void handled();

protected:
    /// Kinds write their class tag here from their constructors.
    void setType(const QString& type);

private:
    void runStart();
    void runStop();

    QMap<QString, QVariant> m_parameters;
    QString m_name;
    QString m_tooltip;
    QIcon m_icon;
    bool m_checkable = false;
    std::optional<bool> m_disableOtherActionsOnStart;
    bool m_disabled = false;
    QString m_type = QStringLiteral("Action");
    bool m_active = false;
    QPointer<ActionHandler> m_actionHandler;
    bool m_mustBeStopped = false;
    bool m_stopOnViewSwitch = true;
    ActionState m_actionState = NoState;
    bool m_mustBeDisabled = true;
    QList<Action*> m_blockingActions;
    QString m_title;
    QString m_description;
    QString m_shortDescription;
    QString m_manualLink;
    QString m_illustrationImage;
    bool m_cancelled = false;
    QPointer<ActionGroup> m_actionGroup;
    QList<QKeySequence> m_shortcuts;
    bool m_clearObjectSelectionWhenStarted = false;
    bool m_stopWithEventFilter = false;
    bool m_showShortcutInTooltip = true;
};
