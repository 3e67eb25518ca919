#include "MouseSimulator.h"

#include "MouseSimulatorUnavailable_p.h"

#include <QGuiApplication>

#ifdef Q_OS_WIN
#include "MouseSimulatorWindows.h"
#endif
#ifdef GUICORE_HAVE_XTEST
#include "MouseSimulatorX11_p.h"
#endif

MouseSimulator::~MouseSimulator() = default;

std::unique_ptr<MouseSimulator> createMouseSimulator()
{
#ifdef Q_OS_WIN
    return std::make_unique<MouseSimulatorWindows>();
#else
    const QString platform = QGuiApplication::platformName();
#ifdef GUICORE_HAVE_XTEST
    if (platform == QLatin1String("xcb")) {
        if (auto simulator = MouseSimulatorX11::create())
            return simulator;
    }
#endif
    return std::make_unique<MouseSimulatorUnavailable>(platform);
#endif
}
