#include "ViewSettings.h"

bool ViewSettings::operator==(const ViewSettings& other) const
{
    // The factor is copied, never computed here, so an exact comparison is what callers expect.
    return firstValue == other.firstValue && secondValue == other.secondValue
        && factor == other.factor && thirdValue == other.thirdValue
        && fourthValue == other.fourthValue && integer == other.integer && flag == other.flag;
}
