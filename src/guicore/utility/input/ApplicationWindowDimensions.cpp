#include "ApplicationWindowDimensions.h"

#include <QGuiApplication>
#include <QScreen>

ApplicationWindowDimensions ApplicationWindowDimensions::createDefault()
{
    ApplicationWindowDimensions dimensions;
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return dimensions;
    const QSizeF physicalMm = screen->physicalSize();
    const QRect geometry = screen->geometry();
    dimensions.heightCm = physicalMm.height() / 10.0;
    dimensions.widthCm = physicalMm.width() / 10.0;
    dimensions.heightPx = geometry.height();
    dimensions.widthPx = geometry.width();
    dimensions.x = geometry.x();
    dimensions.y = geometry.y();
    return dimensions;
}
