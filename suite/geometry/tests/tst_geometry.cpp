#include <geometry/BoundingBox.h>
#include <geometry/RayBoxIntersection.h>

#include <QtTest>

using primitives::BoundingBox;
using primitives::RayBoxIntersection;

class tst_Geometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void boxesAndIntersections()
    {
        QVERIFY(!BoundingBox().isValid() && !BoundingBox().contains(QVector3D()));
        const BoundingBox flat({0, 0, 0}, {10, 5, 0});
        QVERIFY(flat.isValid() && flat.contains({10, 5, 0}) && !flat.contains({10, 5, 0.001f}));
        QVERIFY(!BoundingBox({0, 0, 0}, {-1, 5, 0}).isValid());
        // The shape a clipped viewport line uses. The whole line counts, also behind its origin;
        // a line along an edge is inside. Without a direction, parallel outside a slab or passing
        // a corner there is no intersection.
        const BoundingBox box({0, 0, -1}, {100, 50, 1});
        const std::tuple<QVector3D, QVector3D, QVector3D, QVector3D> hits[]
            = {{{50, 25, 0}, {1, 0, 0}, {0, 25, 0}, {100, 25, 0}},
                {{50, 25, 0}, {-2, 0, 0}, {100, 25, 0}, {0, 25, 0}},
                {{30, -500, 0}, {0, 1, 0}, {30, 0, 0}, {30, 50, 0}},
                {{10, 0, 0}, {1, 0, 0}, {0, 0, 0}, {100, 0, 0}},
                {{0, 0, 0}, {1, 1, 0}, {0, 0, 0}, {50, 50, 0}},
                {{-10, 20, 0}, {1, -1, 0}, {0, 10, 0}, {10, 0, 0}},
                {{5, 5, 7}, {0, 0, 3}, {5, 5, -1}, {5, 5, 1}}};
        for (const auto& [origin, direction, enter, leave] : hits)
            QCOMPARE(RayBoxIntersection::calculateIntersectionPoints(box, origin, direction),
                std::make_optional(std::pair {enter, leave}));
        const std::pair<QVector3D, QVector3D> misses[] = {{{5, 5, 0}, {}}, {{0, -1, 0}, {1, 0, 0}},
            {{101, 0, 0}, {0, 1, 0}}, {{200, 0, 0}, {1, 1, 0}}};
        for (const auto& [origin, direction] : misses)
            QVERIFY(!RayBoxIntersection::calculateIntersectionPoints(box, origin, direction));
        QVERIFY(!RayBoxIntersection::calculateIntersectionPoints(BoundingBox(), {}, {1, 0, 0}));
    }
};

QTEST_MAIN(tst_Geometry)
#include "tst_geometry.moc"
