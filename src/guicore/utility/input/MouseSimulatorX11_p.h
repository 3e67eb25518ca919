#pragma once

#include "MouseSimulator.h"

#include <memory>

// Xlib's display handle, declared here so that no X11 header (with its None, Bool and Status
// macros) reaches code that includes Qt.
struct _XDisplay;

// MouseSimulator on X11 through the XTest extension: the server treats the faked events like
// those of a real pointer, so they reach every client, this application included, through the
// normal event path. Requests are flushed at once, but the events come back asynchronously.
// The display connection is normally borrowed from the application, so the simulator must not
// outlive the QGuiApplication.
class MouseSimulatorX11 : public MouseSimulator
{
    Q_OBJECT

public:
    ~MouseSimulatorX11() override;

    /// The simulator for the X server that the application is connected to, or null when there
    /// is no X display or the server lacks the XTest extension. Ownership passes to the caller.
    static std::unique_ptr<MouseSimulatorX11> create();

public Q_SLOTS:
    void move(int x, int y) override;
    void scroll(int amount) override;
    void press(MouseSimulator::Buttons buttons) override;
    void release(MouseSimulator::Buttons buttons) override;

private:
    // \a display is borrowed from Qt unless \a ownsDisplay, in which case it is closed with us.
    MouseSimulatorX11(_XDisplay* display, bool ownsDisplay);

    void sendButtons(MouseSimulator::Buttons buttons, bool pressed);
    void sendClick(unsigned int button);

    _XDisplay* display = nullptr;
    bool ownsDisplay = false;
    // Wheel turns smaller than a notch, kept until they add up to one.
    int pendingWheel = 0;
};
