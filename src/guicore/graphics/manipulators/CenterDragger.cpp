#include "CenterDragger.h"

#include <QColor>
#include <QCursor>
#include <QGuiApplication>
#include <QPen>

#include <algorithm>

CenterDragger::CenterDragger(QGraphicsItem* parent)
    : QObject()
    , QGraphicsEllipseItem(parent)
{
    setFlag(ItemIsMovable);
    QPen pen(QBrush(QColor(255, 255, 255, 255), Qt::SolidPattern), 0, Qt::SolidLine, Qt::SquareCap,
        Qt::BevelJoin);
    setPen(pen);
    // Practically invisible, yet an opacity of 0 would stop it from taking the mouse.
    setOpacity(0.001);
    setFlag(ItemSendsGeometryChanges);
    setZValue(9.0);
}

CenterDragger::~CenterDragger() = default;

void CenterDragger::setBoundingRect(const QRectF& rect)
{
    m_boundingRect = rect;
}

void CenterDragger::setMovable(bool movable)
{
    setFlag(ItemIsMovable, movable);
}

void CenterDragger::startHovering()
{
    if (!flags().testFlag(ItemIsMovable))
        return;
    QGuiApplication::setOverrideCursor(QCursor(Qt::SizeAllCursor));
    Q_EMIT hoveringStarted();
}

void CenterDragger::stopHovering()
{
    if (!flags().testFlag(ItemIsMovable))
        return;
    QGuiApplication::restoreOverrideCursor();
    Q_EMIT hoveringStopped();
}

QVariant CenterDragger::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change == ItemPositionChange && m_boundingRect) {
        QPointF p = value.toPointF();
        p.setX(std::max(std::min(p.x(), m_boundingRect->right()), m_boundingRect->left()));
        p.setY(std::max(std::min(p.y(), m_boundingRect->bottom()), m_boundingRect->top()));
        return QGraphicsEllipseItem::itemChange(change, p);
    }
    if (change == ItemPositionHasChanged)
        Q_EMIT dragged(pos());
    return QGraphicsEllipseItem::itemChange(change, value);
}

void CenterDragger::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    Q_EMIT dragged(pos());
    QGraphicsEllipseItem::mouseReleaseEvent(event);
}
