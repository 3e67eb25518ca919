#pragma once

#include "MouseSimulator.h"

#include <QString>

// MouseSimulator for platforms that offer no way to inject input system-wide (offscreen, Wayland,
// minimal, or an X server without the XTest extension). Every operation is dropped; the first one
// that would have sent input warns, so a caller learns why the pointer does not react without
// the log filling up with one line per orientation reading.
class MouseSimulatorUnavailable : public MouseSimulator
{
    Q_OBJECT

public:
    explicit MouseSimulatorUnavailable(const QString& platformName);

public Q_SLOTS:
    void move(int x, int y) override;
    void scroll(int amount) override;
    void press(MouseSimulator::Buttons buttons) override;
    void release(MouseSimulator::Buttons buttons) override;

private:
    void warnOnce();

    QString platformName;
    bool warned = false;
};
