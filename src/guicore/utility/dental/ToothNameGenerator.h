#pragma once

#include <guicore/guicore_export.h>

#include <objectmodel/Optional.h>
#include <toothchart/Tooth.h>
#include <toothchart/ToothChart.h>

#include <QList>
#include <QObject>
#include <QString>

#include <utility>

/// Tooth identifiers and ranges as the texts shown to the user, and back.
///
/// The numbering is FDI unless `TOOTH_NUMBERING_SYSTEM` (or an explicit numbering argument) is
/// exactly "UNIV", which selects Universal numbering. The notation texts themselves come from
/// the tooth-chart library's `DentalNotationConvertor`. A dentition flag of true asks for the
/// deciduous (child) notation of a position.
///
/// Every function is static; words ("Tooth ", "upper jaw", the tooth type names) pass through
/// tr() in the context "ToothNameGenerator". getNextTooth() and getPreviousTooth() are
/// Q_INVOKABLE for QML, which needs an instance: expose one, for example as a context property.
/// GUI thread: `TOOTH_NUMBERING_SYSTEM` is read, unguarded, on every call.
class GUICORE_EXPORT ToothNameGenerator : public QObject
{
    Q_OBJECT

public:
    /// A range of teeth, first and last, as the user selected it.
    using ToothRange = std::pair<ToothChart::Tooth, ToothChart::Tooth>;

    /// The application-wide numbering choice; set once at start-up. Empty (FDI) until then.
    static QString TOOTH_NUMBERING_SYSTEM;

    /// An instance for QML; parent owns it, as for any QObject.
    explicit ToothNameGenerator(QObject* parent = nullptr);

    /// "?" for an unknown tooth (0) or a tooth without a notation, "-" for no tooth (-1).
    static QString getName(ToothChart::Tooth tooth, const QString& numbering, bool dentitionFlag);
    /// @{
    /// getName(tooth, numbering, dentitionFlag) with `TOOTH_NUMBERING_SYSTEM` for a numbering
    /// that is not given and false for a dentition flag that is not given.
    static QString getName(ToothChart::Tooth tooth);
    static QString getName(ToothChart::Tooth tooth, const QString& numbering);
    static QString getName(ToothChart::Tooth tooth, const char* numbering);
    static QString getName(ToothChart::Tooth tooth, bool dentitionFlag);
    /// @}

    /// Side and kind, not the jaw: an upper and a lower tooth of one kind share the name.
    static QString getType(ToothChart::Tooth tooth);
    /// "upper jaw", "lower jaw", or "jaw" for a value that is neither.
    static QString archDisplayName(ToothChart::ArchType arch);
    /// "Universal numbering" for "UNIV", "FDI numbering" for anything else.
    static QString getToothNumberingName(const QString& numbering);

    /// @{
    /// The tooth that name denotes in numbering (`TOOTH_NUMBERING_SYSTEM` when not given), as
    /// the convertor parses it: UnknownTooth for a name that denotes none.
    static ToothChart::Tooth getToothIdByName(const QString& name);
    static ToothChart::Tooth getToothIdByName(const QString& name, const QString& numbering);
    /// @}
    /// @{
    /// The tooth that name denotes and the dentition of its notation; nothing for a name that
    /// denotes no tooth. numbering as for getToothIdByName().
    static utility::Optional<std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>>
    getToothTypeAndDentitionByName(const QString& name);
    static utility::Optional<std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>>
    getToothTypeAndDentitionByName(const QString& name, const QString& numbering);
    /// @}

    /// The neighbouring tooth's name in the current numbering, in the dentition of the given
    /// name; empty for a text that names no tooth. The walk is the tooth chart's: along the
    /// upper arch, then into the lower; "-" past either end.
    Q_INVOKABLE static QString getNextTooth(const QString& toothNumber);
    /// The neighbour the other way, by the same rules as getNextTooth().
    Q_INVOKABLE static QString getPreviousTooth(const QString& toothNumber);

    /// Permanent upper, permanent lower, deciduous upper, deciduous lower.
    static QList<QString> getAllNames();

    /// "a-b", or one name when both ends are equal; empty when an end is not a valid tooth.
    /// With ascending the lower enumeration value comes first; then, with swapLowerRange, a
    /// range of two lower teeth is reversed (so lower ranges read in the patient's direction).
    static QString displayName(const ToothRange& range, const QString& numbering,
        bool dentitionFlag, bool swapLowerRange, bool ascending);
    /// The same with `TOOTH_NUMBERING_SYSTEM`.
    static QString displayName(
        const ToothRange& range, bool dentitionFlag, bool swapLowerRange, bool ascending);
    /// The ranges, each followed by separator, with the first character of the last separator
    /// removed: a longer separator leaves its tail behind (kept for existing callers), so ", "
    /// ends the text in a blank. Each range ascending; `TOOTH_NUMBERING_SYSTEM`.
    static QString displayName(const QList<ToothRange>& ranges, bool dentitionFlag,
        bool swapLowerRange, const QString& separator);
    /// The same in the given numbering.
    static QString displayName(const QList<ToothRange>& ranges, bool dentitionFlag,
        bool swapLowerRange, const QString& separator, const QString& numbering);
    /// The range from the first to the last element; empty for an empty list.
    static QString displayName(QList<ToothChart::Tooth> teeth, bool ascending);
    /// @{
    /// The ascending range text without "(" and ")", which some notations put around a name;
    /// permanent notation, `TOOTH_NUMBERING_SYSTEM` when no numbering is given.
    static QString displayNameWithoutBrackets(const ToothRange& range);
    static QString displayNameWithoutBrackets(const ToothRange& range, const QString& numbering);
    /// @}

    /// "Tooth x" or "Teeth x-y".
    static QString getName(const ToothRange& range);
    /// The ranges joined by ", " in their stored order, with "Tooth " or "Teeth " in front
    /// unless withoutPrefix.
    static QString getName(const QList<ToothRange>& ranges, bool withoutPrefix);
    /// @{
    /// The permanent names of teeth, each followed by separator, with the first character of
    /// the last separator removed (as for the list form of displayName()).
    /// `TOOTH_NUMBERING_SYSTEM` when no numbering is given.
    static QString getName(QList<ToothChart::Tooth> teeth, const QString& separator);
    static QString getName(
        QList<ToothChart::Tooth> teeth, const QString& numbering, const QString& separator);
    /// @}

    /// The non-empty ones of the upper and the lower range text, joined by separator.
    static QString toothRangeDisplayNames(const ToothRange& upperRange,
        const ToothRange& lowerRange, bool dentitionFlag, const QString& separator);

    /// By the numeric value of each tooth's name; names that are not numbers sort as 0.
    static void sortTeethListByDisplayName(QList<ToothChart::Tooth>& teeth);
};
