#include "CrossDragger.h"

#include "CenterDragger.h"
#include "LineDragger.h"

#include <QColor>
#include <QLineF>
#include <QRectF>

namespace {

// Sets the flag for the lifetime of the guard and clears it on every way out.
class UpdatingGuard
{
public:
    explicit UpdatingGuard(bool& flag)
        : m_flag(flag)
    {
        m_flag = true;
    }
    ~UpdatingGuard() { m_flag = false; }
    Q_DISABLE_COPY(UpdatingGuard)

private:
    bool& m_flag;
};

} // namespace

CrossDragger::CrossDragger(QGraphicsItem* parent)
    : QObject()
    , QGraphicsItemGroup(parent)
{
    m_horizontalDragger = std::make_unique<LineDragger>(Qt::Horizontal);
    m_horizontalDragger->setObjectName(QStringLiteral("horizontalDragger"));
    m_verticalDragger = std::make_unique<LineDragger>(Qt::Vertical);
    m_verticalDragger->setObjectName(QStringLiteral("verticalDragger"));
    m_centerDragger = std::make_unique<CenterDragger>();
    m_centerDragger->setObjectName(QStringLiteral("centerDragger"));

    m_horizontalDragger->setPickWidth(2);
    m_verticalDragger->setPickWidth(2);

    addToGroup(m_horizontalDragger.get());
    addToGroup(m_verticalDragger.get());
    addToGroup(m_centerDragger.get());

    // The handle on top, the horizontal line above the vertical one.
    setZValue(9.0);
    m_verticalDragger->setZValue(0.1);
    m_horizontalDragger->setZValue(0.2);
    m_centerDragger->setZValue(0.3);
    // Each line and the handle take their own mouse events.
    setHandlesChildEvents(false);

    m_horizontalDragger->setDraggerColor(Qt::red);
    m_verticalDragger->setDraggerColor(Qt::green);
    m_horizontalDragger->setLine(0, 0, 0, 0);
    m_verticalDragger->setLine(0, 0, 0, 0);
    m_centerDragger->setPos(0, 0);
    m_centerDragger->setRect(-3, -3, 6, 6);

    connect(m_horizontalDragger.get(), &LineDragger::moved, this, &CrossDragger::lineDraggerMoved,
        Qt::DirectConnection);
    connect(m_verticalDragger.get(), &LineDragger::moved, this, &CrossDragger::lineDraggerMoved,
        Qt::DirectConnection);
    connect(m_centerDragger.get(), &CenterDragger::dragged, this, &CrossDragger::centerDraggerMoved,
        Qt::DirectConnection);
}

CrossDragger::~CrossDragger()
{
    // The children go before the group; no move of theirs may come back into a half-destroyed
    // cross.
    m_updating = true;
}

LineDragger* CrossDragger::getHorizontalDragger() const
{
    return m_horizontalDragger.get();
}

LineDragger* CrossDragger::getVerticalDragger() const
{
    return m_verticalDragger.get();
}

void CrossDragger::enableHorizontalDragger(bool enabled)
{
    if (m_horizontalDraggerEnabled == enabled)
        return;
    m_horizontalDraggerEnabled = enabled;
    if (!enabled)
        m_centerDragger->setVisible(false);
}

bool CrossDragger::isHorizontalDraggerEnabled() const
{
    return m_horizontalDraggerEnabled;
}

void CrossDragger::enableVerticalDragger(bool enabled)
{
    if (m_verticalDraggerEnabled == enabled)
        return;
    m_verticalDraggerEnabled = enabled;
    if (!enabled)
        m_centerDragger->setVisible(false);
}

bool CrossDragger::isVerticalDraggerEnabled() const
{
    return m_verticalDraggerEnabled;
}

void CrossDragger::setHorizontalColor(const QColor& color)
{
    m_horizontalDragger->setDraggerColor(color);
}

void CrossDragger::setVerticalColor(const QColor& color)
{
    m_verticalDragger->setDraggerColor(color);
}

void CrossDragger::setHorizontalTick(float tick)
{
    m_horizontalDragger->setTick(tick);
}

void CrossDragger::setVerticalTick(float tick)
{
    m_verticalDragger->setTick(tick);
}

void CrossDragger::setHorizontalHalfOffset(bool halfOffset)
{
    m_horizontalDragger->setHalfOffset(halfOffset);
}

void CrossDragger::setVerticalHalfOffset(bool halfOffset)
{
    m_verticalDragger->setHalfOffset(halfOffset);
}

void CrossDragger::setMovable(bool movable)
{
    m_horizontalDragger->setMovable(movable);
    m_verticalDragger->setMovable(movable);
    m_centerDragger->setMovable(movable);
}

bool CrossDragger::getMovable() const
{
    return m_horizontalDragger->isMovable();
}

void CrossDragger::setRect(const QRectF& rect)
{
    m_horizontalDragger->setRect(rect);
    m_verticalDragger->setRect(rect);
}

void CrossDragger::setBoundingRect(const QRectF& rect)
{
    m_horizontalDragger->setBoundingRect(rect);
    m_verticalDragger->setBoundingRect(rect);
    m_centerDragger->setBoundingRect(rect);
}

void CrossDragger::setDraggerVisible(bool visible)
{
    setHorizontalDraggerVisible(visible);
    setVerticalDraggerVisible(visible);
}

void CrossDragger::setHorizontalDraggerVisible(bool visible)
{
    if (m_horizontalDraggerEnabled)
        m_horizontalDragger->setVisible(visible);
    m_centerDragger->setVisible(visible && m_verticalDragger->isVisibleTo(this));
}

void CrossDragger::setVerticalDraggerVisible(bool visible)
{
    if (m_verticalDraggerEnabled)
        m_verticalDragger->setVisible(visible);
    m_centerDragger->setVisible(visible && m_horizontalDragger->isVisibleTo(this));
}

void CrossDragger::updateCenter()
{
    const QLineF horizontalLine = m_horizontalDragger->line();
    const QLineF verticalLine = m_verticalDragger->line();
    const qreal y = m_horizontalDragger->pos().y();
    const qreal x = m_verticalDragger->pos().x();
    const QLineF horizontal(horizontalLine.x1(), y, horizontalLine.x2(), y);
    const QLineF vertical(x, verticalLine.y1(), x, verticalLine.y2());

    QPointF crossing;
    if (horizontal.intersects(vertical, &crossing) != QLineF::NoIntersection)
        m_centerDragger->setPos(crossing);
}

void CrossDragger::moveHorizontal(QPointF position)
{
    if (m_updating)
        return;
    UpdatingGuard guard(m_updating);
    m_horizontalDragger->move(position);
    updateCenter();
}

void CrossDragger::moveVertical(QPointF position)
{
    if (m_updating)
        return;
    UpdatingGuard guard(m_updating);
    m_verticalDragger->move(position);
    updateCenter();
}

void CrossDragger::lineDraggerMoved(QPointF position)
{
    if (m_updating)
        return;
    UpdatingGuard guard(m_updating);
    updateCenter();
    if (sender() == m_horizontalDragger.get())
        Q_EMIT horizontalMoved(position);
    else if (sender() == m_verticalDragger.get())
        Q_EMIT verticalMoved(position);
}

void CrossDragger::centerDraggerMoved(QPointF position)
{
    if (m_updating)
        return;
    UpdatingGuard guard(m_updating);
    const QPointF verticalBefore = m_verticalDragger->pos();
    const QPointF horizontalBefore = m_horizontalDragger->pos();
    // Each line keeps only its free coordinate of the handle's position.
    m_verticalDragger->move(position);
    m_horizontalDragger->move(position);
    if (m_verticalDragger->pos() != verticalBefore)
        Q_EMIT verticalMoved(m_verticalDragger->pos());
    if (m_horizontalDragger->pos() != horizontalBefore)
        Q_EMIT horizontalMoved(m_horizontalDragger->pos());
}
