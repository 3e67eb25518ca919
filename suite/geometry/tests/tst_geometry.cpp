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

    void boxValidityAndContainment()
    {
        QVERIFY(!BoundingBox().isValid());
        QVERIFY(!BoundingBox().contains(QVector3D()));
        const BoundingBox flat({0, 0, 0}, {10, 5, 0});
        QVERIFY(flat.isValid());
        QVERIFY(flat.contains({10, 5, 0}));
        QVERIFY(!flat.contains({10, 5, 0.001f}));
        QVERIFY(!BoundingBox({0, 0, 0}, {-1, 5, 0}).isValid());
    }

    void intersections()
    {
        struct Case
        {
            QVector3D origin, direction;
            bool hits;
            QVector3D enter, leave;
        };
        // The shape a clipped viewport line uses; the whole line counts, also behind its origin.
        const BoundingBox box({0, 0, -1}, {100, 50, 1});
        const Case cases[] = {
            {{50, 25, 0}, {1, 0, 0}, true, {0, 25, 0}, {100, 25, 0}},
            {{50, 25, 0}, {-2, 0, 0}, true, {100, 25, 0}, {0, 25, 0}},
            {{30, -500, 0}, {0, 1, 0}, true, {30, 0, 0}, {30, 50, 0}},
            {{10, 0, 0}, {1, 0, 0}, true, {0, 0, 0}, {100, 0, 0}}, // along the top edge
            {{0, 0, 0}, {1, 1, 0}, true, {0, 0, 0}, {50, 50, 0}},
            {{-10, 20, 0}, {1, -1, 0}, true, {0, 10, 0}, {10, 0, 0}},
            {{5, 5, 7}, {0, 0, 3}, true, {5, 5, -1}, {5, 5, 1}},
            {{5, 5, 0}, {}, false, {}, {}}, // no direction
            {{0, -1, 0}, {1, 0, 0}, false, {}, {}}, // parallel, above
            {{101, 0, 0}, {0, 1, 0}, false, {}, {}}, // parallel, right
            {{200, 0, 0}, {1, 1, 0}, false, {}, {}}, // diagonal past the corner
        };
        for (const Case& c : cases) {
            const auto points
                = RayBoxIntersection::calculateIntersectionPoints(box, c.origin, c.direction);
            QCOMPARE(bool(points), c.hits);
            if (c.hits) {
                QCOMPARE(points->first, c.enter);
                QCOMPARE(points->second, c.leave);
            }
        }
        QVERIFY(!RayBoxIntersection::calculateIntersectionPoints(BoundingBox(), {}, {1, 0, 0}));
    }
};

QTEST_MAIN(tst_Geometry)
#include "tst_geometry.moc"
