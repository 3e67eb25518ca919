#pragma once

#include <guicore/guicore_export.h>

#include <QtGlobal>

/// Keeps the GUI responsive during a long computation on the GUI thread: processes pending
/// events at most once every 20 ms of a monotonic clock, however often it is called.
///
/// Processing events lets the user act in the middle of the computation (close a window, start
/// another action), so callers must be ready for re-entrance; NullProgressUpdater is the safe
/// choice where they are not. Call it only on the thread whose events it should process.
class GUICORE_EXPORT ProgressUpdater
{
public:
    /// An updater that has never processed events: its first call does.
    ProgressUpdater() = default;
    virtual ~ProgressUpdater();

    /// message and value are for subclasses that show them; this class only pumps events.
    /// message is borrowed for the duration of the call.
    virtual void updateProgress(const char* message, int value) const;

private:
    /// Milliseconds of the monotonic clock at the last pump; 0 = never.
    mutable qint64 lastUpdateMs = 0;
};
