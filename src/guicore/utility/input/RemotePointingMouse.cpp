#include "RemotePointingMouse.h"

#include <QQuaternion>
#include <QtMath>

#include <cmath>

namespace {

// Projects one axis: the pixel offset from the area's centre for \a angle, seen against
// \a reference. The reference is updated in place: set by the first reading, and pulled along
// when the angle leaves the half-angle under which the area is seen.
int projectAxis(double angle, double& reference, double distance, double extentCm, int extentPx)
{
    if (std::isnan(reference))
        reference = angle;

    double delta = angle - reference;
    while (delta >= M_PI)
        delta -= 2.0 * M_PI;
    while (delta < -M_PI)
        delta += 2.0 * M_PI;

    const double limit = std::atan(extentCm * 0.5 / distance);
    if (delta > limit) {
        reference += delta - limit;
        delta = limit;
    } else if (delta < -limit) {
        reference -= -delta - limit;
        delta = -limit;
    }

    const double offset = std::tan(delta) * distance / extentCm * extentPx;
    // std::lround rounds halves away from zero, in both directions.
    const long rounded = std::lround(offset);
    const long half = extentPx / 2;
    return static_cast<int>(qBound(-half, rounded, half));
}

} // namespace

RemotePointingMouse::RemotePointingMouse(
    double distance, const ApplicationWindowDimensions& dimensions)
    : distanceCm(distance)
    , dimensions(dimensions)
{
}

void RemotePointingMouse::updateFromQuaternion(const QQuaternion& orientation)
{
    float pitch = 0.0f;
    float yaw = 0.0f;
    float roll = 0.0f;
    orientation.getEulerAngles(&pitch, &yaw, &roll);
    constexpr float radiansPerDegree = 0.017453292f;
    updateFromOrientation(yaw * radiansPerDegree, pitch * radiansPerDegree);
}

void RemotePointingMouse::updateFromOrientation(float yawInRadians, float pitchInRadians)
{
    double newYawReference = yawReference;
    double newPitchReference = pitchReference;
    const int offsetX = projectAxis(
        yawInRadians, newYawReference, distanceCm, dimensions.widthCm, dimensions.widthPx);
    const int offsetY = projectAxis(
        pitchInRadians, newPitchReference, distanceCm, dimensions.heightCm, dimensions.heightPx);
    yawReference = newYawReference;
    pitchReference = newPitchReference;
    setMouseCoordinates(offsetX, offsetY);
}

void RemotePointingMouse::setMouseCoordinates(int offsetX, int offsetY)
{
    const int x = dimensions.widthPx / 2 + dimensions.x - offsetX - 1;
    const int y = dimensions.heightPx / 2 + dimensions.y - offsetY - 1;
    if (x == mouseX && y == mouseY)
        return;
    mouseX = x;
    mouseY = y;
    Q_EMIT mouseCoordinatesChanged(x, y);
}
