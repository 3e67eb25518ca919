#include "GraphicsViewExtraViewport_p.h"

#include <QSurfaceFormat>

GraphicsViewExtraViewport::GraphicsViewExtraViewport(QWidget* parent)
    : QOpenGLWidget(parent)
{
    QSurfaceFormat surfaceFormat = format();
    surfaceFormat.setSamples(4);
    setFormat(surfaceFormat);
}

GraphicsViewExtraViewport::~GraphicsViewExtraViewport() = default;
