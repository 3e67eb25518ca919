#include "CustomGraphicsLabelItem.h"

#include "CustomGraphicsOutlineTextItem.h"
#include "CustomGraphicsPixmapItem.h"
#include "CustomGraphicsRectItem.h"
#include "ItemViewZoom_p.h"

#include <guicore/style/StyleManager.h>

#include <settings/SettingsData.h>
#include <settings/SettingsManager.h>

#include <QGraphicsScene>
#include <QPen>

#include <algorithm>

namespace {

const QColor backgroundColor(125, 125, 125, 125);

} // namespace

CustomGraphicsLabelItem::CustomGraphicsLabelItem(
    const QString& name, QGraphicsItem* parent, double cornerRadius, bool outline)
    : CustomGraphicsItem(name, parent)
{
    background = new CustomGraphicsRectItem(
        name + QStringLiteral("_background"), nullptr, QRectF(), cornerRadius);
    background->setVisible(false);
    background->setPen(QPen(QBrush(backgroundColor, Qt::SolidPattern), 1e-6f, Qt::SolidLine,
        Qt::SquareCap, Qt::BevelJoin));
    background->setBrush(QBrush(backgroundColor, Qt::SolidPattern));
    background->setZValue(0.1);
    background->setCacheMode(QGraphicsItem::DeviceCoordinateCache);
    addCustomChildItem(background);

    text = new CustomGraphicsOutlineTextItem(
        name + QStringLiteral("_text"), nullptr, QString(), outline);
    text->setTextColor(QColor(255, 255, 0, 255));
    text->setOutlineTextColor(QColor(0, 0, 0, 255));
    QFont font = text->getFont();
    font.setFamily(
        StyleManager::manager().getFontFamilyForQFont(QStringLiteral("@MEASUREMENT_LABEL_FONT")));
    font.setPixelSize(
        static_cast<int>(DevicePixelRatio::value()) * std::max(1, labelFontSetting()));
    font.setLetterSpacing(QFont::PercentageSpacing, 110);
    text->setFont(font);
    text->setZValue(0.3);
    addCustomChildItem(text);

    // The parts are disabled so that the label itself takes the mouse. A disabled item ends the
    // stock scene's press delivery, so the parts also refuse every button.
    background->setEnabled(false);
    text->setEnabled(false);
    background->setAcceptedMouseButtons(Qt::NoButton);
    text->setAcceptedMouseButtons(Qt::NoButton);
    for (CustomGraphicsItem* part : text->getCustomChildItems())
        part->setAcceptedMouseButtons(Qt::NoButton);

    icon = new CustomGraphicsPixmapItem(name + QStringLiteral("_icon"), this, QPixmap());
    icon->setZValue(0.2);
    icon->setAcceptedMouseButtons(Qt::NoButton);
    icon->setVisible(false);

    setFlag(ItemIgnoresTransformations, true);
    // The parts draw everything; the label itself is never painted.
    setFlag(ItemHasNoContents, true);

    connect(settings::SettingsManager::manager(),
        &settings::SettingsManager::userDefaultSettingChanged, this,
        &CustomGraphicsLabelItem::updateFontSize);
}

CustomGraphicsLabelItem::~CustomGraphicsLabelItem() = default;

int CustomGraphicsLabelItem::labelFontSetting()
{
    return settings::SettingsManager::manager()
        ->getUserDefaults()
        .getSetting(QStringLiteral("labelFontSize"))
        .toInt();
}

void CustomGraphicsLabelItem::setText(const QString& t)
{
    text->setText(t);
    updatePositions();
}

void CustomGraphicsLabelItem::setIcon(const QPixmap& pixmap)
{
    icon->setPixmap(pixmap.scaled(16, 16, Qt::KeepAspectRatio, Qt::FastTransformation));
    // An icon without a picture is kept out of painting altogether.
    icon->setVisible(!icon->pixmap().isNull());
    updatePositions();
}

void CustomGraphicsLabelItem::setFont(const QFont& font)
{
    text->setFont(font);
}

void CustomGraphicsLabelItem::setFontSize(int size)
{
    QFont font = text->getFont();
    const int pixelSize = static_cast<int>(DevicePixelRatio::value()) * size;
    // QFont refuses a pixel size below 1 with a warning of its own; such a size leaves the font.
    if (pixelSize > 0)
        font.setPixelSize(pixelSize);
    text->setFont(font);
}

void CustomGraphicsLabelItem::updateFontSize()
{
    setFontSize(labelFontSetting());
}

void CustomGraphicsLabelItem::setTextColor(const QColor& color)
{
    text->setTextColor(color);
}

void CustomGraphicsLabelItem::setTextOutlineColor(const QColor& color)
{
    text->setOutlineTextColor(color);
}

void CustomGraphicsLabelItem::fillBackground(bool fill)
{
    background->setVisible(fill);
}

void CustomGraphicsLabelItem::setBackgroundBrush(const QBrush& brush)
{
    background->setBrush(brush);
}

void CustomGraphicsLabelItem::setBackgroundOutlinePen(const QPen& pen)
{
    background->setPen(pen);
}

void CustomGraphicsLabelItem::wrapSizeToText(bool wrap)
{
    if (wrap == wrapToText)
        return;
    wrapToText = wrap;
    updatePositions();
}

void CustomGraphicsLabelItem::setWidth(int w)
{
    if (w == width)
        return;
    width = w;
    updatePositions();
}

void CustomGraphicsLabelItem::setHeight(int h)
{
    if (h == height)
        return;
    height = h;
    updatePositions();
}

QRectF CustomGraphicsLabelItem::getTextBoundingRect() const
{
    return text->textBoundingRect();
}

void CustomGraphicsLabelItem::setVisible(bool visible)
{
    QGraphicsItem::setVisible(visible);
    if (QGraphicsScene* s = scene())
        Q_EMIT s->changed(QList<QRectF> {boundingRect()});
}

void CustomGraphicsLabelItem::updatePositions()
{
    const QRectF textRect = text->textBoundingRect();
    const float tw = static_cast<float>(textRect.width());
    const float th = static_cast<float>(textRect.height());
    const QRectF iconRect = icon->boundingRect();
    const float iw = static_cast<float>(iconRect.width());
    const float ih = static_cast<float>(iconRect.height());

    const float x = -5.0f - iw - 3.0f;
    const float y = 5.0f;
    float boxWidth = static_cast<float>(width);
    // Negative on purpose: text stands above its baseline, so the box grows upwards from 5
    // pixels below the origin.
    float boxHeight = -static_cast<float>(height);
    if (wrapToText) {
        boxWidth = tw + 10.0f + iw + 6.0f;
        boxHeight = -th - 10.0f;
    }
    prepareGeometryChange();
    background->setRect(x, y, boxWidth, boxHeight);
    icon->setPos(-iw - 3.0f, -ih);
    updateVisualization();
}

void CustomGraphicsLabelItem::updateVisualization()
{
    update();
}

QPainterPath CustomGraphicsLabelItem::shape() const
{
    const double s = 1.0 / firstViewZoom(*this);
    QRectF box = background->getRect();
    if (box.top() > box.bottom()) {
        const qreal top = box.bottom();
        const qreal bottom = box.top();
        box.setTop(top);
        box.setBottom(bottom);
    }
    shapeRect = QRectF(
        QPointF(box.left() * s, box.top() * s), QPointF(box.right() * s, box.bottom() * s));
    QPainterPath path;
    path.addRect(shapeRect);
    const_cast<CustomGraphicsLabelItem*>(this)->setClickableRegion(path);
    return path;
}

QRectF CustomGraphicsLabelItem::boundingRect() const
{
    if (!shapeRect.isEmpty())
        return shapeRect.united(text->textBoundingRect());
    // As stored: the box runs upwards from below the baseline, so its height is negative.
    return background->getRect();
}

bool CustomGraphicsLabelItem::isMouseOver(const QPointF& scenePos)
{
    if (getClickableRegion().isEmpty())
        shape();
    return CustomGraphicsItem::isMouseOver(scenePos);
}
