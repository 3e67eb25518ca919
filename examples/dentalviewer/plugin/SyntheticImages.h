#pragma once

#include <QImage>
#include <QList>
#include <QPointF>

// Procedural stand-ins for radiographs, so the demo needs no patient data.
namespace synthetic {

constexpr int PANORAMIC_WIDTH = 1200;
constexpr int PANORAMIC_HEIGHT = 500;

// A panoramic radiograph: jaw outline, two arches of teeth, soft noise.
QImage panoramic();

// Centres of the 32 permanent teeth in the panoramic image, in Universal order (index 0 is 1).
QList<QPointF> panoramicToothCentres();

// A cross-section through the jaw at the given position along the arch (0..1).
QImage crossSection(double archPosition);

} // namespace synthetic
