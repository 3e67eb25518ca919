#include "MouseSimulatorX11_p.h"

#include <QGuiApplication>
#include <QPoint>
#include <QRect>
#include <QScreen>
#include <QtGui/qguiapplication_platform.h>

#include <cmath>
#include <cstdlib>

// Xlib last: its macros (None, Bool, Status, ...) clash with names in Qt headers.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace {

// X buttons of the core protocol: wheel turns are clicks of buttons 4 (away from the user) and
// 5 (towards the user).
constexpr unsigned int X_LEFT_BUTTON = 1;
constexpr unsigned int X_RIGHT_BUTTON = 3;
constexpr unsigned int X_WHEEL_UP_BUTTON = 4;
constexpr unsigned int X_WHEEL_DOWN_BUTTON = 5;
constexpr int WHEEL_NOTCH = 120;

// Qt's desktop coordinates are device-independent, X works in device pixels: each screen keeps
// its native origin while the distances inside it are divided by the device pixel ratio.
QPoint toNativePixels(const QPoint& point)
{
    const QScreen* screen = QGuiApplication::screenAt(point);
    if (!screen || screen->devicePixelRatio() == 1.0)
        return point;
    const qreal ratio = screen->devicePixelRatio();
    const QPoint origin = screen->geometry().topLeft();
    const QPoint inside = point - origin;
    return origin
        + QPoint(int(std::lround(inside.x() * ratio)), int(std::lround(inside.y() * ratio)));
}

} // namespace

MouseSimulatorX11::MouseSimulatorX11(_XDisplay* display, bool ownsDisplay)
    : display(display)
    , ownsDisplay(ownsDisplay)
{
}

MouseSimulatorX11::~MouseSimulatorX11()
{
    if (ownsDisplay)
        XCloseDisplay(display);
}

std::unique_ptr<MouseSimulatorX11> MouseSimulatorX11::create()
{
    Display* display = nullptr;
    bool ownsDisplay = false;
    // Qt's own connection keeps our requests in order with the pointer queries Qt makes, so a
    // move is visible to QCursor::pos() at once; a second connection only where Qt was built
    // without Xlib support.
#if QT_CONFIG(xcb)
    if (const auto* x11
        = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr)
        display = x11->display();
#endif
    if (!display) {
        display = XOpenDisplay(nullptr);
        ownsDisplay = true;
    }
    if (!display)
        return nullptr;

    int eventBase = 0;
    int errorBase = 0;
    int major = 0;
    int minor = 0;
    if (!XTestQueryExtension(display, &eventBase, &errorBase, &major, &minor)) {
        if (ownsDisplay)
            XCloseDisplay(display);
        return nullptr;
    }
    return std::unique_ptr<MouseSimulatorX11>(new MouseSimulatorX11(display, ownsDisplay));
}

void MouseSimulatorX11::move(int x, int y)
{
    const QPoint native = toNativePixels(QPoint(x, y));
    XTestFakeMotionEvent(display, DefaultScreen(display), native.x(), native.y(), CurrentTime);
    XFlush(display);
}

void MouseSimulatorX11::scroll(int amount)
{
    // Amounts that are not whole notches are carried over, so that a source sending small steps
    // still turns the wheel; a change of direction eats into what was carried.
    pendingWheel += amount;
    const int notches = pendingWheel / WHEEL_NOTCH;
    pendingWheel -= notches * WHEEL_NOTCH;
    const unsigned int button = notches > 0 ? X_WHEEL_UP_BUTTON : X_WHEEL_DOWN_BUTTON;
    for (int i = 0; i < std::abs(notches); ++i)
        sendClick(button);
    if (notches != 0)
        XFlush(display);
}

void MouseSimulatorX11::press(MouseSimulator::Buttons buttons)
{
    sendButtons(buttons, true);
}

void MouseSimulatorX11::release(MouseSimulator::Buttons buttons)
{
    sendButtons(buttons, false);
}

void MouseSimulatorX11::sendButtons(MouseSimulator::Buttons buttons, bool pressed)
{
    // Both buttons go out left first, in one flush, as close together as a real mouse manages.
    const Bool state = pressed ? True : False;
    if (buttons.testFlag(LeftButton))
        XTestFakeButtonEvent(display, X_LEFT_BUTTON, state, CurrentTime);
    if (buttons.testFlag(RightButton))
        XTestFakeButtonEvent(display, X_RIGHT_BUTTON, state, CurrentTime);
    if (buttons & BothButtons)
        XFlush(display);
}

void MouseSimulatorX11::sendClick(unsigned int button)
{
    XTestFakeButtonEvent(display, button, True, CurrentTime);
    XTestFakeButtonEvent(display, button, False, CurrentTime);
}
