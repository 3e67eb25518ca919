#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

#include <QColor>
#include <QFont>

class CustomGraphicsPathItem;

/// A line of text drawn as glyph outlines, optionally ringed by a contrasting outline so that it
/// stays legible over any image.
///
/// The text is drawn by a child named after this item plus "_text"; with the outline flag, a
/// second child named plus "_outline" draws the ring beneath it. The text's baseline runs through
/// the item's origin. Both children are custom children, so their clicks are reported here.
class GUICORE_EXPORT CustomGraphicsOutlineTextItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    CustomGraphicsOutlineTextItem(const QString& name, QGraphicsItem* parent,
        const QString& text = QString(), bool outline = true);

    /// @{
    /// The text, its font and its fill and outline colours; each setter repaints.
    void setText(const QString& text);
    const QString& getText() const { return text; }
    void setFont(const QFont& font);
    QFont getFont() const { return font; }
    void setTextColor(const QColor& color);
    QColor getTextColor() const { return textColor; }
    void setOutlineTextColor(const QColor& color);
    QColor getOutlineTextColor() const { return outlineColor; }
    /// @}
    /// Width of the ring around the glyphs, in item units.
    void setOutlineWidth(qreal width);
    /// Whether the item was made with an outline.
    bool hasOutline() const { return outlineItem != nullptr; }

    /// The text's box from the font metrics: the advance wide, ascent plus descent high, its
    /// top at minus the ascent (the baseline lies on y = 0).
    QRectF textBoundingRect() const { return metricsBox; }

private:
    void rebuild();
    void applyColors();

    QString text;
    QFont font;
    QColor textColor = Qt::white;
    QColor outlineColor = Qt::black;
    qreal outlineWidth = 2.0;
    // Measured when the text or the font changes: the owning label asks for it from
    // boundingRect(), which the scene calls for every item on every frame.
    QRectF metricsBox;
    CustomGraphicsPathItem* textItem = nullptr;
    CustomGraphicsPathItem* outlineItem = nullptr;
};
