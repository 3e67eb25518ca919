#include <geometry/BoundingBox.h>
#include <geometry/RayBoxIntersection.h>

#include <QtTest>

using primitives::BoundingBox;
using primitives::RayBoxIntersection;

Q_DECLARE_METATYPE(primitives::BoundingBox)

class tst_Geometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void boxValidityAndContainment();
    void intersections_data();
    void intersections();
    void noIntersection_data();
    void noIntersection();
};

void tst_Geometry::boxValidityAndContainment()
{
    QVERIFY(!BoundingBox().isValid());
    QVERIFY(!BoundingBox().contains(QVector3D()));
    const BoundingBox flat({0, 0, 0}, {10, 5, 0});
    QVERIFY(flat.isValid());
    QVERIFY(flat.contains({10, 5, 0}));
    QVERIFY(!flat.contains({10, 5, 0.001f}));
    QVERIFY(!BoundingBox({0, 0, 0}, {-1, 5, 0}).isValid());
}

void tst_Geometry::intersections_data()
{
    QTest::addColumn<QVector3D>("origin");
    QTest::addColumn<QVector3D>("direction");
    QTest::addColumn<QVector3D>("enter");
    QTest::addColumn<QVector3D>("leave");

    // Box (0,0,-1)..(100,50,1), the shape a clipped viewport line uses.
    QTest::newRow("horizontal through centre") << QVector3D(50, 25, 0) << QVector3D(1, 0, 0)
                                               << QVector3D(0, 25, 0) << QVector3D(100, 25, 0);
    QTest::newRow("horizontal reversed") << QVector3D(50, 25, 0) << QVector3D(-2, 0, 0)
                                         << QVector3D(100, 25, 0) << QVector3D(0, 25, 0);
    QTest::newRow("vertical from outside") << QVector3D(30, -500, 0) << QVector3D(0, 1, 0)
                                           << QVector3D(30, 0, 0) << QVector3D(30, 50, 0);
    QTest::newRow("along the top edge")
        << QVector3D(10, 0, 0) << QVector3D(1, 0, 0) << QVector3D(0, 0, 0) << QVector3D(100, 0, 0);
    QTest::newRow("diagonal") << QVector3D(0, 0, 0) << QVector3D(1, 1, 0) << QVector3D(0, 0, 0)
                              << QVector3D(50, 50, 0);
    QTest::newRow("diagonal origin behind") << QVector3D(-10, 20, 0) << QVector3D(1, -1, 0)
                                            << QVector3D(0, 10, 0) << QVector3D(10, 0, 0);
    QTest::newRow("along z") << QVector3D(5, 5, 7) << QVector3D(0, 0, 3) << QVector3D(5, 5, -1)
                             << QVector3D(5, 5, 1);
}

void tst_Geometry::intersections()
{
    QFETCH(QVector3D, origin);
    QFETCH(QVector3D, direction);
    QFETCH(QVector3D, enter);
    QFETCH(QVector3D, leave);
    const BoundingBox box({0, 0, -1}, {100, 50, 1});
    const auto points = RayBoxIntersection::calculateIntersectionPoints(box, origin, direction);
    QVERIFY(points);
    QCOMPARE(points->first, enter);
    QCOMPARE(points->second, leave);
}

void tst_Geometry::noIntersection_data()
{
    QTest::addColumn<BoundingBox>("box");
    QTest::addColumn<QVector3D>("origin");
    QTest::addColumn<QVector3D>("direction");
    const BoundingBox box({0, 0, -1}, {100, 50, 1});
    QTest::newRow("zero direction inside") << box << QVector3D(5, 5, 0) << QVector3D();
    QTest::newRow("parallel above") << box << QVector3D(0, -1, 0) << QVector3D(1, 0, 0);
    QTest::newRow("parallel right") << box << QVector3D(101, 0, 0) << QVector3D(0, 1, 0);
    QTest::newRow("diagonal past the corner") << box << QVector3D(200, 0, 0) << QVector3D(1, 1, 0);
    QTest::newRow("invalid box") << BoundingBox() << QVector3D(0, 0, 0) << QVector3D(1, 0, 0);
}

void tst_Geometry::noIntersection()
{
    QFETCH(BoundingBox, box);
    QFETCH(QVector3D, origin);
    QFETCH(QVector3D, direction);
    QVERIFY(!RayBoxIntersection::calculateIntersectionPoints(box, origin, direction));
}

QTEST_MAIN(tst_Geometry)
#include "tst_geometry.moc"
