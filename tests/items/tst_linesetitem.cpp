#include <guicore/graphics/items/CustomGraphicsLineSetItem.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

using Lines = QList<QLineF>;
using Loops = QList<QList<QPointF>>;

Lines polygonLines(const QList<QPointF>& points)
{
    Lines lines;
    for (qsizetype i = 0; i < points.size(); ++i)
        lines << QLineF(points[i], points[(i + 1) % points.size()]);
    return lines;
}

Lines reversed(const Lines& lines)
{
    Lines result;
    for (const QLineF& line : lines)
        result << QLineF(line.p2(), line.p1());
    return result;
}

bool lessPoint(const QPointF& a, const QPointF& b)
{
    return a.x() < b.x() || (a.x() == b.x() && a.y() < b.y());
}

/// Loops as sorted vertex sets, themselves sorted: their order and direction do not count.
Loops normalised(Loops loops)
{
    for (auto& loop : loops) {
        for (QPointF& p : loop)
            p = QPointF(std::round(p.x() * 1e3) / 1e3, std::round(p.y() * 1e3) / 1e3);
        std::sort(loop.begin(), loop.end(), lessPoint);
    }
    std::sort(loops.begin(), loops.end(), [](const QList<QPointF>& a, const QList<QPointF>& b) {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), lessPoint);
    });
    return loops;
}

Loops loopsOf(const QPainterPath& path)
{
    Loops loops;
    for (QPolygonF polygon : path.toSubpathPolygons()) {
        if (polygon.size() > 1 && polygon.first() == polygon.last())
            polygon.removeLast();
        loops << QList<QPointF>(polygon.begin(), polygon.end());
    }
    return normalised(loops);
}

/// Every consecutive pair of the outline (closing pair included) is one of the segments.
bool followsSegments(const QList<QPointF>& outline, const Lines& lines)
{
    for (qsizetype i = 0; i < outline.size(); ++i) {
        const QPointF a = outline[i];
        const QPointF b = outline[(i + 1) % outline.size()];
        const bool found = std::any_of(lines.begin(), lines.end(), [&](const QLineF& l) {
            return (l.p1() == a && l.p2() == b) || (l.p1() == b && l.p2() == a);
        });
        if (!found)
            return false;
    }
    return true;
}

const QList<QPointF> square {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
const QList<QPointF> triangle {{200, 0}, {300, 0}, {250, 80}};

} // namespace

class tst_LineSetItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void closedPolygons_data();
    void closedPolygons();
    void closedOutlinePoints_data();
    void closedOutlinePoints();
    void setLineSetModes_data();
    void setLineSetModes();
    void fillColorAloneDoesNotRebuild();
    void closedLineSetAndClear();
    void rendersFilledLoopAndLooseSegments();
};

void tst_LineSetItem::initTestCase()
{
    StyleManager::createManager(StyleManagerDataProvider());
}

void tst_LineSetItem::cleanupTestCase()
{
    StyleManager::deleteManager();
}

void tst_LineSetItem::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_LineSetItem::closedPolygons_data()
{
    QTest::addColumn<Lines>("lines");
    QTest::addColumn<Loops>("expected");

    const Lines squareLines = polygonLines(square);
    QTest::newRow("empty") << Lines() << Loops();
    QTest::newRow("square in order") << squareLines << Loops {square};
    QTest::newRow("square shuffled and flipped") << Lines {squareLines[2],
        reversed({squareLines[0]}).first(), squareLines[3], reversed({squareLines[1]}).first()}
                                                 << Loops {square};
    QTest::newRow("two loops interleaved") << Lines {squareLines[0], polygonLines(triangle)[1],
        squareLines[1], squareLines[2], polygonLines(triangle)[0], squareLines[3],
        polygonLines(triangle)[2]} << Loops {square, triangle};
    QTest::newRow("open chain") << Lines {QLineF(0, 0, 10, 0), QLineF(10, 0, 10, 10),
        QLineF(10, 10, 20, 10)} << Loops();
    QTest::newRow("loop with dangling tail")
        << (squareLines + Lines {QLineF(100, 100, 150, 150), QLineF(150, 150, 160, 200)})
        << Loops {square};
    QTest::newRow("loop with a branch off a corner and a separate chain")
        << (Lines {QLineF(100, 0, 140, -40)} + squareLines + Lines {QLineF(500, 500, 600, 500)})
        << Loops {square};
    // Two triangles sharing one corner: a branching point of four segments.
    const QList<QPointF> left {{0, 0}, {-50, -50}, {-50, 50}};
    const QList<QPointF> right {{0, 0}, {50, -50}, {50, 50}};
    QTest::newRow("figure eight") << (polygonLines(left) + reversed(polygonLines(right)))
                                  << Loops {left, right};
    // End points that differ by far less than the relative tolerance still meet.
    QTest::newRow("fuzzy end points") << Lines {QLineF(0, 0, 1e6, 0),
        QLineF(1e6 * (1 + 1e-14), 0, 1e6, 1e6), QLineF(1e6, 1e6 * (1 - 1e-14), 0, 0)}
                                      << Loops {{{0, 0}, {1e6, 0}, {1e6, 1e6}}};
    QTest::newRow("end points too far apart")
        << Lines {QLineF(0, 0, 100, 0), QLineF(100.001, 0, 100, 100), QLineF(100, 100, 0, 0)}
        << Loops();
    QTest::newRow("duplicate segment is one edge")
        << (polygonLines(triangle) + Lines {polygonLines(triangle)[0]}) << Loops {triangle};
}

void tst_LineSetItem::closedPolygons()
{
    QFETCH(Lines, lines);
    QFETCH(Loops, expected);
    const QPainterPath path = CustomGraphicsLineSetItem::createPathWithClosedPolygons(lines);
    QCOMPARE(path.isEmpty(), expected.isEmpty());
    QCOMPARE(loopsOf(path), normalised(expected));
}

void tst_LineSetItem::closedOutlinePoints_data()
{
    QTest::addColumn<Lines>("lines");
    QTest::addColumn<int>("count");

    const Lines squareLines = polygonLines(square);
    QTest::newRow("square in order") << squareLines << 4;
    QTest::newRow("square shuffled and flipped") << Lines {squareLines[0], squareLines[2],
        reversed({squareLines[3]}).first(), reversed({squareLines[1]}).first()}
                                                 << 4;
    QTest::newRow("pentagon") << polygonLines({{0, 0}, {10, -5}, {20, 0}, {15, 10}, {5, 10}}) << 5;
}

void tst_LineSetItem::closedOutlinePoints()
{
    QFETCH(Lines, lines);
    QFETCH(int, count);
    const QList<QPointF> outline
        = CustomGraphicsLineSetItem::getPointsForClosedPolygonFromLines(lines);
    QCOMPARE(outline.size(), count);
    QCOMPARE(outline.first(), lines.first().p1());
    QCOMPARE(outline.at(1), lines.first().p2());
    QVERIFY(followsSegments(outline, lines));
}

void tst_LineSetItem::setLineSetModes_data()
{
    QTest::addColumn<Lines>("lines");
    QTest::addColumn<QColor>("fill");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("hitInside");
    QTest::addColumn<bool>("hitOnEdge");

    const Lines squareLines = polygonLines(square);
    const Lines chain {QLineF(0, 0, 100, 0), QLineF(100, 0, 100, 100)};
    QTest::newRow("empty") << Lines() << QColor(Qt::red) << false << false << false;
    QTest::newRow("loop without fill colour") << squareLines << QColor() << false << false << true;
    QTest::newRow("loop with fill colour")
        << squareLines << QColor(Qt::red) << true << true << true;
    QTest::newRow("open chain with fill colour")
        << chain << QColor(Qt::red) << false << false << true;
}

void tst_LineSetItem::setLineSetModes()
{
    QFETCH(Lines, lines);
    QFETCH(QColor, fill);
    QFETCH(bool, closed);
    QFETCH(bool, hitInside);
    QFETCH(bool, hitOnEdge);

    QGraphicsScene scene;
    auto* item = new CustomGraphicsLineSetItem(QStringLiteral("lines"));
    scene.addItem(item);
    QVERIFY(item->isUsingStroker());
    item->setPen(QPen(Qt::black, 4));
    item->setFillColor(fill);
    item->setLineSet(lines);

    QCOMPARE(item->getLineSet(), lines);
    QCOMPARE(item->isClosed(), closed);
    QCOMPARE(item->isUsingStroker(), !closed);
    QCOMPARE(item->getPainterPath().isEmpty(), lines.isEmpty());
    QCOMPARE(item->isMouseOver(QPointF(50, 50)), hitInside);
    QCOMPARE(item->isMouseOver(QPointF(99, 50)), hitOnEdge);
    if (!closed && !lines.isEmpty()) {
        // Loose segments: one sub-path each, in list order.
        QCOMPARE(item->getPainterPath().toSubpathPolygons().size(), lines.size());
        QCOMPARE(item->getPainterPath().elementAt(0), lines.first().p1());
    }
}

void tst_LineSetItem::fillColorAloneDoesNotRebuild()
{
    CustomGraphicsLineSetItem item(QStringLiteral("lines"));
    item.setLineSet(polygonLines(square));
    QVERIFY(!item.isClosed());
    const QPainterPath loose = item.getPainterPath();
    item.setFillColor(Qt::green);
    QCOMPARE(item.getFillColor(), QColor(Qt::green));
    QVERIFY(!item.isClosed());
    QCOMPARE(item.getPainterPath(), loose);
    item.setLineSet(item.getLineSet());
    QVERIFY(item.isClosed());
}

void tst_LineSetItem::closedLineSetAndClear()
{
    CustomGraphicsLineSetItem item(QStringLiteral("lines"));
    const Lines lines = reversed(polygonLines(square));
    item.setClosedLineSet(lines);
    QVERIFY(item.isClosed());
    QVERIFY(!item.isUsingStroker());
    QVERIFY(item.isMouseOver(QPointF(50, 50)));
    QCOMPARE(item.getPainterPath().elementCount(), 4);

    item.clearLineSet();
    QVERIFY(item.getLineSet().isEmpty());
    QVERIFY(item.getPainterPath().isEmpty());
    QVERIFY(!item.isClosed());
    QVERIFY(!item.isMouseOver(QPointF(50, 50)));
}

void tst_LineSetItem::rendersFilledLoopAndLooseSegments()
{
    QGraphicsScene scene(-50, -50, 400, 200);
    auto* filled = new CustomGraphicsLineSetItem(QStringLiteral("filled"));
    filled->setPen(QPen(Qt::black, 2));
    filled->setFillColor(Qt::red);
    filled->setLineSet(polygonLines(square));
    auto* loose = new CustomGraphicsLineSetItem(QStringLiteral("loose"));
    loose->setPen(QPen(Qt::black, 2));
    loose->setLineSet(polygonLines(triangle));
    scene.addItem(filled);
    scene.addItem(loose);
    QGraphicsView view(&scene);

    QImage image(400, 200, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter, QRectF(0, 0, 400, 200), QRectF(-50, -50, 400, 200));
    painter.end();

    const auto at = [&](qreal x, qreal y) { return image.pixel(int(x + 50), int(y + 50)); };
    QCOMPARE(at(50, 50), qRgb(255, 0, 0));
    // The fill is laid over the outline: only the outer half of the pen stays black.
    QCOMPARE(at(-1, 50), qRgb(0, 0, 0));
    QCOMPARE(at(250, 40), qRgb(255, 255, 255)); // inside the unfilled triangle
    QCOMPARE(at(250, 0), qRgb(0, 0, 0));
}

QTEST_MAIN(tst_LineSetItem)
#include "tst_linesetitem.moc"
