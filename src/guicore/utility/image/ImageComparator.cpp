#include "ImageComparator.h"

#include "ImageScanLines_p.h"

#include <QImage>

#include <cmath>

namespace {

// Truncated colour distance sqrt(dr^2 + dg^2 + db^2) / sqrt(3), i.e. the largest integer d with
// 3 d^2 <= dr^2 + dg^2 + db^2. Computed exactly so that equal channel steps (dr = dg = db = n) give
// n and not n - 1 through floating-point noise.
int colourDistance(QRgb a, QRgb b)
{
    const int dr = qRed(a) - qRed(b);
    const int dg = qGreen(a) - qGreen(b);
    const int db = qBlue(a) - qBlue(b);
    const int sum = dr * dr + dg * dg + db * db;
    int d = static_cast<int>(std::sqrt(sum / 3.0));
    while (3 * (d + 1) * (d + 1) <= sum)
        ++d;
    while (d > 0 && 3 * d * d > sum)
        --d;
    return qMin(d, 255);
}

} // namespace

float ImageComparator::compareImages(QImage a, QImage b, float tolerance)
{
    if (a.isNull() || !a.rect().isValid()) {
        qWarning("ImageComparator : invalid input images!");
        return -1.0f;
    }
    if (a.rect() != b.rect()) {
        qWarning("ImageComparator : input images not the same size!");
        return -1.0f;
    }

    // Whether a distance d counts as a difference, decided once for all 256 values.
    bool exceeds[256];
    for (int d = 0; d < 256; ++d)
        exceeds[d] = d / 255.0 > tolerance;

    const image2d::detail::Argb32View viewA(a);
    const image2d::detail::Argb32View viewB(b);
    const int width = a.width();
    const int height = a.height();
    qint64 different = 0;
    for (int y = 0; y < height; ++y) {
        const QRgb* lineA = viewA.line(y);
        const QRgb* lineB = viewB.line(y);
        for (int x = 0; x < width; ++x) {
            const QRgb pa = lineA[x] | viewA.alphaMask;
            const QRgb pb = lineB[x] | viewB.alphaMask;
            if (pa != pb && exceeds[colourDistance(pa, pb)])
                ++different;
        }
    }
    const double total = double(width) * double(height);
    return static_cast<float>(100.0 - 100.0 * double(different) / total);
}
