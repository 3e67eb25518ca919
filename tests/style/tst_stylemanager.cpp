#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QDateTime>
#include <QFile>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

using StyleMap = QHash<QString, QString>;

// Exposes the protected setters so that each test states its own style data.
class TestStyleManager : public StyleManager
{
public:
    using StyleManager::getDateTimeFormats;
    using StyleManager::getSizes;
    using StyleManager::setColorPalette;
    using StyleManager::setDateTimeFormats;
    using StyleManager::setFonts;
    using StyleManager::setSizes;
};

// Replaces the virtual hooks, as a derived manager may: the public getters must go through them.
class OverridingStyleManager : public StyleManager
{
public:
    QString getDateFormat(const QString& id) const override
    {
        return id == TIME_FORMAT ? "mm" : "";
    }

private:
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
    }
    void cleanup() { StyleManager::deleteManager(); }

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

    void numericGetters_data()
    {
        QTest::addColumn<QString>("getter");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<double>("expected");
        QTest::addColumn<QString>("warning");
        const QString badSize = "could not properly convert size value \"%1\" for id \"@X\"";
        const QString bad = "could not properly convert property value \"%1\" for id \"@X\"";
        const QString none = "font property not found for id \"@X\"";
        const QString noLineHeight = "line-height not found for font id \"@X\"";
        const auto row = [](const char* getter, const char* key, const char* value, double expected,
                             const QString& warning = {}) {
            QTest::addRow("%s %s", getter, value) << getter << key << value << expected << warning;
        };
        row("size", "@X", "1.5", 1.5);
        row("size", "@X", "12px", 0.0, badSize.arg("12px"));
        row("size", "@X", "", 0.0, "size not found for id \"@X\"");
        row("fontSize", "@X", "13", 13.0);
        row("fontSize", "@X", "12.5", 0.0, bad.arg("12.5"));
        row("fontSize", "@X", "", 0.0, none);
        row("fontWeight", "@X", "600", 600.0);
        row("fontWeight", "@X", "0x10", 0.0, bad.arg("0x10")); // base 10 only
        row("bool", "@X", "true", 1.0);
        row("bool", "@X", "false", 0.0);
        row("bool", "@X", "TRUE", 0.0, bad.arg("TRUE"));
        row("bool", "@X", "", 0.0, none);
        row("lineHeight", "@X-line-height", "1.25", 1.25);
        row("lineHeight", "@X", "1.5", 0.1, noLineHeight); // reads only its own key
        row("lineHeight", "@X-line-height", "normal", 0.1,
            "Invalid line-height format for id \"@X\"");
    }

    void numericGetters()
    {
        QFETCH(QString, getter);
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(QString, warning);
        manager.setSizes({{key, value}});
        manager.setFonts({{key, value}});
        expectWarning(warning);
        const QHash<QString, std::function<double()>> getters {
            {"size", [&] { return manager.getSize("@X"); }},
            {"fontSize", [&] { return manager.getFontSize("@X"); }},
            {"fontWeight", [&] { return manager.getFontWeight("@X"); }},
            {"bool", [&] { return manager.getFontBoolValue("@X") ? 1.0 : 0.0; }},
            {"lineHeight", [&] { return manager.getLineHeight("@X"); }}};
        QTEST(getters.value(getter)(), "expected");
        QCOMPARE(manager.getSizes().value(key), value); // a bad value is kept as it was
    }

    void fonts()
    {
        const struct
        {
            const char* value;
            int pixelSize; // -1: an invalid format
            const char* family;
        } complete[] = {{"13 \"DejaVu Sans\"", 13, "DejaVu Sans"}, {"9\t\"Serif\"", 9, "Serif"},
            {"\"Mono\"", -1, ""}, {"12  \"Mono\"", -1, ""}, {"12 Mono", -1, ""},
            {"12 \"Mono\" bold", -1, ""}};
        for (const auto& c : complete) {
            manager.setFonts({{"@F", c.value}});
            if (c.pixelSize < 0)
                expectWarning("Invalid font format for id \"@F\"");
            const QFont font = manager.getCompleteFont("@F");
            QCOMPARE(font, c.pixelSize < 0 ? QFont() : font);
            QCOMPARE(font.family(), c.pixelSize < 0 ? QFont().family() : c.family);
            QCOMPARE(font.pixelSize(), c.pixelSize < 0 ? QFont().pixelSize() : c.pixelSize);
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

    void singletonLifecycle()
    {
        QVERIFY(!StyleManager::hasManager());
        QTest::ignoreMessage(
            QtWarningMsg, "Trying to get the StyleManager before calling createManager");
        StyleManager& lazy = StyleManager::manager(); // loads the default style
        QCOMPARE(&StyleManager::manager(), &lazy); // warns only once
        QCOMPARE(lazy.getDateFormat("@SHORT_DATE_FORMAT"), QString("dd.MM.yyyy"));

        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        writeFile(dir.filePath("second.txt"), "@WHICH: #020202;\n");
        QTest::ignoreMessage(
            QtWarningMsg, "Trying to create the StyleManager twice. This is a flow issue.");
        StyleManager::createManager(provider({dir.filePath("second.txt")}),
            CommonDateTimeFormats {"s", "l", "dt", "ldt", "t"});
        QCOMPARE(StyleManager::manager().getColor("@WHICH"), QColor(2, 2, 2));
        QCOMPARE(StyleManager::manager().getDateFormat("@TIME_FORMAT"), QString("t"));

        StyleManager::deleteManager();
        QVERIFY(!StyleManager::hasManager());
        StyleManager::deleteManager(); // harmless without a manager
    }

    void providerReadsAfreshEveryCall()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString sizes = dir.filePath("sizes.txt");
        const QString more = dir.filePath("more.txt");
        writeFile(sizes, "@A: 1;\n@B: 2;\n");
        writeFile(more, "// later files win\n@B: 3;\n");
        const StyleManagerDataProvider files = provider({}, {sizes, more}, {sizes}, {more});
        QCOMPARE(files.getDimensions(), (StyleMap {{"@A", "1"}, {"@B", "3"}}));
        QCOMPARE(files.getFonts(), (StyleMap {{"@A", "1"}, {"@B", "2"}}));
        QCOMPARE(files.getFormats(), (StyleMap {{"@B", "3"}}));
        writeFile(more, "@B: 4;\n@C: 5;\n");
        QCOMPARE(files.getDimensions(), (StyleMap {{"@A", "1"}, {"@B", "4"}, {"@C", "5"}}));
    }

    void paletteReplacesColorFiles()
    {
        // The colour file does not exist: reading it would warn, and warnings fail this test.
        const StyleMap light
            = provider({"/nonexistent/colors.txt"}, {}, {}, {}, "light").getColorPalette();
        const StyleMap dark
            = provider({"/nonexistent/colors.txt"}, {}, {}, {}, "dark").getColorPalette();
        // Both palettes hold every colour of the default colour file, each a valid colour.
        const StyleMap defaults = StyleManagerDataProvider().getColorPalette();
        QVERIFY(defaults.contains("@BACKGROUND_COLOR"));
        for (auto it = defaults.cbegin(); it != defaults.cend(); ++it) {
            QVERIFY2(QColor(it.value()).isValid(), qPrintable(it.key()));
            QVERIFY2(QColor(light.value(it.key())).isValid(), qPrintable(it.key()));
            QVERIFY2(QColor(dark.value(it.key())).isValid(), qPrintable(it.key()));
        }
        QVERIFY(QColor(light.value("@BACKGROUND_COLOR")).lightness()
            > QColor(dark.value("@BACKGROUND_COLOR")).lightness());
    }

    void defaultStyleHasEveryIdTheLibraryUses()
    {
        StyleManager::createManager(StyleManagerDataProvider());
        const StyleManager& style = StyleManager::manager();
        QVERIFY(!style.getFontFamilyForQFont("@MEASUREMENT_LABEL_FONT").isEmpty());
        QVERIFY(style.getFontSize("@MEASUREMENT_LABEL_FONT_SIZE_3D") > 0);
        QVERIFY(style.getLineHeight("@MEASUREMENT_LABEL_FONT") > 0.1);
        QVERIFY(!style.getCompleteFont("@APPLICATION_FONT_COMPLETE").family().isEmpty());
        const QDateTime when(QDate(2024, 3, 5), QTime(14, 7, 9));
        QCOMPARE(style.formatDateTime(when), QString("05.03.2024 14:07"));
        QVERIFY(!style.formatLongDateTime(when).isEmpty());
        QCOMPARE(style.formatTime(when.time()), QString("14:07"));
        // A missing id would warn (and fall back), and any warning fails this test.
        for (const QString& id : {StyleManager::SHORT_DATE_FORMAT, StyleManager::LONG_DATE_FORMAT,
                 StyleManager::DATE_TIME_FORMAT, StyleManager::LONG_DATE_TIME_FORMAT,
                 StyleManager::DATE_TIME_WITH_SECONDS_FORMAT, StyleManager::TIME_FORMAT,
                 StyleManager::DATE_FORMAT})
            QVERIFY2(!style.getDateFormat(id).isEmpty(), qPrintable(id));
        QVERIFY(style.getDateFormat("@DATE_TIME_WITH_SECONDS_FORMAT").contains("ss"));
    }

    void qmlInvokableGetters()
    {
        const QMetaObject* meta = &StyleManager::staticMetaObject;
        const char* const invokable[] = {"getColor(QString)", "getOptionalColor(QString)",
            "getSize(QString)", "getFontWeight(QString)", "getFontSize(QString)",
            "getFontBoolValue(QString)", "getCompleteFont(QString)", "getLineHeight(QString)",
            "getDateFormat(QString)", "formatDateTime(QDateTime)", "formatLongDateTime(QDateTime)",
            "formatTime(QTime)", "pixelSize(int)", "getFontFamily(QString)", "getFont(QString)"};
        for (const char* signature : invokable)
            QVERIFY2(meta->indexOfMethod(signature) >= meta->methodOffset(), signature);
        QCOMPARE(meta->methodCount() - meta->methodOffset(), int(std::size(invokable)));
        QCOMPARE(meta->propertyCount() - meta->propertyOffset(), 0);
        int size = 0;
        QVERIFY(QMetaObject::invokeMethod(
            &manager, "pixelSize", Q_RETURN_ARG(int, size), Q_ARG(int, 12)));
        QCOMPARE(size, 12);
    }
};

QTEST_MAIN(tst_StyleManager)
#include "tst_stylemanager.moc"
