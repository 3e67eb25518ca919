#include "MouseSimulatorUnavailable_p.h"

#include <guicore/Logging_p.h>

#include <QtGlobal>

MouseSimulatorUnavailable::MouseSimulatorUnavailable(const QString& platformName)
    : platformName(platformName)
{
}

void MouseSimulatorUnavailable::move(int, int)
{
    warnOnce();
}

void MouseSimulatorUnavailable::scroll(int amount)
{
    if (amount != 0)
        warnOnce();
}

void MouseSimulatorUnavailable::press(MouseSimulator::Buttons buttons)
{
    // No button sends nothing on any platform, so nothing is lost here.
    if (buttons & BothButtons)
        warnOnce();
}

void MouseSimulatorUnavailable::release(MouseSimulator::Buttons buttons)
{
    if (buttons & BothButtons)
        warnOnce();
}

void MouseSimulatorUnavailable::warnOnce()
{
    if (warned)
        return;
    warned = true;
    qCWarning(lcUtility, "MouseSimulator : synthetic input is not available on platform %s",
        qPrintable(platformName));
}
