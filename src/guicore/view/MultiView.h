#pragma once

#include <guicore/guicore_export.h>
#include <guicore/view/View.h>

#include <QPointer>

#include <memory>
#include <vector>

class QStackedWidget;

/// A view made of several sub views stacked in one QStackedWidget, of which exactly one, the
/// active sub view, is shown and running at a time. The stacked widget is the multi view's own
/// widget; the first sub view added is the active one until another is chosen.
///
/// The multi view owns its sub views. It owns the stacked widget while that has no parent; once
/// the application puts it into a layout, the parent widget owns it.
class GUICORE_EXPORT MultiView : public View
{
public:
    /// A multi view without sub views; its stacked widget is made on first use.
    explicit MultiView(const QString& id);
    /// Takes every sub view's widget out of the stacked widget, in list order, before the sub
    /// views are destroyed, so that no sub view dies while its widget is still a page.
    ~MultiView() override;

    /// The stacked widget; not owned by the caller.
    QWidget* getWidget() override;
    /// The active sub view's widget, or null without sub views; not owned by the caller.
    QWidget* getActiveWidget() override;
    /// Starts the multi view itself, then its active sub view.
    void start() override;
    /// Stops the multi view itself, then its active sub view.
    void stop() override;
    /// Forwarded to the active sub view; nothing without one.
    void reset() override;
    /// Forwarded to the active sub view; nothing without one.
    void stopActions() override;
    /// Forwarded to the active sub view; nothing without one.
    void releaseWidget() override;
    /// The active sub view's manager, or null without an active sub view. The multi view's own
    /// manager is not consulted. Not owned by the caller.
    ViewManager* getViewManager() const override;
    /// The active sub view's interactor, or one for the multi view itself without sub views;
    /// ownership passes to the caller.
    std::unique_ptr<ui::ViewNodeInteractor> createNodeInteractor() override;

    /// Takes ownership and adds the sub view's widget as a page. The first sub view added becomes
    /// the active one. Null is ignored.
    void addSubView(std::unique_ptr<View> subView);
    /// The sub views in insertion order; not owned by the caller.
    std::vector<View*> getSubViews() const;
    /// The first sub view with exactly this id, or null; not owned by the caller.
    View* getSubViewByID(const QString& id) const;
    /// Not owned by the caller; null while there are no sub views.
    View* getActiveSubView() const;
    /// The active sub view's id, or an empty string.
    QString getActiveSubViewID() const;

    /// Makes the sub view with this id the active one, stopping the previous one. Only a running
    /// multi view shows and starts the new sub view at once; one that is not running records the
    /// choice, and its next start() starts the chosen sub view. An empty id is ignored; an unknown
    /// one gets the warning "Can't switch to unknown sub view <id>" and changes nothing.
    void switchToSubView(const QString& id);
    /// Shows the active sub view's widget as the stacked widget's current page.
    void updateActiveWidget();

private:
    void createWidget() override;

    std::vector<std::unique_ptr<View>> m_subViews;
    View* m_activeSubView = nullptr;
    QPointer<QStackedWidget> m_stackedWidget;
};
