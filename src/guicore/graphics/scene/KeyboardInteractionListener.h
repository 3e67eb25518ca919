#pragma once

#include <guicore/guicore_export.h>

class QKeyEvent;

/// Receives the key presses and releases of a scene or view it is registered with.
class GUICORE_EXPORT KeyboardInteractionListener
{
public:
    virtual ~KeyboardInteractionListener();

    /// The event stays owned by the caller.
    virtual void onKeyPressed(QKeyEvent* event) = 0;
    /// The event stays owned by the caller.
    virtual void onKeyReleased(QKeyEvent* event) = 0;
};
