#include "LineDragger.h"

#include <QColor>
#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QGuiApplication>
#include <QPen>

#include <cmath>
#include <limits>

namespace {

// Tick counts beyond the int range (or NaN from a degenerate rectangle) would make the
// conversion undefined; they saturate instead.
int toTickCount(double ticks)
{
    if (std::isnan(ticks))
        return 0;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return int(qBound(lowest, ticks, highest));
}

} // namespace

LineDragger::LineDragger(Qt::Orientation orientation, QGraphicsItem* parent)
    : QObject()
    , QGraphicsLineItem(parent)
    , m_orientation(orientation)
    , m_invisibleLineDragger(nullptr)
{
    m_invisibleLineDragger.setObjectName(QStringLiteral("invisibleLineDragger"));
    setFlag(ItemIsMovable);
    m_invisibleLineDragger.setParentItem(this);
    // Presses on the wide pick line must reach the line itself.
    setHandlesChildEvents(true);
    setFlag(ItemSendsGeometryChanges);
    setZValue(9.0);
}

LineDragger::~LineDragger() = default;

void LineDragger::move(const QPointF& position)
{
    setPos(position);
}

void LineDragger::setBoundingRect(const QRectF& rect)
{
    m_boundingRect = rect;
}

void LineDragger::setTick(float tick)
{
    if (m_tick != tick)
        m_tick = tick;
}

void LineDragger::setHalfOffset(bool halfOffset)
{
    if (m_halfOffset != halfOffset)
        m_halfOffset = halfOffset;
}

void LineDragger::setIsMoveHandledByCaller(bool handledByCaller)
{
    m_moveHandledByCaller = handledByCaller;
}

bool LineDragger::getIsMoveHandledByCaller() const
{
    return m_moveHandledByCaller;
}

void LineDragger::setDragging(bool dragging)
{
    m_leftDragging = dragging;
}

bool LineDragger::isLeftDragging() const
{
    return m_leftDragging;
}

void LineDragger::setMovable(bool movable)
{
    setFlag(ItemIsMovable, movable);
    if (!movable)
        m_leftDragging = false;
}

bool LineDragger::isMovable() const
{
    return flags().testFlag(ItemIsMovable);
}

void LineDragger::setRect(const QRectF& rect)
{
    QLineF stretched = line();
    if (m_orientation == Qt::Horizontal) {
        stretched.setP1(QPointF(rect.x(), stretched.y1()));
        stretched.setP2(QPointF(rect.x() + rect.width(), stretched.y2()));
    } else {
        stretched.setP1(QPointF(stretched.x1(), rect.y()));
        stretched.setP2(QPointF(stretched.x2(), rect.y() + rect.height()));
    }
    // The bounding rectangle is the pick line's, which changes only after the visible line.
    prepareGeometryChange();
    setLine(stretched);
    m_invisibleLineDragger.setLine(stretched);
}

void LineDragger::setDraggerColor(const QColor& color)
{
    QPen pen(QBrush(color, Qt::SolidPattern), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    pen.setCosmetic(true);
    setPen(pen);
}

void LineDragger::setPickWidth(int width)
{
    const QPen current = m_invisibleLineDragger.pen();
    QPen pen(current.brush(), width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    pen.setCosmetic(current.isCosmetic());
    prepareGeometryChange();
    m_invisibleLineDragger.setPen(pen);
}

QRectF LineDragger::boundingRect() const
{
    return m_invisibleLineDragger.boundingRect();
}

bool LineDragger::contains(const QPointF& point) const
{
    return m_invisibleLineDragger.contains(point);
}

bool LineDragger::underMousePos(const QPointF& point) const
{
    return contains(point);
}

void LineDragger::startHovering()
{
    if (!isMovable())
        return;
    // Horizontal (1) + 4 is the vertical resize cursor, vertical (2) + 4 the horizontal one:
    // the cursor always points the way the line can move.
    QGuiApplication::setOverrideCursor(QCursor(Qt::CursorShape(int(m_orientation) + 4)));
}

void LineDragger::stopHovering()
{
    if (!isMovable())
        return;
    QGuiApplication::restoreOverrideCursor();
}

QPointF LineDragger::constrainedPosition(QPointF p) const
{
    const float t = m_tick;
    QRectF r = m_boundingRect;
    if (m_halfOffset) {
        // All four values grow by half a tick, the size as well as the corner.
        r = QRectF(r.x() + t / 2, r.y() + t / 2, r.width() + t / 2, r.height() + t / 2);
    }

    if (m_orientation == Qt::Vertical) {
        p.setY(0.0);
        if (r.x() > p.x()) {
            p.setX(r.x());
        } else if (m_halfOffset) {
            if (p.x() >= r.x() + r.width() - t)
                p.setX(r.x() + r.width() - t);
        } else if (p.x() >= r.x() + r.width()) {
            p.setX(r.x() + r.width());
        }
        if (t != 0.0f) {
            const int n = toTickCount(std::floor(p.x() / t));
            float snapped = float(n) * t;
            if (m_halfOffset)
                snapped += t / 2;
            p.setX(snapped);
        }
    } else {
        // Unlike the vertical case the lower limit always keeps a whole tick away from the
        // edge, the comparison is strict and the snap truncates toward zero instead of flooring.
        p.setX(0.0);
        if (r.y() > p.y())
            p.setY(r.y());
        else if (p.y() > r.y() + r.height() - t)
            p.setY(r.y() + r.height() - t);
        if (t != 0.0f) {
            const int n = toTickCount(std::trunc(p.y() / t));
            float snapped = float(n) * t;
            if (m_halfOffset)
                snapped += t / 2;
            p.setY(snapped);
        }
    }
    return p;
}

QVariant LineDragger::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemPositionChange)
        return QGraphicsLineItem::itemChange(change, constrainedPosition(value.toPointF()));

    if (change == ItemPositionHasChanged) {
        Q_EMIT moved(pos());
        m_invisibleLineDragger.setLine(line());
        m_invisibleLineDragger.setZValue(zValue() + 0.1);
    }
    return QGraphicsLineItem::itemChange(change, value);
}

void LineDragger::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    // The stock handler would move the line freely; the constraint applies through setPos.
    if (m_leftDragging && !m_moveHandledByCaller)
        setPos(event->scenePos());
}
