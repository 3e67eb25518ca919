#pragma once

#include <guicore/guicore_export.h>
#include <guicore/solution/Feature.h>

#include <QImage>
#include <QKeySequence>
#include <QPointer>
#include <QString>

#include <memory>

class QWidget;
class ViewManager;
namespace ui {
class ViewNodeInteractor;
}

/// One screen layout of a solution: a switchable feature that owns one top-level widget, built
/// on demand by the concrete view, and optionally one ViewManager that runs the viewers inside
/// that widget. SwitchingViewsManager decides which view is on screen.
///
/// The widget is created lazily, on the first getWidget() or start(). The view does not delete
/// its widget: the concrete view (or the layout the application puts it in) owns it, and
/// releaseWidget() is where a concrete view gives it back.
class GUICORE_EXPORT View : public solution::Feature
{
public:
    /// A view with the id "undefined_view".
    View();
    /// An inactive view without widget and without manager.
    explicit View(const QString& id);
    /// Destroys the view manager. The solution registries and the view switching forget the view.
    ~View() override;

    View(const View&) = delete;
    View& operator=(const View&) = delete;

    /// The top-level widget, created by createWidget() on first use; not owned by the caller.
    virtual QWidget* getWidget();
    /// The widget that currently shows content; here the top-level widget. Not owned by the
    /// caller.
    virtual QWidget* getActiveWidget();
    /// Creates the widget if needed and starts the view manager. Does nothing when already active.
    virtual void start();
    /// Stops the view manager. Does nothing when not active.
    virtual void stop();
    /// Re-initializes the view manager, if any.
    virtual void reset();
    /// Does nothing here; views that hold 3-D viewers pause or resume their rendering.
    virtual void freeze3DViewers(bool freeze);
    /// Stops the actions the view manager runs, if any.
    virtual void stopActions();
    /// Does nothing here; views that must hand their widget back do it here.
    virtual void releaseWidget();
    /// The owned view manager, or null; not owned by the caller.
    virtual ViewManager* getViewManager() const;
    /// A new interactor bound to this view; ownership passes to the caller, which must not let
    /// it outlive the view.
    virtual std::unique_ptr<ui::ViewNodeInteractor> createNodeInteractor();

    /// Takes ownership of manager (which must have no QObject parent). A view takes one manager
    /// only: when one is set already, the warning "View : this view already has a manager set."
    /// is logged and the manager passed in is destroyed.
    void setViewManager(std::unique_ptr<ViewManager> manager);

    /// True between start() and stop().
    bool isActive() const;
    /// @{
    /// Presentation for the application's view bar: name, description, preview picture, icon
    /// path and the shortcut text shown next to the name. Stored only; the description and
    /// picture are set by the concrete view.
    QString getName() const;
    void setName(const QString& name);
    QString getDescription() const;
    QImage getPicture() const;
    QString getIcon() const;
    void setIcon(const QString& icon);
    QString getShortCutString() const;
    void setShortCutString(const QString& text);
    /// @}
    /// The key that switches to this view (see SwitchingViewsManager); empty for none.
    QKeySequence getShortCutKeySequence() const;
    /// Takes effect at the next SwitchingViewsManager::installViewSwitchingShortcuts().
    void setShortCutKeySequence(const QKeySequence& sequence);

protected:
    /// For createWidget(): stores the top-level widget. Does not take ownership.
    void setWidget(QWidget* widget);
    /// The widget field as it is, without creating anything; not owned by the caller.
    QWidget* widget() const;
    /// @{
    /// For concrete views: the texts and picture shown for the view.
    void setDescription(const QString& description);
    void setPicture(const QImage& picture);
    /// @}

private:
    // A multi view takes its sub views' widgets apart without building missing ones.
    friend class MultiView;

    /// Builds the top-level widget and leaves it in the widget field with setWidget().
    virtual void createWidget() = 0;

    QString m_name;
    QString m_description;
    // Guarded: a widget deleted by its layout is built again on the next getWidget().
    QPointer<QWidget> m_widget;
    bool m_active = false;
    QImage m_picture;
    QString m_icon;
    QString m_shortCutString;
    QKeySequence m_shortCutKeySequence;
    std::unique_ptr<ViewManager> m_viewManager;
};
