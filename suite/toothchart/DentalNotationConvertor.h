#pragma once

#include <objectmodel/Optional.h>
#include <toothchart/Tooth.h>
#include <toothchart/ToothChart.h>
#include <toothchart/toothchart_export.h>

#include <QString>

#include <utility>

/// FDI (two-digit) and Universal notation of teeth, both ways.
///
/// Permanent teeth: FDI "18".."11", "21".."28", "38".."31", "41".."48"; Universal "1".."32".
/// Deciduous teeth: FDI "55".."51", "61".."65", "75".."71", "81".."85"; Universal "A".."T".
/// The child flag selects the deciduous notation; a position without a deciduous tooth then has
/// no notation (empty text).
class TOOTHCHART_EXPORT DentalNotationConvertor
{
public:
    DentalNotationConvertor() = delete;

    /// @{
    /// The FDI, or the Universal, notation of tooth; with child, that of the deciduous tooth at
    /// its position. Empty for an invalid tooth and for a position without a tooth of that
    /// dentition.
    static QString getFdiNotationForToothType(ToothChart::Tooth tooth, bool child);
    static QString getUnivNotationForToothType(ToothChart::Tooth tooth, bool child);
    /// @}

    /// @{
    /// The tooth a notation names, or UnknownTooth (0); surrounding blanks are ignored.
    static ToothChart::Tooth getToothTypeForFdiNotation(const QString& notation);
    static ToothChart::Tooth getToothTypeForUnivNotation(const QString& notation);
    /// @}

    /// @{
    /// The tooth a notation names and the dentition that notation belongs to; nothing for a
    /// text that names no tooth.
    static utility::Optional<std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>>
    getToothTypeAndDentitionForFdiNotation(const QString& notation);
    static utility::Optional<std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>>
    getToothTypeAndDentitionForUnivNotation(const QString& notation);
    /// @}
};
