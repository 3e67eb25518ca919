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
/// the tooth-chart library's `DentalNotationConvertor`.
class GUICORE_EXPORT ToothNameGenerator : public QObject
{
    Q_OBJECT

public:
    using ToothRange = std::pair<ToothChart::Tooth, ToothChart::Tooth>;

    /// The application-wide numbering choice; set once at start-up.
    static QString TOOTH_NUMBERING_SYSTEM;

    explicit ToothNameGenerator(QObject* parent = nullptr);

    /// "?" for an unknown tooth (0) or a tooth without a notation, "-" for no tooth (-1).
    static QString getName(ToothChart::Tooth tooth, const QString& numbering, bool dentitionFlag);
    static QString getName(ToothChart::Tooth tooth);
    static QString getName(ToothChart::Tooth tooth, const QString& numbering);
    static QString getName(ToothChart::Tooth tooth, const char* numbering);
    static QString getName(ToothChart::Tooth tooth, bool dentitionFlag);

    /// Side and kind, not the jaw: an upper and a lower tooth of one kind share the name.
    static QString getType(ToothChart::Tooth tooth);
    static QString archDisplayName(ToothChart::ArchType arch);
    static QString getToothNumberingName(const QString& numbering);

    static ToothChart::Tooth getToothIdByName(const QString& name);
    static ToothChart::Tooth getToothIdByName(const QString& name, const QString& numbering);
    static utility::Optional<std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>>
    getToothTypeAndDentitionByName(const QString& name);
    static utility::Optional<std::pair<ToothChart::Tooth, anatomy::Tooth::Dentition>>
    getToothTypeAndDentitionByName(const QString& name, const QString& numbering);

    /// The neighbouring tooth's name in the current numbering, in the dentition of the given
    /// name; empty for a text that names no tooth.
    Q_INVOKABLE static QString getNextTooth(const QString& toothNumber);
    Q_INVOKABLE static QString getPreviousTooth(const QString& toothNumber);

    /// Permanent upper, permanent lower, deciduous upper, deciduous lower.
    static QList<QString> getAllNames();

    /// "a-b", or one name when both ends are equal; empty when an end is not a valid tooth.
    /// With ascending the lower enumeration value comes first; then, with swapLowerRange, a
    /// range of two lower teeth is reversed (so lower ranges read in the patient's direction).
    static QString displayName(const ToothRange& range, const QString& numbering,
        bool dentitionFlag, bool swapLowerRange, bool ascending);
    static QString displayName(
        const ToothRange& range, bool dentitionFlag, bool swapLowerRange, bool ascending);
    /// The ranges, each followed by separator, with the first character of the last separator
    /// removed: a longer separator leaves its tail behind (kept for existing callers).
    static QString displayName(const QList<ToothRange>& ranges, bool dentitionFlag,
        bool swapLowerRange, const QString& separator);
    static QString displayName(const QList<ToothRange>& ranges, bool dentitionFlag,
        bool swapLowerRange, const QString& separator, const QString& numbering);
    /// The range from the first to the last element; empty for an empty list.
    static QString displayName(QList<ToothChart::Tooth> teeth, bool ascending);
    static QString displayNameWithoutBrackets(const ToothRange& range);
    static QString displayNameWithoutBrackets(const ToothRange& range, const QString& numbering);

    /// "Tooth x" or "Teeth x-y".
    static QString getName(const ToothRange& range);
    /// The ranges joined by ", " in their stored order, with "Tooth " or "Teeth " in front
    /// unless withoutPrefix.
    static QString getName(const QList<ToothRange>& ranges, bool withoutPrefix);
    static QString getName(QList<ToothChart::Tooth> teeth, const QString& separator);
    static QString getName(
        QList<ToothChart::Tooth> teeth, const QString& numbering, const QString& separator);

    /// The non-empty ones of the upper and the lower range text, joined by separator.
    static QString toothRangeDisplayNames(const ToothRange& upperRange,
        const ToothRange& lowerRange, bool dentitionFlag, const QString& separator);

    /// By the numeric value of each tooth's name; names that are not numbers sort as 0.
    static void sortTeethListByDisplayName(QList<ToothChart::Tooth>& teeth);
};
