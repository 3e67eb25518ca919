#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

#include <QFont>

/// A fixed text drawn as a painter path, optionally centred on the item's position. Hit along
/// the stroke of the glyph outlines.
class GUICORE_EXPORT CustomGraphicsSimpleTextItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// The font starts as a default font of pixel size 1, so a caller sets a real one with
    /// setFont. A non-null parent item owns the item.
    CustomGraphicsSimpleTextItem(const QString& name, QGraphicsItem* parent,
        const QString& text = QString(), bool centered = false);

    /// @{
    /// The text and its font; setters repaint.
    const QString& getText() const { return text; }
    void setText(const QString& text);
    const QFont& getFont() const { return font; }
    void setFont(const QFont& font);
    /// @}
    /// Whether the text is centred on the item's position.
    bool isCentered() const { return centered; }

    /// Takes exactly-left and exactly-right presses on the clickable region; the stock press
    /// handling never runs.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

    /// The glyph path is built at the device pixel ratio: rebuild it, then repaint.
    void devicePixelRatioChanged() override;

protected:
    void paintScaled(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    /// Rebuilds the painter path from the text and font at the current device pixel ratio.
    virtual void update();
    void paintText(QPainter* painter);

    QString text;
    QFont font;
    bool centered = false;
};
