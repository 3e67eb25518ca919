#pragma once

#include <guicore/guicore_export.h>

class QImage;

/// Measures how alike two images of the same size are.
class GUICORE_EXPORT ImageComparator
{
public:
    /// Percentage of pixels of \a a and \a b that are alike within \a tolerance: 100 means
    /// identical within tolerance, 0 that every pixel differs. A pixel differs when the
    /// colour distance d = sqrt(dr^2 + dg^2 + db^2) / sqrt(3) over the 8-bit channels, truncated to
    /// an integer, satisfies d / 255 > \a tolerance; so a tolerance of 1.0 accepts everything.
    /// Alpha is not part of the distance. Images of any pixel format can be compared with each
    /// other; their colours are compared, not their raw pixel values.
    /// Returns -1.0 with a warning when \a a is null ("ImageComparator : invalid input images!")
    /// or when the sizes differ ("ImageComparator : input images not the same size!").
    /// Re-entrant; the images are taken by value, so the caller's are never converted.
    static float compareImages(QImage a, QImage b, float tolerance);
};
