#include "CustomGraphicsOutlineTextItem.h"

#include "CustomGraphicsPathItem.h"

#include <QFontMetricsF>
#include <QPen>

CustomGraphicsOutlineTextItem::CustomGraphicsOutlineTextItem(
    const QString& name, QGraphicsItem* parent, const QString& t, bool outline)
    : CustomGraphicsItem(name, parent)
    , text(t)
{
    // The children draw everything; the item itself is never painted.
    setFlag(ItemHasNoContents, true);
    if (outline) {
        outlineItem = new CustomGraphicsPathItem(name + QStringLiteral("_outline"));
        outlineItem->setZValue(0.0);
        outlineItem->setCacheMode(QGraphicsItem::DeviceCoordinateCache);
        outlineItem->setBrush(Qt::NoBrush);
        addCustomChildItem(outlineItem);
    }
    textItem = new CustomGraphicsPathItem(name + QStringLiteral("_text"));
    textItem->setZValue(1.0);
    textItem->setCacheMode(QGraphicsItem::DeviceCoordinateCache);
    textItem->setPen(Qt::NoPen);
    addCustomChildItem(textItem);
    applyColors();
    rebuild();
}

void CustomGraphicsOutlineTextItem::setText(const QString& t)
{
    if (t == text)
        return;
    text = t;
    rebuild();
}

void CustomGraphicsOutlineTextItem::setFont(const QFont& f)
{
    font = f;
    rebuild();
}

void CustomGraphicsOutlineTextItem::setTextColor(const QColor& color)
{
    textColor = color;
    applyColors();
}

void CustomGraphicsOutlineTextItem::setOutlineTextColor(const QColor& color)
{
    outlineColor = color;
    applyColors();
}

void CustomGraphicsOutlineTextItem::setOutlineWidth(qreal width)
{
    outlineWidth = width;
    applyColors();
}

void CustomGraphicsOutlineTextItem::rebuild()
{
    const QFontMetricsF metrics(font);
    metricsBox = QRectF(0.0, -metrics.ascent(), metrics.horizontalAdvance(text),
        metrics.ascent() + metrics.descent());
    QPainterPath glyphs;
    if (!text.isEmpty())
        glyphs.addText(0.0, 0.0, font, text);
    textItem->setPainterPath(glyphs);
    if (outlineItem)
        outlineItem->setPainterPath(glyphs);
}

void CustomGraphicsOutlineTextItem::applyColors()
{
    textItem->setBrush(QBrush(textColor, Qt::SolidPattern));
    if (outlineItem) {
        outlineItem->setPen(QPen(QBrush(outlineColor, Qt::SolidPattern), outlineWidth,
            Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
}
