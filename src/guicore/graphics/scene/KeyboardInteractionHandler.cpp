#include <guicore/graphics/scene/KeyboardInteractionHandler.h>

#include <guicore/graphics/scene/KeyboardInteractionListener.h>

KeyboardInteractionHandler::~KeyboardInteractionHandler() = default;

void KeyboardInteractionHandler::registerKeyboardListener(KeyboardInteractionListener* listener)
{
    if (listener)
        m_keyboardListeners.insert(listener);
}

void KeyboardInteractionHandler::notifyKeyPressed(QKeyEvent* event) const
{
    for (KeyboardInteractionListener* listener : m_keyboardListeners)
        listener->onKeyPressed(event);
}

void KeyboardInteractionHandler::notifyKeyReleased(QKeyEvent* event) const
{
    for (KeyboardInteractionListener* listener : m_keyboardListeners)
        listener->onKeyReleased(event);
}
