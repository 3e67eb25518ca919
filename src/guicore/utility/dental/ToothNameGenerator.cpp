#include "ToothNameGenerator.h"

#include <toothchart/DentalNotationConvertor.h>

#include <algorithm>

QString ToothNameGenerator::TOOTH_NUMBERING_SYSTEM;

namespace {

const QString universal = QStringLiteral("UNIV");

bool isUniversal(const QString& numbering)
{
    return numbering == universal;
}

// Removes one character where the last separator starts: the trailing separator when it is one
// character long, only its first character otherwise.
void removeTrailingSeparator(QString& text, const QString& separator)
{
    const qsizetype position = text.lastIndexOf(separator);
    if (position >= 0)
        text.remove(position, 1);
}

QString withoutBrackets(QString text)
{
    text.remove(QLatin1Char('('));
    text.remove(QLatin1Char(')'));
    return text;
}

} // namespace

ToothNameGenerator::ToothNameGenerator(QObject* parent)
    : QObject(parent)
{
}

QString ToothNameGenerator::getName(
    ToothChart::Tooth tooth, const QString& numbering, bool dentitionFlag)
{
    if (tooth == ToothChart::UnknownTooth)
        return QStringLiteral("?");
    if (tooth == ToothChart::NoTooth)
        return QStringLiteral("-");
    const QString notation = isUniversal(numbering)
        ? DentalNotationConvertor::getUnivNotationForToothType(tooth, dentitionFlag)
        : DentalNotationConvertor::getFdiNotationForToothType(tooth, dentitionFlag);
    return notation.isEmpty() ? QStringLiteral("?") : notation;
}

QString ToothNameGenerator::getName(ToothChart::Tooth tooth)
{
    return getName(tooth, TOOTH_NUMBERING_SYSTEM, false);
}

QString ToothNameGenerator::getName(ToothChart::Tooth tooth, const QString& numbering)
{
    return getName(tooth, numbering, false);
}

QString ToothNameGenerator::getName(ToothChart::Tooth tooth, const char* numbering)
{
    return getName(tooth, QString::fromUtf8(numbering), false);
}

QString ToothNameGenerator::getName(ToothChart::Tooth tooth, bool dentitionFlag)
{
    return getName(tooth, TOOTH_NUMBERING_SYSTEM, dentitionFlag);
}

QString ToothNameGenerator::getType(ToothChart::Tooth tooth)
{
    // Position within the arch counted from the patient's right: the lower arch runs the other
    // way round in Universal order, hence the mirror.
    int position = static_cast<int>(tooth);
    if (position >= 17 && position <= 32)
        position = 33 - position;
    switch (position) {
    case 1:
        return tr("Right third molar");
    case 2:
        return tr("Right second molar");
    case 3:
        return tr("Right first molar");
    case 4:
        return tr("Right second premolar");
    case 5:
        return tr("Right first premolar");
    case 6:
        return tr("Right canine");
    case 7:
        return tr("Right lateral incisor");
    case 8:
        return tr("Right central incisor");
    case 9:
        return tr("Left central incisor");
    case 10:
        return tr("Left lateral incisor");
    case 11:
        return tr("Left canine");
    case 12:
        return tr("Left first premolar");
    case 13:
        return tr("Left second premolar");
    case 14:
        return tr("Left first molar");
    case 15:
        return tr("Left second molar");
    case 16:
        return tr("Left third molar");
    default:
        return QString();
    }
}

QString ToothNameGenerator::archDisplayName(ToothChart::ArchType arch)
{
    switch (static_cast<int>(arch)) {
    case ToothChart::Upper:
        return tr("upper jaw");
    case ToothChart::Lower:
        return tr("lower jaw");
    default:
        return tr("jaw");
    }
}

QString ToothNameGenerator::getToothNumberingName(const QString& numbering)
{
    return isUniversal(numbering) ? tr("Universal numbering") : tr("FDI numbering");
}

ToothChart::Tooth ToothNameGenerator::getToothIdByName(const QString& name)
{
    return getToothIdByName(name, TOOTH_NUMBERING_SYSTEM);
}

ToothChart::Tooth ToothNameGenerator::getToothIdByName(
    const QString& name, const QString& numbering)
{
    return isUniversal(numbering) ? DentalNotationConvertor::getToothTypeForUnivNotation(name)
                                  : DentalNotationConvertor::getToothTypeForFdiNotation(name);
}

utility::Optional<std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>>
ToothNameGenerator::getToothTypeAndDentitionByName(const QString& name)
{
    return getToothTypeAndDentitionByName(name, TOOTH_NUMBERING_SYSTEM);
}

utility::Optional<std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>>
ToothNameGenerator::getToothTypeAndDentitionByName(const QString& name, const QString& numbering)
{
    return isUniversal(numbering)
        ? DentalNotationConvertor::getToothTypeAndDentitionForUnivNotation(name)
        : DentalNotationConvertor::getToothTypeAndDentitionForFdiNotation(name);
}

QString ToothNameGenerator::getNextTooth(const QString& toothNumber)
{
    const auto parsed = getToothTypeAndDentitionByName(toothNumber, TOOTH_NUMBERING_SYSTEM);
    if (!parsed)
        return QString();
    const bool child = parsed->second == anatomy::Tooth::Deciduous;
    return getName(ToothChart::getNextTooth(parsed->first, child), TOOTH_NUMBERING_SYSTEM, child);
}

QString ToothNameGenerator::getPreviousTooth(const QString& toothNumber)
{
    const auto parsed = getToothTypeAndDentitionByName(toothNumber, TOOTH_NUMBERING_SYSTEM);
    if (!parsed)
        return QString();
    const bool child = parsed->second == anatomy::Tooth::Deciduous;
    return getName(
        ToothChart::getPreviousTooth(parsed->first, child), TOOTH_NUMBERING_SYSTEM, child);
}

QList<QString> ToothNameGenerator::getAllNames()
{
    QList<QString> names;
    for (const ToothChart::ArchType arch : {ToothChart::Upper, ToothChart::Lower}) {
        for (const ToothChart::Tooth tooth : ToothChart::getTeeth(arch))
            names.append(getName(tooth, TOOTH_NUMBERING_SYSTEM, false));
    }
    for (const ToothChart::ArchType arch : {ToothChart::Upper, ToothChart::Lower}) {
        for (const ToothChart::Tooth tooth : ToothChart::getTeethForChild(arch))
            names.append(getName(tooth, TOOTH_NUMBERING_SYSTEM, true));
    }
    return names;
}

QString ToothNameGenerator::displayName(const ToothRange& range, const QString& numbering,
    bool dentitionFlag, bool swapLowerRange, bool ascending)
{
    if (!ToothChart::isValidTooth(range.first) || !ToothChart::isValidTooth(range.second))
        return QString();
    ToothChart::Tooth a = range.first;
    ToothChart::Tooth b = range.second;
    if (ascending && a > b)
        std::swap(a, b);
    if (swapLowerRange && ToothChart::isLowerTooth(a) && ToothChart::isLowerTooth(b))
        std::swap(a, b);
    const QString first = getName(a, numbering, dentitionFlag);
    if (a == b)
        return first;
    return QStringLiteral("%1-%2").arg(first, getName(b, numbering, dentitionFlag));
}

QString ToothNameGenerator::displayName(
    const ToothRange& range, bool dentitionFlag, bool swapLowerRange, bool ascending)
{
    return displayName(range, TOOTH_NUMBERING_SYSTEM, dentitionFlag, swapLowerRange, ascending);
}

QString ToothNameGenerator::displayName(const QList<ToothRange>& ranges, bool dentitionFlag,
    bool swapLowerRange, const QString& separator)
{
    return displayName(ranges, dentitionFlag, swapLowerRange, separator, TOOTH_NUMBERING_SYSTEM);
}

QString ToothNameGenerator::displayName(const QList<ToothRange>& ranges, bool dentitionFlag,
    bool swapLowerRange, const QString& separator, const QString& numbering)
{
    QString result;
    for (const ToothRange& range : ranges)
        result += displayName(range, numbering, dentitionFlag, swapLowerRange, true) + separator;
    removeTrailingSeparator(result, separator);
    return result;
}

QString ToothNameGenerator::displayName(QList<ToothChart::Tooth> teeth, bool ascending)
{
    if (teeth.isEmpty())
        return QString();
    return displayName(
        {teeth.first(), teeth.last()}, TOOTH_NUMBERING_SYSTEM, false, false, ascending);
}

QString ToothNameGenerator::displayNameWithoutBrackets(const ToothRange& range)
{
    return displayNameWithoutBrackets(range, TOOTH_NUMBERING_SYSTEM);
}

QString ToothNameGenerator::displayNameWithoutBrackets(
    const ToothRange& range, const QString& numbering)
{
    return withoutBrackets(displayName(range, numbering, false, false, true));
}

QString ToothNameGenerator::getName(const ToothRange& range)
{
    const QString prefix = range.first == range.second ? tr("Tooth ") : tr("Teeth ");
    return prefix + displayNameWithoutBrackets(range, TOOTH_NUMBERING_SYSTEM);
}

QString ToothNameGenerator::getName(const QList<ToothRange>& ranges, bool withoutPrefix)
{
    if (ranges.isEmpty())
        return QString();
    QStringList parts;
    bool several = ranges.size() > 1;
    for (const ToothRange& range : ranges) {
        if (range.first == range.second) {
            parts.append(tr("%1").arg(getName(range.first)));
        } else {
            several = true;
            parts.append(tr("%1-%2").arg(getName(range.first), getName(range.second)));
        }
    }
    const QString body = parts.join(QStringLiteral(", "));
    if (withoutPrefix)
        return body;
    return (several ? tr("Teeth ") : tr("Tooth ")) + body;
}

QString ToothNameGenerator::getName(QList<ToothChart::Tooth> teeth, const QString& separator)
{
    return getName(std::move(teeth), TOOTH_NUMBERING_SYSTEM, separator);
}

QString ToothNameGenerator::getName(
    QList<ToothChart::Tooth> teeth, const QString& numbering, const QString& separator)
{
    QString result;
    for (const ToothChart::Tooth tooth : teeth)
        result += getName(tooth, numbering, false) + separator;
    removeTrailingSeparator(result, separator);
    return result;
}

QString ToothNameGenerator::toothRangeDisplayNames(const ToothRange& upperRange,
    const ToothRange& lowerRange, bool dentitionFlag, const QString& separator)
{
    const QString upper
        = displayName(upperRange, TOOTH_NUMBERING_SYSTEM, dentitionFlag, true, true);
    const QString lower
        = displayName(lowerRange, TOOTH_NUMBERING_SYSTEM, dentitionFlag, true, true);
    QString result = upper;
    if (!lower.isEmpty()) {
        if (!result.isEmpty())
            result += separator;
        result += lower;
    }
    return result;
}

void ToothNameGenerator::sortTeethListByDisplayName(QList<ToothChart::Tooth>& teeth)
{
    const auto key = [](ToothChart::Tooth tooth) {
        return getName(tooth, TOOTH_NUMBERING_SYSTEM, false).toInt(nullptr, 10);
    };
    std::sort(teeth.begin(), teeth.end(),
        [&key](ToothChart::Tooth a, ToothChart::Tooth b) { return key(a) < key(b); });
}
