#pragma once

#include <toothchart/toothchart_export.h>

#include <QList>

/// Tooth positions and the order in which the user walks along the arches.
///
/// Teeth are numbered in Universal order: 1 upper right third molar ... 16 upper left third
/// molar, 17 lower left third molar ... 32 lower right third molar. Deciduous teeth share the
/// positions of the permanent teeth that replace them: upper 4..13, lower 20..29.
class TOOTHCHART_EXPORT ToothChart
{
public:
    ToothChart() = delete;

    /// Int-based so that any position can be cast in; only 1..32 are teeth.
    enum Tooth : int {
        NoTooth = -1, ///< Deliberately no tooth; named "-".
        UnknownTooth = 0, ///< A tooth that is not known; named "?".
        FirstTooth = 1, ///< The upper right third molar, first in Universal order.
        LastTooth = 32 ///< The lower right third molar, last in Universal order.
    };
    /// The jaw.
    enum ArchType : int {
        Upper = 0, ///< The upper jaw.
        Lower = 1 ///< The lower jaw.
    };

    /// True for 1..32.
    static bool isValidTooth(Tooth tooth);
    /// @{
    /// True for a tooth of the lower arch (17..32), or of the upper arch (1..16).
    static bool isLowerTooth(Tooth tooth);
    static bool isUpperTooth(Tooth tooth);
    /// @}
    /// The arch of a valid tooth; Upper for anything else.
    static ArchType getArch(Tooth tooth);
    /// The permanent positions of an arch in Universal order (upper 1..16, lower 17..32).
    static QList<Tooth> getTeeth(ArchType arch);
    /// The deciduous positions of an arch in Universal order (upper 4..13, lower 20..29).
    static QList<Tooth> getTeethForChild(ArchType arch);
    /// The neighbour in Universal order, over the deciduous positions only when child is set,
    /// passing from the upper arch into the lower. NoTooth past either end or for a tooth that
    /// is not on the walk.
    static Tooth getNextTooth(Tooth tooth, bool child);
    /// The neighbour the other way, by the same rules as getNextTooth().
    static Tooth getPreviousTooth(Tooth tooth, bool child);
};
