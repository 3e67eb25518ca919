#pragma once

#include <stylereader/stylereader_export.h>

#include <QHash>
#include <QList>
#include <QString>

/// Turns style resource files into a map from id to value text.
///
/// Grammar, UTF-8, one entry per line: `@ID: value`, optionally ending in `;`. The value is
/// trimmed and may hold blanks and quotes. Blank lines, `// ...` lines and `/* ... */` blocks are
/// ignored. A value that is exactly another `@ID` resolves to that entry's value once every file
/// is read; later files override earlier ones. Palette files hold `[PaletteName]` sections, each
/// followed by entries. Problems (missing file, malformed line, unknown or cyclic reference,
/// unknown palette) are warned about and the rest is still read. Ids keep their @ ("@ID"), the
/// form in which the application asks for them.
class STYLEREADER_EXPORT StyleReader
{
public:
    /// A reader; it keeps nothing from one call to the next.
    StyleReader() = default;

    /// The entries of every file, read in order; an entry of a later file replaces that of an
    /// earlier one. The warnings: `StyleReader : cannot open file <path>`,
    /// `StyleReader : malformed line <number> in <path>: <line>` and
    /// `StyleReader : unresolved reference <value> for <id>`.
    QHash<QString, QString> convertFilesToStyleMap(const QList<QString>& files);
    /// The entries of one palette section; an unknown palette gives the warning
    /// `StyleReader : unknown palette <name> in <path>` and an empty map.
    QHash<QString, QString> convertFilesToStyleMap(
        const QString& paletteName, const QString& paletteFile);
};
