#pragma once

#include <guicore/guicore_export.h>
#include <guicore/utility/input/MouseSimulator.h>

#include <QList>
#include <QRect>

/// MouseSimulator on Windows, through the system's mouse_event function. The screen layout is
/// taken once, at construction. Only built on Windows.
class GUICORE_EXPORT MouseSimulatorWindows : public MouseSimulator
{
    Q_OBJECT

public:
    MouseSimulatorWindows();

public Q_SLOTS:
    void move(int x, int y) override;
    void scroll(int amount) override;
    void press(MouseSimulator::Buttons buttons) override;
    void release(MouseSimulator::Buttons buttons) override;

private:
    /// Maps Qt's device-independent desktop coordinates to the native pixels of the screen that
    /// contains them, when the desktop is scaled and has several screens.
    void fixCoordinates(int& x, int& y) const;

    QList<QRect> screenGeometries;
    QRect primaryScreenGeometry;
    double scaleFactor = 1.0;
};
