// Keeps the guides honest: every code block of docs/guides/*.md must be a region of a file under
// docs/snippets/ (which the build compiles and CTest runs), named by the comment line above it:
//
//     <!-- snippet: firstplugin/HelloPlugin.cpp#actions -->
//     ```cpp
//     ...the lines between the two "//! [actions]" markers of that file...
//     ```
//
// Regions are compared after removing their common indentation. Prints every mismatch and exits
// with 1 when there is any. Arguments: the guides folder, the snippets folder.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

#include <algorithm>
#include <limits>

namespace {

QStringList readLines(const QString& path, bool* ok)
{
    QFile file(path);
    *ok = file.open(QIODevice::ReadOnly | QIODevice::Text);
    return *ok ? QString::fromUtf8(file.readAll()).split(QLatin1Char('\n')) : QStringList();
}

QStringList dedented(QStringList lines)
{
    int indent = std::numeric_limits<int>::max();
    for (const QString& line : lines) {
        if (line.trimmed().isEmpty())
            continue;
        int leading = 0;
        while (line.at(leading).isSpace())
            ++leading;
        indent = std::min(indent, leading);
    }
    if (indent == std::numeric_limits<int>::max())
        indent = 0;
    for (QString& line : lines)
        line = line.trimmed().isEmpty() ? QString() : line.mid(indent);
    return lines;
}

/// The lines between the two marker lines "//! [name]" (or "#! [name]") of path.
QStringList region(const QString& path, const QString& name, QString* error)
{
    bool ok = false;
    const QStringList lines = readLines(path, &ok);
    if (!ok) {
        *error = QStringLiteral("cannot read %1").arg(path);
        return {};
    }
    const QRegularExpression marker(
        QStringLiteral("^\\s*(//|#)! \\[%1\\]\\s*$").arg(QRegularExpression::escape(name)));
    QList<int> markers;
    for (int i = 0; i < lines.size(); ++i) {
        if (marker.match(lines.at(i)).hasMatch())
            markers.append(i);
    }
    if (markers.size() != 2) {
        *error = QStringLiteral("%1 has %2 markers for [%3], not 2")
                     .arg(path)
                     .arg(markers.size())
                     .arg(name);
        return {};
    }
    return dedented(lines.mid(markers[0] + 1, markers[1] - markers[0] - 1));
}

int checkGuide(const QString& guidePath, const QDir& snippets, QTextStream& out)
{
    bool ok = false;
    const QStringList lines = readLines(guidePath, &ok);
    if (!ok) {
        out << guidePath << ": cannot be read\n";
        return 1;
    }
    const QRegularExpression source(QStringLiteral("^<!-- snippet: (\\S+)#(\\S+) -->$"));
    int failures = 0;
    QString pending;
    int blocks = 0;
    for (int i = 0; i < lines.size(); ++i) {
        const QString& line = lines.at(i);
        const QRegularExpressionMatch match = source.match(line.trimmed());
        if (match.hasMatch()) {
            pending = line.trimmed();
            continue;
        }
        if (!line.startsWith(QLatin1String("```")) || line.trimmed() == QLatin1String("```")) {
            if (!line.trimmed().isEmpty())
                pending.clear();
            continue;
        }
        // An opening fence: the block runs to the next closing fence.
        const int start = i + 1;
        int end = start;
        while (end < lines.size() && lines.at(end).trimmed() != QLatin1String("```"))
            ++end;
        const QStringList block = dedented(lines.mid(start, end - start));
        ++blocks;
        const QString where = QStringLiteral("%1:%2").arg(guidePath).arg(i + 1);
        const QRegularExpressionMatch named = source.match(pending);
        pending.clear();
        i = end;
        if (!named.hasMatch()) {
            out << where << ": code block without a \"<!-- snippet: file#name -->\" line above\n";
            ++failures;
            continue;
        }
        QString error;
        const QStringList expected
            = region(snippets.filePath(named.captured(1)), named.captured(2), &error);
        if (!error.isEmpty()) {
            out << where << ": " << error << '\n';
            ++failures;
        } else if (expected != block) {
            out << where << ": the block differs from " << named.captured(1) << '#'
                << named.captured(2) << '\n';
            for (int k = 0; k < std::max(expected.size(), block.size()); ++k) {
                const QString want = expected.value(k);
                const QString have = block.value(k);
                if (want != have) {
                    out << "    line " << k + 1 << ": guide   \"" << have << "\"\n"
                        << "    line " << k + 1 << ": snippet \"" << want << "\"\n";
                    break;
                }
            }
            ++failures;
        }
    }
    if (blocks == 0) {
        out << guidePath << ": no code block at all\n";
        ++failures;
    }
    return failures;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const QStringList arguments = app.arguments();
    if (arguments.size() != 3) {
        out << "usage: check_guides GUIDES_DIR SNIPPETS_DIR\n";
        return 2;
    }
    const QDir guides(arguments.at(1));
    const QDir snippets(arguments.at(2));
    const QStringList files = guides.entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
    if (files.isEmpty()) {
        out << "no guides in " << guides.path() << '\n';
        return 1;
    }
    int failures = 0;
    for (const QString& file : files)
        failures += checkGuide(guides.filePath(file), snippets, out);
    out << files.size() << " guides checked, " << failures << " problems\n";
    return failures == 0 ? 0 : 1;
}
