#include "ImageMerger.h"

#include "ImageScanLines_p.h"

#include <QColor>
#include <QImage>

#include <cstring>

namespace {

void copyInto(QImage& target, const QImage& source, int left, int top)
{
    if (source.isNull())
        return;
    const image2d::detail::Argb32View view(source);
    const size_t bytes = size_t(source.width()) * sizeof(QRgb);
    for (int y = 0; y < source.height(); ++y) {
        auto* dst = reinterpret_cast<QRgb*>(target.scanLine(top + y)) + left;
        const QRgb* src = view.line(y);
        if (view.alphaMask == 0) {
            std::memcpy(dst, src, bytes);
        } else {
            for (int x = 0; x < source.width(); ++x)
                dst[x] = src[x] | view.alphaMask;
        }
    }
}

QImage filledCanvas(int width, int height, const QColor& background)
{
    QImage result(width, height, QImage::Format_ARGB32);
    if (!result.isNull())
        result.fill(background);
    return result;
}

} // namespace

QImage ImageMerger::mergeHorizontally(
    const QImage& left, const QImage& right, const QColor& background)
{
    QImage result = filledCanvas(
        left.width() + right.width(), qMax(left.height(), right.height()), background);
    if (result.isNull())
        return result;
    copyInto(result, left, 0, 0);
    copyInto(result, right, left.width(), 0);
    return result;
}

QImage ImageMerger::mergeVertically(
    const QImage& top, const QImage& bottom, const QColor& background)
{
    QImage result = filledCanvas(
        qMax(top.width(), bottom.width()), top.height() + bottom.height(), background);
    if (result.isNull())
        return result;
    copyInto(result, top, 0, 0);
    copyInto(result, bottom, 0, top.height());
    return result;
}
