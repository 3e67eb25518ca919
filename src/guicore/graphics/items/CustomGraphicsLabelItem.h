#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

#include <QRectF>

class CustomGraphicsOutlineTextItem;
class CustomGraphicsPixmapItem;
class CustomGraphicsRectItem;
class QBrush;
class QPixmap;

/// The text tag of measurements and marks: outlined text, an optional 16-pixel icon to its left
/// and an optional filled box behind both.
///
/// The label ignores the view's transformations, so its units are screen pixels; its origin is
/// the left end of the text's baseline. The font family comes from the style, the pixel size from
/// the user default "labelFontSize", which the label follows while it lives. Clicks on the box,
/// the icon or the text are reported as the label's own: the parts take no mouse button of their
/// own, so that even a stock scene hands presses on them to the label. The icon is hidden while
/// it has no picture.
///
/// Until the first hit test, boundingRect() is the box exactly as laid out, running upwards from
/// below the baseline: its height is negative. Qt's rectangle tests take such a rectangle as it
/// is, so a label paints, is hit and is hovered in any scene; a stock scene's BSP index copes
/// because it keeps items that ignore transformations out of its tree. Labels still belong in a
/// scene without an item index, as GraphicsSceneExtra is: that index keeps every part of such an
/// item in a list that each lookup searches once per part, which makes a frame quadratic in the
/// number of labels, and a scene without one never has to file the upward-running box at all.
class GUICORE_EXPORT CustomGraphicsLabelItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the label; the label owns its box, icon and text.
    CustomGraphicsLabelItem(const QString& name = QString(), QGraphicsItem* parent = nullptr,
        double cornerRadius = 0.0, bool outline = true);
    ~CustomGraphicsLabelItem() override;

    /// Replaces the text and lays the label out again.
    void setText(const QString& text);
    /// Scaled to fit 16 by 16 pixels, keeping the aspect ratio.
    void setIcon(const QPixmap& icon);
    /// The text's font; the pixel size is later overridden by setFontSize().
    void setFont(const QFont& font);
    /// Pixel size = integer part of the device pixel ratio times size; the layout is not redone.
    void setFontSize(int size);
    /// @{
    /// Colours of the text and of its outline.
    void setTextColor(const QColor& color);
    void setTextOutlineColor(const QColor& color);
    /// @}
    /// @{
    /// Whether the box behind text and icon is filled, and its brush and outline pen.
    void fillBackground(bool fill);
    void setBackgroundBrush(const QBrush& brush);
    void setBackgroundOutlinePen(const QPen& pen);
    /// @}
    /// When set (the default) the box follows the text and icon; otherwise it has the size given
    /// by setWidth and setHeight.
    void wrapSizeToText(bool wrap);
    /// @{
    /// The box size in screen pixels, used while wrapSizeToText(false).
    void setWidth(int width);
    void setHeight(int height);
    /// @}
    /// The text's rectangle in label (screen pixel) coordinates.
    QRectF getTextBoundingRect() const;
    /// Shows or hides the label, then tells the scene that the label's area changed.
    void setVisible(bool visible);

    /// The box, the icon and the text; owned by the label.
    CustomGraphicsRectItem* getBackground() const { return background; }
    /// @{
    /// Owned by the label.
    CustomGraphicsPixmapItem* getIcon() const { return icon; }
    CustomGraphicsOutlineTextItem* getTextItem() const { return text; }
    /// @}

    /// The box in scene units for the first view of the scene: the on-screen box divided by that
    /// view's horizontal zoom. Also becomes the clickable region. Without a view, the box as is.
    QPainterPath shape() const override;
    /// Before the first shape(): the box as stored, in label (screen pixel) coordinates, with its
    /// negative height. Afterwards: the hit rectangle of shape() united with the text's rectangle.
    QRectF boundingRect() const override;
    bool isMouseOver(const QPointF& scenePos) override;

public Q_SLOTS:
    /// Sets the font size from the user default "labelFontSize" as it stands now.
    void updateFontSize();

protected:
    /// Called after every layout; the base repaints the label.
    virtual void updateVisualization();

private:
    static int labelFontSetting();
    void updatePositions();

    CustomGraphicsRectItem* background = nullptr;
    CustomGraphicsPixmapItem* icon = nullptr;
    CustomGraphicsOutlineTextItem* text = nullptr;
    // shape() is const in Qt's interface but caches the hit rectangle and clickable region.
    mutable QRectF shapeRect;
    int height = 0;
    int width = 0;
    bool wrapToText = true;
};
