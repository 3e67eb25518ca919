#pragma once

#include <guicore/guicore_export.h>

#include <Qt>

class QColor;
class QImage;
class QRect;
class QString;

/// Helpers for 2-D images.
namespace image2d {

/// Small inspection and conversion helpers for images. All are re-entrant.
class GUICORE_EXPORT QImageHelper
{
public:
    /// The rectangle spanned by the smallest and largest coordinates of the pixels whose colour
    /// differs from \a background. Its size is (maxX - minX, maxY - minY): the rightmost column and
    /// the bottom row of the content are not counted, so a single pixel at (3, 4) gives
    /// QRect(3, 4, 0, 0). Callers rely on that size when they crop, so it is kept.
    /// An image without such pixels gives QRect(width, height, -width, -height).
    static QRect calculateImageBoundaries(const QImage& image, const Qt::GlobalColor& background);
    /// The image's bit depth, except that Format_RGB32 reports 24: its fourth byte carries
    /// no information.
    static int getDepth(const QImage& image);
    /// True when the image has an alpha channel and at least one pixel is not fully opaque.
    static bool isTransparent(QImage image);
    /// Replaces every fully transparent pixel of \a image by the opaque \a colour and converts the
    /// image to Format_RGB32. Partially transparent pixels keep their colour and lose their alpha.
    /// Images without an alpha channel are only converted. The pixel loop runs in parallel on
    /// oneTBB's worker threads and is finished when the call returns; nothing else may use
    /// \a image meanwhile.
    static void removeAlphaChannel(QImage& image, const QColor& colour);
    /// A "data:image/PNG;base64," URL holding the image as PNG, usable in rich text and QML.
    static QString streamToBase64(const QImage& image);
};

} // namespace image2d
