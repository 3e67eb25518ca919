// The program of the guide "Styles and palettes": makes the style from the library's files plus
// an application file, reads values by id, sets the application font and registers the main
// window for the device pixel ratio. Exits with 1 when a value is not what the guide says.

#include <guicore/style/DevicePixelRatio.h>
#include <guicore/style/FontsInitializer.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QString brandColors = QStringLiteral(GUIDE_STYLES_DIR "/brand_colors.txt");

    //! [create]
    // Later files override earlier ones: the application's colours go after the library's.
    const StyleManagerDataProvider::Data files({QStringLiteral(":/Resources/QSS_COLORS_APP.txt"),
                                                   brandColors},
        {QStringLiteral(":/Resources/QSS_DIMENSIONS.txt")},
        {QStringLiteral(":/Resources/QSS_FONTS.txt")},
        {QStringLiteral(":/Resources/QSS_DATEFORMATS.txt")}, QString());
    StyleManager::createManager(StyleManagerDataProvider(files));
    FontsInitializer::loadFonts(StyleManager::manager(), QStringLiteral("@APPLICATION_FONT"));
    //! [create]

    //! [values]
    const StyleManager& style = StyleManager::manager();
    const QColor accent = style.getColor(QStringLiteral("@ACCENT_COLOR"));
    const double margin = style.getSize(QStringLiteral("@PANEL_MARGIN")); // pixels
    const QFont font = style.getCompleteFont(QStringLiteral("@APPLICATION_FONT_COMPLETE"));
    //! [values]

    //! [window]
    QMainWindow window;
    DevicePixelRatio::registerMainWindow(&window);
    const double ratio = DevicePixelRatio::value(); // 1.0 on an ordinary screen, 2.0 on HiDPI
    //! [window]

    bool ok = accent == QColor(QStringLiteral("#3d8bfd")) && margin > 0
        && font.family() == QLatin1String("DejaVu Sans") && font.pixelSize() == 13 && ratio > 0;

    //! [palette]
    // A named palette replaces the colour files: the same ids, other values.
    StyleManager::deleteManager();
    StyleManager::createManager(StyleManagerDataProvider(
        StyleManagerDataProvider::Data({}, {QStringLiteral(":/Resources/QSS_DIMENSIONS.txt")},
            {QStringLiteral(":/Resources/QSS_FONTS.txt")},
            {QStringLiteral(":/Resources/QSS_DATEFORMATS.txt")}, QStringLiteral("light"))));
    const QColor lightBackground
        = StyleManager::manager().getColor(QStringLiteral("@BACKGROUND_COLOR"));
    //! [palette]

    ok = ok && lightBackground.isValid() && lightBackground != QColor(QStringLiteral("#202124"));
    DevicePixelRatio::registerMainWindow(nullptr);
    StyleManager::deleteManager();
    if (!ok)
        qCritical("the style did not give the values the guide says");
    return ok ? 0 : 1;
}
