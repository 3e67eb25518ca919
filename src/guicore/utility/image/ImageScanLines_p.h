#pragma once

#include <QImage>

namespace image2d::detail {

// The image helpers work on 32-bit ARGB scan lines instead of QImage::pixel(), which is far too
// slow for exported full-size images. Every other format (indexed, grayscale, 24-bit,
// premultiplied, 64-bit) is converted once to straight ARGB32 so that the colours compared and
// copied are the visible ones, not the raw stored values.
struct Argb32View
{
    explicit Argb32View(const QImage& source)
        : image(source.format() == QImage::Format_ARGB32 || source.format() == QImage::Format_RGB32
                ? source
                : source.convertToFormat(QImage::Format_ARGB32))
        // The fourth byte of RGB32 is documented as 0xff but raw data handed to QImage may not
        // honour that; pixel() masks it, and so do we.
        , alphaMask(image.format() == QImage::Format_RGB32 ? 0xff000000u : 0u)
    {
    }

    const QRgb* line(int y) const { return reinterpret_cast<const QRgb*>(image.constScanLine(y)); }

    QImage image;
    QRgb alphaMask;
};

} // namespace image2d::detail
