#include "ActionHandler.h"

#include "Action.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>

ActionHandler::ActionHandler()
    : QObject(nullptr)
{
}

ActionHandler::~ActionHandler() = default;

bool ActionHandler::startHandler(Action* action)
{
    if (m_active) {
        qDebug("ActionHandler::startHandler : there is still an action that is busy");
        return false;
    }
    m_active = true;
    m_currentAction = action;
    m_currentParameters = action ? action->getParameters() : QMap<QString, QVariant>();
    // Pessimistic on purpose: a run counts as cancelled until the concrete handler completes it.
    m_canceled = true;
    if (action && action->isStopWithEventFilterEnabled() && QCoreApplication::instance()) {
        QCoreApplication::instance()->installEventFilter(this);
    }
    start();
    return true;
}

bool ActionHandler::stopHandler(Action* action)
{
    if (!m_active)
        return true;
    if (action) {
        m_currentAction = action;
        m_currentParameters = action->getParameters();
        if (action->isStopWithEventFilterEnabled() && QCoreApplication::instance())
            QCoreApplication::instance()->removeEventFilter(this);
    }
    stop();
    m_active = false;
    return true;
}

bool ActionHandler::allowClose()
{
    return true;
}

void ActionHandler::stopCurrentAction() const
{
    if (m_currentAction)
        m_currentAction->stop();
}

bool ActionHandler::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (!m_currentAction || !m_currentAction->isActive()
        || !m_currentAction->isStopWithEventFilterEnabled())
        return false;
    if (event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        handleEscapePressed(event);
        return true;
    }
    handleRightClick(event);
    return false;
}

void ActionHandler::handleEscapePressed(QEvent* event)
{
    stopCurrentAction();
    event->accept();
}

void ActionHandler::handleRightClick(QEvent* event)
{
    // A mouse event travels through the application filter once per receiver it is offered to
    // (the window, then the widget and its parents), so the release is decided only once per
    // press.
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::RightButton)
            return;
        m_rightReleaseHandled = false;
        m_clickOrDragDeterminer.handleMousePressedEvent(
            Qt::RightButton, mouse->globalPosition().toPoint());
        return;
    }
    case QEvent::MouseMove: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (!(mouse->buttons() & Qt::RightButton))
            return;
        m_clickOrDragDeterminer.handleMouseDraggingEvent(
            Qt::RightButton, mouse->globalPosition().toPoint(), mouse->position(), {}, {});
        return;
    }
    case QEvent::MouseButtonRelease: {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::RightButton || m_rightReleaseHandled)
            return;
        // Stopping inside the mouse event dispatch would pull the action away under the
        // receivers still to see this release; the stop waits for the next turn of the loop.
        m_clickOrDragDeterminer.handleMouseReleasedEvent(Qt::RightButton,
            [this] { QTimer::singleShot(0, this, [this] { stopCurrentAction(); }); }, {});
        m_rightReleaseHandled = true;
        return;
    }
    default:
        return;
    }
}

Action* ActionHandler::getCurrentAction() const
{
    return m_currentAction;
}

void ActionHandler::setCurrentAction(Action* action)
{
    m_currentAction = action;
}

bool ActionHandler::isActive() const
{
    return m_active;
}

bool ActionHandler::isCanceled() const
{
    return m_canceled;
}

void ActionHandler::setCanceled(bool canceled)
{
    m_canceled = canceled;
}

QMap<QString, QVariant> ActionHandler::getCurrentParameters() const
{
    return m_currentParameters;
}

QVariant ActionHandler::getParameter(const QString& key) const
{
    return m_currentParameters.value(key);
}

bool ActionHandler::containsParameter(const QString& key) const
{
    return m_currentParameters.contains(key);
}

void ActionHandler::removeParameter(const QString& key)
{
    m_currentParameters.remove(key);
}

void ActionHandler::clearParameters()
{
    m_currentParameters.clear();
}
