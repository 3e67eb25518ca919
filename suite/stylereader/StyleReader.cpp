#include <stylereader/StyleReader.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <QtDebug>

namespace {

struct Entry
{
    QString section;
    QString id;
    QString value;
};

// Blanks out /* ... */ blocks but keeps their line breaks, so that line numbers in warnings stay
// those of the file.
QString withoutBlockComments(const QString& text)
{
    QString result;
    result.reserve(text.size());
    bool inComment = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const QChar next = i + 1 < text.size() ? text.at(i + 1) : QChar();
        if (!inComment && c == QLatin1Char('/') && next == QLatin1Char('*')) {
            inComment = true;
            ++i;
        } else if (inComment && c == QLatin1Char('*') && next == QLatin1Char('/')) {
            inComment = false;
            ++i;
        } else if (!inComment || c == QLatin1Char('\n')) {
            result.append(c);
        }
    }
    return result;
}

// Reads one file's entries in order. Lines before the first section have an empty section name.
QList<Entry> readEntries(const QString& fileName, bool sectioned, QString* text = nullptr)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning().noquote() << QStringLiteral("StyleReader : cannot open file %1").arg(fileName);
        return {};
    }
    static const QRegularExpression entryPattern(
        QStringLiteral(R"(^(@[A-Za-z0-9_.\-]+)\s*:(.*)$)"));
    static const QRegularExpression sectionPattern(QStringLiteral(R"(^\[([^\]]+)\]$)"));

    QList<Entry> entries;
    QString section;
    const QString content = withoutBlockComments(QString::fromUtf8(file.readAll()));
    if (text)
        *text = content;
    const QStringList lines = content.split(QLatin1Char('\n'));
    for (int number = 0; number < lines.size(); ++number) {
        const QString line = lines.at(number).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1String("//")))
            continue;
        if (sectioned) {
            const QRegularExpressionMatch match = sectionPattern.match(line);
            if (match.hasMatch()) {
                section = match.captured(1).trimmed();
                continue;
            }
        }
        const QRegularExpressionMatch match = entryPattern.match(line);
        if (!match.hasMatch()) {
            qWarning().noquote() << QStringLiteral("StyleReader : malformed line %1 in %2: %3")
                                        .arg(number + 1)
                                        .arg(fileName, line);
            continue;
        }
        QString value = match.captured(2).trimmed();
        if (value.endsWith(QLatin1Char(';')))
            value.chop(1);
        entries.append({section, match.captured(1), value.trimmed()});
    }
    return entries;
}

// Replaces values that are exactly "@OTHER" by the value of the entry "@OTHER", following chains.
void resolveReferences(QHash<QString, QString>& map)
{
    static const QRegularExpression referencePattern(QStringLiteral(R"(^@[A-Za-z0-9_.\-]+$)"));
    QHash<QString, QString> resolved;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        QString value = it.value();
        QSet<QString> visited {it.key()};
        QRegularExpressionMatch match = referencePattern.match(value);
        bool failed = false;
        while (match.hasMatch()) {
            const QString target = match.captured(0);
            if (visited.contains(target) || !map.contains(target)) {
                qWarning().noquote()
                    << QStringLiteral("StyleReader : unresolved reference %1 for %2")
                           .arg(it.value(), it.key());
                failed = true;
                break;
            }
            visited.insert(target);
            value = map.value(target);
            match = referencePattern.match(value);
        }
        if (!failed && value != it.value())
            resolved.insert(it.key(), value);
    }
    for (auto it = resolved.cbegin(); it != resolved.cend(); ++it)
        map.insert(it.key(), it.value());
}

} // namespace

QHash<QString, QString> StyleReader::convertFilesToStyleMap(const QList<QString>& files)
{
    QHash<QString, QString> map;
    for (const QString& fileName : files) {
        const QList<Entry> entries = readEntries(fileName, false);
        for (const Entry& entry : entries)
            map.insert(entry.id, entry.value);
    }
    resolveReferences(map);
    return map;
}

QHash<QString, QString> StyleReader::convertFilesToStyleMap(
    const QString& paletteName, const QString& paletteFile)
{
    QHash<QString, QString> map;
    bool found = false;
    QString text;
    if (!QFile::exists(paletteFile)) {
        qWarning().noquote()
            << QStringLiteral("StyleReader : cannot open file %1").arg(paletteFile);
        return map;
    }
    const QList<Entry> entries = readEntries(paletteFile, true, &text);
    for (const Entry& entry : entries) {
        if (entry.section == paletteName) {
            found = true;
            map.insert(entry.id, entry.value);
        }
    }
    if (!found) {
        // A section with no entries still counts as known.
        const QRegularExpression header(
            QStringLiteral(R"(^\s*\[\s*%1\s*\]\s*$)").arg(QRegularExpression::escape(paletteName)),
            QRegularExpression::MultilineOption);
        found = !paletteName.isEmpty() && header.match(text).hasMatch();
        if (!found) {
            qWarning().noquote() << QStringLiteral("StyleReader : unknown palette %1 in %2")
                                        .arg(paletteName, paletteFile);
            return {};
        }
    }
    resolveReferences(map);
    return map;
}
