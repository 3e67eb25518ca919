#include "MultiView.h"

#include "ViewNodeInteractor.h"

#include "../Logging_p.h"

#include <QDebug>
#include <QStackedWidget>

MultiView::MultiView(const QString& id)
    : View(id)
    , m_stackedWidget(new QStackedWidget())
{
    m_stackedWidget->setObjectName(id);
    // The widget field stays empty on purpose: View::start() then calls createWidget() on every
    // start, which brings the page of a sub view chosen while the multi view was not running to
    // the front.
}

MultiView::~MultiView()
{
    if (m_stackedWidget) {
        for (const auto& subView : m_subViews) {
            // widget() rather than getWidget(): a sub view whose widget is gone must not build a
            // new one while it is being taken apart.
            if (QWidget* page = subView->widget())
                m_stackedWidget->removeWidget(page);
        }
    }
    m_activeSubView = nullptr;
    m_subViews.clear();
    if (m_stackedWidget && !m_stackedWidget->parent())
        delete m_stackedWidget.data();
}

QWidget* MultiView::getWidget()
{
    return m_stackedWidget;
}

QWidget* MultiView::getActiveWidget()
{
    return m_activeSubView ? m_activeSubView->getWidget() : nullptr;
}

void MultiView::start()
{
    View::start();
    if (m_activeSubView)
        m_activeSubView->start();
}

void MultiView::stop()
{
    View::stop();
    if (m_activeSubView)
        m_activeSubView->stop();
}

void MultiView::reset()
{
    if (m_activeSubView)
        m_activeSubView->reset();
}

void MultiView::stopActions()
{
    if (m_activeSubView)
        m_activeSubView->stopActions();
}

void MultiView::releaseWidget()
{
    if (m_activeSubView)
        m_activeSubView->releaseWidget();
}

ViewManager* MultiView::getViewManager() const
{
    return m_activeSubView ? m_activeSubView->getViewManager() : nullptr;
}

std::unique_ptr<ui::ViewNodeInteractor> MultiView::createNodeInteractor()
{
    if (m_activeSubView)
        return m_activeSubView->createNodeInteractor();
    return View::createNodeInteractor();
}

void MultiView::addSubView(std::unique_ptr<View> subView)
{
    if (!subView)
        return;
    if (m_stackedWidget) {
        if (QWidget* page = subView->getWidget())
            m_stackedWidget->addWidget(page);
    }
    if (!m_activeSubView)
        m_activeSubView = subView.get();
    m_subViews.push_back(std::move(subView));
}

std::vector<View*> MultiView::getSubViews() const
{
    std::vector<View*> subViews;
    subViews.reserve(m_subViews.size());
    for (const auto& subView : m_subViews)
        subViews.push_back(subView.get());
    return subViews;
}

View* MultiView::getSubViewByID(const QString& id) const
{
    for (const auto& subView : m_subViews) {
        if (subView->getID() == id)
            return subView.get();
    }
    return nullptr;
}

View* MultiView::getActiveSubView() const
{
    return m_activeSubView;
}

QString MultiView::getActiveSubViewID() const
{
    return m_activeSubView ? m_activeSubView->getID() : QString();
}

void MultiView::switchToSubView(const QString& id)
{
    if (id.isEmpty())
        return;
    View* target = getSubViewByID(id);
    if (!target) {
        qCWarning(lcView).noquote() << QStringLiteral("Can't switch to unknown sub view ") + id;
        return;
    }
    if (target == m_activeSubView)
        return;
    if (m_activeSubView)
        m_activeSubView->stop();
    m_activeSubView = target;
    // A multi view that is not on screen only remembers the choice; showing and starting the
    // sub view waits for its own start().
    if (isActive()) {
        updateActiveWidget();
        m_activeSubView->start();
    }
}

void MultiView::updateActiveWidget()
{
    if (!m_activeSubView || !m_stackedWidget)
        return;
    if (QWidget* page = m_activeSubView->getWidget())
        m_stackedWidget->setCurrentWidget(page);
}

void MultiView::createWidget()
{
    updateActiveWidget();
}
