#include "StyleManagerDataProvider.h"

#include <stylereader/StyleReader.h>

namespace {

const QString paletteFile = QStringLiteral(":/Resources/palette.txt");

QHash<QString, QString> readFiles(const QList<QString>& files)
{
    return StyleReader().convertFilesToStyleMap(files);
}

} // namespace

StyleManagerDataProvider::Data::Data(const QList<QString>& colorFiles,
    const QList<QString>& dimensionFiles, const QList<QString>& fontFiles,
    const QList<QString>& formatFiles, const QString& paletteName)
    : colorFiles(colorFiles)
    , dimensionFiles(dimensionFiles)
    , fontFiles(fontFiles)
    , formatFiles(formatFiles)
    , paletteName(paletteName)
{
}

StyleManagerDataProvider::StyleManagerDataProvider()
    : data({QStringLiteral(":/Resources/QSS_COLORS_APP.txt")},
        {QStringLiteral(":/Resources/QSS_DIMENSIONS.txt")},
        {QStringLiteral(":/Resources/QSS_FONTS.txt")},
        {QStringLiteral(":/Resources/QSS_DATEFORMATS.txt")}, QString())
{
}

StyleManagerDataProvider::StyleManagerDataProvider(const Data& data)
    : data(data)
{
}

QHash<QString, QString> StyleManagerDataProvider::getColorPalette() const
{
    if (!data.paletteName.isEmpty())
        return StyleReader().convertFilesToStyleMap(data.paletteName, paletteFile);
    return readFiles(data.colorFiles);
}

QHash<QString, QString> StyleManagerDataProvider::getDimensions() const
{
    return readFiles(data.dimensionFiles);
}

QHash<QString, QString> StyleManagerDataProvider::getFonts() const
{
    return readFiles(data.fontFiles);
}

QHash<QString, QString> StyleManagerDataProvider::getFormats() const
{
    return readFiles(data.formatFiles);
}
