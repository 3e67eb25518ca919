#include <guicore/utility/image/ImageComparator.h>
#include <guicore/utility/image/ImageMerger.h>
#include <guicore/utility/image/QImageHelper.h>
#include <guicore/utility/image/QrcImageProviderImpl.h>

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QRegularExpression>
#include <QTest>

using image2d::QImageHelper;

namespace {

// Formats a caller may hand in; grey formats only get grey content, so that every conversion
// below is lossless.
struct FormatCase
{
    const char* name;
    QImage::Format format;
    bool grey;
};

const FormatCase formatCases[] = {
    {"Indexed8", QImage::Format_Indexed8, false},
    {"Grayscale8", QImage::Format_Grayscale8, true},
    {"Grayscale16", QImage::Format_Grayscale16, true},
    {"RGB888", QImage::Format_RGB888, false},
    {"RGB32", QImage::Format_RGB32, false},
    {"ARGB32", QImage::Format_ARGB32, false},
    {"ARGB32_Premultiplied", QImage::Format_ARGB32_Premultiplied, false},
    {"RGBA8888", QImage::Format_RGBA8888, false},
    {"RGBA64", QImage::Format_RGBA64, false},
    {"RGBA64_Premultiplied", QImage::Format_RGBA64_Premultiplied, false},
};

void addFormatColumns()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<bool>("grey");
}

void addFormatRows()
{
    for (const FormatCase& c : formatCases)
        QTest::newRow(c.name) << c.format << c.grey;
}

QRgb patternColour(int x, int y, bool grey)
{
    if (grey) {
        const int v = (x * 13 + y * 29) % 200 + 20;
        return qRgb(v, v, v);
    }
    return qRgb((x * 37) % 256, (y * 53) % 256, ((x + y) * 11) % 256);
}

QImage pattern(int width, int height, bool grey)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, patternColour(x, y, grey));
    }
    return image;
}

// Converts and checks that the conversion kept every colour, so a failure later on is the
// helper's and not the test's.
QImage lossless(const QImage& image, QImage::Format format)
{
    QImage converted;
    if (format == QImage::Format_Indexed8) {
        // Qt dithers by default; give it the exact palette instead.
        QList<QRgb> palette;
        const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < straight.height(); ++y) {
            for (int x = 0; x < straight.width(); ++x) {
                if (!palette.contains(straight.pixel(x, y)))
                    palette.append(straight.pixel(x, y));
            }
        }
        converted = straight.convertToFormat(format, palette, Qt::ThresholdDither);
    } else {
        converted = image.convertToFormat(format);
    }
    if (converted.convertToFormat(QImage::Format_ARGB32)
        != image.convertToFormat(QImage::Format_ARGB32))
        qFatal("conversion to format %d is lossy for the test pattern", int(format));
    return converted;
}

QImage argb(const QImage& image)
{
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class tst_ImageHelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void compareImages_data();
    void compareImages();
    void compareImagesRejectsBadInput();
    void compareImagesAcrossFormats_data();
    void compareImagesAcrossFormats();

    void mergeHorizontally();
    void mergeVertically();
    void mergeKeepsColoursOfEveryFormat_data();
    void mergeKeepsColoursOfEveryFormat();

    void calculateImageBoundaries_data();
    void calculateImageBoundaries();
    void boundariesAcrossFormats_data();
    void boundariesAcrossFormats();

    void getDepth_data();
    void getDepth();
    void isTransparent_data();
    void isTransparent();

    void removeAlphaChannel_data();
    void removeAlphaChannel();
    void removeAlphaChannelHonoursLinePadding();
    void removeAlphaChannelWithoutAlpha();

    void streamToBase64RoundTrip_data();
    void streamToBase64RoundTrip();

    void qrcImageProvider();
};

void tst_ImageHelpers::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_ImageHelpers::compareImages_data()
{
    QTest::addColumn<QRgb>("colourA");
    QTest::addColumn<QRgb>("colourB");
    QTest::addColumn<int>("changedPixels");
    QTest::addColumn<float>("tolerance");
    QTest::addColumn<float>("expected");

    // 5 x 4 images; changedPixels of them get colourB instead of colourA.
    QTest::newRow("identical") << qRgb(10, 20, 30) << qRgb(10, 20, 30) << 20 << 0.0f << 100.0f;
    QTest::newRow("all different") << qRgb(0, 0, 0) << qRgb(255, 255, 255) << 20 << 0.0f << 0.0f;
    QTest::newRow("tolerance one accepts everything")
        << qRgb(0, 0, 0) << qRgb(255, 255, 255) << 20 << 1.0f << 100.0f;
    QTest::newRow("one pixel of twenty") << qRgb(0, 0, 0) << qRgb(0, 0, 200) << 1 << 0.0f << 95.0f;
    QTest::newRow("five pixels of twenty")
        << qRgb(0, 0, 0) << qRgb(0, 0, 200) << 5 << 0.0f << 75.0f;
    // d = sqrt(3 * 40^2) / sqrt(3) = 40: within 0.2 (51), outside 0.15 (38.25).
    QTest::newRow("within tolerance") << qRgb(0, 0, 0) << qRgb(40, 40, 40) << 4 << 0.2f << 100.0f;
    QTest::newRow("outside tolerance") << qRgb(0, 0, 0) << qRgb(40, 40, 40) << 4 << 0.15f << 80.0f;
    // Equal steps in all channels give exactly the step, not one less through rounding noise:
    // d = 1 exceeds half a level.
    QTest::newRow("unit step counts")
        << qRgb(7, 7, 7) << qRgb(8, 8, 8) << 2 << float(0.5 / 255) << 90.0f;
    // (3, 4, 0): sqrt(25 / 3) = 2.89 truncates to 2, which does not exceed 2.5 levels.
    QTest::newRow("distance truncated")
        << qRgb(0, 0, 0) << qRgb(3, 4, 0) << 2 << float(2.5 / 255) << 100.0f;
    QTest::newRow("distance truncated, exceeding")
        << qRgb(0, 0, 0) << qRgb(3, 4, 0) << 2 << float(1.5 / 255) << 90.0f;
    // Alpha is no part of the distance.
    QTest::newRow("alpha only") << qRgba(9, 9, 9, 255) << qRgba(9, 9, 9, 10) << 20 << 0.0f
                                << 100.0f;
}

void tst_ImageHelpers::compareImages()
{
    QFETCH(QRgb, colourA);
    QFETCH(QRgb, colourB);
    QFETCH(int, changedPixels);
    QFETCH(float, tolerance);
    QFETCH(float, expected);

    QImage a(5, 4, QImage::Format_ARGB32);
    a.fill(colourA);
    QImage b = a.copy();
    for (int i = 0; i < changedPixels; ++i)
        b.setPixel(i % 5, i / 5, colourB);

    QCOMPARE(ImageComparator::compareImages(a, b, tolerance), expected);
    QCOMPARE(ImageComparator::compareImages(b, a, tolerance), expected);
}

void tst_ImageHelpers::compareImagesRejectsBadInput()
{
    const QImage image = pattern(6, 4, false);

    QTest::ignoreMessage(QtWarningMsg, "ImageComparator : invalid input images!");
    QCOMPARE(ImageComparator::compareImages(QImage(), image, 0.0f), -1.0f);

    QTest::ignoreMessage(QtWarningMsg, "ImageComparator : invalid input images!");
    QCOMPARE(ImageComparator::compareImages(QImage(), QImage(), 0.0f), -1.0f);

    QTest::ignoreMessage(QtWarningMsg, "ImageComparator : input images not the same size!");
    QCOMPARE(ImageComparator::compareImages(image, pattern(4, 6, false), 0.0f), -1.0f);

    QTest::ignoreMessage(QtWarningMsg, "ImageComparator : input images not the same size!");
    QCOMPARE(ImageComparator::compareImages(image, QImage(), 0.0f), -1.0f);
}

void tst_ImageHelpers::compareImagesAcrossFormats_data()
{
    addFormatColumns();
    addFormatRows();
}

void tst_ImageHelpers::compareImagesAcrossFormats()
{
    QFETCH(QImage::Format, format);
    QFETCH(bool, grey);

    // 8 x 8: 16 pixels changed by 100 grey levels (counted with tolerance 0.1, 25.5 levels),
    // 8 more by 5 levels (not counted).
    const QImage a = pattern(8, 8, grey);
    QImage b = a.copy();
    for (int i = 0; i < 24; ++i) {
        const int x = i % 8;
        const int y = (i / 8) * 2;
        const QRgb c = a.pixel(x, y);
        const int step = i < 16 ? 100 : 5;
        const auto shift = [step](int v) { return v + step <= 255 ? v + step : v - step; };
        b.setPixel(x, y,
            qRgb(shift(qRed(c)), shift(grey ? qRed(c) : qGreen(c)),
                shift(grey ? qRed(c) : qBlue(c))));
    }
    const QImage convertedA = lossless(a, format);
    const QImage convertedB = lossless(b, format);

    QCOMPARE(ImageComparator::compareImages(convertedA, convertedB, 0.1f), 75.0f);
    QCOMPARE(ImageComparator::compareImages(convertedA, b, 0.1f), 75.0f);
    QCOMPARE(ImageComparator::compareImages(a, convertedB, 0.1f), 75.0f);
    QCOMPARE(ImageComparator::compareImages(convertedA, a, 0.0f), 100.0f);
}

void tst_ImageHelpers::mergeHorizontally()
{
    const QImage left = pattern(10, 20, false);
    const QImage right = pattern(30, 5, true);
    const QColor background(12, 34, 56, 200);

    const QImage merged = ImageMerger::mergeHorizontally(left, right, background);

    QCOMPARE(merged.size(), QSize(40, 20));
    QCOMPARE(merged.format(), QImage::Format_ARGB32);
    QCOMPARE(merged.copy(0, 0, 10, 20), left);
    QCOMPARE(merged.copy(10, 0, 30, 5), right);
    for (int y = 5; y < 20; ++y) {
        for (int x = 10; x < 40; ++x)
            QCOMPARE(merged.pixel(x, y), background.rgba());
    }
}

void tst_ImageHelpers::mergeVertically()
{
    const QImage top = pattern(7, 3, false);
    const QImage bottom = pattern(12, 4, true);
    const QColor background(Qt::magenta);

    const QImage merged = ImageMerger::mergeVertically(top, bottom, background);

    QCOMPARE(merged.size(), QSize(12, 7));
    QCOMPARE(merged.copy(0, 0, 7, 3), top);
    QCOMPARE(merged.copy(0, 3, 12, 4), bottom);
    for (int x = 7; x < 12; ++x) {
        for (int y = 0; y < 3; ++y)
            QCOMPARE(merged.pixel(x, y), background.rgba());
    }

    // A missing image leaves the other one alone on the background.
    QCOMPARE(ImageMerger::mergeVertically(QImage(), bottom, background), bottom);
}

void tst_ImageHelpers::mergeKeepsColoursOfEveryFormat_data()
{
    addFormatColumns();
    addFormatRows();
}

void tst_ImageHelpers::mergeKeepsColoursOfEveryFormat()
{
    QFETCH(QImage::Format, format);
    QFETCH(bool, grey);

    QImage source = pattern(9, 6, grey);
    if (QImage(1, 1, format).hasAlphaChannel() && format != QImage::Format_Indexed8) {
        // A translucent pixel is copied, not blended with the background.
        source.setPixel(4, 2, qRgba(200, 100, 50, 128));
    }
    const QImage converted = source.convertToFormat(format);
    const QImage expected = argb(converted);
    const QColor background(Qt::black);

    const QImage horizontal = ImageMerger::mergeHorizontally(converted, converted, background);
    QCOMPARE(horizontal.copy(0, 0, 9, 6), expected);
    QCOMPARE(horizontal.copy(9, 0, 9, 6), expected);

    const QImage vertical
        = ImageMerger::mergeVertically(QImage(3, 1, format), converted, background);
    QCOMPARE(vertical.copy(0, 1, 9, 6), expected);
}

void tst_ImageHelpers::calculateImageBoundaries_data()
{
    QTest::addColumn<QList<QPoint>>("pixels");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("single pixel") << QList<QPoint> {{3, 4}} << QRect(3, 4, 0, 0);
    QTest::newRow("nothing") << QList<QPoint> {} << QRect(10, 8, -10, -8);
    QTest::newRow("two corners") << QList<QPoint> {{2, 6}, {7, 1}} << QRect(2, 1, 5, 5);
    QTest::newRow("whole image") << QList<QPoint> {{0, 0}, {9, 7}} << QRect(0, 0, 9, 7);
}

void tst_ImageHelpers::calculateImageBoundaries()
{
    QFETCH(QList<QPoint>, pixels);
    QFETCH(QRect, expected);

    QImage image(10, 8, QImage::Format_ARGB32);
    image.fill(Qt::white);
    for (const QPoint& p : pixels)
        image.setPixel(p, qRgb(250, 250, 250));

    QCOMPARE(QImageHelper::calculateImageBoundaries(image, Qt::white), expected);
}

void tst_ImageHelpers::boundariesAcrossFormats_data()
{
    addFormatColumns();
    addFormatRows();
}

void tst_ImageHelpers::boundariesAcrossFormats()
{
    QFETCH(QImage::Format, format);
    QFETCH(bool, grey);
    Q_UNUSED(grey)

    QImage image(11, 9, QImage::Format_ARGB32);
    image.fill(Qt::black);
    image.setPixel(2, 3, qRgb(128, 128, 128));
    image.setPixel(8, 5, qRgb(255, 255, 255));
    const QImage converted = lossless(image, format);

    QCOMPARE(QImageHelper::calculateImageBoundaries(converted, Qt::black), QRect(2, 3, 6, 2));
    // Against another background every pixel is content.
    QCOMPARE(QImageHelper::calculateImageBoundaries(converted, Qt::red), QRect(0, 0, 10, 8));
}

void tst_ImageHelpers::getDepth_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<int>("depth");

    QTest::newRow("RGB32") << QImage::Format_RGB32 << 24;
    QTest::newRow("ARGB32") << QImage::Format_ARGB32 << 32;
    QTest::newRow("ARGB32_Premultiplied") << QImage::Format_ARGB32_Premultiplied << 32;
    QTest::newRow("RGBX8888") << QImage::Format_RGBX8888 << 32;
    QTest::newRow("RGB888") << QImage::Format_RGB888 << 24;
    QTest::newRow("Indexed8") << QImage::Format_Indexed8 << 8;
    QTest::newRow("Grayscale16") << QImage::Format_Grayscale16 << 16;
    QTest::newRow("RGBA64") << QImage::Format_RGBA64 << 64;
    QTest::newRow("Mono") << QImage::Format_Mono << 1;
}

void tst_ImageHelpers::getDepth()
{
    QFETCH(QImage::Format, format);
    QFETCH(int, depth);
    QCOMPARE(QImageHelper::getDepth(QImage(4, 4, format)), depth);
}

void tst_ImageHelpers::isTransparent_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<bool>("transparent");

    QImage opaque(6, 5, QImage::Format_ARGB32);
    opaque.fill(qRgba(1, 2, 3, 255));
    QTest::newRow("opaque ARGB32") << opaque << false;

    QImage almost = opaque.copy();
    almost.setPixel(5, 4, qRgba(1, 2, 3, 254));
    QTest::newRow("last pixel almost opaque") << almost << true;
    QTest::newRow("premultiplied")
        << almost.convertToFormat(QImage::Format_ARGB32_Premultiplied) << true;
    QTest::newRow("RGBA64") << almost.convertToFormat(QImage::Format_RGBA64) << true;
    QTest::newRow("no alpha channel") << almost.convertToFormat(QImage::Format_RGB32) << false;

    QImage indexed(3, 3, QImage::Format_Indexed8);
    indexed.setColorTable({qRgba(0, 0, 0, 255), qRgba(0, 0, 0, 0)});
    indexed.fill(0);
    QTest::newRow("indexed, transparent entry unused") << indexed << false;
    indexed.setPixel(1, 1, 1);
    QTest::newRow("indexed, transparent entry used") << indexed << true;
}

void tst_ImageHelpers::isTransparent()
{
    QFETCH(QImage, image);
    QFETCH(bool, transparent);
    QCOMPARE(QImageHelper::isTransparent(image), transparent);
}

void tst_ImageHelpers::removeAlphaChannel_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("ARGB32") << QImage::Format_ARGB32;
    QTest::newRow("ARGB32_Premultiplied") << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("RGBA8888") << QImage::Format_RGBA8888;
    QTest::newRow("RGBA64") << QImage::Format_RGBA64;
    QTest::newRow("RGBA64_Premultiplied") << QImage::Format_RGBA64_Premultiplied;
    QTest::newRow("Indexed8") << QImage::Format_Indexed8;
}

void tst_ImageHelpers::removeAlphaChannel()
{
    QFETCH(QImage::Format, format);

    // An odd width and enough pixels for the loop to be split among tasks at places that are
    // not row starts.
    const int width = format == QImage::Format_Indexed8 ? 37 : 301;
    const int height = format == QImage::Format_Indexed8 ? 7 : 211;
    QImage source(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int i = y * width + x;
            if (i % 3 == 0)
                source.setPixel(x, y, qRgba(0, 0, 0, 0));
            else if (i % 3 == 1)
                source.setPixel(x, y, qRgba(255, 0, 51, 102));
            else
                source.setPixel(x, y, qRgba(i % 256, 7, 200, 255));
        }
    }
    QImage image = format == QImage::Format_Indexed8 ? lossless(source, format)
                                                     : source.convertToFormat(format);
    const QImage straight = argb(image);

    QImageHelper::removeAlphaChannel(image, QColor(10, 20, 30, 40));

    QCOMPARE(image.format(), QImage::Format_RGB32);
    QCOMPARE(image.size(), source.size());
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb before = straight.pixel(x, y);
            const QRgb expected = qAlpha(before) == 0 ? qRgb(10, 20, 30) : (before | 0xff000000u);
            if (image.pixel(x, y) != expected) {
                QFAIL(qPrintable(QStringLiteral("pixel (%1, %2) is %3, expected %4")
                                     .arg(x)
                                     .arg(y)
                                     .arg(image.pixel(x, y), 8, 16)
                                     .arg(expected, 8, 16)));
            }
        }
    }
}

void tst_ImageHelpers::removeAlphaChannelHonoursLinePadding()
{
    // Pixels addressed from the linear index must respect the bytes per line, which exceed
    // 4 x width here.
    const int width = 13;
    const int height = 9;
    const int bytesPerLine = width * 4 + 12;
    QByteArray buffer(bytesPerLine * height, '\0');
    QImage image(reinterpret_cast<uchar*>(buffer.data()), width, height, bytesPerLine,
        QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, (x + y) % 2 ? qRgba(1, 2, 3, 255) : qRgba(0, 0, 0, 0));
    }

    QImageHelper::removeAlphaChannel(image, Qt::yellow);

    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            QCOMPARE(image.pixel(x, y), (x + y) % 2 ? qRgb(1, 2, 3) : qRgb(255, 255, 0));
    }
}

void tst_ImageHelpers::removeAlphaChannelWithoutAlpha()
{
    QImage image = pattern(5, 5, false).convertToFormat(QImage::Format_RGB888);
    const QImage before = argb(image);
    QImageHelper::removeAlphaChannel(image, Qt::red);
    QCOMPARE(image.format(), QImage::Format_RGB32);
    QCOMPARE(argb(image), before);

    QImage empty(0, 0, QImage::Format_ARGB32);
    QImageHelper::removeAlphaChannel(empty, Qt::red);
    QCOMPARE(empty.size(), QSize(0, 0));
}

void tst_ImageHelpers::streamToBase64RoundTrip_data()
{
    addFormatColumns();
    addFormatRows();
}

void tst_ImageHelpers::streamToBase64RoundTrip()
{
    QFETCH(QImage::Format, format);
    QFETCH(bool, grey);

    QImage source = pattern(17, 9, grey);
    if (format == QImage::Format_ARGB32 || format == QImage::Format_RGBA64)
        source.setPixel(3, 3, qRgba(10, 200, 30, 77));
    const QImage image = source.convertToFormat(format);

    const QString url = QImageHelper::streamToBase64(image);

    const QString prefix = QStringLiteral("data:image/PNG;base64,");
    QVERIFY(url.startsWith(prefix));
    const QByteArray png = QByteArray::fromBase64(
        url.mid(prefix.size()).toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    QVERIFY(png.startsWith("\x89PNG"));
    const QImage decoded = QImage::fromData(png, "PNG");
    QCOMPARE(decoded.size(), image.size());
    QCOMPARE(argb(decoded), argb(image));
}

void tst_ImageHelpers::qrcImageProvider()
{
    QSize size;
    const QPixmap pixmap = QrcImageProviderImpl::requestPixmap(
        QStringLiteral("testimages/quadrants.png"), &size, QSize());
    QCOMPARE(pixmap.size(), QSize(40, 20));
    QCOMPARE(size, QSize(40, 20));

    // Scaled into the requested size, keeping the aspect ratio.
    const QImage image = QrcImageProviderImpl::requestImage(
        QStringLiteral("testimages/quadrants.png"), &size, QSize(10, 10));
    QCOMPARE(size, QSize(10, 5));
    QCOMPARE(image.size(), QSize(10, 5));
    QCOMPARE(image.pixel(1, 1), qRgb(255, 0, 0));
    QCOMPARE(image.pixel(8, 1), qRgb(0, 255, 0));
    QCOMPARE(image.pixel(1, 4), qRgb(0, 0, 255));
    QCOMPARE(qAlpha(image.pixel(8, 4)), 128);

    // Without a size to fill in.
    QCOMPARE(QrcImageProviderImpl::requestImage(
                 QStringLiteral("testimages/quadrants.png"), nullptr, QSize(4, 8))
                 .size(),
        QSize(4, 2));

    // A missing resource is a null result of size zero, without noise.
    size = QSize(1, 1);
    QVERIFY(QrcImageProviderImpl::requestPixmap(
        QStringLiteral("testimages/missing.png"), &size, QSize(5, 5))
                .isNull());
    QCOMPARE(size, QSize(0, 0));
}

QTEST_MAIN(tst_ImageHelpers)
#include "tst_imagehelpers.moc"
