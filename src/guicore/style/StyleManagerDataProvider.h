#pragma once

#include <guicore/guicore_export.h>

#include <QHash>
#include <QList>
#include <QString>

/// Says which style resource files fill the `StyleManager` and reads them.
///
/// Every getter reads its files afresh through a new `StyleReader`; nothing is cached. A
/// non-empty palette name replaces the colour files entirely by that section of
/// ":/Resources/palette.txt".
class GUICORE_EXPORT StyleManagerDataProvider
{
public:
    struct GUICORE_EXPORT Data
    {
        Data(const QList<QString>& colorFiles, const QList<QString>& dimensionFiles,
            const QList<QString>& fontFiles, const QList<QString>& formatFiles,
            const QString& paletteName);

        QList<QString> colorFiles;
        QList<QString> dimensionFiles;
        QList<QString> fontFiles;
        QList<QString> formatFiles;
        QString paletteName;
    };

    /// The library's default style resources, no palette.
    StyleManagerDataProvider();
    explicit StyleManagerDataProvider(const Data& data);

    QHash<QString, QString> getColorPalette() const;
    QHash<QString, QString> getDimensions() const;
    QHash<QString, QString> getFonts() const;
    QHash<QString, QString> getFormats() const;

private:
    Data data;
};
