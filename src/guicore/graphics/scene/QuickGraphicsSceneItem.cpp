#include "QuickGraphicsSceneItem.h"

#include "GraphicsSceneExtra.h"
#include "GraphicsViewExtra.h"
#include "GraphicsViewExtraWrapper.h"
#include "GraphicsViewRenderer.h"

#include <guicore/style/DevicePixelRatio.h>

#include <QCoreApplication>
#include <QEnterEvent>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneWheelEvent>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QQuickWindow>
#include <QSGSimpleTextureNode>
#include <QWheelEvent>
#include <QtQml/qqml.h>

namespace {

QMouseEvent scaledMouseEvent(const QMouseEvent* event, double factor)
{
    return QMouseEvent(event->type(), event->position() * factor, event->scenePosition() * factor,
        event->globalPosition() * factor, event->button(), event->buttons(), event->modifiers(),
        QPointingDevice::primaryPointingDevice());
}

} // namespace

QuickGraphicsSceneItem::QuickGraphicsSceneItem(QQuickItem* parent)
    : QQuickFramebufferObject(parent)
{
    scene = std::make_unique<GraphicsSceneExtra>(this);
    view = std::make_unique<GraphicsViewExtra>(GraphicsViewExtra::Offscreen, scene.get(), nullptr);
    viewWrapper = std::make_unique<GraphicsViewExtraWrapper>(view.get());

    connect(this, &QQuickItem::windowChanged, this, &QuickGraphicsSceneItem::handleWindowChanged);

    setFlag(ItemHasContents, true);
    setAntialiasing(true);
    setAcceptedMouseButtons(Qt::AllButtons);
    setAcceptHoverEvents(true);
    setMirrorVertically(true);
    updateInputMethod(Qt::ImQueryAll);

    // QML content behind the item shows through where the scene draws nothing.
    scene->setBackgroundBrush(QBrush(Qt::transparent, Qt::SolidPattern));
    view->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

QuickGraphicsSceneItem::~QuickGraphicsSceneItem()
{
    view.reset();
    viewWrapper.reset();
    scene.reset();
}

GraphicsSceneExtra* QuickGraphicsSceneItem::getGraphicsScene() const
{
    return scene.get();
}

GraphicsViewExtraInterface* QuickGraphicsSceneItem::getGraphicsView() const
{
    return viewWrapper.get();
}

void QuickGraphicsSceneItem::setViewerTag(const QString& tag)
{
    scene->setViewerTag(tag);
}

void QuickGraphicsSceneItem::registerQMLType()
{
    qmlRegisterType<QuickGraphicsSceneItem>(
        "com.korvani.qmlcomponents", 1, 0, "QuickGraphicsSceneItem");
}

QQuickFramebufferObject::Renderer* QuickGraphicsSceneItem::createRenderer() const
{
    return new GraphicsViewRenderer(view.get());
}

void QuickGraphicsSceneItem::handleWindowChanged(QQuickWindow* window)
{
    if (!window)
        return;
    if (connectedWindow && connectedWindow != window)
        disconnect(connectedWindow, nullptr, this, nullptr);
    connectedWindow = window;

    const auto unique = Qt::UniqueConnection;
    connect(this, &QuickGraphicsSceneItem::lateUpdate, this, &QuickGraphicsSceneItem::doLateUpdate,
        Qt::ConnectionType(Qt::QueuedConnection | unique));
    connect(window, &QWindow::heightChanged, this, &QuickGraphicsSceneItem::sync, unique);
    connect(window, &QWindow::widthChanged, this, &QuickGraphicsSceneItem::sync, unique);
    connect(scene.get(), &QGraphicsScene::changed, this, &QuickGraphicsSceneItem::updateRegion,
        Qt::ConnectionType(Qt::QueuedConnection | unique));
    connect(scene.get(), &QGraphicsScene::selectionChanged, this, &QQuickItem::update, unique);
    connect(scene.get(), &QGraphicsScene::sceneRectChanged, this, &QQuickItem::update, unique);
    connect(view.get(), &GraphicsViewExtra::sceneChanged, this, &QQuickItem::update, unique);
}

void QuickGraphicsSceneItem::sync()
{
    // A resize changes width and height one after the other; they share one fit.
    if (lateUpdatePending)
        return;
    lateUpdatePending = true;
    Q_EMIT lateUpdate();
}

void QuickGraphicsSceneItem::doLateUpdate()
{
    lateUpdatePending = false;
    const bool interactive = view->isInteractive();
    view->setInteractive(false);
    view->fitInView(scene->sceneRect(), Qt::KeepAspectRatio);
    view->setInteractive(interactive);
    Q_EMIT view->viewportChanged();
    Q_EMIT view->sceneChanged();
}

void QuickGraphicsSceneItem::updateRegion(QList<QRectF> region)
{
    // Repainting part of the framebuffer saves nothing: the whole item is drawn again.
    Q_UNUSED(region);
    update();
}

QSGNode* QuickGraphicsSceneItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData* data)
{
    const bool fresh = node == nullptr;
    QSGNode* result = QQuickFramebufferObject::updatePaintNode(node, data);
    if (auto* texture = dynamic_cast<QSGSimpleTextureNode*>(result)) {
        texture->setRect(boundingRect());
        if (fresh)
            texture->setTextureCoordinatesTransform(QSGSimpleTextureNode::MirrorVertically);
    }
    return result;
}

void QuickGraphicsSceneItem::mousePressEvent(QMouseEvent* event)
{
    QMouseEvent scaled = scaledMouseEvent(event, DevicePixelRatio::value());
    viewWrapper->mousePressEvent(&scaled);
    // Accepting makes the item the grabber of the moves and the release that follow.
    event->accept();
}

void QuickGraphicsSceneItem::mouseMoveEvent(QMouseEvent* event)
{
    QMouseEvent scaled = scaledMouseEvent(event, DevicePixelRatio::value());
    viewWrapper->mouseMoveEvent(&scaled);
    Q_EMIT mouseMoved();
}

void QuickGraphicsSceneItem::mouseReleaseEvent(QMouseEvent* event)
{
    QMouseEvent scaled = scaledMouseEvent(event, DevicePixelRatio::value());
    viewWrapper->mouseReleaseEvent(&scaled);
}

void QuickGraphicsSceneItem::mouseDoubleClickEvent(QMouseEvent* event)
{
    QMouseEvent scaled = scaledMouseEvent(event, DevicePixelRatio::value());
    viewWrapper->mouseDoubleClickEvent(&scaled);
}

void QuickGraphicsSceneItem::hoverEnterEvent(QHoverEvent* event)
{
    const double factor = DevicePixelRatio::value();
    QEnterEvent enter(event->position() * factor, event->scenePosition() * factor,
        event->globalPosition() * factor);
    viewWrapper->enterEvent(&enter);
}

void QuickGraphicsSceneItem::hoverMoveEvent(QHoverEvent* event)
{
    forwardHover(event, false);
}

void QuickGraphicsSceneItem::hoverLeaveEvent(QHoverEvent* event)
{
    forwardHover(event, true);
}

void QuickGraphicsSceneItem::forwardHover(QHoverEvent* event, bool leave)
{
    const double factor = DevicePixelRatio::value();
    const QPointF position = event->position() * factor;
    const QPointF oldPosition = event->oldPosF() * factor;
    QGraphicsSceneHoverEvent hover(
        leave ? QEvent::GraphicsSceneHoverLeave : QEvent::GraphicsSceneHoverMove);
    hover.setWidget(view->viewport());
    hover.setPos(position);
    hover.setScenePos(view->mapToScene(position.toPoint()));
    hover.setLastPos(oldPosition);
    hover.setLastScenePos(view->mapToScene(oldPosition.toPoint()));
    hover.setScreenPos(event->globalPosition().toPoint());
    hover.setModifiers(event->modifiers());

    if (leave) {
        scene->hoverLeaveEvent(&hover);
        viewWrapper->leaveEvent(event);
    } else {
        scene->hoverEvent(&hover);
        view->hoverMoveEvent();
    }
}

void QuickGraphicsSceneItem::wheelEvent(QWheelEvent* event)
{
    const double factor = DevicePixelRatio::value();
    const QPoint position = (event->position() * factor).toPoint();
    const QPoint angle = event->angleDelta();
    const bool vertical = angle.y() != 0 || angle.x() == 0;

    QGraphicsSceneWheelEvent wheel(QEvent::GraphicsSceneWheel);
    wheel.setWidget(view->viewport());
    wheel.setPos(event->position() * factor);
    wheel.setScenePos(view->mapToScene(position));
    wheel.setScreenPos(event->globalPosition().toPoint());
    wheel.setButtons(event->buttons());
    wheel.setModifiers(event->modifiers());
    wheel.setDelta(vertical ? angle.y() : angle.x());
    wheel.setOrientation(vertical ? Qt::Vertical : Qt::Horizontal);
    wheel.setPixelDelta(event->pixelDelta());
    wheel.setPhase(event->phase());
    wheel.setInverted(event->inverted());
    wheel.setAccepted(false);
    QCoreApplication::sendEvent(scene.get(), &wheel);
    event->setAccepted(wheel.isAccepted());
}

void QuickGraphicsSceneItem::keyPressEvent(QKeyEvent* event)
{
    viewWrapper->keyPressEvent(event);
}

void QuickGraphicsSceneItem::keyReleaseEvent(QKeyEvent* event)
{
    viewWrapper->keyReleaseEvent(event);
}
