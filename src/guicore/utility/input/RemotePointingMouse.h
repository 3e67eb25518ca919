#pragma once

#include <guicore/guicore_export.h>
#include <guicore/utility/input/ApplicationWindowDimensions.h>

#include <QObject>

#include <limits>

class QQuaternion;

/// Turns the orientation of a hand-held pointing device into screen coordinates, as if the
/// device pointed at an area of known physical size from a known distance.
///
/// The first reading defines the centre of the area. Pointing past an edge drags the reference
/// direction along, so turning back moves the pointer at once instead of after a dead angle.
/// Both axes are mirrored: a positive yaw moves the pointer left, a positive pitch moves it up.
class GUICORE_EXPORT RemotePointingMouse : public QObject
{
    Q_OBJECT

public:
    /// \a distance is the distance to the area in the unit of the dimensions' physical sizes.
    RemotePointingMouse(double distance, const ApplicationWindowDimensions& dimensions);

public Q_SLOTS:
    /// Uses yaw and pitch of \a orientation; roll is ignored.
    void updateFromQuaternion(const QQuaternion& orientation);
    void updateFromOrientation(float yawInRadians, float pitchInRadians);

Q_SIGNALS:
    /// Emitted once per distinct position, in desktop pixels.
    void mouseCoordinatesChanged(int x, int y);

private:
    virtual void setMouseCoordinates(int offsetX, int offsetY);

    double distanceCm;
    ApplicationWindowDimensions dimensions;
    double pitchReference = std::numeric_limits<double>::quiet_NaN();
    double yawReference = std::numeric_limits<double>::quiet_NaN();
    int mouseX = std::numeric_limits<int>::max();
    int mouseY = std::numeric_limits<int>::max();
};
