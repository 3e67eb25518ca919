// The dental viewer: a small application built on the GUI core library. It follows the library's
// start-up order: style and fonts, the main window's pixel ratio, the managers, the solution
// plug-in, then the view switching.

#include "../plugin/DentalSolutionApi.h"
#include "MainWindow.h"
#include "ScriptRunner.h"

#include <guicore/style/DevicePixelRatio.h>
#include <guicore/style/FontsInitializer.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <cstdio>

namespace {

QString pluginFile()
{
    const QDir dir(QCoreApplication::applicationDirPath() + QStringLiteral("/plugins"));
    const QStringList candidates = dir.entryList(
        {QStringLiteral("*dentalsolution*.so"), QStringLiteral("*dentalsolution*.dll"),
            QStringLiteral("*dentalsolution*.dylib")},
        QDir::Files);
    return candidates.isEmpty() ? QString() : dir.filePath(candidates.first());
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("GuiCore"));
    QApplication::setApplicationName(QStringLiteral("dentalviewer"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Dental viewer built on the GUI core library"));
    parser.addHelpOption();
    const QCommandLineOption scriptOption(QStringLiteral("script"),
        QStringLiteral("Run the steps of FILE, then quit."), QStringLiteral("FILE"));
    const QCommandLineOption screenshotsOption(QStringLiteral("screenshots"),
        QStringLiteral("Folder for screenshots and dumps of a script."), QStringLiteral("DIR"));
    const QCommandLineOption stateOption(QStringLiteral("state-dir"),
        QStringLiteral("Folder of the saved state (default: the user's data folder)."),
        QStringLiteral("DIR"));
    const QCommandLineOption paletteOption(QStringLiteral("palette"),
        QStringLiteral("Colour palette: dark or light (default: the preference)."),
        QStringLiteral("NAME"));
    parser.addOptions({scriptOption, screenshotsOption, stateOption, paletteOption});
    parser.process(app);

    // 1. Style, fonts and the pixel ratio of the main window.
    QSettings preferences;
    QString palette = parser.isSet(paletteOption)
        ? parser.value(paletteOption)
        : preferences.value(QStringLiteral("palette"), QStringLiteral("dark")).toString();
    if (palette != QLatin1String("light"))
        palette = QStringLiteral("dark");
    StyleManager::createManager(StyleManagerDataProvider(
        StyleManagerDataProvider::Data({QStringLiteral(":/Resources/QSS_COLORS_APP.txt")},
            {QStringLiteral(":/Resources/QSS_DIMENSIONS.txt")},
            {QStringLiteral(":/Resources/QSS_FONTS.txt")},
            {QStringLiteral(":/Resources/QSS_DATEFORMATS.txt")}, palette)));
    FontsInitializer::loadFonts(StyleManager::manager(), QStringLiteral("@APPLICATION_FONT"));
    {
        const StyleManager& style = StyleManager::manager();
        QPalette colours = app.palette();
        colours.setColor(QPalette::Window, style.getColor(QStringLiteral("@BACKGROUND_COLOR")));
        colours.setColor(QPalette::Base, style.getColor(QStringLiteral("@PANEL_BACKGROUND_COLOR")));
        colours.setColor(
            QPalette::Button, style.getColor(QStringLiteral("@PANEL_BACKGROUND_COLOR")));
        colours.setColor(QPalette::WindowText, style.getColor(QStringLiteral("@TEXT_COLOR")));
        colours.setColor(QPalette::Text, style.getColor(QStringLiteral("@TEXT_COLOR")));
        colours.setColor(QPalette::ButtonText, style.getColor(QStringLiteral("@TEXT_COLOR")));
        colours.setColor(QPalette::Highlight, style.getColor(QStringLiteral("@SELECTION_COLOR")));
        app.setPalette(colours);
    }

    int status = 0;
    {
        // 2. to 4. happen in the window: managers, plug-in, shortcuts and view switching.
        MainWindow window;
        DevicePixelRatio::registerMainWindow(&window);
        const QString plugin = pluginFile();
        if (!window.loadSolutionPlugin(plugin)) {
            std::fprintf(stderr, "dentalviewer: cannot load the solution plug-in %s: %s\n",
                qPrintable(plugin), qPrintable(window.errorString()));
            StyleManager::deleteManager();
            return 2;
        }

        const bool scripted = parser.isSet(scriptOption);
        const QString stateFolder = parser.isSet(stateOption)
            ? parser.value(stateOption)
            : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);

        window.resize(1180, 760);
        window.show();
        window.restoreState(stateFolder);

        std::unique_ptr<ScriptRunner> runner;
        if (scripted) {
            QStringList lines;
            QString error;
            if (!ScriptRunner::readScript(parser.value(scriptOption), lines, error)) {
                std::fprintf(
                    stderr, "dentalviewer: cannot read the script: %s\n", qPrintable(error));
                window.shutDown();
                StyleManager::deleteManager();
                return 2;
            }
            const QDir output(parser.isSet(screenshotsOption) ? parser.value(screenshotsOption)
                                                              : QDir::currentPath());
            QDir().mkpath(output.absolutePath());
            runner = std::make_unique<ScriptRunner>(window, lines, output);
            QObject::connect(runner.get(), &ScriptRunner::finished, &app,
                [](int failures) { QCoreApplication::exit(failures == 0 ? 0 : 1); });
            runner->start();
        }

        status = app.exec();
        if (!window.saveState(stateFolder))
            std::fprintf(
                stderr, "dentalviewer: could not save the state in %s\n", qPrintable(stateFolder));
        window.shutDown();
    }
    StyleManager::deleteManager();
    return status;
}
