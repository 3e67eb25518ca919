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
        NoState = 0,
        /// An action that lists this one as blocking disables itself on update().
        Blocking = 1
    };

    Action();
    explicit Action(const QString& id);
    /// Name, tooltip and icon are stored as they are, without change signals.
    Action(const QString& id, const QString& name, const QString& tooltip, const QIcon& icon);
    /// Does not stop a running action; ActionStopper is there for scoped stopping.
    ~Action() override;

    QString getName() const;
    void setName(const QString& name);
    /// The tooltip, followed by the shortcut text when shortcuts are shown and there are any.
    QString getTooltip() const;
    /// Emits tooltipChanged() with the bare text, without the shortcut suffix.
    void setTooltip(const QString& text);
    QIcon getIcon() const;
    void setIcon(const QIcon& icon);
    QString getType() const;

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

    bool isCheckable() const;
    void setCheckable(bool checkable);
    bool isCancelled() const;
    void setCancelled(bool cancelled);
    bool mustBeStopped() const;
    void setMustBeStopped(bool mustBeStopped);
    bool mustBeDisabled() const;
    void setMustBeDisabled(bool mustBeDisabled);
    bool stopOnViewSwitch() const;
    void setStopOnViewSwitch(bool stop);
    bool shouldClearObjectSelectionWhenStarted() const;
    void setClearObjectSelectionWhenStarted(bool clear);

    /// Sets an explicit choice; without one, starting disables the others exactly when the action
    /// is not checkable.
    void disableOtherActionsOnStart(bool disable);
    bool shouldDisableOtherActionsOnStart() const;

    bool isStopWithEventFilterEnabled() const;
    /// One-way switch: Escape and a right click stop the running action from then on.
    void enableStopWithEventFilter();

    bool getShowShortcutInTooltip() const;
    void setShowShortcutInTooltip(bool show);
    QList<QKeySequence> getShortcuts() const;
    void setShortcuts(const QList<QKeySequence>& shortcuts);
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

    ActionState getActionState() const;
    void setActionState(ActionState state);

    bool isActive() const;
    bool isDisabled() const;
    bool isEnabled() const;
    void setEnabled(bool enabled);

    /// Asks the handler whether the application may close now.
    bool allowClose();

    QMap<QString, QVariant> getParameters() const;
    void setParameters(const QMap<QString, QVariant>& parameters);
    void setParameter(const QString& key, const QVariant& value);
    /// The value, or an invalid QVariant when the key is absent.
    QVariant getParameter(const QString& key) const;
    /// Removes the key and returns its value (an invalid QVariant when absent).
    QVariant takeParameter(const QString& key);
    void removeParameter(const QString& key);
    void clearParameters();

    /// Whenever `other` changes its state, this action updates; while `other` is in the blocking
    /// state, update() leaves this action disabled. Does not take ownership; duplicates are kept.
    void addBlockingAction(Action* other);

    /// Base: enables the action. Application actions compute their own availability here.
    virtual void updateState();
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
    void toggle();
    /// Starts unless already active; a disabled action starts only when forced.
    void start(bool force);
    void stop();
    /// Runs updateState(), then disables the action while any blocking action is in the blocking
    /// state.
    void update();

Q_SIGNALS:
    void triggered(bool checked);
    void disabled(bool status);
    void enabled(bool status);
    void actionStateChanged();
    void tooltipChanged(const QString& text);
    void nameChanged(const QString& text);
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
