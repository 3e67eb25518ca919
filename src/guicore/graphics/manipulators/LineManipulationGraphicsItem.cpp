#include "LineManipulationGraphicsItem.h"

#include <geometry/BoundingBox.h>
#include <geometry/RayBoxIntersection.h>

#include <QColor>
#include <QCursor>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGuiApplication>
#include <QPen>
#include <QPixmap>
#include <QVector2D>
#include <QVector3D>

#include <cmath>

namespace {

// The rotate zones are decided in single precision against a single-precision third, so that a
// press exactly one third of the way from an end towards the rotation point translates.
constexpr float oneThird = 1.0f / 3.0f;

// Lengths this close to 1 are taken as unit already, and this close to 0 as no direction at all.
constexpr float unitTolerance = 1e-5f;

QVector3D normalisedDirection(const QVector3D& direction)
{
    const float length = direction.length();
    if (std::abs(length - 1.0f) <= unitTolerance)
        return direction;
    if (length <= unitTolerance)
        return QVector3D();
    return direction / length;
}

// Relative comparison, with an absolute one where either value is 0 (where a relative one
// would never match).
bool fuzzyEqual(qreal a, qreal b)
{
    if (a == 0.0 || b == 0.0)
        return qFuzzyIsNull(a - b);
    return qFuzzyCompare(a, b);
}

const QPixmap& rotateCursorPixmap()
{
    // Loaded once, on first use, and deliberately never freed: cursors made from it may outlive
    // any owner, and a pixmap must not be destroyed after the application object. A function
    // local static is initialised exactly once even when several threads get here together.
    static const QPixmap* const pixmap
        = new QPixmap(QStringLiteral(":/Resources/Icons/Cursors/rotate.png"));
    return *pixmap;
}

} // namespace

LineManipulationGraphicsItem::LineManipulationGraphicsItem(QGraphicsItem* parent)
    : QObject()
    , QGraphicsLineItem(parent)
    , m_pickLine(nullptr)
{
    m_pickLine.setParentItem(this);
    // Presses and moves on the wide pick line belong to the line.
    setHandlesChildEvents(true);
    setZValue(9.0);
    QPen linePen = pen();
    linePen.setWidth(1);
    linePen.setCosmetic(true);
    QGraphicsLineItem::setPen(linePen);
}

LineManipulationGraphicsItem::~LineManipulationGraphicsItem() = default;

void LineManipulationGraphicsItem::setLine(const QPointF& point, const QVector2D& direction)
{
    const QLineF line(point, point + direction.toPointF());
    if (line == m_line)
        return;
    m_line = line;
    intersectLineWithRect();
}

void LineManipulationGraphicsItem::setViewportRectangle(const QRectF& rect)
{
    const QRectF& stored = m_viewportRectangle;
    if (fuzzyEqual(rect.x(), stored.x()) && fuzzyEqual(rect.y(), stored.y())
        && fuzzyEqual(rect.width(), stored.width()) && fuzzyEqual(rect.height(), stored.height()))
        return;
    m_viewportRectangle = rect;
    intersectLineWithRect();
}

void LineManipulationGraphicsItem::setColor(const QColor& color)
{
    QPen linePen = pen();
    linePen.setColor(color);
    setPen(linePen);
}

void LineManipulationGraphicsItem::setPickWidth(int width)
{
    QPen pickPen = m_pickLine.pen();
    pickPen.setWidth(width);
    prepareGeometryChange();
    m_pickLine.setPen(pickPen);
}

void LineManipulationGraphicsItem::enableRotation(bool enabled)
{
    m_rotationEnabled = enabled;
}

bool LineManipulationGraphicsItem::isRotationEnabled() const
{
    return m_rotationEnabled;
}

void LineManipulationGraphicsItem::enableTranslation(bool enabled)
{
    m_translationEnabled = enabled;
}

bool LineManipulationGraphicsItem::isTranslationEnabled() const
{
    return m_translationEnabled;
}

void LineManipulationGraphicsItem::startManipulation(const QPointF& scenePos)
{
    if (!m_manipulationEnabled || (!m_rotationEnabled && !m_translationEnabled))
        return;
    const bool rotate = shouldRotateAt(scenePos);
    if (rotate)
        m_manipulationMode
            = isRotatingParallelLine(scenePos) ? RotatingOnDirectionSide : RotatingOnOppositeSide;
    else
        m_manipulationMode = Translating;
    // Replaces the hover cursor rather than pushing another one, so hover leave still pops
    // exactly what hover enter pushed.
    QGuiApplication::changeOverrideCursor(getCursor(rotate));
}

void LineManipulationGraphicsItem::stopManipulation()
{
    m_manipulationMode = NoManipulation;
}

bool LineManipulationGraphicsItem::isManipulating() const
{
    return m_manipulationMode != NoManipulation;
}

QPointF LineManipulationGraphicsItem::getRotationPoint() const
{
    return m_line.p1();
}

bool LineManipulationGraphicsItem::shouldRotateAt(const QPointF& point) const
{
    if (!m_rotationEnabled)
        return false;
    if (!m_translationEnabled)
        return true;

    const QLineF segment = QGraphicsLineItem::line();
    const QVector2D p1(segment.p1());
    const QVector2D p2(segment.p2());
    const float length = (p2 - p1).length();
    // A null drawn segment offers no hit area; nothing sensible rotates there.
    if (!(length > 0.0f))
        return false;
    const QVector2D d = (p2 - p1).normalized();

    const float t1 = QVector2D::dotProduct(d, p1);
    const float t2 = QVector2D::dotProduct(d, p2);
    const float tc = QVector2D::dotProduct(d, QVector2D(getRotationPoint()));
    const float tm = QVector2D::dotProduct(d, QVector2D(point));

    if (t1 >= tc)
        return (t2 - tm) / length < oneThird;
    if (tc < t2) {
        if (tm >= tc)
            return (t2 - tm) / (t2 - tc) < oneThird;
        return (tm - t1) / (tc - t1) < oneThird;
    }
    return (tm - t1) / length < oneThird;
}

bool LineManipulationGraphicsItem::isRotatingParallelLine(const QPointF& point) const
{
    const qreal angle = std::abs(m_line.angleTo(QLineF(getRotationPoint(), point)));
    return angle < 90.0 || angle > 270.0;
}

QCursor LineManipulationGraphicsItem::getCursor(bool rotate) const
{
    if (rotate)
        return QCursor(rotateCursorPixmap(), -1, -1);
    return getTranslationCursor();
}

QCursor LineManipulationGraphicsItem::getCursor(const QGraphicsSceneHoverEvent& event) const
{
    return getCursor(shouldRotateAt(event.scenePos()));
}

QCursor LineManipulationGraphicsItem::getTranslationCursor() const
{
    // The cursor points across the line, the way a translation moves it.
    switch (std::lround(QGraphicsLineItem::line().angle() / 45.0)) {
    case 1:
    case 5:
        return QCursor(Qt::SizeFDiagCursor);
    case 2:
    case 6:
        return QCursor(Qt::SizeHorCursor);
    case 3:
    case 7:
        return QCursor(Qt::SizeBDiagCursor);
    default:
        return QCursor(Qt::SizeVerCursor);
    }
}

void LineManipulationGraphicsItem::emitLineRotated(const QLineF& line)
{
    const qreal angle = m_line.angleTo(line);
    if (angle != 0.0)
        Q_EMIT lineRotated(float(angle));
}

void LineManipulationGraphicsItem::intersectLineWithRect()
{
    const QRectF& r = m_viewportRectangle;
    const primitives::BoundingBox box(QVector3D(float(r.left()), float(r.top()), -1.0f),
        QVector3D(float(r.right()), float(r.bottom()), 1.0f));
    const QVector3D origin(float(m_line.x1()), float(m_line.y1()), 0.0f);
    const QVector3D direction
        = normalisedDirection(QVector3D(float(m_line.dx()), float(m_line.dy()), 0.0f));

    QLineF drawn;
    if (const auto points
        = primitives::RayBoxIntersection::calculateIntersectionPoints(box, origin, direction)) {
        drawn
            = QLineF(points->first.x(), points->first.y(), points->second.x(), points->second.y());
    }
    // The bounding rectangle is the pick line's, which follows the drawn line.
    prepareGeometryChange();
    QGraphicsLineItem::setLine(drawn);
    m_pickLine.setLine(drawn);
}

QRectF LineManipulationGraphicsItem::boundingRect() const
{
    return m_pickLine.boundingRect();
}

bool LineManipulationGraphicsItem::contains(const QPointF& point) const
{
    return m_pickLine.contains(point);
}

void LineManipulationGraphicsItem::disableManipulation()
{
    m_manipulationEnabled = false;
}

void LineManipulationGraphicsItem::enableManipulation()
{
    m_manipulationEnabled = true;
}

void LineManipulationGraphicsItem::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    QGuiApplication::setOverrideCursor(getCursor(*event));
}

void LineManipulationGraphicsItem::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    QGuiApplication::changeOverrideCursor(getCursor(*event));
}

void LineManipulationGraphicsItem::hoverLeaveEvent(QGraphicsSceneHoverEvent*)
{
    QGuiApplication::restoreOverrideCursor();
}

void LineManipulationGraphicsItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    const QPointF p = event->scenePos();
    qreal angle = 0.0;
    switch (m_manipulationMode) {
    case RotatingOnDirectionSide:
        angle = m_line.angleTo(QLineF(getRotationPoint(), p));
        break;
    case RotatingOnOppositeSide:
        // The mouse is on the far side: measure the line from the mouse back through the
        // rotation point, so that the angle stays near 0 instead of near 180.
        angle = m_line.angleTo(QLineF(p, getRotationPoint()));
        break;
    case Translating:
        Q_EMIT lineTranslated(p);
        return;
    default:
        return;
    }
    if (angle != 0.0)
        Q_EMIT lineRotated(float(angle));
}
