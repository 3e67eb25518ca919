#include "MouseSimulator.h"

#ifdef Q_OS_WIN
#include "MouseSimulatorWindows.h"
#else
#include "MouseSimulatorQt_p.h"
#endif

MouseSimulator::~MouseSimulator() = default;

std::unique_ptr<MouseSimulator> createMouseSimulator()
{
#ifdef Q_OS_WIN
    return std::make_unique<MouseSimulatorWindows>();
#else
    return std::make_unique<MouseSimulatorQt>();
#endif
}
