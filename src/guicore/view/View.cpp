#include "View.h"

#include "ViewManager.h"
#include "ViewNodeInteractor.h"

#include "../Logging_p.h"
#include "../solution/Feature_p.h"

#include <QWidget>

View::View()
    : View(QStringLiteral("undefined_view"))
{
}

View::View(const QString& id)
    : solution::Feature(id)
{
}

View::~View()
{
    // Registries keep views as View*; tell them this address while the view is still one.
    solution::detail::FeatureWatchers::announceDestroyed(this);
}

QWidget* View::getWidget()
{
    if (!m_widget)
        createWidget();
    return m_widget;
}

QWidget* View::getActiveWidget()
{
    return getWidget();
}

void View::start()
{
    if (m_active)
        return;
    if (!m_widget)
        createWidget();
    if (m_viewManager)
        m_viewManager->start();
    m_active = true;
}

void View::stop()
{
    if (!m_active)
        return;
    if (m_viewManager)
        m_viewManager->stop();
    m_active = false;
}

void View::reset()
{
    if (m_viewManager)
        m_viewManager->initialize();
}

void View::freeze3DViewers(bool) { }

void View::stopActions()
{
    if (m_viewManager)
        m_viewManager->stopActions();
}

void View::releaseWidget() { }

ViewManager* View::getViewManager() const
{
    return m_viewManager.get();
}

std::unique_ptr<ui::ViewNodeInteractor> View::createNodeInteractor()
{
    return std::make_unique<ui::ViewNodeInteractor>(*this);
}

void View::setViewManager(std::unique_ptr<ViewManager> manager)
{
    if (m_viewManager) {
        // The running viewers belong to the first manager; swapping it under them is never
        // wanted, so the newcomer is dropped.
        qCWarning(lcView, "View : this view already has a manager set.");
        return;
    }
    m_viewManager = std::move(manager);
}

bool View::isActive() const
{
    return m_active;
}

QString View::getName() const
{
    return m_name;
}

void View::setName(const QString& name)
{
    m_name = name;
}

QString View::getDescription() const
{
    return m_description;
}

void View::setDescription(const QString& description)
{
    m_description = description;
}

QImage View::getPicture() const
{
    return m_picture;
}

void View::setPicture(const QImage& picture)
{
    m_picture = picture;
}

QString View::getIcon() const
{
    return m_icon;
}

void View::setIcon(const QString& icon)
{
    m_icon = icon;
}

QString View::getShortCutString() const
{
    return m_shortCutString;
}

void View::setShortCutString(const QString& text)
{
    m_shortCutString = text;
}

QKeySequence View::getShortCutKeySequence() const
{
    return m_shortCutKeySequence;
}

void View::setShortCutKeySequence(const QKeySequence& sequence)
{
    m_shortCutKeySequence = sequence;
}

void View::setWidget(QWidget* widget)
{
    m_widget = widget;
}

QWidget* View::widget() const
{
    return m_widget;
}
