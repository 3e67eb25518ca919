#pragma once

#include <QImage>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

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

// A new image's pixels are not yet mapped: the first write to every 4 KiB page faults, and for a
// full-size result the faults cost more than the copying itself. Asking for huge pages on the
// untouched buffer cuts their number by 512. Only a hint: where the kernel declines, nothing
// changes. Call it on a freshly made image before writing to it.
inline void adviseHugePages(QImage& image)
{
#if defined(Q_OS_LINUX) && defined(MADV_HUGEPAGE)
    constexpr quintptr hugePage = 2 * 1024 * 1024;
    if (image.sizeInBytes() < qsizetype(4 * hugePage))
        return;
    const auto start = reinterpret_cast<quintptr>(image.bits());
    const quintptr begin = (start + hugePage - 1) & ~(hugePage - 1);
    const quintptr end = (start + quintptr(image.sizeInBytes())) & ~(hugePage - 1);
    if (end > begin)
        madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
    Q_UNUSED(image);
#endif
}

} // namespace image2d::detail
