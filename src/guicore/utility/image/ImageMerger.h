#pragma once

#include <guicore/guicore_export.h>

class QColor;
class QImage;

/// Puts two images side by side or one above the other into a new image. Re-entrant; null
/// images count as images of size zero.
class GUICORE_EXPORT ImageMerger
{
public:
    /// An ARGB32 image of width left.width + right.width and the larger of the two heights,
    /// filled with \a background, with \a left at (0, 0) and \a right at (left.width, 0).
    /// Pixels are copied, not blended: a translucent source pixel stays translucent.
    static QImage mergeHorizontally(
        const QImage& left, const QImage& right, const QColor& background);
    /// An ARGB32 image of the larger of the two widths and height top.height + bottom.height,
    /// filled with \a background, with \a top at (0, 0) and \a bottom at (0, top.height).
    /// Pixels are copied as by mergeHorizontally().
    static QImage mergeVertically(
        const QImage& top, const QImage& bottom, const QColor& background);
};
