// The dental viewer: a small application built on the GUI core library. It follows the library's
// start-up order: style and fonts, the main window's pixel ratio, the managers, the solution
// plug-in, then the view switching.

#include "../plugin/DentalSolutionApi.h"
#include "MainWindow.h"
#include "ScriptRunner.h"

#include <guicore/style/FontsInitializer.h>
#include <guicore/style/StyleManager.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <cstdio>
#include <memory>

#ifdef Q_OS_UNIX
#include <QSocketNotifier>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_UNIX
int signalSockets[2] = {-1, -1};

void onTerminationSignal(int number)
{
    // Only async-signal-safe work here: the event loop reads the byte and quits.
    const char byte = char(number);
    [[maybe_unused]] const auto written = ::write(signalSockets[0], &byte, 1);
}

// A viewer told to end (SIGTERM when the session ends, SIGINT from a terminal) leaves through its
// event loop, and so saves as a closed window does. Its exit status says which signal it was.
void quitOnTerminationSignals(QApplication& app)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalSockets) != 0)
        return;
    auto* notifier = new QSocketNotifier(signalSockets[1], QSocketNotifier::Read, &app);
    QObject::connect(notifier, &QSocketNotifier::activated, &app, [] {
        char byte = 0;
        if (::read(signalSockets[1], &byte, 1) == 1)
            QCoreApplication::exit(128 + byte);
    });
    struct sigaction action = {};
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int number : {SIGTERM, SIGINT, SIGHUP})
        ::sigaction(number, &action, nullptr);
}
#endif

QString pluginFile()
{
    const QDir dir(QCoreApplication::applicationDirPath() + QStringLiteral("/plugins"));
    const QStringList candidates = dir.entryList(
        {QStringLiteral("*dentalsolution*.so"), QStringLiteral("*dentalsolution*.dll"),
            QStringLiteral("*dentalsolution*.dylib")},
        QDir::Files);
    return candidates.isEmpty() ? QString() : dir.filePath(candidates.first());
}

// Loads the plug-in into the window, restores the saved state, runs the event loop (or the script)
// and saves the state again. Returns the exit status; the caller destroys the window.
int run(QApplication& app, const QCommandLineParser& parser, MainWindow& window)
{
    const QString plugin = pluginFile();
    if (!window.loadSolutionPlugin(plugin)) {
        std::fprintf(stderr, "dentalviewer: cannot load the solution plug-in %s: %s\n",
            qPrintable(plugin), qPrintable(window.errorString()));
        return 2;
    }

    const QString scriptFile = parser.value(QStringLiteral("script"));
    const QString stateFolder = parser.isSet(QStringLiteral("state-dir"))
        ? parser.value(QStringLiteral("state-dir"))
        : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);

    // The saved geometry, if any, replaces this first size.
    window.resize(MainWindow::defaultSize(window.screen()));
    window.show();
    window.restoreSavedState(stateFolder);

    std::unique_ptr<ScriptRunner> runner;
    if (!scriptFile.isEmpty()) {
        QStringList lines;
        QString error;
        if (!ScriptRunner::readScript(scriptFile, lines, error)) {
            std::fprintf(stderr, "dentalviewer: cannot read the script: %s\n", qPrintable(error));
            window.shutDown();
            return 2;
        }
        const QString screenshots = parser.value(QStringLiteral("screenshots"));
        const QDir output(screenshots.isEmpty() ? QDir::currentPath() : screenshots);
        QDir().mkpath(output.absolutePath());
        runner = std::make_unique<ScriptRunner>(window, lines, output);
        QObject::connect(runner.get(), &ScriptRunner::finished, &app,
            [](int failures) { QCoreApplication::exit(failures == 0 ? 0 : 1); });
        runner->start();
    }

    const int status = app.exec();
    if (!window.saveStateFiles())
        std::fprintf(
            stderr, "dentalviewer: could not save the state in %s\n", qPrintable(stateFolder));
    window.shutDown();
    return status;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("GuiCore"));
    QApplication::setApplicationName(QStringLiteral("dentalviewer"));
#ifdef Q_OS_UNIX
    quitOnTerminationSignals(app);
#endif

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

    // 1. Style and fonts; the main window registers itself for the pixel ratio first thing.
    MainWindow::installStyle(parser.isSet(paletteOption)
            ? parser.value(paletteOption)
            : QSettings().value(QStringLiteral("palette"), QStringLiteral("dark")).toString());
    FontsInitializer::loadFonts(StyleManager::manager(), QStringLiteral("@APPLICATION_FONT"));

    int status = 0;
    {
        // 2. to 4. happen in the window: its pixel ratio, the managers, the plug-in, shortcuts and
        // view switching. The window goes before the style, on every path: its widgets and the
        // plug-in's items ask the style until they are gone.
        MainWindow window;
        status = run(app, parser, window);
    }
    StyleManager::deleteManager();
    return status;
}
