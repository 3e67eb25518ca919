#include <guicore/graphics/scene/KeyboardInteractionListener.h>

KeyboardInteractionListener::~KeyboardInteractionListener() = default;
