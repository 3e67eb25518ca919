#include "QrcImageProviderImpl.h"

#include <QImage>
#include <QPixmap>
#include <QSize>
#include <QString>

QPixmap QrcImageProviderImpl::requestPixmap(
    const QString& id, QSize* size, const QSize& requestedSize)
{
    QPixmap pixmap(QStringLiteral(":/") + id);
    // Scaling a null pixmap only adds a warning to the missing resource.
    if (requestedSize.isValid() && !pixmap.isNull())
        pixmap = pixmap.scaled(requestedSize, Qt::KeepAspectRatio, Qt::FastTransformation);
    if (size)
        *size = pixmap.size();
    return pixmap;
}

QImage QrcImageProviderImpl::requestImage(
    const QString& id, QSize* size, const QSize& requestedSize)
{
    return requestPixmap(id, size, requestedSize).toImage();
}
