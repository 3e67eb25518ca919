#include "QImageHelper.h"

#include "ImageScanLines_p.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QRect>
#include <QString>

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/partitioner.h>

namespace {

// Replaces fully transparent pixels by fill and makes the others opaque. Branch-free, because
// exported images mix transparent and opaque pixels unpredictably, and on locals only, so that
// the compiler can keep fill in a register and vectorise the loop.
void makeOpaque(QRgb* pixels, qint64 count, QRgb fill)
{
    for (qint64 i = 0; i < count; ++i) {
        const QRgb pixel = pixels[i];
        const QRgb transparent = QRgb(0) - QRgb((pixel >> 24) == 0);
        pixels[i] = (fill & transparent) | ((pixel | 0xff000000u) & ~transparent);
    }
}

} // namespace

namespace image2d {

QRect QImageHelper::calculateImageBoundaries(const QImage& image, const Qt::GlobalColor& background)
{
    const int width = image.width();
    const int height = image.height();
    int minX = width;
    int minY = height;
    int maxX = 0;
    int maxY = 0;
    if (!image.isNull()) {
        const QRgb backgroundRgba = QColor(background).rgba();
        const detail::Argb32View view(image);
        for (int y = 0; y < height; ++y) {
            const QRgb* line = view.line(y);
            for (int x = 0; x < width; ++x) {
                if ((line[x] | view.alphaMask) == backgroundRgba)
                    continue;
                minX = qMin(minX, x);
                maxX = qMax(maxX, x);
                minY = qMin(minY, y);
                maxY = qMax(maxY, y);
            }
        }
    }
    return QRect(minX, minY, maxX - minX, maxY - minY);
}

int QImageHelper::getDepth(const QImage& image)
{
    if (image.format() == QImage::Format_RGB32)
        return 24;
    return image.depth();
}

bool QImageHelper::isTransparent(QImage image)
{
    if (!image.hasAlphaChannel())
        return false;
    image = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(line[x]) < 255)
                return true;
        }
    }
    return false;
}

void QImageHelper::removeAlphaChannel(QImage& image, const QColor& colour)
{
    const qint64 pixelCount = qint64(image.width()) * image.height();
    if (image.hasAlphaChannel() && pixelCount > 0) {
        // Straight ARGB first: in premultiplied or 64-bit formats a partially transparent pixel
        // would otherwise lose its colour, and indexed images cannot take an arbitrary colour.
        if (image.format() != QImage::Format_ARGB32)
            image = image.convertToFormat(QImage::Format_ARGB32);
        const QRgb fill = QColor(colour.rgb()).rgba();
        const int width = image.width();
        // bits() detaches a shared image, and the copy may lay out its lines differently, so
        // the line length is read only afterwards.
        uchar* bits = image.bits();
        const qsizetype bytesPerLine = image.bytesPerLine();
        // The loop runs over the linear pixel index; each task walks its index range row by row
        // and writes only its own pixels, so the tasks need no synchronisation. The same pass
        // makes every pixel opaque, which turns the conversion to RGB32 into a relabelling.
        tbb::parallel_for(
            tbb::blocked_range<qint64>(0, pixelCount),
            [bits, bytesPerLine, width, fill](const tbb::blocked_range<qint64>& range) {
                qint64 index = range.begin();
                while (index < range.end()) {
                    const qint64 y = index / width;
                    const qint64 x = index % width;
                    const qint64 runEnd = qMin<qint64>(range.end(), (y + 1) * width);
                    auto* line = reinterpret_cast<QRgb*>(bits + y * bytesPerLine);
                    makeOpaque(line + x, runEnd - index, fill);
                    index = runEnd;
                }
            },
            tbb::auto_partitioner());
        image.reinterpretAsFormat(QImage::Format_RGB32);
        return;
    }
    image.convertTo(QImage::Format_RGB32);
}

QString QImageHelper::streamToBase64(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return QStringLiteral("data:image/PNG;base64,") + QString::fromLatin1(bytes.toBase64());
}

} // namespace image2d
