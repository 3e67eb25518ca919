#pragma once

#include <guicore/action/ActionHandler.h>

/// A handler without work of its own: a non-checkable action (a one-shot command) ends inside its
/// own start, a checkable one stays active until stopped.
class GUICORE_EXPORT EmptyActionHandler : public ActionHandler
{
    Q_OBJECT

public:
    /// A handler without parent.
    EmptyActionHandler();

protected:
    /// Stops a non-checkable current action at once, so its triggered(true) is followed by
    /// triggered(false) within the same start call.
    void start() override;
    /// Does nothing.
    void stop() override;
};
