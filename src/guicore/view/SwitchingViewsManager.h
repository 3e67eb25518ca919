#pragma once

#include <guicore/guicore_export.h>
#include <guicore/view/View.h>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVector3D>

#include <map>

class MultiView;
class QKeySequence;
class QShortcut;
class QWidget;
class ShortcutManager;
class Solution;
class SolutionManager;
class ViewManager;
namespace action {
class ActionManager;
}
namespace events {
class SceneEventHandler;
}

/// Keeps track of which view of the active solution is on screen and switches between views and
/// sub views, by id, by pointer or by a view's keyboard shortcut. On a switch it stops the running
/// actions that must not survive it (through the action manager) and hands the old view manager's
/// ViewSettings to the new one.
///
/// A switch emits, in this order: viewChanged() from a sub-view switch when one is needed first,
/// switchingView() once the new view is current, and viewChanged() once it has started.
/// mousePositionChanged() and availableViewsChanged() are never emitted here: the application
/// emits them through this object so that the whole user interface listens at one place.
///
/// The managers set here are borrowed. Views are borrowed as well, and a destroyed view is
/// forgotten (with a plug-in that closes, say): its shortcut entries go, and when it was the
/// current view there is none until the next switch.
class GUICORE_EXPORT SwitchingViewsManager : public QObject
{
    Q_OBJECT

public:
    SwitchingViewsManager();
    ~SwitchingViewsManager() override;

    /// Switches to view, in this order: stops the current view; takes a view that is not a
    /// top-level view of the active solution as a sub view and switches its multi view to it;
    /// stops the actions that must stop; passes the view settings on; makes the view current in
    /// the solution; emits switchingView(); starts the view; emits viewChanged(). Switching to the
    /// current view does nothing. A null view, or a sub view without a parent, leaves the old
    /// view current but stopped. Does not take ownership. Without a solution manager or an
    /// active solution: the warning "SwitchingViewsManager : no solution manager or active
    /// solution is set." and nothing changes.
    virtual void switchToView(View* view);
    /// Switches to the solution's view with this id, or to the multi view holding a sub view with
    /// this id after making that sub view active (viewChanged() is then emitted twice, both
    /// times with the multi view's id). Warnings: the one of switchToView(View*), and
    /// "SwitchingViewsManager : no view or sub view with ID <id> exists in the current
    /// solution." for an unknown id.
    virtual void switchToView(const QString& id);
    /// The current view's id, or an empty string.
    virtual QString getCurrentViewID();
    /// Not owned by the caller; null before the first switch.
    virtual View* getCurrentView() const;
    /// The current view's manager, or null; not owned by the caller.
    virtual ViewManager* getCurrentViewManager() const;
    /// Installs, on widget (not owned), one shortcut per view of the active solution that has a
    /// key sequence, through the shortcut manager. Views sharing a key share one shortcut and are
    /// visited in turn by repeated presses. Sub views get no shortcut of their own. Installs
    /// nothing, with a warning, without an active solution ("SwitchingViewsManager : no solution
    /// is currently active.") or without a shortcut manager ("SwitchingViewsManager : no
    /// shortcut manager is set.").
    virtual void installViewSwitchingShortcuts(QWidget* widget);
    /// A hook for applications that filter views: always false here.
    virtual bool isViewAvailable(const QString& id) const;

    /// Does not take ownership.
    void setSolutionManager(SolutionManager* manager);
    /// Not owned by the caller.
    SolutionManager* getSolutionManager() const;
    /// Does not take ownership.
    void setActionManager(action::ActionManager* manager);
    /// Not owned by the caller.
    action::ActionManager* getActionManager() const;
    /// Does not take ownership.
    void setShortcutManager(ShortcutManager* manager);
    /// Not owned by the caller.
    ShortcutManager* getShortcutManager() const;

    /// Makes the sub view with this id active inside multiView (not owned), then emits
    /// viewChanged() with the multi view's id.
    void switchToSubView(MultiView* multiView, const QString& id);
    /// The current view, or the active sub view when the current view is a multi view (which
    /// can be null). Not owned by the caller.
    View* getCurrentViewOrSubView() const;
    /// The id of getCurrentViewOrSubView(), or an empty string.
    QString getCurrentViewOrSubViewID() const;
    /// Every registered view, as the solution manager orders them; empty without a solution
    /// manager. Not owned by the caller.
    QList<View*> getViews() const;
    /// The first registered top-level view with this id, or null; not owned by the caller.
    View* getView(const QString& id) const;
    /// The registered views, each multi view replaced at its place by its sub views. Not owned by
    /// the caller.
    QList<View*> getViewOrSubViews() const;
    /// The first multi view of the active solution holding a sub view with this id, or null; not
    /// owned by the caller.
    MultiView* getParentViewOfSubView(const QString& id) const;

    /// @{
    /// View::start() and View::stop() of the current view; both assume that there is one.
    void startCurrentView();
    void stopCurrentView();
    /// @}
    /// Enables or disables every installed view shortcut (while a dialog is up, say).
    void enableShortcuts(bool enable);
    /// The first installed shortcut for sequence, in shortcut address order, or null; owned by
    /// the widget it was installed on.
    QShortcut* getShortcutFor(const QKeySequence& sequence) const;
    /// View::freeze3DViewers() on every registered view.
    void freezeAll3DViewers(bool freeze);
    /// Hands handler (not owned) to the manager of every view of the active solution; without an
    /// active solution the warning "SwitchingViewsManager : no solution is currently active.".
    void registerSceneEventHandler(events::SceneEventHandler* handler);
    /// The counterpart of registerSceneEventHandler(), with the same warning.
    void unregisterSceneEventHandler(events::SceneEventHandler* handler);
    /// Copies from's view settings to to, when both are non-null and both have a view manager.
    /// Does not take ownership of either.
    void passViewSettings(View* from, View* to);

Q_SIGNALS:
    /// The new view is current (here and in the solution) but not started yet; currentView is
    /// not owned by receivers.
    void switchingView(View* currentView);
    /// The current view has started, or the current multi view changed its sub view.
    void viewChanged(QString currentViewId);
    /// Emitted by the application (never by this class) with the pointer's position in the
    /// viewers' world coordinates.
    void mousePositionChanged(QVector3D position);
    /// Emitted by the application (never by this class) when the set of views offered changes.
    void availableViewsChanged();

public Q_SLOTS:
    /// Switches to the view of the shortcut that sent the signal; when that shortcut serves
    /// several views and one of them is current, to the next one of them, wrapping around.
    void shortcutActivated();

private:
    /// Whether a shortcut may switch to view; always true here.
    virtual bool isShortcutActive(const View* view);
    /// Stops every running action that must be stopped, the current action only when it wants to
    /// stop on a view switch. Neither view is owned.
    virtual void aboutToSwitchViews(View* from, View* to);

    Solution* activeSolution() const;
    void forgetShortcut(QObject* shortcut);
    void forgetView(const void* view);

    View* m_currentView = nullptr;
    QPointer<SolutionManager> m_solutionManager;
    QPointer<ShortcutManager> m_shortcutManager;
    QPointer<action::ActionManager> m_actionManager;
    // Ordered by the shortcut's address; views sharing one shortcut keep installation order.
    std::multimap<QShortcut*, View*> m_shortcuts;
};
