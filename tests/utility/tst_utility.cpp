#include <guicore/style/DevicePixelRatio.h>
#include <guicore/style/FontsInitializer.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>
#include <guicore/utility/dates/DateBuilder.h>
#include <guicore/utility/dates/DateFormatModifiers.h>
#include <guicore/utility/dates/DateMatcher.h>
#include <guicore/utility/dental/ToothNameGenerator.h>
#include <guicore/utility/image/ImageComparator.h>
#include <guicore/utility/image/ImageMerger.h>
#include <guicore/utility/image/QImageHelper.h>
#include <guicore/utility/widgets/NoLeadingZeroValidator.h>
#include <guicore/utility/widgets/NullProgressUpdater.h>
#include <guicore/utility/widgets/ProgressUpdater.h>
#include <guicore/utility/widgets/Slider.h>
#include <guicore/utility/widgets/StringOperations.h>
#include <guicore/utility/widgets/WarningLabelProperty.h>

#include <QtTest>
#include <QtWidgets>

using image2d::QImageHelper;
using G = ToothNameGenerator;
using Tooth = ToothChart::Tooth;
using Range = G::ToothRange;

namespace {

using StyleMap = QHash<QString, QString>;

// Exposes the protected setters so that each test states its own style data.
struct TestStyleManager : StyleManager
{
    using StyleManager::getDateTimeFormats;
    using StyleManager::setColorPalette;
    using StyleManager::setDateTimeFormats;
    using StyleManager::setFonts;
    using StyleManager::setSizes;
};

QString writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) < 0)
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void expectWarning(const QString& text, const QString& source = "StyleManager : ")
{
    if (!text.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, qPrintable(source + text));
}

QStringList calls;

// Records into one list shared by all listeners, so that the order of calls can be compared.
struct RecordingListener : DevicePixelRatio::Listener
{
    explicit RecordingListener(const char* n)
        : name(n)
    {
        DevicePixelRatio::registerListener(this);
    }
    ~RecordingListener() override { DevicePixelRatio::unregisterListener(this); }
    void devicePixelRatioChanged() override { calls.append(name); }
    const QString name;
};

// The offscreen platform has a single screen: tell the window it changed, as Qt does when the
// user drags the window onto another monitor.

QImage argb(const QImage& image)
{
    return image.convertToFormat(QImage::Format_ARGB32);
}

// An ARGB32 test pattern; grey formats get grey content so that conversions stay lossless.
QImage pattern(int width, int height, bool grey = false)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int i = 0; i < width * height; ++i) {
        const int x = i % width, y = i / width, v = (x * 13 + y * 29) % 200 + 20;
        image.setPixel(x, y, grey ? qRgb(v, v, v) : qRgb((x * 37) % 256, (y * 53) % 256, v));
    }
    return image;
}

// Lossless (Qt dithers into Indexed8 unless given the exact palette): a failure later on must be
// the helper's and not the conversion's.
QImage converted(const QImage& image, QImage::Format format)
{
    const QImage straight = argb(image);
    QList<QRgb> palette;
    for (int i = 0; i < image.width() * image.height(); ++i) // repeated entries do no harm
        palette.append(straight.pixel(i % image.width(), i / image.width()));
    return format == QImage::Format_Indexed8
        ? straight.convertToFormat(format, palette, Qt::ThresholdDither)
        : image.convertToFormat(format);
}

// Hand-written notation tables, in Universal order of the positions 1..32; the deciduous teeth
// sit at positions 4..13 (upper) and 20..29 (lower).
const QStringList fdiPermanent {"18", "17", "16", "15", "14", "13", "12", "11", "21", "22", "23",
    "24", "25", "26", "27", "28", "38", "37", "36", "35", "34", "33", "32", "31", "41", "42", "43",
    "44", "45", "46", "47", "48"};
const QStringList fdiDeciduous {"55", "54", "53", "52", "51", "61", "62", "63", "64", "65", "75",
    "74", "73", "72", "71", "81", "82", "83", "84", "85"};
const QStringList univDeciduous {"A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L", "M",
    "N", "O", "P", "Q", "R", "S", "T"};

// Records the key presses that reach it, to see which keys a child slider lets through.
struct KeyCatcher : QWidget
{
    QList<int> keys;
    void keyPressEvent(QKeyEvent* event) override { keys.append(event->key()); }
};

} // namespace

class tst_Utility : public QObject
{
    Q_OBJECT

    std::optional<TestStyleManager> manager;

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        manager.emplace();
    }
    void cleanup()
    {
        StyleManager::deleteManager();
        DevicePixelRatio::registerMainWindow(nullptr);
        G::TOOTH_NUMBERING_SYSTEM.clear();
    }

    void styleManagerAndPixelRatio()
    {
        manager->setColorPalette(
            {{"@RED", "#ff0000"}, {"@HALF", "#80102030"}, {"@NAMED", "steelblue"}, {"@EMPTY", ""}});
        QCOMPARE(manager->getColor("@RED"), QColor(255, 0, 0));
        QCOMPARE(manager->getColor("@HALF"), QColor(0x10, 0x20, 0x30, 0x80));
        QCOMPARE(manager->getColor("@NAMED"), QColor("steelblue"));
        expectWarning("color not found for id \"@MISSING\"");
        QCOMPARE(manager->getColor("@MISSING"), QColor(Qt::magenta));
        // Present but empty is missing for getColor, but not for the optional lookups.
        expectWarning("color not found for id \"@EMPTY\"");
        QCOMPARE(manager->getColor("@EMPTY"), QColor(Qt::magenta));
        QVERIFY(!manager->getOptionalColor("@EMPTY").isValid());
        QVERIFY(manager->hasColor("@EMPTY") && !manager->hasColor("@MISSING"));
        QCOMPARE(manager->getOptionalColor("@MISSING"), QColor(Qt::transparent));
        QCOMPARE(manager->getOptionalColor("@RED"), QColor(255, 0, 0));
        const QString bad = "could not properly convert property value \"%1\" for id \"@X\"";
        const QString none = "font property not found for id \"@X\"";
        const QHash<QString, std::function<double()>> getters {
            {"size", [&] { return manager->getSize("@X"); }},
            {"fontSize", [&] { return manager->getFontSize("@X"); }},
            {"fontWeight", [&] { return manager->getFontWeight("@X"); }},
            {"bool", [&] { return manager->getFontBoolValue("@X") ? 1.0 : 0.0; }},
            {"lineHeight", [&] { return manager->getLineHeight("@X"); }}};
        // Integers are read in base 10 only; a line height only from its own key.
        const std::tuple<const char*, const char*, const char*, double, QString> cases[] = {
            {"size", "@X", "1.5", 1.5, {}},
            {"size", "@X", "12px", 0.0,
                "could not properly convert size value \"12px\" for id \"@X\""},
            {"size", "@X", "", 0.0, "size not found for id \"@X\""},
            {"fontSize", "@X", "13", 13.0, {}}, {"fontSize", "@X", "12.5", 0.0, bad.arg("12.5")},
            {"fontSize", "@X", "", 0.0, none}, {"fontWeight", "@X", "600", 600.0, {}},
            {"fontWeight", "@X", "0x10", 0.0, bad.arg("0x10")}, {"bool", "@X", "true", 1.0, {}},
            {"bool", "@X", "false", 0.0, {}}, {"bool", "@X", "TRUE", 0.0, bad.arg("TRUE")},
            {"bool", "@X", "", 0.0, none}, {"lineHeight", "@X-line-height", "1.25", 1.25, {}},
            {"lineHeight", "@X", "1.5", 0.1, "line-height not found for font id \"@X\""},
            {"lineHeight", "@X-line-height", "normal", 0.1,
                "Invalid line-height format for id \"@X\""}};
        for (const auto& [getter, key, value, expected, warning] : cases) {
            manager->setSizes({{key, value}});
            manager->setFonts({{key, value}});
            expectWarning(warning);
            QCOMPARE(getters.value(getter)(), expected);
        }
        QCOMPARE(StyleManager::pixelSize(12), 12); // QML scales nothing
        // Pixel size -1: an invalid format.
        const std::tuple<const char*, int, const char*> complete[]
            = {{"13 \"DejaVu Sans\"", 13, "DejaVu Sans"}, {"9\t\"Serif\"", 9, "Serif"},
                {"\"Mono\"", -1, ""}, {"12 Mono", -1, ""}};
        for (const auto& [value, pixelSize, family] : complete) {
            manager->setFonts({{"@F", value}});
            if (pixelSize < 0)
                expectWarning("Invalid font format for id \"@F\"");
            const QFont font = manager->getCompleteFont("@F");
            QCOMPARE(font.family(), pixelSize < 0 ? QFont().family() : family);
            QCOMPARE(font.pixelSize(), pixelSize < 0 ? QFont().pixelSize() : pixelSize);
        }
        // An empty digit run passes pixel size 0 on; QFont warns and keeps its default size.
        manager->setFonts({{"@F", " \"Mono\""}});
        QTest::ignoreMessage(QtWarningMsg, "QFont::setPixelSize: Pixel size <= 0 (0)");
        QCOMPARE(manager->getCompleteFont("@F").family(), QString("Mono"));

        const char* const families[][2] = {{"\"DejaVu Sans\"", "DejaVu Sans"},
            {"DejaVu Sans", "DejaVu Sans"}, {"\"DejaVu Sans", "DejaVu San"}, {"\"", ""}};
        for (const auto& [value, forQFont] : families) {
            manager->setFonts({{"@F", value}});
            QCOMPARE(manager->getFontFamily("@F"), value);
            QCOMPARE(manager->getFontFamilyForQml("@F"), value);
            QCOMPARE(manager->getFontFamilyForQFont("@F"), forQFont);
        }
        manager->setFonts({{"@F", ""}});
        for (int i = 0; i < 3; ++i)
            expectWarning("font not found for id \"@F\"");
        QTest::ignoreMessage(
            QtWarningMsg, "StyleManager::getFont  is deprecated. Use getFontFamily instead.");
        QCOMPARE(manager->getFont("@F") + manager->getFontFamilyForQFont("@F"), QString());
        QCOMPARE(manager->getCompleteFont("@F"), QFont());
        QGuiApplication::setFont(QFont(QStringLiteral("Initial Family")));
        manager->setFonts({{"@APP", "\"Quoted Family\""}, {"@EMPTY", ""}});
        FontsInitializer::setDefaultApplicationFont(*manager, "@APP");
        QCOMPARE(QGuiApplication::font(), QFont("Quoted Family")); // size, weight, style by default
        expectWarning("font not found for id \"@EMPTY\"");
        FontsInitializer::setDefaultApplicationFont(*manager, "@EMPTY");
        QCOMPARE(QGuiApplication::font(), QFont("Quoted Family")); // left alone

        // A real binary resource beside the executable: one good font, one broken.
        manager->setFonts({{"@APP", "\"DejaVu Sans\""}});
        QTest::ignoreMessage(QtWarningMsg, "Failed loading font :/fonts/Broken.ttf");
        FontsInitializer::loadFonts(*manager, "@APP");
        QCOMPARE(QGuiApplication::font().family(), QString("DejaVu Sans"));
        manager->setDateTimeFormats(StyleMap {{"@DATE_FORMAT", "dd.MM.yyyy"},
            {"@SHORT_DATE_FORMAT", "d.M.yy"}, {"@EMPTY", ""}, {"@DATE_TIME_FORMAT", "dd.MM HH:mm"},
            {"@LONG_DATE_TIME_FORMAT", "yyyy HH"}, {"@TIME_FORMAT", "HH:mm:ss"}});
        QCOMPARE(manager->getDateFormat("@SHORT_DATE_FORMAT"), QString("d.M.yy"));
        expectWarning("format not found for id \"@UNKNOWN\"");
        QCOMPARE(manager->getDateFormat("@UNKNOWN"), QString("dd.MM.yyyy"));
        const QDateTime when(QDate(2024, 3, 5), QTime(14, 7, 9));
        QCOMPARE((QStringList {manager->formatDateTime(when), manager->formatLongDateTime(when),
                     manager->formatTime(when.time()), manager->formatTime(when.time(), "H.m")}),
            (QStringList {"05.03 14:07", "2024 14", "14:07:09", "14.7"}));

        // Common formats overwrite even when empty, and leave the other ids alone.
        manager->setDateTimeFormats(CommonDateTimeFormats {"d/M/yy", "long", "dt", "ldt", ""});
        QCOMPARE(manager->getDateTimeFormats(),
            (StyleMap {{"@DATE_FORMAT", "dd.MM.yyyy"}, {"@EMPTY", ""},
                {"@SHORT_DATE_FORMAT", "d/M/yy"}, {"@LONG_DATE_FORMAT", "long"},
                {"@DATE_TIME_FORMAT", "dt"}, {"@LONG_DATE_TIME_FORMAT", "ldt"},
                {"@TIME_FORMAT", ""}}));

        // A missing time format falls back to the generic date format, which formats a time
        // into nothing but the literal separators; without it a missing id logs twice.
        manager->setDateTimeFormats(StyleMap {{"@DATE_FORMAT", "HH-mm"}});
        expectWarning("format not found for id \"@TIME_FORMAT\"");
        QCOMPARE(manager->formatTime(when.time()), QString("14-07"));
        expectWarning("format not found for id \"@DATE_TIME_FORMAT\"");
        QCOMPARE(manager->formatDateTime(when), QString());
        expectWarning("format not found for id \"@LONG_DATE_TIME_FORMAT\"");
        QCOMPARE(manager->formatLongDateTime(when), QString());
        manager->setDateTimeFormats(StyleMap());
        expectWarning("format not found for id \"@UNKNOWN\"");
        expectWarning("format not found for id \"@DATE_FORMAT\"");
        QCOMPARE(manager->getDateFormat("@UNKNOWN"), QString());
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString sizes = writeFile(dir.filePath("sizes.txt"), "@A: 1;\n@B: 2;\n");
        const QString more = writeFile(dir.filePath("more.txt"), "// later files win\n@B: 3;\n");
        const StyleManagerDataProvider files(
            StyleManagerDataProvider::Data({more}, {sizes, more}, {sizes}, {more}, {}));
        QCOMPARE(files.getDimensions(), (StyleMap {{"@A", "1"}, {"@B", "3"}}));
        QCOMPARE(files.getFonts(), (StyleMap {{"@A", "1"}, {"@B", "2"}}));
        QCOMPARE(files.getFormats(), (StyleMap {{"@B", "3"}}));
        writeFile(more, "@B: 4;\n@C: #020202;\n");
        QCOMPARE(files.getDimensions(), (StyleMap {{"@A", "1"}, {"@B", "4"}, {"@C", "#020202"}}));

        expectWarning("Trying to get the StyleManager before calling createManager", "");
        StyleManager& lazy = StyleManager::manager(); // loads the default style
        QCOMPARE(&StyleManager::manager(), &lazy); // warns only once
        QCOMPARE(lazy.getDateFormat("@SHORT_DATE_FORMAT"), QString("dd.MM.yyyy"));
        expectWarning("Trying to create the StyleManager twice. This is a flow issue.", "");
        StyleManager::createManager(files, CommonDateTimeFormats {"s", "l", "dt", "ldt", "t"});
        QCOMPARE(StyleManager::manager().getColor("@C"), QColor(2, 2, 2));
        QCOMPARE(StyleManager::manager().getDateFormat("@TIME_FORMAT"), QString("t"));
        QVERIFY(StyleManager::hasManager());
        StyleManager::deleteManager();
        QVERIFY(!StyleManager::hasManager());
        const char* const masks[][3] = {{"dd.MM.yyyy", "09.09.D999", "dd.MM.yyyy"},
            {"d/M/yy", "09/09/D999", "dd/MM/yyyy"}, {"yyyy-MM-dd", "D999-09-09", "yyyy-MM-dd"},
            {"dd.MM.YY", "09.09.D999", "dd.MM"}, // upper-case year
            {"d.M.yy.hh", "09.09.D999.09", "dd.MM.yyyy"}}; // an unknown field is dropped
        const StyleManagerDataProvider noFiles(StyleManagerDataProvider::Data({}, {}, {}, {}, {}));
        for (const auto& [shortFormat, mask, inputFormat] : masks) {
            StyleManager::deleteManager();
            StyleManager::createManager(
                noFiles, CommonDateTimeFormats {shortFormat, "", "", "", ""});
            QCOMPARE(DateFormatModifiers::getDateMask(), mask);
            QCOMPARE(DateFormatModifiers::getShortDateFormatForInput(), inputFormat);
        }
        const auto moveToScreen = [](QWidget& w) {
            Q_EMIT w.windowHandle()->screenChanged(w.windowHandle()->screen());
        };
        QWidget window;
        auto other = std::make_unique<QWidget>();
        QCOMPARE(DevicePixelRatio::value(), 1.0); // no main window yet
        DevicePixelRatio::registerMainWindow(&window);
        RecordingListener first("first"), second("second");
        delete new RecordingListener("gone");
        RecordingListener third("third");

        window.show(); // creates the native window and sends WinIdChange
        other->show();
        QVERIFY(QTest::qWaitForWindowExposed(&window) && QTest::qWaitForWindowExposed(other.get()));
        moveToScreen(window);
        QCOMPARE(calls, (QStringList {"first", "second", "third"}));
        // Registering the same window again must not connect it twice.
        DevicePixelRatio::registerMainWindow(&window);
        moveToScreen(window);
        QCOMPARE(calls.size(), 6);

        // A second main window detaches the first, also from later WinIdChange events.
        calls.clear();
        DevicePixelRatio::registerMainWindow(other.get());
        QCoreApplication::sendEvent(&window, std::make_unique<QEvent>(QEvent::WinIdChange).get());
        moveToScreen(window);
        QVERIFY(calls.isEmpty());
        moveToScreen(*other);
        QCOMPARE(calls.size(), 3);
        other.reset(); // a destroyed main window is forgotten; cleanup() must not touch it
        QCOMPARE(DevicePixelRatio::value(), 1.0);
    }

    void compareMergeAndAlpha()
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
        QTest::ignoreMessage(QtWarningMsg, "ImageComparator : invalid input images!");
        QCOMPARE(ImageComparator::compareImages(QImage(), pattern(6, 4), 0.0f), -1.0f);
        QTest::ignoreMessage(QtWarningMsg, "ImageComparator : input images not the same size!");
        QCOMPARE(ImageComparator::compareImages(pattern(6, 4), pattern(4, 6), 0.0f), -1.0f);
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
        QCOMPARE(QImageHelper::getDepth(QImage(2, 2, QImage::Format_RGB32)), 24);
        QCOMPARE(QImageHelper::getDepth(QImage(2, 2, QImage::Format_ARGB32)), 32);
        QImage alpha(6, 5, QImage::Format_ARGB32);
        alpha.fill(qRgba(1, 2, 3, 255));
        QVERIFY(!QImageHelper::isTransparent(alpha));
        alpha.setPixel(5, 4, qRgba(1, 2, 3, 254));
        QVERIFY(QImageHelper::isTransparent(alpha));
        QVERIFY(!QImageHelper::isTransparent(alpha.convertToFormat(QImage::Format_RGB32)));
        // Lines longer than 4 x width: pixels addressed from the linear index must honour them,
        // also when writing detaches a shared image into a copy with other line lengths. An odd
        // width and enough pixels for the parallel loop to split inside rows.
        const std::tuple<QImage::Format, int, bool> layouts[]
            = {{QImage::Format_ARGB32, 12, false}, {QImage::Format_ARGB32, 12, true},
                {QImage::Format_ARGB32_Premultiplied, 0, false}, {QImage::Format_RGB888, 0, false}};
        const int width = 301, height = 211;
        QImage source(width, height, QImage::Format_ARGB32);
        const QRgb colours[] = {qRgba(0, 0, 0, 0), qRgba(255, 0, 51, 102), 0};
        for (int i = 0; i < width * height; ++i)
            source.setPixel(
                i % width, i / width, i % 3 < 2 ? colours[i % 3] : qRgb(i % 256, 7, 200));
        for (const auto& [format, padding, shared] : layouts) {
            QImage image = source.convertToFormat(format);
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
            auto* pixels = reinterpret_cast<QRgb*>(expected.bits()); // lines of 4 x width
            for (int i = 0; i < width * height; ++i)
                pixels[i] = qAlpha(pixels[i]) == 0 ? qRgb(10, 20, 30) : (pixels[i] | 0xff000000u);
            QCOMPARE(argb(image), expected);
        }
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
        const bool grey = QImage::toPixelFormat(format).colorModel() == QPixelFormat::Grayscale;
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

    void builtDates()
    {
        using B = DateBuilder;
        const QDate day(2024, 3, 5);
        // The day keeps its leading zero, the numeric month does not.
        const std::tuple<B::DateFormat, const char*, const char*, const char*, const char*> cases[]
            = {{B::YearMonthDay, "-", "2024-3-05", "2024-Mar-05", "2024-March-05"},
                {B::DayMonthYear, ".", "05.3.2024", "05.Mar.2024", "05.March.2024"},
                {B::MonthDayYear, " / ", "3 / 05 / 2024", "Mar / 05 / 2024", "March / 05 / 2024"},
                {B::DayMonthYear, "", "0532024", "05Mar2024", "05March2024"}};
        for (const auto& [format, separator, numeric, abbreviated, full] : cases) {
            QCOMPARE(B::getNumericDate(day, format, separator), numeric);
            QCOMPARE(B::getAbbreviatedDate(day, format, separator), abbreviated);
            QCOMPARE(B::getFullDate(day, format, separator), full);
        }
        QCOMPARE(B::getNumericDate(QDate(2023, 12, 31), B::DayMonthYear, "."), "31.12.2023");
        const QStringList months {"January", "February", "March", "April", "May", "June", "July",
            "August", "September", "October", "November", "December"};
        for (int month = 1; month <= 12; ++month) {
            QCOMPARE(B::getMonthFull(QDate(2023, month, 28)), months.at(month - 1));
            QCOMPARE(B::getMonthAbbreviated(QDate(2023, month, 28)), months.at(month - 1).left(3));
        }
        const QDate invalid;
        QCOMPARE(B::getMonthFull(invalid) + B::getMonthAbbreviated(invalid)
                + B::getNumericDate(invalid, B::DayMonthYear, ".")
                + B::getAbbreviatedDate(invalid, B::DayMonthYear, ".")
                + B::getFullDate(invalid, B::DayMonthYear, "."),
            QString());
        QCOMPARE(B::getNumericDate(day, static_cast<B::DateFormat>(3), "."), QString());
        // Each row: format, date, a pattern it matches, one it does not. Lower-case pattern
        // letters work too. Only one separator needs to be in place; the digits are read from
        // fixed positions, so "05-0320-24" has the year digits 0, none (the separator), 2 and 4.
        const char* const patterns[][4] = {{"yyyy-MM-dd", "2024-03-05", "YYYY-03-DD", "YYYY-04-DD"},
            {"yyyy-MM-dd", "2024-03-05", "Y0YY-MM-DD", "Y1YY-MM-DD"},
            {"dd.MM.yyyy", "15.03.2024", "1D.MM.YYYY", "05.MM.YYYY"},
            {"MM/dd/yyyy", "03/05/2024", "03/DD/YYYY", "05/DD/YYYY"},
            {"dd MM yyyy", "31 03 1999", "dd 03 yyyy", "dd 04 yyyy"},
            {"dd-MM-yyyy", "05-0320-24", "DD-03-0YY4", "DD-03-00Y4"},
            {"dd-MM-yyyy", "05-0320-24", "DD-03-YYYY", "DD-04-YYYY"}};
        for (const auto& [format, date, matching, other] : patterns) {
            DateMatcher matcher;
            matcher.setDateFormat(format);
            QVERIFY2(matcher.match(date), date); // the default pattern matches any date
            matcher.setPattern(matching);
            QVERIFY2(matcher.match(date), matching);
            matcher.setPattern(other);
            QVERIFY2(!matcher.match(date), other);
        }
        DateMatcher readable;
        readable.setPattern("05-MM-YYYY");
        DateMatcher copy(readable), assigned;
        assigned.setPattern("07-MM-YYYY");
        assigned = readable;
        readable.setPattern("06-MM-YYYY");
        QVERIFY(copy.match("05-03-2024") && assigned.match("05-03-2024"));
        QVERIFY(!readable.match("05-03-2024"));
        // Day first, "-" and an open pattern: any good date would match.
        for (const char* date :
            {"05-03-20241", "05-03/2024", "05-03-20-4", "DD-03-2024", "05-03-2 24"}) {
            expectWarning("Given date is not in correct date format!", "DateMatcher: ");
            QVERIFY2(!DateMatcher().match(date), date);
        }
        expectWarning("Date is not in correct format.", "DateMatcher: ");
        QVERIFY(!DateMatcher().match("0503-20-24"));
        DateMatcher matcher;
        // Well-formed, but neither separator is where a day-first date has them.
        expectWarning("Date is not in correct format.", "DateMatcher: ");
        matcher.setPattern("DDDD-MM-YY");
        QVERIFY(!matcher.match("05-03-2024"));

        matcher.setDateFormat("yyyy/MM/dd");
        matcher.setPattern("YYYY/12/DD");
        // No separator, no field order, nothing.
        for (const char* format : {"yyyy", "x.y.z", ""}) {
            expectWarning("Could not determine date format! Date format not set.", "DateMatcher: ");
            matcher.setDateFormat(format);
        }
        // A bad letter, the old separator of a default matcher.
        for (const char* pattern : {"YYYY/XX/DD", "YYYY-01-DD"}) {
            expectWarning("Given date pattern is not valid! Pattern not set.", "DateMatcher: ");
            matcher.setPattern(pattern);
        }
        QVERIFY(matcher.match("2023/12/24"));
        QVERIFY(!matcher.match("2023/11/24"));
    }

    void stringsValidatorAndWarningLabel()
    {
        // The first of "/.- " wins; other punctuation is no separator.
        const std::pair<const char*, QChar> separators[]
            = {{"dd.MM.yyyy", '.'}, {"d/M/yy", '/'}, {"yyyy-MM-dd", '-'}, {"dd MM yyyy", ' '},
                {"dd/MM.yyyy", '/'}, {"ddMMyyyy", QChar()}, {"dd:MM:yyyy", QChar()}, {"", QChar()}};
        for (const auto& [text, separator] : separators)
            QCOMPARE(StringOperations::determineSeparator(text), separator);

        for (const auto& [a, b, same] :
            {std::tuple {"Doe^John", "doe john", true}, {"  DOE ^ JOHN  ", "Doe^John", true},
                {"Anna Maria^Smith", "annamaria smith", true}, {"Doe^John", "Doe^Jane", false},
                {"Doe-John", "Doe John", false}})
            QCOMPARE(StringOperations::compareFullNamesFuzzy(a, b), same);
        QCOMPARE(StringOperations::localeAwareCompare("abc", "ABC", Qt::CaseInsensitive), 0);
        QVERIFY(StringOperations::localeAwareCompare("abc", "ABC", Qt::CaseSensitive) != 0);
        QVERIFY(StringOperations::localeAwareCompare("apple", "Banana", Qt::CaseInsensitive) < 0);
        const std::tuple<int, const char*, const char*> cases[] = {{99, "0", "1"}, {9, "05", "1"},
            {99, "05", "15"}, {999, "205", "205"}, {99, "42", "42"}};
        for (const auto& [top, typed, shown] : cases) {
            QLineEdit edit;
            edit.setValidator(new NoLeadingZeroValidator(0, top, &edit));
            QTest::keyClicks(&edit, typed);
            QCOMPARE(edit.text(), shown);
            // Pasted at once, a leading zero turns the whole text into "1".
            edit.clear();
            edit.insert(typed);
            QCOMPARE(edit.text(), *typed == '0' ? QString("1") : QString(typed));
        }
        WarningLabelProperty label("text");
        QStringList log;
        using W = WarningLabelProperty;
        for (const auto& [signal, name] : {std::pair {&W::textChanged, "text"},
                 {&W::iconPathChanged, "icon"}, {&W::colorChanged, "color"},
                 {&W::fontChanged, "font"}, {&W::labelVisibleChanged, "visible"}})
            connect(&label, signal, this, [&log, name = name] { log << name; });
        // QML sets the values under its own property names; the defaults change nothing.
        for (const auto& [name, value] : {std::pair<const char*, QVariant> {"warning_text", "text"},
                 {"warning_icon", QString()}, {"warning_color", QColor("red")},
                 {"warning_font_size", 14u}, {"label_visible", false},
                 {"warning_color", QColor(Qt::blue)}, {"warning_color", QColor(Qt::blue)},
                 {"label_visible", true}, {"warning_text", "other"}, {"warning_font_size", 10u},
                 {"warning_icon", "icon.png"}, {"warning_icon", "icon.png"}})
            QVERIFY(label.setProperty(name, value));
        QCOMPARE(log, (QStringList {"color", "visible", "text", "font", "icon"}));
        QCOMPARE(label.getText() + label.getIconPath(), QString("othericon.png"));
        QCOMPARE(label.getWarningColor(), QColor(Qt::blue));
        QVERIFY(label.isVisible() && label.getWarningFontSize() == 10u);
        KeyCatcher parent;
        auto* horizontal = new Slider(Qt::Horizontal, &parent);
        auto* vertical = new Slider(Qt::Vertical, &parent);
        for (Slider* slider : {horizontal, vertical}) {
            slider->setGeometry(
                slider == horizontal ? QRect(0, 0, 200, 30) : QRect(210, 0, 30, 200));
            slider->setRange(0, 100);
            slider->setValue(40);
        }
        parent.show();
        QVERIFY(QTest::qWaitForWindowExposed(&parent));
        // A click at pixel `at` of 200 along the slider; the vertical one counts from the top.
        const std::tuple<Slider*, int, int> clicks[]
            = {{horizontal, 150, 75}, {horizontal, 0, 0}, {vertical, 50, 75}, {vertical, 180, 10}};
        for (const auto& [slider, at, expected] : clicks) {
            QTest::mouseClick(
                slider, Qt::LeftButton, {}, slider == horizontal ? QPoint(at, 15) : QPoint(15, at));
            QCOMPARE(slider->value(), expected);
        }

        horizontal->setValue(5);
        horizontal->disableKeys({Qt::Key_Right, Qt::Key_Left, Qt::Key_Right});
        horizontal->disableKey(Qt::Key_Left);
        QTest::keyClick(horizontal, Qt::Key_Right);
        QTest::keyClick(horizontal, Qt::Key_Left);
        QCOMPARE(horizontal->value(), 5);
        // Ignored, so the surrounding widget gets them instead.
        QCOMPARE(parent.keys, (QList<int> {Qt::Key_Right, Qt::Key_Left}));
        QTest::keyClick(horizontal, Qt::Key_Up);
        QCOMPARE(horizontal->value(), 6);
        horizontal->enableAllKeys();
        QTest::keyClick(horizontal, Qt::Key_Right);
        QCOMPARE(horizontal->value(), 7);
        QCOMPARE(parent.keys.size(), 2);
        int delivered = 0; // a call that runs only when pending events are processed
        const auto queueCall = [&] { QTimer::singleShot(0, this, [&] { ++delivered; }); };
        queueCall();
        NullProgressUpdater none;
        static_cast<const ProgressUpdater&>(none).updateProgress("step", 1);
        QCOMPARE(delivered, 0);

        ProgressUpdater updater;
        const QDeadlineTimer deadline(20);
        updater.updateProgress("first", 1);
        QCOMPARE(delivered, 1);
        queueCall();
        QTest::qSleep(5);
        updater.updateProgress("second", 2);
        if (deadline.hasExpired())
            QSKIP("The machine was too slow to call twice within 20 ms");
        QCOMPARE(delivered, 1);
        // qSleep does not process events: only the updater can deliver the queued call.
        QTest::qSleep(25);
        updater.updateProgress("third", 3);
        QCOMPARE(delivered, 2);
    }

    void everyNameBothWaysAndNumberingSelection()
    {
        const auto range = [](int first, int last) { return Range {Tooth(first), Tooth(last)}; };
        // A molar has no deciduous tooth.
        QCOMPARE((QStringList {G::getName(Tooth(0)), G::getName(Tooth(-1)),
                     G::getName(Tooth(1), true), G::getName(Tooth(5), true)}),
            (QStringList {"?", "-", "?", "54"}));
        QCOMPARE(G::getToothIdByName("99"), ToothChart::UnknownTooth);
        QVERIFY(!G::getToothTypeAndDentitionByName("x"));
        QCOMPARE(G::getToothIdByName("16", "FDI"), Tooth(3));
        QCOMPARE(G::getToothTypeAndDentitionByName("A", "UNIV")->first, Tooth(4));

        G::TOOTH_NUMBERING_SYSTEM = "UNIV";
        QCOMPARE((QStringList {G::getName(Tooth(3)), G::getName(Tooth(3), "FDI"),
                     G::getName(Tooth(3), QString())}),
            (QStringList {"3", "16", "16"}));
        QCOMPARE(G::getToothIdByName("3"), Tooth(3));
        G::TOOTH_NUMBERING_SYSTEM = "univ"; // only the exact text selects Universal numbering
        QCOMPARE(G::getName(Tooth(3)), QString("16"));
        QStringList universal;
        for (int position = 1; position <= 32; ++position)
            universal.append(QString::number(position));
        // The position of the i-th name: 32 permanent teeth, then the deciduous ones.
        const auto position = [](int i) { return i < 32 ? i + 1 : i < 42 ? i - 28 : i - 22; };
        for (const QString numbering : {"", "UNIV"}) {
            G::TOOTH_NUMBERING_SYSTEM = numbering;
            const QStringList names
                = numbering.isEmpty() ? fdiPermanent + fdiDeciduous : universal + univDeciduous;
            QCOMPARE(G::getAllNames(), names);
            for (int i = 0; i < names.size(); ++i) {
                QCOMPARE(G::getName(Tooth(position(i)), numbering, i >= 32), names.at(i));
                QCOMPARE(G::getToothIdByName(names.at(i)), Tooth(position(i)));
                QCOMPARE(G::getToothTypeAndDentitionByName(names.at(i)),
                    std::make_optional(std::make_pair(Tooth(position(i)),
                        i >= 32 ? anatomy::Tooth::Deciduous : anatomy::Tooth::Permanent)));
            }
        }
        const QStringList kinds {"third molar", "second molar", "first molar", "second premolar",
            "first premolar", "canine", "lateral incisor", "central incisor"};
        for (int p = 1; p <= 16; ++p) {
            const QString type = (p <= 8 ? "Right " : "Left ") + kinds.at(p <= 8 ? p - 1 : 16 - p);
            QCOMPARE(G::getType(Tooth(p)), type);
            QCOMPARE(G::getType(Tooth(33 - p)), type);
        }
        QCOMPARE(G::getType(Tooth(0)) + G::getType(Tooth(-1)) + G::getType(Tooth(33)), QString());

        QCOMPARE(QStringList(
                     {G::archDisplayName(ToothChart::Upper), G::archDisplayName(ToothChart::Lower),
                         G::archDisplayName(static_cast<ToothChart::ArchType>(2))}),
            QStringList({"upper jaw", "lower jaw", "jaw"}));
        QCOMPARE(QStringList({G::getToothNumberingName("UNIV"), G::getToothNumberingName("FDI"),
                     G::getToothNumberingName("")}),
            QStringList({"Universal numbering", "FDI numbering", "FDI numbering"}));
        const char* const steps[][4] = {{"", "11", "21", "12"}, {"", "28", "38", "27"},
            {"", "51", "61", "52"}, {"UNIV", "16", "17", "15"}, {"UNIV", "J", "K", "I"},
            {"UNIV", "1", "2", "-"}, {"", "xx", "", ""}};
        G generator;
        for (const auto& [numbering, name, expectedNext, previous] : steps) {
            G::TOOTH_NUMBERING_SYSTEM = numbering;
            QCOMPARE(G::getPreviousTooth(name), QString(previous));
            QString next; // also reachable from QML
            QVERIFY(QMetaObject::invokeMethod(
                &generator, "getNextTooth", Q_RETURN_ARG(QString, next), Q_ARG(QString, name)));
            QCOMPARE(next, QString(expectedNext));
        }
        QList<Tooth> teeth {Tooth(32), Tooth(9), Tooth(1), Tooth(17), Tooth(0)};
        G::sortTeethListByDisplayName(teeth);
        // FDI 48, 21, 18, 38 and "?" (which sorts as 0).
        QCOMPARE(teeth, (QList<Tooth> {Tooth(0), Tooth(1), Tooth(9), Tooth(17), Tooth(32)}));
        G::TOOTH_NUMBERING_SYSTEM = "UNIV";
        teeth = {Tooth(32), Tooth(9), Tooth(10), Tooth(2)};
        G::sortTeethListByDisplayName(teeth);
        QCOMPARE(teeth, (QList<Tooth> {Tooth(2), Tooth(9), Tooth(10), Tooth(32)}));
        G::TOOTH_NUMBERING_SYSTEM.clear();
        // Ascending reorders; then a range within the lower arch is swapped (once, whatever the
        // order it came in), a range across the arches is not.
        const std::tuple<Range, bool, bool, const char*> cases[]
            = {{range(12, 5), false, true, "14-24"}, {range(12, 5), false, false, "24-14"},
                {range(8, 8), false, true, "11"}, {range(20, 23), true, true, "32-35"},
                {range(20, 23), false, true, "35-32"}, {range(23, 20), true, false, "35-32"},
                {range(14, 20), true, true, "26-35"}, {range(0, 5), false, true, ""},
                {range(5, -1), false, true, ""}};
        for (const auto& [teeth, swapLower, ascending, fdi] : cases) {
            QCOMPARE(G::displayName(teeth, "FDI", false, swapLower, ascending), fdi);
            QCOMPARE(G::displayName(teeth, false, swapLower, ascending), fdi);
        }
        const QList<Range> ranges {range(1, 3), range(9, 9)};
        QCOMPARE(G::displayName(ranges, false, false, ","), QString("18-16,21"));
        // Only the first character of the last separator goes: the blank stays behind.
        QCOMPARE(G::displayName(ranges, false, false, ", "), QString("18-16, 21 "));
        QCOMPARE(G::displayName(ranges, false, false, ";", "UNIV"), QString("1-3;9"));

        QCOMPARE(G::displayName(QList<Tooth> {Tooth(12), Tooth(1), Tooth(5)}, true), "14-24");
        QCOMPARE(G::displayName(QList<Tooth> {Tooth(12), Tooth(5)}, false), QString("24-14"));

        QCOMPARE(G::getName(QList<Tooth> {Tooth(1), Tooth(32)}, "/"), QString("18/48"));
        QCOMPARE(G::getName(QList<Tooth> {Tooth(1), Tooth(32)}, "UNIV", " - "), "1 - 32- ");

        QCOMPARE(G::getName(range(8, 8)), QString("Tooth 11"));
        QCOMPARE(G::getName(range(9, 8)), QString("Teeth 11-21"));
        QCOMPARE(G::displayNameWithoutBrackets(range(3, 1)), QString("18-16"));
        QCOMPARE(G::displayNameWithoutBrackets(range(3, 1), "UNIV"), QString("1-3"));

        QCOMPARE(G::getName(QList<Range> {range(8, 8)}, false), QString("Tooth 11"));
        QCOMPARE(G::getName(QList<Range> {range(9, 8)}, false), "Teeth 21-11"); // stored order
        QCOMPARE(G::getName(QList<Range> {range(8, 8), range(30, 30)}, false), "Teeth 11, 46");
        QCOMPARE(G::getName(QList<Range> {range(8, 8), range(1, 2)}, true), "11, 18-17");
        QCOMPARE(G::getName(QList<Range>(), false) + G::getName(QList<Tooth>(), "/")
                + G::displayName(QList<Tooth>(), true)
                + G::displayName(QList<Range>(), false, false, ","),
            QString());

        QCOMPARE(G::toothRangeDisplayNames(range(3, 1), range(20, 23), false, " | "),
            QString("18-16 | 32-35"));
        QCOMPARE(G::toothRangeDisplayNames(range(0, 0), range(20, 23), false, " | "), "32-35");
        QCOMPARE(G::toothRangeDisplayNames(range(3, 1), range(0, 0), false, " | "), "18-16");
        QCOMPARE(G::toothRangeDisplayNames(range(4, 5), range(20, 21), true, "/"), "55-54/74-75");
    }
};

QTEST_MAIN(tst_Utility)
#include "tst_utility.moc"
