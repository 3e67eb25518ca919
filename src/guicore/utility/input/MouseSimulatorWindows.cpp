#include "MouseSimulatorWindows.h"

#include <QGuiApplication>
#include <QScreen>

#include <qt_windows.h>

#include <cmath>

MouseSimulatorWindows::MouseSimulatorWindows()
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens)
        screenGeometries.append(screen->geometry());
    if (const QScreen* primary = QGuiApplication::primaryScreen()) {
        primaryScreenGeometry = primary->geometry();
        scaleFactor = primary->devicePixelRatio();
    }
}

void MouseSimulatorWindows::move(int x, int y)
{
    fixCoordinates(x, y);
    const int width = primaryScreenGeometry.width();
    const int height = primaryScreenGeometry.height();
    if (width <= 0 || height <= 0)
        return;
    // Absolute coordinates are normalised to 0..65535 over the primary screen.
    mouse_event(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, static_cast<DWORD>(x * 65535 / width),
        static_cast<DWORD>(y * 65535 / height), 0, 0);
}

void MouseSimulatorWindows::scroll(int amount)
{
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(amount), 0);
}

void MouseSimulatorWindows::press(MouseSimulator::Buttons buttons)
{
    DWORD flags = 0;
    if (buttons.testFlag(LeftButton))
        flags |= MOUSEEVENTF_LEFTDOWN;
    if (buttons.testFlag(RightButton))
        flags |= MOUSEEVENTF_RIGHTDOWN;
    if (flags)
        mouse_event(flags, 0, 0, 0, 0);
}

void MouseSimulatorWindows::release(MouseSimulator::Buttons buttons)
{
    DWORD flags = 0;
    if (buttons.testFlag(LeftButton))
        flags |= MOUSEEVENTF_LEFTUP;
    if (buttons.testFlag(RightButton))
        flags |= MOUSEEVENTF_RIGHTUP;
    if (flags)
        mouse_event(flags, 0, 0, 0, 0);
}

void MouseSimulatorWindows::fixCoordinates(int& x, int& y) const
{
    if (scaleFactor == 1.0 || screenGeometries.size() < 2)
        return;
    for (const QRect& geometry : screenGeometries) {
        if (!geometry.contains(x, y))
            continue;
        // Qt places each screen at its native origin but measures inside it in
        // device-independent pixels; stretch the distance from the screen's origin.
        x += static_cast<int>(std::lround((x - geometry.x()) * (scaleFactor - 1.0)));
        y += static_cast<int>(std::lround((y - geometry.y()) * (scaleFactor - 1.0)));
        return;
    }
}
