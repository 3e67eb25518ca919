#include <toothchart/DentalNotationConvertor.h>

namespace {

using ToothAndDentition = std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>;

// FDI quadrant (1..4) and position from the midline (1..8) of a Universal position.
struct FdiPlace
{
    int quadrant;
    int position;
};

FdiPlace fdiPlace(int tooth)
{
    if (tooth <= 8)
        return {1, 9 - tooth};
    if (tooth <= 16)
        return {2, tooth - 8};
    if (tooth <= 24)
        return {3, 25 - tooth};
    return {4, tooth - 24};
}

int universalFromFdiPlace(int quadrant, int position)
{
    switch (quadrant) {
    case 1:
        return 9 - position;
    case 2:
        return 8 + position;
    case 3:
        return 25 - position;
    default:
        return 24 + position;
    }
}

// The Universal letters run A..J over the upper deciduous positions 4..13, K..T over 20..29.
int letterIndex(int tooth)
{
    if (tooth >= 4 && tooth <= 13)
        return tooth - 4;
    if (tooth >= 20 && tooth <= 29)
        return 10 + tooth - 20;
    return -1;
}

utility::Optional<ToothAndDentition> parseFdi(const QString& notation)
{
    const QString text = notation.trimmed();
    if (text.size() != 2 || !text.at(0).isDigit() || !text.at(1).isDigit())
        return std::nullopt;
    const int quadrant = text.at(0).digitValue();
    const int position = text.at(1).digitValue();
    if (quadrant >= 1 && quadrant <= 4 && position >= 1 && position <= 8)
        return ToothAndDentition(ToothChart::Tooth(universalFromFdiPlace(quadrant, position)),
            anatomy::Tooth::Permanent);
    if (quadrant >= 5 && quadrant <= 8 && position >= 1 && position <= 5)
        return ToothAndDentition(ToothChart::Tooth(universalFromFdiPlace(quadrant - 4, position)),
            anatomy::Tooth::Deciduous);
    return std::nullopt;
}

utility::Optional<ToothAndDentition> parseUniversal(const QString& notation)
{
    const QString text = notation.trimmed();
    if (text.size() == 1 && text.at(0).isLetter()) {
        const int index = text.at(0).toUpper().unicode() - 'A';
        if (index >= 0 && index < 10)
            return ToothAndDentition(ToothChart::Tooth(4 + index), anatomy::Tooth::Deciduous);
        if (index >= 10 && index < 20)
            return ToothAndDentition(ToothChart::Tooth(20 + index - 10), anatomy::Tooth::Deciduous);
        return std::nullopt;
    }
    if (text.isEmpty() || text.size() > 2 || text.at(0) == QLatin1Char('0'))
        return std::nullopt;
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return std::nullopt;
    }
    const int tooth = text.toInt();
    if (!ToothChart::isValidTooth(ToothChart::Tooth(tooth)))
        return std::nullopt;
    return ToothAndDentition(ToothChart::Tooth(tooth), anatomy::Tooth::Permanent);
}

} // namespace

QString DentalNotationConvertor::getFdiNotationForToothType(ToothChart::Tooth tooth, bool child)
{
    if (!ToothChart::isValidTooth(tooth))
        return QString();
    const FdiPlace place = fdiPlace(tooth);
    if (!child)
        return QString::number(place.quadrant * 10 + place.position);
    if (letterIndex(tooth) < 0)
        return QString();
    return QString::number((place.quadrant + 4) * 10 + place.position);
}

QString DentalNotationConvertor::getUnivNotationForToothType(ToothChart::Tooth tooth, bool child)
{
    if (!ToothChart::isValidTooth(tooth))
        return QString();
    if (!child)
        return QString::number(int(tooth));
    const int index = letterIndex(tooth);
    return index < 0 ? QString() : QString(QChar('A' + index));
}

ToothChart::Tooth DentalNotationConvertor::getToothTypeForFdiNotation(const QString& notation)
{
    const auto parsed = parseFdi(notation);
    return parsed ? parsed->first : ToothChart::UnknownTooth;
}

ToothChart::Tooth DentalNotationConvertor::getToothTypeForUnivNotation(const QString& notation)
{
    const auto parsed = parseUniversal(notation);
    return parsed ? parsed->first : ToothChart::UnknownTooth;
}

utility::Optional<ToothAndDentition>
DentalNotationConvertor::getToothTypeAndDentitionForFdiNotation(const QString& notation)
{
    return parseFdi(notation);
}

utility::Optional<ToothAndDentition>
DentalNotationConvertor::getToothTypeAndDentitionForUnivNotation(const QString& notation)
{
    return parseUniversal(notation);
}
