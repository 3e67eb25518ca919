#include <guicore/utility/image/ImageComparator.h>
#include <guicore/utility/image/ImageMerger.h>
#include <guicore/utility/image/QImageHelper.h>
#include <guicore/utility/image/QrcImageProviderImpl.h>

#include <QtGui>
#include <QtTest>

using image2d::QImageHelper;

namespace {

QImage argb(const QImage& image)
{
    return image.convertToFormat(QImage::Format_ARGB32);
}

// An ARGB32 test pattern; grey formats get grey content so that conversions stay lossless.
QImage pattern(int width, int height, bool grey = false)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int v = (x * 13 + y * 29) % 200 + 20;
            image.setPixel(x, y, grey ? qRgb(v, v, v) : qRgb((x * 37) % 256, (y * 53) % 256, v));
        }
    }
    return image;
}

// Lossless (Qt dithers into Indexed8 unless given the exact palette): a failure later on must be
// the helper's and not the conversion's.
QImage converted(const QImage& image, QImage::Format format)
{
    const QImage straight = argb(image);
    QList<QRgb> palette;
    for (int i = 0; i < image.width() * image.height(); ++i) {
        if (!palette.contains(straight.pixel(i % image.width(), i / image.width())))
            palette.append(straight.pixel(i % image.width(), i / image.width()));
    }
    const QImage result = format == QImage::Format_Indexed8
        ? straight.convertToFormat(format, palette, Qt::ThresholdDither)
        : image.convertToFormat(format);
    if (argb(result) != straight)
        qFatal("conversion to format %d is lossy for the test pattern", int(format));
    return result;
}

} // namespace

class tst_ImageHelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void compareImages()
    {
        // 5 x 4 images; `changed` pixels of them get colour b instead of colour a. At d = 40 the
        // change is within 0.2 (51 levels), outside 0.15 (38.25 levels). Equal unit steps give
        // d = 1 exactly, not 0 through rounding noise. (3, 4, 0): sqrt(25 / 3) = 2.89 truncates
        // to 2. Alpha is no distance, but below zero even d = 0 exceeds the tolerance.
        const QRgb black = qRgb(0, 0, 0), white = qRgb(255, 255, 255), grey = qRgb(40, 40, 40);
        const QRgb opaque = qRgba(9, 9, 9, 255), faint = qRgba(9, 9, 9, 10);
        const std::tuple<QRgb, QRgb, int, float, float> cases[] = {{grey, grey, 20, 0.0f, 100.0f},
            {black, white, 20, 0.0f, 0.0f}, {black, white, 20, 1.0f, 100.0f},
            {black, qRgb(0, 0, 200), 5, 0.0f, 75.0f}, {black, grey, 4, 0.2f, 100.0f},
            {black, grey, 4, 0.15f, 80.0f}, {qRgb(7, 7, 7), qRgb(8, 8, 8), 2, 0.5f / 255, 90.0f},
            {black, qRgb(3, 4, 0), 2, 2.5f / 255, 100.0f},
            {black, qRgb(3, 4, 0), 2, 1.5f / 255, 90.0f}, {opaque, faint, 20, 0.0f, 100.0f},
            {opaque, faint, 5, -0.1f, 75.0f}};
        for (const auto& [colourA, colourB, changed, tolerance, expected] : cases) {
            QImage a(5, 4, QImage::Format_ARGB32);
            a.fill(colourA);
            QImage b = a.copy();
            for (int i = 0; i < changed; ++i)
                b.setPixel(i % 5, i / 5, colourB);
            QCOMPARE(ImageComparator::compareImages(a, b, tolerance), expected);
            QCOMPARE(ImageComparator::compareImages(b, a, tolerance), expected);
        }
        const QImage image = pattern(6, 4);
        QTest::ignoreMessage(QtWarningMsg, "ImageComparator : invalid input images!");
        QCOMPARE(ImageComparator::compareImages(QImage(), image, 0.0f), -1.0f);
        QTest::ignoreMessage(QtWarningMsg, "ImageComparator : input images not the same size!");
        QCOMPARE(ImageComparator::compareImages(image, pattern(4, 6), 0.0f), -1.0f);
        QTest::ignoreMessage(QtWarningMsg, "ImageComparator : input images not the same size!");
        QCOMPARE(ImageComparator::compareImages(image, QImage(), 0.0f), -1.0f);
    }

    // Whatever the stored format, the helpers see the colours a viewer would see.
    void everyFormat_data()
    {
        QTest::addColumn<QImage::Format>("format");
        for (const auto format :
            {QImage::Format_Indexed8, QImage::Format_Grayscale8, QImage::Format_Grayscale16,
                QImage::Format_RGB888, QImage::Format_RGB32, QImage::Format_ARGB32,
                QImage::Format_ARGB32_Premultiplied, QImage::Format_RGBA8888, QImage::Format_RGBA64,
                QImage::Format_RGBA64_Premultiplied})
            QTest::addRow("%d", int(format)) << format;
    }

    void everyFormat()
    {
        QFETCH(QImage::Format, format);
        const bool grey
            = format == QImage::Format_Grayscale8 || format == QImage::Format_Grayscale16;
        // Of 8 x 8 pixels, 16 change by 100 levels and count at tolerance 0.1; 8 more change by
        // 5 levels and do not.
        const QImage a = pattern(8, 8, grey);
        QImage b = a.copy();
        for (int i = 0; i < 24; ++i) {
            const int step = i < 16 ? 100 : 5;
            const auto shift = [step](int v) { return v + step <= 255 ? v + step : v - step; };
            const QRgb c = a.pixel(i % 8, i / 8 * 2);
            b.setPixel(i % 8, i / 8 * 2, qRgb(shift(qRed(c)), shift(qGreen(c)), shift(qBlue(c))));
        }
        const QImage formatA = converted(a, format);
        QCOMPARE(ImageComparator::compareImages(formatA, converted(b, format), 0.1f), 75.0f);
        QCOMPARE(ImageComparator::compareImages(formatA, b, 0.1f), 75.0f);
        QCOMPARE(ImageComparator::compareImages(formatA, a, 0.0f), 100.0f);

        // Merging copies the colours; a translucent pixel stays translucent, unblended.
        QImage translucent = a.copy();
        if (formatA.hasAlphaChannel() && format != QImage::Format_Indexed8)
            translucent.setPixel(4, 2, qRgba(200, 100, 50, 128));
        const QImage source = translucent.convertToFormat(format);
        const QImage merged = ImageMerger::mergeHorizontally(source, source, Qt::black);
        QCOMPARE(merged.copy(0, 0, 8, 8), argb(source));
        QCOMPARE(merged.copy(8, 0, 8, 8), argb(source));

        QImage sparse(11, 9, QImage::Format_ARGB32);
        sparse.fill(Qt::black);
        sparse.setPixel(2, 3, qRgb(128, 128, 128));
        sparse.setPixel(8, 5, qRgb(255, 255, 255));
        QCOMPARE(QImageHelper::calculateImageBoundaries(converted(sparse, format), Qt::black),
            QRect(2, 3, 6, 2));

        // The data URL decodes back to the same image.
        const QStringList url = QImageHelper::streamToBase64(source).split(',');
        QCOMPARE(url.value(0), QString("data:image/PNG;base64"));
        QCOMPARE(argb(QImage::fromData(QByteArray::fromBase64(url.value(1).toLatin1()), "PNG")),
            argb(source));
    }

    void mergeAndBoundaries()
    {
        const QImage left = pattern(10, 20);
        const QImage right = pattern(30, 5, true);
        const QColor background(12, 34, 56, 200);
        const QImage horizontal = ImageMerger::mergeHorizontally(left, right, background);
        QCOMPARE(horizontal.size(), QSize(40, 20));
        QCOMPARE(horizontal.format(), QImage::Format_ARGB32);
        QCOMPARE(horizontal.copy(0, 0, 10, 20), left);
        QCOMPARE(horizontal.copy(10, 0, 30, 5), right);
        QImage uncovered(30, 15, QImage::Format_ARGB32);
        uncovered.fill(background);
        QCOMPARE(horizontal.copy(10, 5, 30, 15), uncovered);
        const QImage vertical = ImageMerger::mergeVertically(right, left, background);
        QCOMPARE(vertical.size(), QSize(30, 25));
        QCOMPARE(vertical.copy(0, 0, 30, 5), right);
        QCOMPARE(vertical.copy(0, 5, 10, 20), left);
        QCOMPARE(vertical.pixel(29, 24), background.rgba());
        QCOMPARE(ImageMerger::mergeVertically(QImage(), left, background), left);

        const std::pair<QList<QPoint>, QRect> boundaries[]
            = {{{{3, 4}}, QRect(3, 4, 0, 0)}, {{}, QRect(10, 8, -10, -8)},
                {{{2, 6}, {7, 1}}, QRect(2, 1, 5, 5)}, {{{0, 0}, {9, 7}}, QRect(0, 0, 9, 7)}};
        for (const auto& [pixels, expected] : boundaries) {
            QImage image(10, 8, QImage::Format_ARGB32);
            image.fill(Qt::white);
            for (const QPoint& p : pixels)
                image.setPixel(p, qRgb(250, 250, 250));
            QCOMPARE(QImageHelper::calculateImageBoundaries(image, Qt::white), expected);
        }
    }

    void depthAndTransparency()
    {
        QCOMPARE(QImageHelper::getDepth(QImage(2, 2, QImage::Format_RGB32)), 24);
        QCOMPARE(QImageHelper::getDepth(QImage(2, 2, QImage::Format_ARGB32)), 32);
        QCOMPARE(QImageHelper::getDepth(QImage(2, 2, QImage::Format_Indexed8)), 8);
        QImage image(6, 5, QImage::Format_ARGB32);
        image.fill(qRgba(1, 2, 3, 255));
        QVERIFY(!QImageHelper::isTransparent(image));
        image.setPixel(5, 4, qRgba(1, 2, 3, 254));
        QVERIFY(QImageHelper::isTransparent(image));
        QVERIFY(QImageHelper::isTransparent(image.convertToFormat(QImage::Format_RGBA64)));
        QVERIFY(!QImageHelper::isTransparent(image.convertToFormat(QImage::Format_RGB32)));
        QImage indexed(3, 3, QImage::Format_Indexed8);
        indexed.setColorTable({qRgba(0, 0, 0, 255), qRgba(0, 0, 0, 0)});
        indexed.fill(0);
        QVERIFY(!QImageHelper::isTransparent(indexed));
        indexed.setPixel(1, 1, 1);
        QVERIFY(QImageHelper::isTransparent(indexed));
    }

    void removeAlphaChannel()
    {
        // Lines longer than 4 x width: pixels addressed from the linear index must honour them,
        // also when writing detaches a shared image into a copy with other line lengths.
        const std::tuple<QImage::Format, int, bool> cases[] = {{QImage::Format_ARGB32, 0, false},
            {QImage::Format_ARGB32, 12, false}, {QImage::Format_ARGB32, 12, true},
            {QImage::Format_ARGB32_Premultiplied, 0, false}, {QImage::Format_RGBA64, 0, false},
            {QImage::Format_Indexed8, 0, false}, {QImage::Format_RGB888, 0, false}};
        for (const auto& [format, padding, shared] : cases) {
            // An odd width and enough pixels for the parallel loop to split inside rows.
            const bool indexed = format == QImage::Format_Indexed8;
            const int width = indexed ? 37 : 301;
            const int height = indexed ? 7 : 211;
            QImage source(width, height, QImage::Format_ARGB32);
            const QRgb colours[] = {qRgba(0, 0, 0, 0), qRgba(255, 0, 51, 102), 0};
            for (int i = 0; i < width * height; ++i)
                source.setPixel(
                    i % width, i / width, i % 3 < 2 ? colours[i % 3] : qRgb(i % 256, 7, 200));
            QImage image = indexed ? converted(source, format) : source.convertToFormat(format);
            QByteArray buffer((width * 4 + padding) * height, '\0');
            if (padding) {
                image = QImage(reinterpret_cast<uchar*>(buffer.data()), width, height,
                    width * 4 + padding, format);
                for (int y = 0; y < height; ++y)
                    memcpy(image.scanLine(y), source.constScanLine(y), width * 4);
            }
            QImage expected = argb(image).copy();
            const QImage sharer = shared ? image : QImage();

            QImageHelper::removeAlphaChannel(image, QColor(10, 20, 30, 40));

            QCOMPARE(image.format(), QImage::Format_RGB32);
            for (int y = 0; y < height; ++y) {
                for (int x = 0; x < width; ++x) {
                    const QRgb p = expected.pixel(x, y);
                    expected.setPixel(x, y, qAlpha(p) == 0 ? qRgb(10, 20, 30) : (p | 0xff000000u));
                }
            }
            QCOMPARE(argb(image), expected);
        }
    }

    void qrcImageProvider()
    {
        const QString id = QStringLiteral("testimages/quadrants.png");
        QSize size;
        QCOMPARE(QrcImageProviderImpl::requestPixmap(id, &size, QSize()).size(), QSize(40, 20));
        QCOMPARE(size, QSize(40, 20));
        // Scaled into the requested size, keeping the aspect ratio.
        const QImage image = QrcImageProviderImpl::requestImage(id, &size, QSize(10, 10));
        QCOMPARE(size, QSize(10, 5));
        QCOMPARE(image.pixel(1, 1), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(8, 1), qRgb(0, 255, 0));
        QCOMPARE(image.pixel(1, 4), qRgb(0, 0, 255));
        QCOMPARE(qAlpha(image.pixel(8, 4)), 128);
        QCOMPARE(QrcImageProviderImpl::requestImage(id, nullptr, QSize(4, 8)).size(), QSize(4, 2));
        // A missing resource is a null result of size zero, without noise.
        QVERIFY(QrcImageProviderImpl::requestPixmap("missing.png", &size, QSize(5, 5)).isNull());
        QCOMPARE(size, QSize(0, 0));
    }
};

QTEST_MAIN(tst_ImageHelpers)
#include "tst_imagehelpers.moc"
