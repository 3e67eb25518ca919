#include <toothchart/ToothChart.h>

namespace {

QList<ToothChart::Tooth> range(int first, int last)
{
    QList<ToothChart::Tooth> teeth;
    teeth.reserve(last - first + 1);
    for (int tooth = first; tooth <= last; ++tooth)
        teeth.append(ToothChart::Tooth(tooth));
    return teeth;
}

bool isChildPosition(int tooth)
{
    return (tooth >= 4 && tooth <= 13) || (tooth >= 20 && tooth <= 29);
}

bool isOnWalk(int tooth, bool child)
{
    return ToothChart::isValidTooth(ToothChart::Tooth(tooth)) && (!child || isChildPosition(tooth));
}

// Steps along the Universal order, skipping the positions that are not on the walk.
ToothChart::Tooth step(ToothChart::Tooth tooth, bool child, int direction)
{
    if (!isOnWalk(tooth, child))
        return ToothChart::NoTooth;
    for (int next = tooth + direction;
         next >= ToothChart::FirstTooth && next <= ToothChart::LastTooth; next += direction) {
        if (isOnWalk(next, child))
            return ToothChart::Tooth(next);
    }
    return ToothChart::NoTooth;
}

} // namespace

bool ToothChart::isValidTooth(Tooth tooth)
{
    return tooth >= FirstTooth && tooth <= LastTooth;
}

bool ToothChart::isLowerTooth(Tooth tooth)
{
    return tooth >= 17 && tooth <= LastTooth;
}

bool ToothChart::isUpperTooth(Tooth tooth)
{
    return tooth >= FirstTooth && tooth <= 16;
}

ToothChart::ArchType ToothChart::getArch(Tooth tooth)
{
    return isLowerTooth(tooth) ? Lower : Upper;
}

QList<ToothChart::Tooth> ToothChart::getTeeth(ArchType arch)
{
    return arch == Lower ? range(17, 32) : range(1, 16);
}

QList<ToothChart::Tooth> ToothChart::getTeethForChild(ArchType arch)
{
    return arch == Lower ? range(20, 29) : range(4, 13);
}

ToothChart::Tooth ToothChart::getNextTooth(Tooth tooth, bool child)
{
    return step(tooth, child, +1);
}

ToothChart::Tooth ToothChart::getPreviousTooth(Tooth tooth, bool child)
{
    return step(tooth, child, -1);
}
