#pragma once

#include <guicore/guicore_export.h>

#include <QChar>
#include <QString>

/// String helpers for names and formats.
class GUICORE_EXPORT StringOperations
{
public:
    StringOperations() = delete;

    /// The first "/", ".", "-" or blank of s; a null character when there is none.
    static QChar determineSeparator(const QString& s);
    /// `QString::localeAwareCompare`, on copies lower-cased with the default QLocale when cs is
    /// case-insensitive: negative, zero or positive as a sorts before, with or after b.
    static int localeAwareCompare(const QString& a, const QString& b, Qt::CaseSensitivity cs);
    /// Equal names up to blanks, "^" (the part separator of stored person names) and case.
    static bool compareFullNamesFuzzy(QString a, QString b);
};
