#include "GraphicsViewExtra.h"

#include "GraphicsViewExtraViewport_p.h"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QMouseEvent>

GraphicsViewExtra::GraphicsViewExtra(Usage usage, QGraphicsScene* scene, QWidget* parent)
    : QGraphicsView(parent)
    , usage(usage)
{
    setViewport(new GraphicsViewExtraViewport());
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setCacheMode(QGraphicsView::CacheNone);
    setFrameShape(QFrame::NoFrame);
    setScene(scene);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

GraphicsViewExtra::~GraphicsViewExtra() = default;

void GraphicsViewExtra::notifyChanged()
{
    Q_EMIT viewportChanged();
    Q_EMIT sceneChanged();
}

void GraphicsViewExtra::mousePressEvent(QMouseEvent* event)
{
    const Qt::MouseButtons chord = Qt::LeftButton | Qt::RightButton;
    if ((event->buttons() & chord) == chord) {
        // The chord is a gesture of the viewer's own, not a press for the scene.
        Q_EMIT leftAndRightMousePressed(event);
    } else {
        QGraphicsView::mousePressEvent(event);
        if (dragMode() == QGraphicsView::ScrollHandDrag)
            Q_EMIT panStarted();
    }
    notifyChanged();
}

void GraphicsViewExtra::mouseReleaseEvent(QMouseEvent* event)
{
    if (dragMode() == QGraphicsView::ScrollHandDrag)
        Q_EMIT panFinished();
    QGraphicsView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT mouseReleased(event);
    else if (event->button() == Qt::RightButton)
        Q_EMIT rightMouseReleased(event);
    notifyChanged();
}

void GraphicsViewExtra::mouseMoveEvent(QMouseEvent* event)
{
    QGraphicsView::mouseMoveEvent(event);
    if (event->buttons() == Qt::NoButton)
        Q_EMIT mousePositionChanged(event->position().x(), event->position().y());
    notifyChanged();
}

void GraphicsViewExtra::mouseDoubleClickEvent(QMouseEvent* event)
{
    QGraphicsView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT leftMouseButtonDoubleClicked(event->position().toPoint());
    else if (event->button() == Qt::RightButton)
        Q_EMIT rightMouseButtonDoubleClicked(event->position().toPoint());
    notifyChanged();
}

void GraphicsViewExtra::keyPressEvent(QKeyEvent* event)
{
    QGraphicsView::keyPressEvent(event);
    Q_EMIT keyPressed(event);
    notifyChanged();
}

void GraphicsViewExtra::keyReleaseEvent(QKeyEvent* event)
{
    // Releasing Control ends a pan that was held with it.
    if (event->key() == Qt::Key_Control && dragMode() == QGraphicsView::ScrollHandDrag)
        Q_EMIT panFinished();
    QGraphicsView::keyReleaseEvent(event);
    Q_EMIT keyReleased(event);
    notifyChanged();
}

void GraphicsViewExtra::enterEvent(QEnterEvent* event)
{
    QGraphicsView::enterEvent(event);
    Q_EMIT mouseEntered();
}

void GraphicsViewExtra::leaveEvent(QEvent* event)
{
    QGraphicsView::leaveEvent(event);
    Q_EMIT mouseLeft();
}

bool GraphicsViewExtra::viewportEvent(QEvent* event)
{
    const bool result = QGraphicsView::viewportEvent(event);
    notifyChanged();
    return result;
}

void GraphicsViewExtra::hoverMoveEvent()
{
    notifyChanged();
}

QPointF GraphicsViewExtra::getVisibleSceneCenter() const
{
    const QRectF rect = sceneRect();
    return QPointF(rect.x() + rect.width() * 0.5, rect.y() + rect.height() * 0.5);
}

QPoint GraphicsViewExtra::getFixedScreenPosForMouseEvent(
    const QPointF& scenePos, const QPoint& screenPos) const
{
    if (usage == Offscreen)
        return mapFromScene(scenePos);
    return screenPos;
}
