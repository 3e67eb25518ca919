#include "CustomGraphicsSimpleTextItem.h"

#include <QFontInfo>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>

CustomGraphicsSimpleTextItem::CustomGraphicsSimpleTextItem(
    const QString& name, QGraphicsItem* parent, const QString& t, bool c)
    : CustomGraphicsItem(name, parent)
    , centered(c)
{
    font.setPixelSize(1);
    setUseStroker(true);
    text = t;
    update();
}

void CustomGraphicsSimpleTextItem::setText(const QString& t)
{
    text = t;
    update();
}

void CustomGraphicsSimpleTextItem::setFont(const QFont& f)
{
    font = f;
    update();
}

void CustomGraphicsSimpleTextItem::update()
{
    QFont scaled = font;
    const int pixelSize = static_cast<int>(QFontInfo(font).pixelSize() * DevicePixelRatio::value());
    if (pixelSize > 0)
        scaled.setPixelSize(pixelSize);
    QPainterPath path;
    path.addText(0.0, 0.0, scaled, text);
    setPainterPath(path);
}

void CustomGraphicsSimpleTextItem::devicePixelRatioChanged()
{
    update();
    CustomGraphicsItem::devicePixelRatioChanged();
}

void CustomGraphicsSimpleTextItem::paintScaled(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    paintText(painter);
}

void CustomGraphicsSimpleTextItem::paintScaleAgnostic(
    QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setWorldTransform(getScaleAgnosticTransform(painter->worldTransform()));
    paintText(painter);
}

void CustomGraphicsSimpleTextItem::paintText(QPainter* painter)
{
    painter->save();
    if (centered) {
        // The baseline sits on the origin: half the height down puts the middle on it.
        const QRectF bounds = getPainterPath().boundingRect();
        painter->translate(-bounds.width() / 2.0, bounds.height() / 2.0);
    }
    painter->setPen(pen());
    painter->setBrush(brush());
    paintPath(painter);
    painter->restore();
}

void CustomGraphicsSimpleTextItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    event->ignore();
    if (mapToScene(getClickableRegion()).contains(event->scenePos()) && isVisible() && isEnabled())
        reportClick(event);
}
