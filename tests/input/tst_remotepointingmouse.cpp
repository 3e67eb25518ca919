#include <guicore/utility/input/RemotePointingMouse.h>

#include <QQuaternion>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

namespace {

// 40 x 30 cm seen from 40 cm: the half-angles are atan(0.5) across and atan(0.375) up and down;
// one centimetre is 20 pixels on both axes. The centre pixel is (499, 349).
struct Pointer
{
    RemotePointingMouse mouse {40.0, ApplicationWindowDimensions {30.0, 40.0, 600, 800, 100, 50}};
    QSignalSpy spy {&mouse, &RemotePointingMouse::mouseCoordinatesChanged};

    QList<QPoint> positions() const
    {
        QList<QPoint> result;
        for (const QList<QVariant>& arguments : spy)
            result.append(QPoint(arguments.at(0).toInt(), arguments.at(1).toInt()));
        return result;
    }
};

} // namespace

class tst_RemotePointingMouse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void updateFromOrientation_data()
    {
        // Readings are (yaw, pitch) in radians; expected are the reported positions, in order.
        QTest::addColumn<QList<QPointF>>("readings");
        QTest::addColumn<QList<QPoint>>("expected");
        const double halfAngleX = std::atan(0.5);

        // Positive yaw moves left, positive pitch up. 800 tan(0.3507) = 292.66 rounds up,
        // 800 tan(0.2) = 162.2 rounds down, in both directions.
        QTest::newRow("mirrored axes, rounding to nearest") << QList<QPointF> {{0.0, 0.0},
            {0.3507, -0.2}, {-0.3507, 0.2}} << QList<QPoint> {{499, 349}, {206, 511}, {792, 187}};
        QTest::newRow("past the left edge stops at the edge")
            << QList<QPointF> {{0.0, 0.0}, {1.0, 0.0}} << QList<QPoint> {{499, 349}, {99, 349}};
        // Turning 90 degrees past the right edge drags the reference along; one degree back moves
        // the pointer at once, by 800 (0.5 - tan(atan(0.5) - 1 degree)) = 17.3 pixels.
        QTest::newRow("turning back after overshooting moves at once")
            << QList<QPointF> {{0.0, 0.0}, {-(halfAngleX + M_PI_2), 0.0},
                   {-(halfAngleX + M_PI_2) + 0.017453292, 0.0}}
            << QList<QPoint> {{499, 349}, {899, 349}, {882, 349}};
        // Below the bottom edge by 0.64 rad, then 0.1 rad back: 800 tan(0.2588) = 211.8.
        QTest::newRow("pitch reference dragged down") << QList<QPointF> {{0.0, 0.0}, {0.0, -1.0},
            {0.0, -0.9}} << QList<QPoint> {{499, 349}, {499, 649}, {499, 561}};
        // From 3.1 to -3.1 is a small turn of 0.083 across the +-pi seam, not one of -6.2.
        // The first reading, whatever it is, puts the pointer at the centre.
        QTest::newRow("angle difference wraps around")
            << QList<QPointF> {{3.1, 0.0}, {-3.1, 0.0}} << QList<QPoint> {{499, 349}, {432, 349}};
        // 800 tan(0.1) = 80.27. An unchanged position is reported once, a return again.
        QTest::newRow("only changes are reported")
            << QList<QPointF> {{0.0, 0.0}, {0.0, 0.0}, {0.0001, 0.0001}, {0.1, 0.0}, {0.0, 0.0}}
            << QList<QPoint> {{499, 349}, {419, 349}, {499, 349}};
    }

    void updateFromOrientation()
    {
        QFETCH(QList<QPointF>, readings);
        QFETCH(QList<QPoint>, expected);
        Pointer pointer;
        for (const QPointF& reading : readings)
            pointer.mouse.updateFromOrientation(float(reading.x()), float(reading.y()));
        QCOMPARE(pointer.positions(), expected);
    }

    void updateFromQuaternion()
    {
        Pointer pointer;
        pointer.mouse.updateFromQuaternion(QQuaternion::fromEulerAngles(0.0f, 0.0f, 0.0f));
        // Pitch 5 degrees, yaw 10 degrees: 800 tan(10 deg) = 141.1, 800 tan(5 deg) = 70.0. Roll
        // does not move the pointer.
        pointer.mouse.updateFromQuaternion(QQuaternion::fromEulerAngles(5.0f, 10.0f, 0.0f));
        pointer.mouse.updateFromQuaternion(QQuaternion::fromEulerAngles(5.0f, 10.0f, 40.0f));
        QCOMPARE(pointer.positions(), (QList<QPoint> {{499, 349}, {358, 279}}));
    }
};

QTEST_MAIN(tst_RemotePointingMouse)
#include "tst_remotepointingmouse.moc"
