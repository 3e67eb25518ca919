#pragma once

#include <guicore/guicore_export.h>
#include <guicore/utility/input/MouseSimulator.h>

#include <QList>
#include <QRect>

/// MouseSimulator on Windows, through the system's mouse_event function. The screen layout is
/// taken once, at construction: make a new one after screens were added, removed or rescaled.
/// Only built on Windows; elsewhere use createMouseSimulator().
class GUICORE_EXPORT MouseSimulatorWindows : public MouseSimulator
{
    Q_OBJECT

public:
    /// Takes the geometries of the screens, the primary screen and the scale factor.
    MouseSimulatorWindows();

public Q_SLOTS:
    /// Absolute move, normalised to 0-65535 over the primary screen, after correcting for a
    /// scaled desktop of several screens.
    void move(int x, int y) override;
    /// One wheel event of \a amount.
    void scroll(int amount) override;
    /// One event for the button or, for BothButtons, both; no other value sends anything.
    void press(MouseSimulator::Buttons buttons) override;
    /// The release counterpart of press().
    void release(MouseSimulator::Buttons buttons) override;

private:
    /// Maps Qt's device-independent desktop coordinates to the native pixels of the screen that
    /// contains them, when the desktop is scaled and has several screens.
    void fixCoordinates(int& x, int& y) const;

    QList<QRect> screenGeometries;
    QRect primaryScreenGeometry;
    double scaleFactor = 1.0;
};
