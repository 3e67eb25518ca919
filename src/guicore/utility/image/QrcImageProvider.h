#pragma once

#include <guicore/guicore_export.h>

#include <QQuickImageProvider>

/// Lets QML show images from the application's Qt resources: after
/// engine.addImageProvider(QrcImageProvider::PROVIDER_ID, new QrcImageProvider) the source
/// "image://qrc/Resources/Icons/x.png" shows ":/Resources/Icons/x.png". Pixmaps are made on
/// the GUI thread, so the provider is of the Pixmap kind.
class GUICORE_EXPORT QrcImageProvider : public QQuickImageProvider
{
public:
    /// The id under which applications usually register the provider.
    static constexpr const char* PROVIDER_ID = "qrc";

    /// A provider of the Pixmap kind; the QML engine that it is added to takes ownership.
    QrcImageProvider();

    /// \a size may be null (does not take ownership).
    QPixmap requestPixmap(const QString& id, QSize* size, const QSize& requestedSize) override;
    /// \a size may be null (does not take ownership).
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};
