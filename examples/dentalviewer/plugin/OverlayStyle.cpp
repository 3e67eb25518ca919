#include "OverlayStyle.h"

#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/graphics/items/CustomGraphicsRectItem.h>
#include <guicore/style/StyleManager.h>

#include <QBrush>
#include <QTransform>
#include <QVariant>
#include <algorithm>
#include <cmath>

namespace overlay {

namespace {

// The item data key under which a label keeps its anchoring.
constexpr int ANCHOR_KEY = 0x414e43;

double luminance(const QColor& color)
{
    auto channel = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(color.redF()) + 0.7152 * channel(color.greenF())
        + 0.0722 * channel(color.blueF());
}

double worstContrast(const QColor& text, const QColor& box)
{
    return std::min(contrastRatio(text, composite(box, Qt::black)),
        contrastRatio(text, composite(box, Qt::white)));
}

} // namespace

QColor styleColor(const char* id, const QColor& fallback)
{
    if (!StyleManager::hasManager())
        return fallback;
    const QColor color
        = StyleManager::manager().getOptionalColor(QLatin1Char('@') + QString::fromLatin1(id));
    return color.isValid() && color.alpha() > 0 ? color : fallback;
}

double contrastRatio(const QColor& a, const QColor& b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor composite(const QColor& over, const QColor& under)
{
    const double alpha = over.alphaF();
    auto mix = [alpha](double a, double b) { return a * alpha + b * (1.0 - alpha); };
    return QColor::fromRgbF(float(mix(over.redF(), under.redF())),
        float(mix(over.greenF(), under.greenF())), float(mix(over.blueF(), under.blueF())));
}

QColor textBox(double opacity)
{
    QColor box = styleColor("MEASUREMENT_LABEL_BACKGROUND_COLOR", QColor(0, 0, 0, 153));
    box.setAlphaF(std::max(box.alphaF(), float(opacity)));
    return box;
}

QColor readableText(const QColor& preferred, const QColor& box)
{
    if (worstContrast(preferred, box) >= MINIMUM_CONTRAST)
        return preferred;
    const QColor white(Qt::white);
    const QColor black(Qt::black);
    return worstContrast(white, box) >= worstContrast(black, box) ? white : black;
}

void styleLabel(CustomGraphicsLabelItem& label, const QColor& preferredText, double opacity)
{
    const QColor box = textBox(opacity);
    const QColor text = readableText(preferredText, box);
    label.setTextColor(text);
    // The outline sets the glyphs off from the box: the darker of the two against light text.
    label.setTextOutlineColor(
        contrastRatio(text, Qt::black) >= contrastRatio(text, Qt::white) ? Qt::black : Qt::white);
    label.setBackgroundBrush(box);
    label.fillBackground(true);
}

void anchorLabel(CustomGraphicsLabelItem& label, Qt::Alignment alignment)
{
    label.setData(ANCHOR_KEY, int(alignment));
    const QRectF box = label.getBackground()->getRect().normalized();
    const double dx = alignment.testFlag(Qt::AlignHCenter) ? -box.center().x()
        : alignment.testFlag(Qt::AlignRight)               ? -box.right()
                                                           : -box.left();
    const double dy = alignment.testFlag(Qt::AlignTop) ? -box.top()
        : alignment.testFlag(Qt::AlignBottom)          ? -box.bottom()
                                                       : -box.center().y();
    label.setTransform(QTransform::fromTranslate(dx, dy));
}

void relayout(CustomGraphicsLabelItem& label)
{
    label.setText(label.getTextItem()->getText());
    const QVariant anchor = label.data(ANCHOR_KEY);
    if (anchor.isValid())
        anchorLabel(label, Qt::Alignment(anchor.toInt()));
}

} // namespace overlay
