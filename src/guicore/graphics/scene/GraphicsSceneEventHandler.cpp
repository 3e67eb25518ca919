#include "GraphicsSceneEventHandler.h"

GraphicsSceneEventHandler::~GraphicsSceneEventHandler() = default;
