#pragma once

#include <guicore/action/Action.h>

class SolutionManager;
namespace action {
class ActionRegistry;
}

/// An action that carries child actions, shown as a menu or a drop-down tool button.
///
/// The children run independently of the multi-action; by default they follow its disabled state.
/// When a solution manager is set, children are registered with it as they are added and
/// unregistered as they are removed.
class GUICORE_EXPORT MultiAction : public Action
{
    Q_OBJECT

public:
    /// An action with the id "undefined_multi_action".
    MultiAction();
    /// A multi-action without children, tagged "MultiAction".
    explicit MultiAction(const QString& id);
    /// As the Action constructor of the same arguments: no change signals.
    MultiAction(const QString& id, const QString& name, const QString& tooltip, const QIcon& icon);
    /// Removes every child (see clearActions()); the children themselves are not deleted.
    ~MultiAction() override;

    /// The registry children are added to and removed from, or null; not owned. Null once the
    /// manager is destroyed.
    SolutionManager* getSolutionManager() const;
    /// Does not take ownership. The children are registered with the manager as an
    /// ActionRegistry.
    void setSolutionManager(SolutionManager* manager);

    /// Appends a child (not owned), registers it and emits actionAdded().
    void addAction(Action* child);
    /// removeAction() for every child, in order.
    virtual void clearActions();
    /// Unregisters the child, removes its first occurrence and emits actionRemoved(), also for an
    /// action that was not a child.
    virtual void removeAction(Action* child);
    /// The children in display order; not owned by the caller.
    QList<Action*> getActions() const;
    /// Whether there is at least one child.
    bool hasActions() const;
    /// A new wired QAction per child (see Action::getQAction()); each owned by its child.
    QList<QAction*> getQActions();

    /// Disables or enables the multi-action, then every child when synchronisation is on.
    void setDisabled(bool disabled) override;

    /// @{
    /// Style-sheet class names the application gives the drop-down menu and the tool button;
    /// empty by default.
    QString getMenuStyleSheetType() const;
    void setMenuStyleSheetType(const QString& type);
    QString getToolButtonStyleSheetType() const;
    void setToolButtonStyleSheetType(const QString& type);
    /// @}
    /// -1 means the style's default size.
    int getMenuItemIconSize() const;
    /// Stored for the application's menu; the library does not resize anything.
    void setMenuItemIconSize(int size);

Q_SIGNALS:
    /// Emitted by addAction() after the child is stored and registered; not by insertAction().
    void actionAdded(Action* action);
    /// Emitted by removeAction(), also for an action that was not a child.
    void actionRemoved(Action* action);

protected:
    /// Inserts and registers a child like addAction() but emits no actionAdded(): subclasses use it
    /// to build their menu without announcing each entry.
    void insertAction(Action* child, int index);
    /// Whether setDisabled() reaches the children (and through nested multi-actions their
    /// children); on by default.
    void syncEnabledStateWithChildren(bool sync);

private:
    void forgetChild(QObject* child);
    /// The solution manager as the action registry, or null while there is none.
    action::ActionRegistry* actionRegistry() const;

    QPointer<SolutionManager> m_solutionManager;
    // The same object as m_solutionManager, seen as what this framework may know of it; valid
    // exactly while m_solutionManager is not null.
    action::ActionRegistry* m_actionRegistry = nullptr;
    QList<Action*> m_actions;
    QString m_menuStyleSheetType;
    QString m_toolButtonStyleSheetType;
    int m_menuItemIconSize = -1;
    bool m_syncEnabledStateWithChildren = true;
};
