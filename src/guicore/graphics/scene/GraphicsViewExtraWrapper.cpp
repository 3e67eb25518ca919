#include "GraphicsViewExtraWrapper.h"

#include "GraphicsViewExtra.h"

#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QWidget>

GraphicsViewExtraWrapper::GraphicsViewExtraWrapper(GraphicsViewExtra* view, QObject* parent)
    : GraphicsViewExtraInterface(parent)
    , view(view)
{
    // The interface declares the view's signals under the same names and signatures, so each
    // is passed on by looking up its namesake: a signal added to the list is forwarded too.
    const QMetaObject& from = GraphicsViewExtra::staticMetaObject;
    const QMetaObject& to = GraphicsViewExtraInterface::staticMetaObject;
    for (int i = from.methodOffset(); i < from.methodCount(); ++i) {
        const QMetaMethod signal = from.method(i);
        if (signal.methodType() != QMetaMethod::Signal)
            continue;
        const int namesake = to.indexOfSignal(signal.methodSignature().constData());
        Q_ASSERT(namesake >= 0);
        connect(view, signal, this, to.method(namesake));
    }
}

GraphicsViewExtraWrapper::~GraphicsViewExtraWrapper() = default;

void GraphicsViewExtraWrapper::fitInView(const QRectF& rect, Qt::AspectRatioMode mode)
{
    const bool interactive = view->isInteractive();
    view->setInteractive(false);
    view->fitInView(rect, mode);
    view->setInteractive(interactive);
}

QPointF GraphicsViewExtraWrapper::getVisibleSceneCenter() const
{
    return view->getVisibleSceneCenter();
}

QSize GraphicsViewExtraWrapper::size() const
{
    return view->size();
}

QRect GraphicsViewExtraWrapper::rect() const
{
    return view->rect();
}

QWidget* GraphicsViewExtraWrapper::viewport() const
{
    return view->viewport();
}

QGraphicsScene* GraphicsViewExtraWrapper::scene() const
{
    return view->scene();
}

QRect GraphicsViewExtraWrapper::viewportRect() const
{
    const QWidget* port = view->viewport();
    return port ? port->rect() : QRect();
}

QRect GraphicsViewExtraWrapper::viewportGeometry() const
{
    const QWidget* port = view->viewport();
    return port ? port->geometry() : QRect();
}

void GraphicsViewExtraWrapper::resize(int width, int height)
{
    view->resize(width, height);
    Q_EMIT resized(QRectF(0, 0, width, height));
}

void GraphicsViewExtraWrapper::resize(const QSize& size)
{
    view->resize(size);
    Q_EMIT resized(QRectF(0, 0, size.width(), size.height()));
}

void GraphicsViewExtraWrapper::centerOn(const QPointF& pos)
{
    view->centerOn(pos);
}

QPolygonF GraphicsViewExtraWrapper::mapToScene(const QRect& rect) const
{
    return view->mapToScene(rect);
}

QPointF GraphicsViewExtraWrapper::mapToScene(const QPoint& point) const
{
    return view->mapToScene(point);
}

QPolygon GraphicsViewExtraWrapper::mapFromScene(const QRectF& rect) const
{
    return view->mapFromScene(rect);
}

QPoint GraphicsViewExtraWrapper::mapFromScene(const QPointF& point) const
{
    return view->mapFromScene(point);
}

void GraphicsViewExtraWrapper::setDragMode(QGraphicsView::DragMode mode)
{
    view->setDragMode(mode);
}

bool GraphicsViewExtraWrapper::isInteractive() const
{
    return view->isInteractive();
}

void GraphicsViewExtraWrapper::setInteractive(bool interactive)
{
    view->setInteractive(interactive);
}

void GraphicsViewExtraWrapper::render(QPainter* painter)
{
    view->QGraphicsView::render(painter, QRectF(), QRect(), Qt::KeepAspectRatio);
}

QList<QGraphicsItem*> GraphicsViewExtraWrapper::items() const
{
    return view->items();
}

void GraphicsViewExtraWrapper::mousePressEvent(QMouseEvent* event)
{
    view->mousePressEvent(event);
}

void GraphicsViewExtraWrapper::mouseMoveEvent(QMouseEvent* event)
{
    view->mouseMoveEvent(event);
}

void GraphicsViewExtraWrapper::mouseReleaseEvent(QMouseEvent* event)
{
    view->mouseReleaseEvent(event);
}

void GraphicsViewExtraWrapper::mouseDoubleClickEvent(QMouseEvent* event)
{
    view->mouseDoubleClickEvent(event);
}

void GraphicsViewExtraWrapper::keyPressEvent(QKeyEvent* event)
{
    view->keyPressEvent(event);
}

void GraphicsViewExtraWrapper::keyReleaseEvent(QKeyEvent* event)
{
    view->keyReleaseEvent(event);
}

bool GraphicsViewExtraWrapper::viewportEvent(QEvent* event)
{
    return view->viewportEvent(event);
}

void GraphicsViewExtraWrapper::enterEvent(QEnterEvent* event)
{
    view->enterEvent(event);
}

void GraphicsViewExtraWrapper::leaveEvent(QEvent* event)
{
    view->leaveEvent(event);
}

bool GraphicsViewExtraWrapper::hasView(const QGraphicsView* other) const
{
    return other == view;
}

QTransform GraphicsViewExtraWrapper::viewportTransform() const
{
    return view->viewportTransform();
}

void GraphicsViewExtraWrapper::setTransform(const QTransform& matrix, bool combine)
{
    view->setTransform(matrix, combine);
}

void GraphicsViewExtraWrapper::update()
{
    view->QWidget::update();
}
