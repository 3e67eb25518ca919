// Style getters against the plain work underneath them: a QHash lookup of the same text followed
// by the same conversion. The manager converts on every call by design, so all it may add is a
// little bookkeeping: at most twice the raw cost.

#include <BenchReport.h>

#include <guicore/style/StyleManager.h>

#include <QGuiApplication>
#include <QRegularExpression>

#include <functional>

namespace {

constexpr int kCalls = 20000;

const QHash<QString, QString> kColors {{"@COLOR_ACCENT", "#ff3366cc"}, {"@COLOR_TEXT", "white"}};
const QHash<QString, QString> kSizes {{"@SIZE_MARGIN", "12.5"}};
const QHash<QString, QString> kFonts {
    {"@FONT_TITLE", "14 \"Noto Sans\""},
    {"@FONT_TITLE-line-height", "1.25"},
    {"@FONT_SIZE_BODY", "13"},
    {"@FONT_BOLD", "true"},
    {"@FONT_FAMILY", "\"Noto Sans\""},
};
const QHash<QString, QString> kFormats {{"@SHORT_DATE_FORMAT", "dd.MM.yyyy"}};

/// A manager filled directly with the maps above, as createManager fills it from a provider.
class FilledStyleManager : public StyleManager
{
public:
    FilledStyleManager()
    {
        setColorPalette(kColors);
        setSizes(kSizes);
        setFonts(kFonts);
        setDateTimeFormats(kFormats);
    }
};

/// Keeps the optimiser from dropping the calls whose results are otherwise unused.
volatile double sink = 0;

void compare(
    const QString& name, const std::function<double()>& library, const std::function<double()>& raw)
{
    const double measured = bench::medianNanoseconds([&] {
        double sum = 0;
        for (int i = 0; i < kCalls; ++i)
            sum += library();
        sink = sum;
    });
    const double baseline = bench::medianNanoseconds([&] {
        double sum = 0;
        for (int i = 0; i < kCalls; ++i)
            sum += raw();
        sink = sum;
    });
    bench::report(QStringLiteral("style ") + name, measured / kCalls, baseline / kCalls, 2.0,
        QStringLiteral("QHash lookup + same conversion"));
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    const FilledStyleManager style;
    const QHash<QString, QString> colors = kColors;
    const QHash<QString, QString> sizes = kSizes;
    const QHash<QString, QString> fonts = kFonts;
    const QHash<QString, QString> formats = kFormats;

    // Ids are built once, as callers hold them in constants.
    const QString accent = QStringLiteral("@COLOR_ACCENT");
    const QString named = QStringLiteral("@COLOR_TEXT");
    const QString margin = QStringLiteral("@SIZE_MARGIN");
    const QString title = QStringLiteral("@FONT_TITLE");
    const QString body = QStringLiteral("@FONT_SIZE_BODY");
    const QString bold = QStringLiteral("@FONT_BOLD");
    const QString family = QStringLiteral("@FONT_FAMILY");
    const QString shortDate = QStringLiteral("@SHORT_DATE_FORMAT");

    compare(
        "getColor (hex)", [&] { return style.getColor(accent).redF(); },
        [&] { return QColor(colors.value(accent)).redF(); });
    compare(
        "getColor (name)", [&] { return style.getColor(named).redF(); },
        [&] { return QColor(colors.value(named)).redF(); });
    compare(
        "getSize", [&] { return style.getSize(margin); },
        [&] { return sizes.value(margin).toDouble(); });
    compare(
        "getFontSize", [&] { return double(style.getFontSize(body)); },
        [&] { return double(fonts.value(body).toInt(nullptr, 10)); });
    compare(
        "getFontBoolValue", [&] { return double(style.getFontBoolValue(bold)); },
        [&] { return double(fonts.value(bold) == QLatin1String("true")); });
    static const QRegularExpression fontFormat(QStringLiteral("^(\\d*)\\s\"(.*)\"$"));
    compare(
        "getCompleteFont", [&] { return double(style.getCompleteFont(title).pixelSize()); },
        [&] {
            const QRegularExpressionMatch match = fontFormat.match(fonts.value(title));
            QFont font;
            font.setFamily(match.captured(2));
            font.setPixelSize(match.captured(1).toInt(nullptr, 10));
            return double(font.pixelSize());
        });
    compare(
        "getLineHeight", [&] { return style.getLineHeight(title); },
        [&] { return fonts.value(title + QStringLiteral("-line-height")).toDouble(); });
    compare(
        "getFontFamilyForQFont", [&] { return double(style.getFontFamilyForQFont(family).size()); },
        [&] {
            const QString text = fonts.value(family);
            return double(text.mid(1, text.size() - 2).size());
        });
    compare(
        "getDateFormat", [&] { return double(style.getDateFormat(shortDate).size()); },
        [&] { return double(formats.value(shortDate).size()); });
    return 0;
}
