#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QDateTime>
#include <QFile>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

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

using StyleMap = QHash<QString, QString>;

// Replaces the virtual hooks, as a derived manager may: the public getters must go through them.
class OverridingStyleManager : public StyleManager
{
public:
    QString getDateFormat(const QString& formatId) const override
    {
        return formatId == QLatin1String("@TIME_FORMAT") ? QStringLiteral("mm") : QString();
    }

private:
    QString doGetFontFamily(const QString& fontId) const override
    {
        return QLatin1Char('"') + fontId + QLatin1Char('"');
    }
    int getIntegerFontProperty(const QString& fontPropertyId) const override
    {
        return int(fontPropertyId.size());
    }
};

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) >= 0;
}

} // namespace

class tst_StyleManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void colors();
    void numericGetters_data();
    void numericGetters();
    void completeFont_data();
    void completeFont();
    void fontFamilies_data();
    void fontFamilies();
    void dateFormatFallsBackToGenericFormat();
    void formatting();
    void commonFormatsOverwriteEvenWhenEmpty();
    void gettersGoThroughVirtualHooks();
    void createTwiceSecondWins();
    void lazyManagerLoadsDefaultStyle();
    void providerReadsAfreshEveryCall();
    void paletteReplacesColorFiles();
    void defaultStyleHasEveryIdTheLibraryUses();
    void qmlInvokableGetters();

private:
    TestStyleManager manager;
};

void tst_StyleManager::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    manager.setColorPalette({});
    manager.setSizes({});
    manager.setFonts({});
    manager.setDateTimeFormats(QHash<QString, QString>());
}

void tst_StyleManager::cleanup()
{
    StyleManager::deleteManager();
}

void tst_StyleManager::colors()
{
    manager.setColorPalette(
        {{"@RED", "#ff0000"}, {"@HALF", "#80102030"}, {"@NAMED", "steelblue"}, {"@EMPTY", ""}});
    QCOMPARE(manager.getColor("@RED"), QColor(255, 0, 0));
    QCOMPARE(manager.getColor("@HALF"), QColor(0x10, 0x20, 0x30, 0x80));
    QCOMPARE(manager.getColor("@NAMED"), QColor("steelblue"));

    QTest::ignoreMessage(QtWarningMsg, "StyleManager : color not found for id \"@MISSING\"");
    QCOMPARE(manager.getColor("@MISSING"), QColor(Qt::magenta));
    // Present but empty behaves as missing for getColor, but not for the optional lookups.
    QTest::ignoreMessage(QtWarningMsg, "StyleManager : color not found for id \"@EMPTY\"");
    QCOMPARE(manager.getColor("@EMPTY"), QColor(Qt::magenta));
    QVERIFY(manager.hasColor("@EMPTY"));
    QVERIFY(!manager.getOptionalColor("@EMPTY").isValid());
    QVERIFY(!manager.hasColor("@MISSING"));
    QCOMPARE(manager.getOptionalColor("@MISSING"), QColor(Qt::transparent));
    QCOMPARE(manager.getOptionalColor("@RED"), QColor(255, 0, 0));
}

void tst_StyleManager::numericGetters_data()
{
    QTest::addColumn<QString>("getter");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<double>("expected");
    QTest::addColumn<QString>("warning");

    const QString badSize
        = "StyleManager : could not properly convert size value \"%1\" for id \"@X\"";
    const QString badProperty
        = "StyleManager : could not properly convert property value \"%1\" for id \"@X\"";
    const QString noProperty = "StyleManager : font property not found for id \"@X\"";
    const QString noLineHeight = "StyleManager : line-height not found for font id \"@X\"";

    const auto row = [](const char* name, const char* getter, const char* key, const char* value,
                         double expected, const QString& warning = QString()) {
        QTest::newRow(name) << QString(getter) << QString(key) << QString(value) << expected
                            << warning;
    };
    row("size", "size", "@X", "1.5", 1.5);
    row("size not a number", "size", "@X", "12px", 0.0, badSize.arg("12px"));
    row("size empty", "size", "@X", "", 0.0, "StyleManager : size not found for id \"@X\"");
    row("font size", "fontSize", "@X", "13", 13.0);
    row("font size fraction", "fontSize", "@X", "12.5", 0.0, badProperty.arg("12.5"));
    row("font size empty", "fontSize", "@X", "", 0.0, noProperty);
    row("weight", "fontWeight", "@X", "600", 600.0);
    row("weight not base 10", "fontWeight", "@X", "0x10", 0.0, badProperty.arg("0x10"));
    row("weight with a unit", "fontWeight", "@X", "400px", 0.0, badProperty.arg("400px"));
    row("bool true", "bool", "@X", "true", 1.0);
    row("bool false", "bool", "@X", "false", 0.0);
    row("bool upper case", "bool", "@X", "TRUE", 0.0, badProperty.arg("TRUE"));
    row("bool one", "bool", "@X", "1", 0.0, badProperty.arg("1"));
    row("bool empty", "bool", "@X", "", 0.0, noProperty);
    row("line height", "lineHeight", "@X-line-height", "1.25", 1.25);
    row("line height reads only its own key", "lineHeight", "@X", "1.5", 0.1, noLineHeight);
    row("line height empty", "lineHeight", "@X-line-height", "", 0.1, noLineHeight);
    row("line height not a number", "lineHeight", "@X-line-height", "normal", 0.1,
        "StyleManager : Invalid line-height format for id \"@X\"");
}

void tst_StyleManager::numericGetters()
{
    QFETCH(QString, getter);
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(double, expected);
    QFETCH(QString, warning);
    manager.setSizes({{key, value}});
    manager.setFonts({{key, value}});
    if (!warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
    double result = -1;
    if (getter == "size")
        result = manager.getSize("@X");
    else if (getter == "fontSize")
        result = manager.getFontSize("@X");
    else if (getter == "fontWeight")
        result = manager.getFontWeight("@X");
    else if (getter == "bool")
        result = manager.getFontBoolValue("@X") ? 1.0 : 0.0;
    else if (getter == "lineHeight")
        result = manager.getLineHeight("@X");
    QCOMPARE(result, expected);
    QCOMPARE(manager.getSizes().value(key), value); // a bad value is kept as it was
}

void tst_StyleManager::completeFont_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<int>("pixelSize");
    QTest::addColumn<QString>("family");

    QTest::newRow("size and family") << "13 \"DejaVu Sans\"" << true << 13 << "DejaVu Sans";
    QTest::newRow("tab before family") << "9\t\"Serif\"" << true << 9 << "Serif";
    // An empty digit run passes pixel size 0 on; QFont warns and keeps its default size.
    QTest::newRow("blank and family") << " \"Mono\"" << true << QFont().pixelSize() << "Mono";
    QTest::newRow("family only") << "\"Mono\"" << false << 0 << QString();
    QTest::newRow("two blanks") << "12  \"Mono\"" << false << 0 << QString();
    QTest::newRow("unquoted") << "12 Mono" << false << 0 << QString();
    QTest::newRow("text after quote") << "12 \"Mono\" bold" << false << 0 << QString();
}

void tst_StyleManager::completeFont()
{
    QFETCH(QString, value);
    QFETCH(bool, valid);
    QFETCH(int, pixelSize);
    QFETCH(QString, family);
    manager.setFonts({{"@F", value}});
    if (!valid) {
        QTest::ignoreMessage(QtWarningMsg, "StyleManager : Invalid font format for id \"@F\"");
        QCOMPARE(manager.getCompleteFont("@F"), QFont());
        return;
    }
    if (value.startsWith(QLatin1Char(' ')))
        QTest::ignoreMessage(QtWarningMsg, "QFont::setPixelSize: Pixel size <= 0 (0)");
    const QFont font = manager.getCompleteFont("@F");
    QCOMPARE(font.family(), family);
    QCOMPARE(font.pixelSize(), pixelSize);
}

void tst_StyleManager::fontFamilies_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("forQFont");

    QTest::newRow("quoted") << QString("\"DejaVu Sans\"") << QString("DejaVu Sans");
    QTest::newRow("unquoted") << QString("DejaVu Sans") << QString("DejaVu Sans");
    QTest::newRow("opening quote only loses last character")
        << QString("\"DejaVu Sans") << QString("DejaVu San");
    QTest::newRow("just a quote") << QString("\"") << QString();
}

void tst_StyleManager::fontFamilies()
{
    QFETCH(QString, value);
    QFETCH(QString, forQFont);
    manager.setFonts({{"@F", value}});
    QCOMPARE(manager.getFontFamily("@F"), value);
    QCOMPARE(manager.getFontFamilyForQml("@F"), value);
    QCOMPARE(manager.getFontFamilyForQFont("@F"), forQFont);

    manager.setFonts({{"@F", ""}});
    QTest::ignoreMessage(QtWarningMsg, "StyleManager : font not found for id \"@F\"");
    QCOMPARE(manager.getFontFamily("@F"), QString());
    QTest::ignoreMessage(QtWarningMsg, "StyleManager : font not found for id \"@F\"");
    QCOMPARE(manager.getFontFamilyForQFont("@F"), QString());
    QTest::ignoreMessage(QtWarningMsg, "StyleManager : font not found for id \"@F\"");
    QCOMPARE(manager.getCompleteFont("@F"), QFont());
}

void tst_StyleManager::dateFormatFallsBackToGenericFormat()
{
    manager.setDateTimeFormats(QHash<QString, QString> {
        {"@DATE_FORMAT", "dd.MM.yyyy"}, {"@SHORT_DATE_FORMAT", "d.M.yy"}, {"@EMPTY", ""}});
    QCOMPARE(manager.getDateFormat("@SHORT_DATE_FORMAT"), QString("d.M.yy"));

    QTest::ignoreMessage(QtWarningMsg, "StyleManager : format not found for id \"@UNKNOWN\"");
    QCOMPARE(manager.getDateFormat("@UNKNOWN"), QString("dd.MM.yyyy"));
    QTest::ignoreMessage(QtWarningMsg, "StyleManager : format not found for id \"@EMPTY\"");
    QCOMPARE(manager.getDateFormat("@EMPTY"), QString("dd.MM.yyyy"));

    // Without the generic format a missing id logs twice: once for itself, once for the fallback.
    manager.setDateTimeFormats(QHash<QString, QString>());
    QTest::ignoreMessage(QtWarningMsg, "StyleManager : format not found for id \"@UNKNOWN\"");
    QTest::ignoreMessage(QtWarningMsg, "StyleManager : format not found for id \"@DATE_FORMAT\"");
    QCOMPARE(manager.getDateFormat("@UNKNOWN"), QString());
}

void tst_StyleManager::formatting()
{
    const QDateTime when(QDate(2024, 3, 5), QTime(14, 7, 9));
    manager.setDateTimeFormats(QHash<QString, QString> {{"@DATE_FORMAT", "yyyy/MM/dd"},
        {"@DATE_TIME_FORMAT", "dd.MM.yyyy HH:mm"}, {"@LONG_DATE_TIME_FORMAT", "yyyy HH"},
        {"@TIME_FORMAT", "HH:mm:ss"}});
    QCOMPARE(manager.formatDateTime(when), QString("05.03.2024 14:07"));
    QCOMPARE(manager.formatLongDateTime(when), QString("2024 14"));
    QCOMPARE(manager.formatTime(when.time()), QString("14:07:09"));
    QCOMPARE(manager.formatTime(when.time(), "H.m"), QString("14.7"));

    // A missing time format falls back to the generic date format, which formats a time
    // into nothing but the literal separators.
    manager.setDateTimeFormats(QHash<QString, QString> {{"@DATE_FORMAT", "HH-mm"}});
    QTest::ignoreMessage(QtWarningMsg, "StyleManager : format not found for id \"@TIME_FORMAT\"");
    QCOMPARE(manager.formatTime(when.time()), QString("14-07"));

    QTest::ignoreMessage(
        QtWarningMsg, "StyleManager : format not found for id \"@DATE_TIME_FORMAT\"");
    QCOMPARE(manager.formatDateTime(when), QString());
    QTest::ignoreMessage(
        QtWarningMsg, "StyleManager : format not found for id \"@LONG_DATE_TIME_FORMAT\"");
    QCOMPARE(manager.formatLongDateTime(when), QString());
}

void tst_StyleManager::commonFormatsOverwriteEvenWhenEmpty()
{
    manager.setDateTimeFormats(QHash<QString, QString> {{"@SHORT_DATE_FORMAT", "dd.MM.yyyy"},
        {"@DATE_TIME_WITH_SECONDS_FORMAT", "ss"}, {"@TIME_FORMAT", "HH:mm"}});
    manager.setDateTimeFormats(CommonDateTimeFormats {"d/M/yy", "long", "dt", "ldt", ""});
    QCOMPARE(manager.getDateTimeFormats(),
        (QHash<QString, QString> {{"@SHORT_DATE_FORMAT", "d/M/yy"}, {"@LONG_DATE_FORMAT", "long"},
            {"@DATE_TIME_FORMAT", "dt"}, {"@LONG_DATE_TIME_FORMAT", "ldt"}, {"@TIME_FORMAT", ""},
            {"@DATE_TIME_WITH_SECONDS_FORMAT", "ss"}}));
}

void tst_StyleManager::gettersGoThroughVirtualHooks()
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

void tst_StyleManager::createTwiceSecondWins()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString first = dir.filePath("first.txt");
    const QString second = dir.filePath("second.txt");
    QVERIFY(writeFile(first, "@WHICH: #010101;\n"));
    QVERIFY(writeFile(second, "@WHICH: #020202;\n"));
    const auto provider = [&](const QString& colors) {
        return StyleManagerDataProvider(
            StyleManagerDataProvider::Data({colors}, {}, {}, {}, QString()));
    };

    QVERIFY(!StyleManager::hasManager());
    StyleManager::createManager(provider(first));
    QVERIFY(StyleManager::hasManager());
    QCOMPARE(StyleManager::manager().getColor("@WHICH"), QColor(1, 1, 1));

    QTest::ignoreMessage(
        QtWarningMsg, "Trying to create the StyleManager twice. This is a flow issue.");
    StyleManager::createManager(
        provider(second), CommonDateTimeFormats {"s", "l", "dt", "ldt", "t"});
    QCOMPARE(StyleManager::manager().getColor("@WHICH"), QColor(2, 2, 2));
    QCOMPARE(StyleManager::manager().getDateFormat("@TIME_FORMAT"), QString("t"));

    StyleManager::deleteManager();
    QVERIFY(!StyleManager::hasManager());
    StyleManager::deleteManager(); // harmless without a manager
}

void tst_StyleManager::lazyManagerLoadsDefaultStyle()
{
    QVERIFY(!StyleManager::hasManager());
    QTest::ignoreMessage(
        QtWarningMsg, "Trying to get the StyleManager before calling createManager");
    StyleManager& lazy = StyleManager::manager();
    QVERIFY(StyleManager::hasManager());
    QCOMPARE(&StyleManager::manager(), &lazy); // warns only once
    QCOMPARE(lazy.getDateFormat("@SHORT_DATE_FORMAT"), QString("dd.MM.yyyy"));
}

void tst_StyleManager::providerReadsAfreshEveryCall()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString sizes = dir.filePath("sizes.txt");
    const QString more = dir.filePath("more.txt");
    QVERIFY(writeFile(sizes, "@A: 1;\n@B: 2;\n"));
    QVERIFY(writeFile(more, "// later files win\n@B: 3;\n"));
    const StyleManagerDataProvider provider(
        StyleManagerDataProvider::Data({}, {sizes, more}, {sizes}, {more}, QString()));

    const QHash<QString, QString> expected {{"@A", "1"}, {"@B", "3"}};
    QCOMPARE(provider.getDimensions(), expected);
    QCOMPARE(provider.getFonts(), (QHash<QString, QString> {{"@A", "1"}, {"@B", "2"}}));
    QCOMPARE(provider.getFormats(), (QHash<QString, QString> {{"@B", "3"}}));

    QVERIFY(writeFile(more, "@B: 4;\n@C: 5;\n"));
    QCOMPARE(provider.getDimensions(),
        (QHash<QString, QString> {{"@A", "1"}, {"@B", "4"}, {"@C", "5"}}));
}

void tst_StyleManager::paletteReplacesColorFiles()
{
    // The colour file does not exist: reading it would warn, and warnings fail this test.
    const StyleManagerDataProvider light(StyleManagerDataProvider::Data(
        {"/nonexistent/colors.txt"}, {}, {}, {}, QStringLiteral("light")));
    const StyleManagerDataProvider dark(StyleManagerDataProvider::Data(
        {"/nonexistent/colors.txt"}, {}, {}, {}, QStringLiteral("dark")));
    const QHash<QString, QString> lightColors = light.getColorPalette();
    const QHash<QString, QString> darkColors = dark.getColorPalette();
    // Both palettes hold every colour of the default colour file, each a valid colour.
    const QHash<QString, QString> defaults = StyleManagerDataProvider().getColorPalette();
    QVERIFY(defaults.contains("@BACKGROUND_COLOR"));
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it) {
        QVERIFY2(QColor(it.value()).isValid(), qPrintable(it.key()));
        QVERIFY2(QColor(lightColors.value(it.key())).isValid(), qPrintable(it.key()));
        QVERIFY2(QColor(darkColors.value(it.key())).isValid(), qPrintable(it.key()));
    }
    QVERIFY(QColor(lightColors.value("@BACKGROUND_COLOR")).lightness()
        > QColor(darkColors.value("@BACKGROUND_COLOR")).lightness());
}

void tst_StyleManager::defaultStyleHasEveryIdTheLibraryUses()
{
    StyleManager::createManager(StyleManagerDataProvider());
    const StyleManager& style = StyleManager::manager();

    // The overlay items' fonts.
    QVERIFY(!style.getFontFamilyForQFont("@MEASUREMENT_LABEL_FONT").isEmpty());
    QVERIFY(style.getFontSize("@MEASUREMENT_LABEL_FONT_SIZE_3D") > 0);
    QVERIFY(style.getLineHeight("@MEASUREMENT_LABEL_FONT") > 0.1);
    QVERIFY(!style.getCompleteFont("@APPLICATION_FONT_COMPLETE").family().isEmpty());

    // Every reserved format id, through the private lookup the formatters use.
    const QDateTime when(QDate(2024, 3, 5), QTime(14, 7, 9));
    QCOMPARE(style.formatDateTime(when), QString("05.03.2024 14:07"));
    QVERIFY(!style.formatLongDateTime(when).isEmpty());
    QCOMPARE(style.formatTime(when.time()), QString("14:07"));
    for (const QString& id : {StyleManager::SHORT_DATE_FORMAT, StyleManager::LONG_DATE_FORMAT,
             StyleManager::DATE_TIME_FORMAT, StyleManager::LONG_DATE_TIME_FORMAT,
             StyleManager::DATE_TIME_WITH_SECONDS_FORMAT, StyleManager::TIME_FORMAT,
             StyleManager::DATE_FORMAT}) {
        // A missing id would warn (and fall back), and any warning fails this test.
        QVERIFY2(!style.getDateFormat(id).isEmpty(), qPrintable(id));
    }
    QVERIFY(style.getDateFormat("@DATE_TIME_WITH_SECONDS_FORMAT").contains("ss"));
}

void tst_StyleManager::qmlInvokableGetters()
{
    const QMetaObject* meta = &StyleManager::staticMetaObject;
    const QList<std::pair<const char*, QByteArray>> expected {
        {"getColor(QString)", "colorId"},
        {"getOptionalColor(QString)", "colorId"},
        {"getSize(QString)", "sizeId"},
        {"getFontWeight(QString)", "fontWeightId"},
        {"getFontSize(QString)", "fontSizeId"},
        {"getFontBoolValue(QString)", "fontBooleanValue"},
        {"getCompleteFont(QString)", "fontId"},
        {"getLineHeight(QString)", "fontId"},
        {"getDateFormat(QString)", "formatId"},
        {"formatDateTime(QDateTime)", "time"},
        {"formatLongDateTime(QDateTime)", "time"},
        {"formatTime(QTime)", "time"},
        {"pixelSize(int)", "size"},
        {"getFontFamily(QString)", "fontId"},
        {"getFont(QString)", "fontId"},
    };
    for (const auto& [signature, parameter] : expected) {
        const int index = meta->indexOfMethod(signature);
        QVERIFY2(index >= 0, signature);
        QCOMPARE(meta->method(index).parameterNames().value(0), parameter);
    }
    QCOMPARE(meta->methodCount() - meta->methodOffset(), int(expected.size()));
    QCOMPARE(meta->propertyCount() - meta->propertyOffset(), 0);

    QCOMPARE(StyleManager::pixelSize(17), 17);
    int size = 0;
    QVERIFY(
        QMetaObject::invokeMethod(&manager, "pixelSize", Q_RETURN_ARG(int, size), Q_ARG(int, 12)));
    QCOMPARE(size, 12);
}

QTEST_MAIN(tst_StyleManager)
#include "tst_stylemanager.moc"
