#include "QrcImageProvider.h"

#include "QrcImageProviderImpl.h"

QrcImageProvider::QrcImageProvider()
    : QQuickImageProvider(QQuickImageProvider::Pixmap)
{
}

QPixmap QrcImageProvider::requestPixmap(const QString& id, QSize* size, const QSize& requestedSize)
{
    return QrcImageProviderImpl::requestPixmap(id, size, requestedSize);
}

QImage QrcImageProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    return QrcImageProviderImpl::requestImage(id, size, requestedSize);
}
