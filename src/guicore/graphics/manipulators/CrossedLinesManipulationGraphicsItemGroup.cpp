#include "CrossedLinesManipulationGraphicsItemGroup.h"

#include "CenterDragger.h"
#include "LineManipulationGraphicsItem.h"

#include <QColor>
#include <QLineF>
#include <QRectF>
#include <QSignalBlocker>
#include <QVector2D>

CrossedLinesManipulationGraphicsItemGroup::CrossedLinesManipulationGraphicsItemGroup(
    QGraphicsItem* parent)
    : QObject()
    , QGraphicsItemGroup(parent)
{
    m_horizontalLine = std::make_unique<LineManipulationGraphicsItem>();
    m_horizontalLine->setPickWidth(2);
    m_horizontalLine->setColor(Qt::red);
    addToGroup(m_horizontalLine.get());

    m_verticalLine = std::make_unique<LineManipulationGraphicsItem>();
    m_verticalLine->setPickWidth(2);
    m_verticalLine->setColor(Qt::green);
    addToGroup(m_verticalLine.get());

    m_centerDragger = std::make_unique<CenterDragger>();
    m_centerDragger->setRect(-3, -3, 6, 6);
    addToGroup(m_centerDragger.get());

    // The handle on top, the horizontal line above the vertical one.
    setZValue(9.0);
    m_verticalLine->setZValue(0.1);
    m_horizontalLine->setZValue(0.2);
    m_centerDragger->setZValue(0.3);
    setHandlesChildEvents(false);

    connect(m_centerDragger.get(), &CenterDragger::dragged, this,
        &CrossedLinesManipulationGraphicsItemGroup::emitLineTranslatedSignals);
    // While the handle is hovered, a press belongs to the handle and not to a line under it.
    connect(m_centerDragger.get(), &CenterDragger::hoveringStarted, m_horizontalLine.get(),
        &LineManipulationGraphicsItem::disableManipulation);
    connect(m_centerDragger.get(), &CenterDragger::hoveringStarted, m_verticalLine.get(),
        &LineManipulationGraphicsItem::disableManipulation);
    connect(m_centerDragger.get(), &CenterDragger::hoveringStopped, m_horizontalLine.get(),
        &LineManipulationGraphicsItem::enableManipulation);
    connect(m_centerDragger.get(), &CenterDragger::hoveringStopped, m_verticalLine.get(),
        &LineManipulationGraphicsItem::enableManipulation);
    connect(m_horizontalLine.get(), &LineManipulationGraphicsItem::lineTranslated, this,
        &CrossedLinesManipulationGraphicsItemGroup::horizontalLineTranslated);
    connect(m_verticalLine.get(), &LineManipulationGraphicsItem::lineTranslated, this,
        &CrossedLinesManipulationGraphicsItemGroup::verticalLineTranslated);
    connect(m_horizontalLine.get(), &LineManipulationGraphicsItem::lineRotated, this,
        &CrossedLinesManipulationGraphicsItemGroup::horizontalLineRotated);
    connect(m_verticalLine.get(), &LineManipulationGraphicsItem::lineRotated, this,
        &CrossedLinesManipulationGraphicsItemGroup::verticalLineRotated);
}

CrossedLinesManipulationGraphicsItemGroup::~CrossedLinesManipulationGraphicsItemGroup()
{
    // The children are destroyed before the group; none of their signals may reach it then.
    m_centerDragger->disconnect(this);
    m_horizontalLine->disconnect(this);
    m_verticalLine->disconnect(this);
}

void CrossedLinesManipulationGraphicsItemGroup::setHorizontalLine(
    const QPointF& point, const QVector2D& direction)
{
    m_horizontalLine->setLine(point, direction);
    updateCenter();
}

void CrossedLinesManipulationGraphicsItemGroup::setVerticalLine(
    const QPointF& point, const QVector2D& direction)
{
    m_verticalLine->setLine(point, direction);
    updateCenter();
}

void CrossedLinesManipulationGraphicsItemGroup::setHorizontalColor(const QColor& color)
{
    m_horizontalLine->setColor(color);
}

void CrossedLinesManipulationGraphicsItemGroup::setVerticalColor(const QColor& color)
{
    m_verticalLine->setColor(color);
}

void CrossedLinesManipulationGraphicsItemGroup::setViewportRectangle(const QRectF& rect)
{
    m_horizontalLine->setViewportRectangle(rect);
    m_verticalLine->setViewportRectangle(rect);
}

void CrossedLinesManipulationGraphicsItemGroup::showHorizontalLine(bool visible)
{
    m_horizontalLine->setVisible(visible);
    m_centerDragger->setVisible(visible && m_verticalLine->isVisibleTo(this));
}

void CrossedLinesManipulationGraphicsItemGroup::showVerticalLine(bool visible)
{
    m_verticalLine->setVisible(visible);
    m_centerDragger->setVisible(visible && m_horizontalLine->isVisibleTo(this));
}

void CrossedLinesManipulationGraphicsItemGroup::enableRotation(bool enabled)
{
    m_horizontalLine->enableRotation(enabled);
    m_verticalLine->enableRotation(enabled);
}

void CrossedLinesManipulationGraphicsItemGroup::enableTranslation(bool enabled)
{
    m_horizontalLine->enableTranslation(enabled);
    m_verticalLine->enableTranslation(enabled);
    m_centerDragger->setMovable(enabled);
}

bool CrossedLinesManipulationGraphicsItemGroup::isRotationEnabled() const
{
    return m_horizontalLine->isRotationEnabled();
}

bool CrossedLinesManipulationGraphicsItemGroup::isTranslationEnabled() const
{
    return m_horizontalLine->isTranslationEnabled();
}

LineManipulationGraphicsItem* CrossedLinesManipulationGraphicsItemGroup::addLineManipulator(
    const QColor& color)
{
    auto* manipulator = new LineManipulationGraphicsItem();
    manipulator->setPickWidth(2);
    manipulator->setColor(color);
    addToGroup(manipulator);
    return manipulator;
}

void CrossedLinesManipulationGraphicsItemGroup::updateCenter()
{
    QPointF crossing;
    if (m_horizontalLine->line().intersects(m_verticalLine->line(), &crossing)
        == QLineF::NoIntersection)
        return;
    // Placing the handle is not a drag: no translation may result from it.
    const QSignalBlocker blocker(m_centerDragger.get());
    m_centerDragger->setPos(crossing);
}

void CrossedLinesManipulationGraphicsItemGroup::emitLineTranslatedSignals(const QPointF& position)
{
    Q_EMIT m_verticalLine->lineTranslated(position);
    Q_EMIT m_horizontalLine->lineTranslated(position);
}
