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
///
/// It only computes positions; connect mouseCoordinatesChanged() to MouseSimulator::move() to
/// move the system pointer. Feed it on the GUI thread.
class GUICORE_EXPORT RemotePointingMouse : public QObject
{
    Q_OBJECT

public:
    /// \a distance is the distance to the area in the unit of the dimensions' physical sizes
    /// (centimetres). No reading has been taken yet: the first one becomes the centre.
    RemotePointingMouse(double distance, const ApplicationWindowDimensions& dimensions);

public Q_SLOTS:
    /// Uses yaw and pitch of \a orientation (QQuaternion::getEulerAngles()); roll is ignored.
    void updateFromQuaternion(const QQuaternion& orientation);
    /// Projects the two angles onto the area and emits the new position if it changed. Angles
    /// differing by whole turns are the same direction.
    void updateFromOrientation(float yawInRadians, float pitchInRadians);

Q_SIGNALS:
    /// Emitted once per distinct position, in desktop pixels, from within the update call; the
    /// first reading always emits, at the centre of the area.
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
