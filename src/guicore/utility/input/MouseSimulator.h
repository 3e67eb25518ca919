#pragma once

#include <guicore/guicore_export.h>

#include <QObject>

#include <memory>

/// Synthetic mouse output: moves the pointer, presses and releases buttons and turns the wheel
/// as if the user did it. createMouseSimulator() makes the implementation of the platform.
///
/// The events go through the operating system, so they reach whichever window is under the
/// pointer, this application's included, and arrive asynchronously, after the call returns.
/// Call it on the GUI thread; connect RemotePointingMouse::mouseCoordinatesChanged to move().
class GUICORE_EXPORT MouseSimulator : public QObject
{
    Q_OBJECT

public:
    /// Mouse buttons; there is no middle button.
    enum Button {
        NoButton = 0, ///< No button: press() and release() send nothing.
        LeftButton = 1, ///< The left (primary) button.
        RightButton = 2, ///< The right (secondary) button.
        BothButtons = LeftButton | RightButton, ///< Both buttons in one event.
    };
    /// A combination of Button values.
    Q_DECLARE_FLAGS(Buttons, Button)
    Q_FLAG(Buttons)

    ~MouseSimulator() override;

public Q_SLOTS:
    /// Moves the pointer to (\a x, \a y) in desktop coordinates.
    virtual void move(int x, int y) = 0;
    /// Turns the wheel by \a amount in eighths of a degree (120 is one notch); positive turns
    /// away from the user.
    virtual void scroll(int amount) = 0;
    /// Presses the given buttons at the pointer's position; no button sends nothing.
    virtual void press(MouseSimulator::Buttons buttons) = 0;
    /// Releases the given buttons at the pointer's position; no button sends nothing.
    virtual void release(MouseSimulator::Buttons buttons) = 0;

protected:
    MouseSimulator() = default;

private:
    Q_DISABLE_COPY(MouseSimulator)
};

Q_DECLARE_OPERATORS_FOR_FLAGS(MouseSimulator::Buttons)

/// The mouse simulator of the running platform: mouse_event on Windows, the XTest extension on
/// X11 ("xcb"). Elsewhere (offscreen, Wayland, an X server without XTest) the simulator drops
/// everything and warns once, at its first operation that would have sent input:
/// `MouseSimulator : synthetic input is not available on platform <platform name>`.
/// Never null; ownership passes to the caller. Needs a QGuiApplication, which it must not outlive.
GUICORE_EXPORT std::unique_ptr<MouseSimulator> createMouseSimulator();
