#include "GraphicsViewExtraInterface.h"

GraphicsViewExtraInterface::GraphicsViewExtraInterface()
    : QObject(nullptr)
{
}

GraphicsViewExtraInterface::GraphicsViewExtraInterface(QObject* parent)
    : QObject(parent)
{
}

GraphicsViewExtraInterface::~GraphicsViewExtraInterface() = default;
