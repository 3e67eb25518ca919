#pragma once

// The entry points that the libFuzzer targets and tst_fuzzregression share: each takes raw bytes
// and drives one input boundary of the library with them. They never check warnings (every
// malformed input warns); they check that nothing crashes or trips a sanitizer, plus the few
// properties that must hold for any input, which they enforce with fuzzCheck().

#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>
#include <guicore/ui/Node.h>
#include <guicore/ui/NodeSerializer.h>
#include <guicore/utility/dates/DateMatcher.h>
#include <guicore/utility/dental/ToothNameGenerator.h>

#include <stylereader/StyleReader.h>

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QHash>
#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QTime>

#include <cstdio>
#include <cstdlib>

namespace fuzz {

/// A property every input must keep; a breach aborts, which libFuzzer and the test both see.
inline void fuzzCheck(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "fuzz: property violated: %s\n", what);
        std::abort();
    }
}

/// The bytes as up to count parts split at newlines; the last part keeps the rest.
inline QList<QByteArray> splitParts(const QByteArray& data, int count)
{
    QList<QByteArray> parts;
    qsizetype start = 0;
    while (parts.size() < count - 1) {
        const qsizetype end = data.indexOf('\n', start);
        if (end < 0)
            break;
        parts.append(data.mid(start, end - start));
        start = end + 1;
    }
    parts.append(data.mid(start));
    while (parts.size() < count)
        parts.append(QByteArray());
    return parts;
}

/// A style file with these bytes, read as a plain style file and as a palette file (under a
/// fixed palette name and under the name its first line gives).
inline void styleReaderEntry(const QByteArray& data)
{
    static QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("style.txt"));
    {
        QFile file(path);
        fuzzCheck(file.open(QIODevice::WriteOnly | QIODevice::Truncate), "temporary file");
        file.write(data);
    }
    StyleReader reader;
    const QHash<QString, QString> map = reader.convertFilesToStyleMap(QList<QString> {path});
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        fuzzCheck(it.key().startsWith(QLatin1Char('@')), "style ids keep their @");
    reader.convertFilesToStyleMap(QStringLiteral("Dark"), path);
    const QString firstLine = QString::fromUtf8(splitParts(data, 2).first()).trimmed();
    reader.convertFilesToStyleMap(firstLine.mid(1, firstLine.size() - 2), path);
}

/// A manager whose every map holds the fuzzed text under the ids the getters are asked for,
/// filled through the same setters that createManager uses for the provider's maps.
class FuzzStyleManager : public StyleManager
{
public:
    explicit FuzzStyleManager(const QString& value)
    {
        setColorPalette({{QStringLiteral("@C"), value}});
        setSizes({{QStringLiteral("@S"), value}});
        setFonts({{QStringLiteral("@F"), value}, {QStringLiteral("@F-line-height"), value}});
        setDateTimeFormats(
            {{QStringLiteral("@DATE_FORMAT"), value}, {QStringLiteral("@DATE_TIME_FORMAT"), value},
                {QStringLiteral("@LONG_DATE_TIME_FORMAT"), value}});
    }
};

/// The conversions of the style manager that the application uses most, on a manager created
/// as the application creates it: from a data provider whose files give the first line of the
/// input (as the style reader leaves it: trimmed, without a trailing ";") as every value.
inline void styleManagerFromProvider(const QByteArray& firstLine)
{
    static QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("values.txt"));
    {
        QFile file(path);
        fuzzCheck(file.open(QIODevice::WriteOnly | QIODevice::Truncate), "temporary file");
        file.write("@C: " + firstLine + "\n@S: " + firstLine + "\n@F: " + firstLine
            + "\n@F-line-height: " + firstLine + "\n@DATE_FORMAT: x\n");
    }
    StyleManager::createManager(StyleManagerDataProvider(
        StyleManagerDataProvider::Data({path}, {path}, {path}, {path}, QString())));
    const StyleManager& style = StyleManager::manager();
    style.getColor(QStringLiteral("@C"));
    style.getSize(QStringLiteral("@S"));
    style.getFontSize(QStringLiteral("@F"));
    style.getFontBoolValue(QStringLiteral("@F"));
    style.getCompleteFont(QStringLiteral("@F"));
    style.getLineHeight(QStringLiteral("@F"));
    style.getFontFamilyForQFont(QStringLiteral("@F"));
    StyleManager::deleteManager();
}

/// Every conversion of the style manager on one value text: colours, sizes, integer and boolean
/// font properties, complete fonts, line heights, families and date/time formats; first through
/// the provider and the style files, then on the raw text, which the files could not carry
/// (line breaks, surrounding blanks).
inline void styleManagerEntry(const QByteArray& data)
{
    styleManagerFromProvider(splitParts(data, 2).first());
    const QString value = QString::fromUtf8(data);
    const FuzzStyleManager style(value);
    const QString c = QStringLiteral("@C");
    const QString s = QStringLiteral("@S");
    const QString f = QStringLiteral("@F");
    style.getColor(c);
    style.getOptionalColor(c);
    fuzzCheck(style.hasColor(c), "hasColor of a present id");
    style.getSize(s);
    style.getFontWeight(f);
    style.getFontSize(f);
    const bool flag = style.getFontBoolValue(f);
    fuzzCheck(!flag || value == QLatin1String("true"), "only \"true\" is true");
    style.getCompleteFont(f);
    style.getLineHeight(f);
    style.getFontFamily(f);
    style.getFontFamilyForQml(f);
    const QString family = style.getFontFamilyForQFont(f);
    fuzzCheck(family.size() <= value.size(), "quotes removed, nothing added");
    // Format patterns are the text Qt's date formatting gets; short inputs keep this quick.
    if (value.size() <= 256) {
        const QDateTime moment(QDate(2024, 3, 5), QTime(13, 7, 9));
        style.getDateFormat(QStringLiteral("@UNKNOWN"));
        style.formatDateTime(moment);
        style.formatLongDateTime(moment);
        style.formatTime(moment.time());
    }
}

/// Three newline-separated parts: a date format, a pattern and a date.
inline void dateMatcherEntry(const QByteArray& data)
{
    const QList<QByteArray> parts = splitParts(data, 3);
    DateMatcher matcher;
    matcher.setDateFormat(QString::fromUtf8(parts.at(0)));
    matcher.setPattern(QString::fromUtf8(parts.at(1)));
    const QString date = QString::fromUtf8(parts.at(2));
    const bool matched = matcher.match(date);
    fuzzCheck(!matched || date.size() <= 10, "a date longer than 10 characters never matches");
    // A copy behaves as the original.
    const DateMatcher copy = matcher;
    fuzzCheck(copy.match(date) == matched, "copies match alike");
    // A date that matched is accepted as a pattern too, and then matches itself.
    if (matched) {
        DateMatcher self = matcher;
        self.setPattern(date);
        fuzzCheck(self.match(date), "a date matches itself as a pattern");
    }
}

/// The text as a tooth name in both notations; what parses is named again and walked along the
/// arch. The first four bytes, read as two numbers, also make a tooth range.
inline void toothNamesEntry(const QByteArray& data)
{
    const QString text = QString::fromUtf8(data);
    const QString numberingBefore = ToothNameGenerator::TOOTH_NUMBERING_SYSTEM;
    for (const QString& numbering : {QStringLiteral("UNIV"), QStringLiteral("FDI")}) {
        ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = numbering;
        const ToothChart::Tooth tooth = ToothNameGenerator::getToothIdByName(text, numbering);
        ToothNameGenerator::getName(tooth, numbering, false);
        ToothNameGenerator::getType(tooth);
        const auto parsed = ToothNameGenerator::getToothTypeAndDentitionByName(text, numbering);
        if (parsed) {
            const bool flag = parsed->second == 0;
            const QString name = ToothNameGenerator::getName(parsed->first, numbering, flag);
            fuzzCheck(!name.isEmpty(), "a parsed tooth has a name");
            ToothNameGenerator::displayNameWithoutBrackets(
                {parsed->first, parsed->first}, numbering);
        }
        ToothNameGenerator::getNextTooth(text);
        ToothNameGenerator::getPreviousTooth(text);
    }
    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = numberingBefore;
    if (data.size() >= 4) {
        const auto a = ToothChart::Tooth(qint16((uchar(data[0]) << 8) | uchar(data[1])));
        const auto b = ToothChart::Tooth(qint16((uchar(data[2]) << 8) | uchar(data[3])));
        ToothNameGenerator::displayName({a, b}, QStringLiteral("FDI"), true, true, true);
        ToothNameGenerator::getName(ToothNameGenerator::ToothRange {a, b});
        ToothNameGenerator::getName(QList<ToothNameGenerator::ToothRange> {{a, b}, {b, a}}, false);
        ToothNameGenerator::toothRangeDisplayNames({a, b}, {b, a}, false, QStringLiteral(", "));
    }
}

/// The bytes as a stored state tree. A tree that reads must write and read back equal.
inline void nodeJsonEntry(const QByteArray& data)
{
    const std::unique_ptr<ui::Node> tree = ui::NodeSerializer::read(data);
    if (!tree)
        return;
    fuzzCheck(!tree->isAlteredRecursively(), "a tree read is not altered");
    const QByteArray written = ui::NodeSerializer::write(*tree);
    fuzzCheck(!written.isEmpty(), "a tree read can be written");
    const std::unique_ptr<ui::Node> again = ui::NodeSerializer::read(written);
    fuzzCheck(again != nullptr, "a tree written reads back");
    fuzzCheck(again->isEqual(*tree) && tree->isEqual(*again), "a tree reads back equal");
    fuzzCheck(ui::NodeSerializer::write(*again) == written, "writing is stable");
}

struct Entry
{
    const char* name;
    void (*run)(const QByteArray&);
};

/// Every target, named as its corpus folder under tests/fuzz/corpus/.
inline const QList<Entry>& entries()
{
    static const QList<Entry> all {
        {"stylereader", styleReaderEntry},
        {"stylemanager", styleManagerEntry},
        {"datematcher", dateMatcherEntry},
        {"toothnames", toothNamesEntry},
        {"nodejson", nodeJsonEntry},
    };
    return all;
}

} // namespace fuzz
