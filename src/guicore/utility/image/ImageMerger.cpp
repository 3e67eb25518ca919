#include "ImageMerger.h"

#include "ImageScanLines_p.h"

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cstring>

namespace {

// Writes one band of the result row by row: each row is the source's pixels where the source
// reaches and the background elsewhere, so every pixel of the new image is written once.
void fillBand(
    QImage& target, const QImage& source, int left, int top, int width, int height, QRgb background)
{
    const image2d::detail::Argb32View view(source);
    const int sourceWidth = qMin(source.width(), width);
    for (int y = 0; y < height; ++y) {
        auto* dst = reinterpret_cast<QRgb*>(target.scanLine(top + y)) + left;
        int x = 0;
        if (y < source.height()) {
            const QRgb* src = view.line(y);
            if (view.alphaMask == 0) {
                std::memcpy(dst, src, size_t(sourceWidth) * sizeof(QRgb));
            } else {
                for (; x < sourceWidth; ++x)
                    dst[x] = src[x] | view.alphaMask;
            }
            x = sourceWidth;
        }
        std::fill(dst + x, dst + width, background);
    }
}

} // namespace

QImage ImageMerger::mergeHorizontally(
    const QImage& left, const QImage& right, const QColor& background)
{
    const int height = qMax(left.height(), right.height());
    QImage result(left.width() + right.width(), height, QImage::Format_ARGB32);
    if (result.isNull())
        return result;
    image2d::detail::adviseHugePages(result);
    fillBand(result, left, 0, 0, left.width(), height, background.rgba());
    fillBand(result, right, left.width(), 0, right.width(), height, background.rgba());
    return result;
}

QImage ImageMerger::mergeVertically(
    const QImage& top, const QImage& bottom, const QColor& background)
{
    const int width = qMax(top.width(), bottom.width());
    QImage result(width, top.height() + bottom.height(), QImage::Format_ARGB32);
    if (result.isNull())
        return result;
    image2d::detail::adviseHugePages(result);
    fillBand(result, top, 0, 0, width, top.height(), background.rgba());
    fillBand(result, bottom, 0, top.height(), width, bottom.height(), background.rgba());
    return result;
}
