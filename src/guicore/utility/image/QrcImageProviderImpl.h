#pragma once

#include <guicore/guicore_export.h>

class QImage;
class QPixmap;
class QSize;
class QString;

/// Serves images from the application's Qt resources by their path under ":/"; the backend
/// of QrcImageProvider, usable without QML.
class GUICORE_EXPORT QrcImageProviderImpl
{
public:
    /// The pixmap ":/" + \a id, scaled into \a requestedSize (keeping its aspect ratio, fast
    /// transformation) when that size is valid. A missing resource gives a null pixmap.
    /// \a size may be null; otherwise it receives the size of the result (does not take
    /// ownership).
    static QPixmap requestPixmap(const QString& id, QSize* size, const QSize& requestedSize);
    /// requestPixmap() as an image. \a size as for requestPixmap() (does not take ownership).
    static QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize);
};
