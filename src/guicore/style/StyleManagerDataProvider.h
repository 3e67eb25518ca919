#pragma once

#include <guicore/guicore_export.h>

#include <QHash>
#include <QList>
#include <QString>

/// Says which style resource files fill the `StyleManager` and reads them.
///
/// Every getter reads its files afresh through a new `StyleReader`; nothing is cached. A
/// non-empty palette name replaces the colour files entirely by that section of
/// ":/Resources/palette.txt". Missing files and malformed lines are the style reader's
/// warnings; what can be read is still returned. The maps go from id ("@ID") to value text.
class GUICORE_EXPORT StyleManagerDataProvider
{
public:
    /// The resource files of one style. Within each list later files override earlier ones.
    struct GUICORE_EXPORT Data
    {
        /// The five parts, in the order of the fields.
        Data(const QList<QString>& colorFiles, const QList<QString>& dimensionFiles,
            const QList<QString>& fontFiles, const QList<QString>& formatFiles,
            const QString& paletteName);

        QList<QString> colorFiles; ///< Colour files; unused when paletteName is set.
        QList<QString> dimensionFiles; ///< Size files.
        QList<QString> fontFiles; ///< Font property files.
        QList<QString> formatFiles; ///< Date/time format files.
        QString paletteName; ///< A palette section of ":/Resources/palette.txt"; empty for none.
    };

    /// The library's default style resources, no palette: ":/Resources/QSS_COLORS_APP.txt",
    /// ":/Resources/QSS_DIMENSIONS.txt", ":/Resources/QSS_FONTS.txt" and
    /// ":/Resources/QSS_DATEFORMATS.txt".
    StyleManagerDataProvider();
    /// The files named in data.
    explicit StyleManagerDataProvider(const Data& data);

    /// The colours: the palette section when a palette is named, else the colour files.
    QHash<QString, QString> getColorPalette() const;
    /// The sizes, from the dimension files.
    QHash<QString, QString> getDimensions() const;
    /// The font properties, from the font files.
    QHash<QString, QString> getFonts() const;
    /// The date/time formats, from the format files.
    QHash<QString, QString> getFormats() const;

private:
    Data data;
};
