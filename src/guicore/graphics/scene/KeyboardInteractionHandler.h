#pragma once

#include <guicore/guicore_export.h>

#include <QSet>

class KeyboardInteractionListener;
class QKeyEvent;

/// Base of scenes and views that pass their key events on to registered listeners.
///
/// Listeners are borrowed and there is no way to unregister one: a listener must outlive the
/// handler or never be registered. Listeners are called in the set's order, not in the order
/// they were registered, and must not depend on each other's order.
class GUICORE_EXPORT KeyboardInteractionHandler
{
public:
    KeyboardInteractionHandler() = default;
    /// @{
    /// The copy notifies the same borrowed listeners.
    KeyboardInteractionHandler(const KeyboardInteractionHandler& other) = default;
    KeyboardInteractionHandler& operator=(const KeyboardInteractionHandler& other) = default;
    /// @}
    virtual ~KeyboardInteractionHandler();

    /// Does not take ownership. Null is ignored; a second registration has no effect.
    void registerKeyboardListener(KeyboardInteractionListener* listener);

protected:
    /// @{
    /// For the derived scene or view's key handlers: calls every listener's onKeyPressed() or
    /// onKeyReleased() with the borrowed event.
    void notifyKeyPressed(QKeyEvent* event) const;
    void notifyKeyReleased(QKeyEvent* event) const;
    /// @}

private:
    QSet<KeyboardInteractionListener*> m_keyboardListeners;
};
