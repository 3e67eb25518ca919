#include "DateFormatModifiers.h"

#include <guicore/style/StyleManager.h>
#include <guicore/utility/widgets/StringOperations.h>

#include <QStringList>

namespace {

QString shortDateFormat()
{
    return StyleManager::manager().getDateFormat(StyleManager::SHORT_DATE_FORMAT);
}

} // namespace

QString DateFormatModifiers::getDateMask()
{
    const QString format = shortDateFormat();
    const QChar separator = StringOperations::determineSeparator(format);
    const QStringList fields = format.split(separator, Qt::KeepEmptyParts);
    QStringList masks;
    for (const QString& field : fields)
        masks.append(field.contains(QLatin1Char('y'), Qt::CaseInsensitive) ? QStringLiteral("D999")
                                                                           : QStringLiteral("09"));
    return masks.join(separator);
}

QString DateFormatModifiers::getShortDateFormatForInput()
{
    const QString format = shortDateFormat();
    const QChar separator = StringOperations::determineSeparator(format);
    const QStringList fields = format.split(separator, Qt::KeepEmptyParts);
    QStringList fullFields;
    for (const QString& field : fields) {
        if (field.startsWith(QLatin1Char('y')))
            fullFields.append(QStringLiteral("yyyy"));
        else if (field.startsWith(QLatin1Char('M')))
            fullFields.append(QStringLiteral("MM"));
        else if (field.startsWith(QLatin1Char('d')))
            fullFields.append(QStringLiteral("dd"));
    }
    return fullFields.join(separator);
}
