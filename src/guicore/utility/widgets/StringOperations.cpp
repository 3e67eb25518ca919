#include "StringOperations.h"

#include <QLocale>

QChar StringOperations::determineSeparator(const QString& s)
{
    static const QString separators = QStringLiteral("/.- ");
    for (const QChar c : s) {
        if (separators.contains(c))
            return c;
    }
    return QChar();
}

int StringOperations::localeAwareCompare(const QString& a, const QString& b, Qt::CaseSensitivity cs)
{
    if (cs == Qt::CaseSensitive)
        return QString::localeAwareCompare(a, b);
    const QLocale locale;
    return QString::localeAwareCompare(locale.toLower(a), locale.toLower(b));
}

bool StringOperations::compareFullNamesFuzzy(QString a, QString b)
{
    const auto normalise = [](QString& name) {
        name = name.simplified();
        name.remove(QLatin1Char(' '));
        name.remove(QLatin1Char('^'));
        name = QLocale().toLower(name);
    };
    normalise(a);
    normalise(b);
    return localeAwareCompare(a, b, Qt::CaseSensitive) == 0;
}
