#include "GraphicsViewExtraWrapper.h"

#include "GraphicsViewExtra.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

GraphicsViewExtraWrapper::GraphicsViewExtraWrapper(GraphicsViewExtra* view, QObject* parent)
    : GraphicsViewExtraInterface(parent)
    , view(view)
{
    using V = GraphicsViewExtra;
    using I = GraphicsViewExtraInterface;
    connect(view, &V::panStarted, this, &I::panStarted);
    connect(view, &V::panFinished, this, &I::panFinished);
    connect(view, &V::keyPressed, this, &I::keyPressed);
    connect(view, &V::keyReleased, this, &I::keyReleased);
    connect(view, &V::viewportChanged, this, &I::viewportChanged);
    connect(view, &V::leftAndRightMousePressed, this, &I::leftAndRightMousePressed);
    connect(view, &V::mouseReleased, this, &I::mouseReleased);
    connect(view, &V::rightMouseReleased, this, &I::rightMouseReleased);
    connect(view, &V::mouseEntered, this, &I::mouseEntered);
    connect(view, &V::mouseLeft, this, &I::mouseLeft);
    connect(view, &V::mousePositionChanged, this, &I::mousePositionChanged);
    connect(view, &V::leftMouseButtonDoubleClicked, this, &I::leftMouseButtonDoubleClicked);
    connect(view, &V::rightMouseButtonDoubleClicked, this, &I::rightMouseButtonDoubleClicked);
    connect(view, &V::sceneChanged, this, &I::sceneChanged);
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
