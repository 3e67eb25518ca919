#include "CustomGraphicsOutlineTextItem.h"

#include "CustomGraphicsPathItem.h"

#include <QFontMetricsF>
#include <QPen>

CustomGraphicsOutlineTextItem::CustomGraphicsOutlineTextItem(
    const QString& name, QGraphicsItem* parent, const QString& t, bool outline)
    : CustomGraphicsItem(name, parent)
    , text(t)
{
    if (outline) {
        outlineItem = new CustomGraphicsPathItem(name + QStringLiteral("_outline"));
        outlineItem->setZValue(0.0);
        outlineItem->setBrush(Qt::NoBrush);
        addCustomChildItem(outlineItem);
    }
    textItem = new CustomGraphicsPathItem(name + QStringLiteral("_text"));
    textItem->setZValue(1.0);
    textItem->setPen(Qt::NoPen);
    addCustomChildItem(textItem);
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
    rebuild();
}

void CustomGraphicsOutlineTextItem::setOutlineTextColor(const QColor& color)
{
    outlineColor = color;
    rebuild();
}

void CustomGraphicsOutlineTextItem::setOutlineWidth(qreal width)
{
    outlineWidth = width;
    rebuild();
}

QRectF CustomGraphicsOutlineTextItem::textBoundingRect() const
{
    const QFontMetricsF metrics(font);
    return QRectF(0.0, -metrics.ascent(), metrics.horizontalAdvance(text),
        metrics.ascent() + metrics.descent());
}

void CustomGraphicsOutlineTextItem::rebuild()
{
    QPainterPath glyphs;
    if (!text.isEmpty())
        glyphs.addText(0.0, 0.0, font, text);
    textItem->setBrush(QBrush(textColor, Qt::SolidPattern));
    textItem->setPainterPath(glyphs);
    if (outlineItem) {
        QPen ring(QBrush(outlineColor, Qt::SolidPattern), outlineWidth, Qt::SolidLine, Qt::RoundCap,
            Qt::RoundJoin);
        outlineItem->setPen(ring);
        outlineItem->setPainterPath(glyphs);
    }
}
