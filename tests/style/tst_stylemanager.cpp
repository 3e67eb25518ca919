#include <guicore/style/DevicePixelRatio.h>
#include <guicore/style/FontsInitializer.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QtTest>
#include <QtWidgets>

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

// Replaces the virtual hooks, as a derived manager may: the public getters must go through them.
struct OverridingStyleManager : StyleManager
{
    QString getDateFormat(const QString& id) const override
    {
        return id == TIME_FORMAT ? "mm" : "";
    }
    QString doGetFontFamily(const QString& id) const override { return '"' + id + '"'; }
    int getIntegerFontProperty(const QString& id) const override { return int(id.size()); }
};

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) < 0)
        qFatal("cannot write %s", qPrintable(path));
}

StyleManagerDataProvider provider(const QStringList& colors, const QStringList& sizes = {},
    const QStringList& fonts = {}, const QStringList& formats = {}, const QString& palette = {})
{
    return StyleManagerDataProvider(
        StyleManagerDataProvider::Data(colors, sizes, fonts, formats, palette));
}

void expectWarning(const QString& text)
{
    if (!text.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, qPrintable("StyleManager : " + text));
}

QStringList calls;

// Records into one list shared by all listeners, so that the order of calls can be compared.
struct RecordingListener : DevicePixelRatio::Listener
{
    explicit RecordingListener(QString name)
        : name(std::move(name))
    {
        DevicePixelRatio::registerListener(this);
    }
    ~RecordingListener() override { DevicePixelRatio::unregisterListener(this); }
    void devicePixelRatioChanged() override { calls.append(name); }
    const QString name;
};

// The offscreen platform has a single screen: tell the window it changed, as Qt does when the
// user drags the window onto another monitor.
void moveToScreen(QWidget& window)
{
    Q_EMIT window.windowHandle()->screenChanged(window.windowHandle()->screen());
}

} // namespace

class tst_StyleManager : public QObject
{
    Q_OBJECT

    TestStyleManager manager;

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        manager.setColorPalette({});
        manager.setSizes({});
        manager.setFonts({});
        manager.setDateTimeFormats(StyleMap());
        calls.clear();
    }
    void cleanup()
    {
        StyleManager::deleteManager();
        DevicePixelRatio::registerMainWindow(nullptr);
    }

    void colors()
    {
        manager.setColorPalette(
            {{"@RED", "#ff0000"}, {"@HALF", "#80102030"}, {"@NAMED", "steelblue"}, {"@EMPTY", ""}});
        QCOMPARE(manager.getColor("@RED"), QColor(255, 0, 0));
        QCOMPARE(manager.getColor("@HALF"), QColor(0x10, 0x20, 0x30, 0x80));
        QCOMPARE(manager.getColor("@NAMED"), QColor("steelblue"));
        expectWarning("color not found for id \"@MISSING\"");
        QCOMPARE(manager.getColor("@MISSING"), QColor(Qt::magenta));
        // Present but empty is missing for getColor, but not for the optional lookups.
        expectWarning("color not found for id \"@EMPTY\"");
        QCOMPARE(manager.getColor("@EMPTY"), QColor(Qt::magenta));
        QVERIFY(manager.hasColor("@EMPTY"));
        QVERIFY(!manager.getOptionalColor("@EMPTY").isValid());
        QVERIFY(!manager.hasColor("@MISSING"));
        QCOMPARE(manager.getOptionalColor("@MISSING"), QColor(Qt::transparent));
        QCOMPARE(manager.getOptionalColor("@RED"), QColor(255, 0, 0));
    }

    void numericGetters()
    {
        const QString badSize = "could not properly convert size value \"%1\" for id \"@X\"";
        const QString bad = "could not properly convert property value \"%1\" for id \"@X\"";
        const QString none = "font property not found for id \"@X\"";
        const QString noLineHeight = "line-height not found for font id \"@X\"";
        const QHash<QString, std::function<double()>> getters {
            {"size", [&] { return manager.getSize("@X"); }},
            {"fontSize", [&] { return manager.getFontSize("@X"); }},
            {"fontWeight", [&] { return manager.getFontWeight("@X"); }},
            {"bool", [&] { return manager.getFontBoolValue("@X") ? 1.0 : 0.0; }},
            {"lineHeight", [&] { return manager.getLineHeight("@X"); }}};
        // Integers are read in base 10 only; a line height only from its own key.
        const std::tuple<const char*, const char*, const char*, double, QString> cases[] = {
            {"size", "@X", "1.5", 1.5, {}}, {"size", "@X", "12px", 0.0, badSize.arg("12px")},
            {"size", "@X", "", 0.0, "size not found for id \"@X\""},
            {"fontSize", "@X", "13", 13.0, {}}, {"fontSize", "@X", "12.5", 0.0, bad.arg("12.5")},
            {"fontSize", "@X", "", 0.0, none}, {"fontWeight", "@X", "600", 600.0, {}},
            {"fontWeight", "@X", "0x10", 0.0, bad.arg("0x10")}, {"bool", "@X", "true", 1.0, {}},
            {"bool", "@X", "false", 0.0, {}}, {"bool", "@X", "TRUE", 0.0, bad.arg("TRUE")},
            {"bool", "@X", "", 0.0, none}, {"lineHeight", "@X-line-height", "1.25", 1.25, {}},
            {"lineHeight", "@X", "1.5", 0.1, noLineHeight},
            {"lineHeight", "@X-line-height", "normal", 0.1,
                "Invalid line-height format for id \"@X\""}};
        for (const auto& [getter, key, value, expected, warning] : cases) {
            manager.setSizes({{key, value}});
            manager.setFonts({{key, value}});
            expectWarning(warning);
            QCOMPARE(getters.value(getter)(), expected);
        }
    }

    void fonts()
    {
        // Pixel size -1: an invalid format.
        const std::tuple<const char*, int, const char*> complete[]
            = {{"13 \"DejaVu Sans\"", 13, "DejaVu Sans"}, {"9\t\"Serif\"", 9, "Serif"},
                {"\"Mono\"", -1, ""}, {"12  \"Mono\"", -1, ""}, {"12 Mono", -1, ""},
                {"12 \"Mono\" bold", -1, ""}};
        for (const auto& [value, pixelSize, family] : complete) {
            manager.setFonts({{"@F", value}});
            if (pixelSize < 0)
                expectWarning("Invalid font format for id \"@F\"");
            const QFont font = manager.getCompleteFont("@F");
            QCOMPARE(font, pixelSize < 0 ? QFont() : font);
            QCOMPARE(font.family(), pixelSize < 0 ? QFont().family() : family);
            QCOMPARE(font.pixelSize(), pixelSize < 0 ? QFont().pixelSize() : pixelSize);
        }
        // An empty digit run passes pixel size 0 on; QFont warns and keeps its default size.
        manager.setFonts({{"@F", " \"Mono\""}});
        QTest::ignoreMessage(QtWarningMsg, "QFont::setPixelSize: Pixel size <= 0 (0)");
        QCOMPARE(manager.getCompleteFont("@F").family(), QString("Mono"));

        const char* const families[][2] = {{"\"DejaVu Sans\"", "DejaVu Sans"},
            {"DejaVu Sans", "DejaVu Sans"}, {"\"DejaVu Sans", "DejaVu San"}, {"\"", ""}};
        for (const auto& [value, forQFont] : families) {
            manager.setFonts({{"@F", value}});
            QCOMPARE(manager.getFontFamily("@F"), value);
            QCOMPARE(manager.getFontFamilyForQml("@F"), value);
            QCOMPARE(manager.getFontFamilyForQFont("@F"), forQFont);
        }
        manager.setFonts({{"@F", ""}});
        for (int i = 0; i < 3; ++i)
            expectWarning("font not found for id \"@F\"");
        QCOMPARE(manager.getFontFamily("@F"), QString());
        QCOMPARE(manager.getFontFamilyForQFont("@F"), QString());
        QCOMPARE(manager.getCompleteFont("@F"), QFont());
    }

    void dateFormats()
    {
        manager.setDateTimeFormats(StyleMap {{"@DATE_FORMAT", "dd.MM.yyyy"},
            {"@SHORT_DATE_FORMAT", "d.M.yy"}, {"@EMPTY", ""}, {"@DATE_TIME_FORMAT", "dd.MM HH:mm"},
            {"@LONG_DATE_TIME_FORMAT", "yyyy HH"}, {"@TIME_FORMAT", "HH:mm:ss"}});
        QCOMPARE(manager.getDateFormat("@SHORT_DATE_FORMAT"), QString("d.M.yy"));
        expectWarning("format not found for id \"@UNKNOWN\"");
        QCOMPARE(manager.getDateFormat("@UNKNOWN"), QString("dd.MM.yyyy"));
        expectWarning("format not found for id \"@EMPTY\"");
        QCOMPARE(manager.getDateFormat("@EMPTY"), QString("dd.MM.yyyy"));
        const QDateTime when(QDate(2024, 3, 5), QTime(14, 7, 9));
        QCOMPARE(manager.formatDateTime(when), QString("05.03 14:07"));
        QCOMPARE(manager.formatLongDateTime(when), QString("2024 14"));
        QCOMPARE(manager.formatTime(when.time()), QString("14:07:09"));
        QCOMPARE(manager.formatTime(when.time(), "H.m"), QString("14.7"));

        // Common formats overwrite even when empty, and leave the other ids alone.
        manager.setDateTimeFormats(CommonDateTimeFormats {"d/M/yy", "long", "dt", "ldt", ""});
        QCOMPARE(manager.getDateTimeFormats(),
            (StyleMap {{"@DATE_FORMAT", "dd.MM.yyyy"}, {"@EMPTY", ""},
                {"@SHORT_DATE_FORMAT", "d/M/yy"}, {"@LONG_DATE_FORMAT", "long"},
                {"@DATE_TIME_FORMAT", "dt"}, {"@LONG_DATE_TIME_FORMAT", "ldt"},
                {"@TIME_FORMAT", ""}}));

        // A missing time format falls back to the generic date format, which formats a time
        // into nothing but the literal separators; without it a missing id logs twice.
        manager.setDateTimeFormats(StyleMap {{"@DATE_FORMAT", "HH-mm"}});
        expectWarning("format not found for id \"@TIME_FORMAT\"");
        QCOMPARE(manager.formatTime(when.time()), QString("14-07"));
        expectWarning("format not found for id \"@DATE_TIME_FORMAT\"");
        QCOMPARE(manager.formatDateTime(when), QString());
        expectWarning("format not found for id \"@LONG_DATE_TIME_FORMAT\"");
        QCOMPARE(manager.formatLongDateTime(when), QString());
        manager.setDateTimeFormats(StyleMap());
        expectWarning("format not found for id \"@UNKNOWN\"");
        expectWarning("format not found for id \"@DATE_FORMAT\"");
        QCOMPARE(manager.getDateFormat("@UNKNOWN"), QString());
    }

    void gettersGoThroughVirtualHooks()
    {
        const OverridingStyleManager overriding;
        QCOMPARE(overriding.formatTime(QTime(14, 7, 9)), QString("07"));
        QCOMPARE(overriding.getFontFamily("@ABC"), QString("\"@ABC\""));
        QCOMPARE(overriding.getFontFamilyForQml("@ABC"), QString("\"@ABC\""));
        QCOMPARE(overriding.getFontFamilyForQFont("@ABC"), QString("@ABC"));
        QCOMPARE(overriding.getFontSize("@ABC"), 4);
        QCOMPARE(overriding.getFontWeight("@ABCDE"), 6);
        QTest::ignoreMessage(
            QtWarningMsg, "StyleManager::getFont  is deprecated. Use getFontFamily instead.");
        QCOMPARE(overriding.getFont("@X"), QString("\"@X\""));
    }

    void providerReadsAfreshAndManagersAreReplaced()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString sizes = dir.filePath("sizes.txt");
        const QString more = dir.filePath("more.txt");
        writeFile(sizes, "@A: 1;\n@B: 2;\n");
        writeFile(more, "// later files win\n@B: 3;\n");
        const StyleManagerDataProvider files = provider({more}, {sizes, more}, {sizes}, {more});
        QCOMPARE(files.getDimensions(), (StyleMap {{"@A", "1"}, {"@B", "3"}}));
        QCOMPARE(files.getFonts(), (StyleMap {{"@A", "1"}, {"@B", "2"}}));
        QCOMPARE(files.getFormats(), (StyleMap {{"@B", "3"}}));
        writeFile(more, "@B: 4;\n@C: #020202;\n");
        QCOMPARE(files.getDimensions(), (StyleMap {{"@A", "1"}, {"@B", "4"}, {"@C", "#020202"}}));

        QVERIFY(!StyleManager::hasManager());
        QTest::ignoreMessage(
            QtWarningMsg, "Trying to get the StyleManager before calling createManager");
        StyleManager& lazy = StyleManager::manager(); // loads the default style
        QCOMPARE(&StyleManager::manager(), &lazy); // warns only once
        QCOMPARE(lazy.getDateFormat("@SHORT_DATE_FORMAT"), QString("dd.MM.yyyy"));
        QTest::ignoreMessage(
            QtWarningMsg, "Trying to create the StyleManager twice. This is a flow issue.");
        StyleManager::createManager(files, CommonDateTimeFormats {"s", "l", "dt", "ldt", "t"});
        QCOMPARE(StyleManager::manager().getColor("@C"), QColor(2, 2, 2));
        QCOMPARE(StyleManager::manager().getDateFormat("@TIME_FORMAT"), QString("t"));
        StyleManager::deleteManager();
        QVERIFY(!StyleManager::hasManager());
        StyleManager::deleteManager(); // harmless without a manager
    }

    void defaultStyleHasEveryIdTheLibraryUses()
    {
        // A missing id would warn (and fall back), and any warning fails this test.
        StyleManager::createManager(StyleManagerDataProvider());
        const StyleManager& style = StyleManager::manager();
        QVERIFY(!style.getFontFamilyForQFont("@MEASUREMENT_LABEL_FONT").isEmpty());
        QVERIFY(style.getFontSize("@MEASUREMENT_LABEL_FONT_SIZE_3D") > 0);
        QVERIFY(style.getLineHeight("@MEASUREMENT_LABEL_FONT") > 0.1);
        QVERIFY(!style.getCompleteFont("@APPLICATION_FONT_COMPLETE").family().isEmpty());
        QCOMPARE(
            style.formatDateTime(QDateTime(QDate(2024, 3, 5), QTime(14, 7))), "05.03.2024 14:07");
        for (const QString& id : {StyleManager::SHORT_DATE_FORMAT, StyleManager::LONG_DATE_FORMAT,
                 StyleManager::DATE_TIME_FORMAT, StyleManager::LONG_DATE_TIME_FORMAT,
                 StyleManager::DATE_TIME_WITH_SECONDS_FORMAT, StyleManager::TIME_FORMAT,
                 StyleManager::DATE_FORMAT})
            QVERIFY2(!style.getDateFormat(id).isEmpty(), qPrintable(id));
        QVERIFY(style.getDateFormat("@DATE_TIME_WITH_SECONDS_FORMAT").contains("ss"));

        // A palette replaces the colour files (this one does not exist: reading it would warn)
        // and holds every colour of the default colour file, each a valid colour.
        const auto palette = [](const char* name) {
            return provider({"/nonexistent/colors.txt"}, {}, {}, {}, name).getColorPalette();
        };
        const StyleMap light = palette("light"), dark = palette("dark");
        const StyleMap defaults = StyleManagerDataProvider().getColorPalette();
        QVERIFY(defaults.contains("@BACKGROUND_COLOR"));
        for (const QString& id : defaults.keys()) {
            QVERIFY2(QColor(defaults.value(id)).isValid(), qPrintable(id));
            QVERIFY2(QColor(light.value(id)).isValid() && QColor(dark.value(id)).isValid(),
                qPrintable(id));
        }
        QVERIFY(QColor(light.value("@BACKGROUND_COLOR")).lightness()
            > QColor(dark.value("@BACKGROUND_COLOR")).lightness());
    }

    void qmlInvokableGetters()
    {
        // The fifteen getters and formatters QML calls, and nothing else.
        const QMetaObject* meta = &StyleManager::staticMetaObject;
        QCOMPARE(meta->methodCount() - meta->methodOffset(), 15);
        QCOMPARE(meta->propertyCount() - meta->propertyOffset(), 0);
        int size = 0;
        QVERIFY(QMetaObject::invokeMethod(
            &manager, "pixelSize", Q_RETURN_ARG(int, size), Q_ARG(int, 12)));
        QCOMPARE(size, 12);
    }

    void fontsInitializer()
    {
        QGuiApplication::setFont(QFont(QStringLiteral("Initial Family")));
        manager.setFonts({{"@APP", "\"Quoted Family\""}, {"@EMPTY", ""}});
        FontsInitializer::setDefaultApplicationFont(manager, "@APP");
        QCOMPARE(QGuiApplication::font(), QFont("Quoted Family")); // size, weight, style by default
        expectWarning("font not found for id \"@EMPTY\"");
        FontsInitializer::setDefaultApplicationFont(manager, "@EMPTY");
        QCOMPARE(QGuiApplication::font(), QFont("Quoted Family")); // left alone

        // A real binary resource beside the executable: one good font, one broken.
        const QString rcc
            = QCoreApplication::applicationDirPath() + "/rcc/fonts/ResourcesSharedFonts.rcc";
        QVERIFY2(QFile::exists(rcc), qPrintable(rcc));
        QVERIFY(!QFile::exists(":/fonts/DejaVuSans.ttf"));
        const auto loadedFamilies = [] { // ids are handed out from 0 upwards
            QStringList families;
            for (int id = 0; id < 16; ++id)
                families += QFontDatabase::applicationFontFamilies(id);
            return families;
        };
        QVERIFY(!loadedFamilies().contains("DejaVu Sans"));
        manager.setFonts({{"@APP", "\"DejaVu Sans\""}});
        QTest::ignoreMessage(QtWarningMsg, "Failed loading font :/fonts/Broken.ttf");
        FontsInitializer::loadFonts(manager, "@APP");
        QVERIFY(QFile::exists(":/fonts/DejaVuSans.ttf"));
        QVERIFY(loadedFamilies().contains("DejaVu Sans"));
        QCOMPARE(QGuiApplication::font().family(), QString("DejaVu Sans"));
    }

    void listenersFollowTheMainWindowsScreen()
    {
        QWidget window;
        QCOMPARE(DevicePixelRatio::value(), 1.0); // no main window yet
        DevicePixelRatio::registerMainWindow(&window);
        QVERIFY(!window.windowHandle());
        QCOMPARE(DevicePixelRatio::value(), window.devicePixelRatioF());
        RecordingListener first("first");
        RecordingListener second("second");
        delete new RecordingListener("gone");
        RecordingListener third("third");

        window.show(); // creates the native window and sends WinIdChange
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(DevicePixelRatio::value(), window.windowHandle()->screen()->devicePixelRatio());
        moveToScreen(window);
        QCOMPARE(calls, (QStringList {"first", "second", "third"}));
        // Registering the same window again must not connect it twice.
        calls.clear();
        DevicePixelRatio::registerMainWindow(&window);
        moveToScreen(window);
        QCOMPARE(calls, (QStringList {"first", "second", "third"}));
    }

    void secondMainWindowDetachesTheFirst()
    {
        QWidget firstWindow;
        auto secondWindow = std::make_unique<QWidget>();
        firstWindow.show();
        secondWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(&firstWindow));
        QVERIFY(QTest::qWaitForWindowExposed(secondWindow.get()));
        RecordingListener listener("listener");
        DevicePixelRatio::registerMainWindow(&firstWindow);
        DevicePixelRatio::registerMainWindow(secondWindow.get());
        moveToScreen(firstWindow);
        QVERIFY(calls.isEmpty());
        moveToScreen(*secondWindow);
        QCOMPARE(calls, QStringList {"listener"});

        // A WinIdChange of the first window must not reattach it: its event filter is gone.
        QEvent winIdChange(QEvent::WinIdChange);
        QCoreApplication::sendEvent(&firstWindow, &winIdChange);
        moveToScreen(firstWindow);
        QCOMPARE(calls, QStringList {"listener"});

        secondWindow.reset(); // a destroyed main window is forgotten
        QCOMPARE(DevicePixelRatio::value(), 1.0);
        DevicePixelRatio::registerMainWindow(nullptr); // must not touch the dead window
    }
};

QTEST_MAIN(tst_StyleManager)
#include "tst_stylemanager.moc"
