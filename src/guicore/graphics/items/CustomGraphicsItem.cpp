#include "CustomGraphicsItem.h"

#include <QGraphicsSceneContextMenuEvent>
#include <QPainter>
#include <QPainterPathStroker>

CustomGraphicsItem::CustomGraphicsItem(const QString& name, QGraphicsItem* parent)
    : QObject()
    , CustomGraphicsItemEvents(parent)
{
    setFlag(ItemIsMovable, false);
    setObjectName(name);
    DevicePixelRatio::registerListener(this);
}

CustomGraphicsItem::~CustomGraphicsItem()
{
    DevicePixelRatio::unregisterListener(this);
}

void CustomGraphicsItem::setPainterPath(const QPainterPath& path)
{
    painterPath = path;
    setUseStroker(useStroker);
    setPath(path);
}

void CustomGraphicsItem::setPen(const QPen& pen)
{
    prepareGeometryChange();
    setUseStroker(useStroker);
    QGraphicsPathItem::setPen(pen);
}

void CustomGraphicsItem::setUseStroker(bool use)
{
    useStroker = use;
    if (useStroker && !painterPath.isEmpty()) {
        const QPen currentPen = pen();
        QPainterPathStroker stroker;
        stroker.setCapStyle(currentPen.capStyle());
        stroker.setJoinStyle(currentPen.joinStyle());
        stroker.setWidth(currentPen.widthF());
        clickableRegion = stroker.createStroke(painterPath);
    } else if (painterPath.isEmpty()) {
        clickableRegion = QPainterPath();
    } else {
        clickableRegion = painterPath;
    }
}

void CustomGraphicsItem::setUseZoomAgnostic(bool agnostic)
{
    zoomAgnostic = agnostic;
    prepareGeometryChange();
    setUseStroker(useStroker);
    update();
}

void CustomGraphicsItem::setHandleRightClick(bool handle)
{
    handleRightClick = handle;
}

void CustomGraphicsItem::setDragging(bool drag)
{
    dragging = drag;
}

void CustomGraphicsItem::addCustomChildItem(CustomGraphicsItem* child)
{
    if (!child)
        return;
    child->setParentItem(this);
    customChildItems.append(child);
    connect(child, &CustomGraphicsItem::leftClicked, this, &CustomGraphicsItem::leftClicked);
    connect(child, &CustomGraphicsItem::rightClicked, this, &CustomGraphicsItem::rightClicked);
}

void CustomGraphicsItem::removeCustomChildItem(CustomGraphicsItem* child)
{
    if (!child)
        return;
    child->setParentItem(nullptr);
    customChildItems.removeOne(child);
    disconnect(child, &CustomGraphicsItem::leftClicked, this, &CustomGraphicsItem::leftClicked);
    disconnect(child, &CustomGraphicsItem::rightClicked, this, &CustomGraphicsItem::rightClicked);
}

bool CustomGraphicsItem::isMouseOver(const QPointF& scenePos)
{
    return mapToScene(clickableRegion).contains(scenePos) && isVisible() && isEnabled();
}

float CustomGraphicsItem::getScaleFactorXAxis(const QTransform& transform)
{
    return static_cast<float>(transform.m11());
}

float CustomGraphicsItem::getScaleFactorYAxis(const QTransform& transform)
{
    return static_cast<float>(transform.m22());
}

QTransform CustomGraphicsItem::getScaleAgnosticTransform(const QTransform& transform)
{
    return QTransform(transform).scale(1.0 / transform.m11(), 1.0 / transform.m22());
}

void CustomGraphicsItem::paintPath(QPainter* painter)
{
    painter->drawPath(painterPath);
}

void CustomGraphicsItem::fillPath(QPainter* painter, const QColor& color)
{
    painter->drawPath(painterPath);
    painter->fillPath(painterPath, QBrush(color, Qt::SolidPattern));
}

void CustomGraphicsItem::devicePixelRatioChanged()
{
    update();
}

QPainterPath CustomGraphicsItem::shape() const
{
    const QPen currentPen = pen();
    if (painterPath.isEmpty() || currentPen == Qt::NoPen)
        return painterPath;
    // The stroker turns a width of 0 or less into 1; a hairline must stay (nearly) zero wide.
    const qreal penWidthZero = 1e-8;
    QPainterPathStroker stroker;
    stroker.setCapStyle(currentPen.capStyle());
    stroker.setJoinStyle(currentPen.joinStyle());
    stroker.setMiterLimit(currentPen.miterLimit());
    stroker.setWidth(currentPen.widthF() <= 0.0 ? penWidthZero : currentPen.widthF());
    QPainterPath result = stroker.createStroke(painterPath);
    result.addPath(painterPath);
    return result;
}

void CustomGraphicsItem::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    if (zoomAgnostic) {
        painter->save();
        paintScaleAgnostic(painter, option, widget);
        painter->restore();
    } else {
        paintScaled(painter, option, widget);
    }
}

void CustomGraphicsItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    QGraphicsPathItem::paint(painter, option, widget);
}

void CustomGraphicsItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    QGraphicsPathItem::paint(painter, option, widget);
}

void CustomGraphicsItem::adoptPaintedPath(const QPainterPath& path)
{
    painterPath = path;
    setUseStroker(useStroker);
    // Growing only: two views at different zooms would otherwise reset the geometry of the
    // item on every paint and keep each other repainting.
    if (!QGraphicsPathItem::path().boundingRect().contains(path.boundingRect()))
        setPath(path);
}

void CustomGraphicsItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    // The scene hands the event over accepted; only a hit keeps it so.
    event->ignore();
    if (isMouseOver(event->scenePos())) {
        // Set before the click is reported, so that its receivers see the drag under way.
        if (event->buttons() == Qt::LeftButton)
            dragging = true;
        reportClick(event);
        return;
    }
    for (CustomGraphicsItem* child : std::as_const(customChildItems)) {
        child->mousePressEvent(event);
        if (event->isAccepted())
            return;
    }
}

void CustomGraphicsItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    dragging = false;
    Q_EMIT mouseReleased(event);
}

void CustomGraphicsItem::keyPressEvent(QKeyEvent*) { }

void CustomGraphicsItem::contextMenuEvent(QGraphicsSceneContextMenuEvent* event)
{
    event->ignore();
    if (event->reason() == QGraphicsSceneContextMenuEvent::Mouse
        && mapToScene(clickableRegion).contains(event->scenePos())) {
        // Taken so that no menu of an item below opens.
        event->accept();
        return;
    }
    for (CustomGraphicsItem* child : std::as_const(customChildItems)) {
        child->contextMenuEvent(event);
        if (event->isAccepted())
            return;
    }
}

void CustomGraphicsItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    if (!dragging)
        Q_EMIT mouseHoverEnter(event);
}

void CustomGraphicsItem::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    if (!dragging)
        Q_EMIT mouseHoverMove(event);
}

void CustomGraphicsItem::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    if (!dragging)
        Q_EMIT mouseHoverLeave(event);
}
