#include <guicore/graphics/manipulators/CenterDragger.h>
#include <guicore/graphics/manipulators/CrossDragger.h>
#include <guicore/graphics/manipulators/CrossedLinesManipulationGraphicsItemGroup.h>
#include <guicore/graphics/manipulators/InvisibleLineDragger.h>
#include <guicore/graphics/manipulators/LineDragger.h>
#include <guicore/graphics/manipulators/LineManipulationGraphicsItem.h>

#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPen>
#include <QPixmapCache>
#include <QVector2D>
#include <QtTest>

namespace {

using Group = CrossedLinesManipulationGraphicsItemGroup;
using LineItem = LineManipulationGraphicsItem;

// The dragger tests' lines move within these bounds.
const QRectF testBounds(-100, -100, 200, 200);
// The line manipulation tests' viewport: a horizontal line through y 50 spans x 0 to 300.
const QRectF viewport(0, 0, 300, 100);

// The application's override cursor shapes, bottom first; leaves the stack as it found it.
using Shapes = QList<Qt::CursorShape>;
Shapes cursorStack()
{
    QList<QCursor> stack;
    while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
        stack.prepend(*cursor);
        QGuiApplication::restoreOverrideCursor();
    }
    Shapes shapes;
    for (const QCursor& cursor : std::as_const(stack)) {
        QGuiApplication::setOverrideCursor(cursor);
        shapes << cursor.shape();
    }
    return shapes;
}

// The first child of that type (and name, when one is given), in stacking order.
template <typename T> T* child(QGraphicsItem* parent, const QString& name = QString())
{
    const QList<QGraphicsItem*> children = parent->childItems();
    for (QGraphicsItem* item : children) {
        auto* typed = dynamic_cast<T*>(item);
        if (typed && (name.isEmpty() || typed->objectName() == name))
            return typed;
    }
    return nullptr;
}

// A group's lines by their stacking: the horizontal line lies above the vertical one.
std::pair<LineItem*, LineItem*> horizontalAndVerticalOf(QGraphicsItem* group)
{
    std::pair<LineItem*, LineItem*> lines {nullptr, nullptr};
    for (QGraphicsItem* item : group->childItems()) {
        if (auto* line = dynamic_cast<LineItem*>(item))
            (line->zValue() == 0.2 ? lines.first : lines.second) = line;
    }
    return lines;
}

QString describe(const QPointF& p)
{
    return QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
}

QString describe(float angle)
{
    return QString::number(angle, 'f', 1);
}

} // namespace

class tst_Manipulators : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        m_log.clear();
        m_scene = std::make_unique<QGraphicsScene>(-150, -150, 550, 350);
        // The whole scene at scale 1, so that viewport pixels map to whole scene units.
        m_view = std::make_unique<QGraphicsView>(m_scene.get());
        m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_view->setFrameShape(QFrame::NoFrame);
        m_view->resize(550, 350);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    }
    void cleanup()
    {
        m_view.reset();
        m_scene.reset();
        while (QGuiApplication::overrideCursor())
            QGuiApplication::restoreOverrideCursor();
    }

    void lineConstraint_data()
    {
        QTest::addColumn<Qt::Orientation>("orientation");
        QTest::addColumn<QRectF>("bounds");
        QTest::addColumn<float>("tick");
        QTest::addColumn<bool>("halfOffset");
        QTest::addColumn<QPointF>("proposed");
        QTest::addColumn<QPointF>("expected");

        const auto row = [](const char* name, Qt::Orientation orientation, const QRectF& bounds,
                             float tick, bool halfOffset, QPointF proposed, QPointF expected) {
            QTest::newRow(name) << orientation << bounds << tick << halfOffset << proposed
                                << expected;
        };
        const auto vertical = Qt::Vertical;
        const auto horizontal = Qt::Horizontal;
        // The default rectangle ends at 0 on the right and at the bottom.
        row("default vertical 50 -> 0", vertical, {}, 0, true, {50, 30}, {0, 0});
        row("default horizontal 50 -> 0", horizontal, {}, 0, true, {30, 50}, {0, 0});
        row("default vertical inside", vertical, {}, 0, true, {-250.5, 7}, {-250.5, 0});

        row("vertical floors 27 -> 20", vertical, testBounds, 10, false, {27, 0}, {20, 0});
        row("vertical floors -27 -> -30", vertical, testBounds, 10, false, {-27, 0}, {-30, 0});
        row("horizontal truncates -27", horizontal, testBounds, 10, false, {0, -27}, {0, -20});
        row("horizontal truncates 27", horizontal, testBounds, 10, false, {0, 27}, {0, 20});
        row("vertical half offset 27 -> 25", vertical, testBounds, 10, true, {27, 0}, {25, 0});
        row("horizontal half offset 27", horizontal, testBounds, 10, true, {0, 27}, {0, 25});

        // Clamping to the left and top edges.
        row("vertical left edge", vertical, testBounds, 0, false, {-150, 0}, {-100, 0});
        row("horizontal top edge", horizontal, testBounds, 0, false, {0, -150}, {0, -100});
        // Without half offset the vertical line reaches the right edge, while the horizontal line
        // always stays a whole tick above the bottom edge.
        row("vertical right edge", vertical, testBounds, 10, false, {150, 0}, {100, 0});
        row("horizontal bottom less a tick", horizontal, testBounds, 10, false, {0, 150}, {0, 90});
        // With half offset the rectangle grows by half a tick: right edge 110, less a tick, then
        // snapped to the middle of the tick.
        row("vertical right half offset", vertical, testBounds, 10, true, {150, 0}, {105, 0});
        row("vertical left half offset", vertical, testBounds, 10, true, {-150, 0}, {-95, 0});

        // Snapping in single precision: 0.1 is not exact, the product is rounded as a float.
        row("single precision snap", vertical, testBounds, 0.1f, false, {0.35, 0}, {3 * 0.1f, 0});
    }
    void lineConstraint()
    {
        QFETCH(Qt::Orientation, orientation);
        QFETCH(QRectF, bounds);
        QFETCH(float, tick);
        QFETCH(bool, halfOffset);
        QFETCH(QPointF, proposed);
        QFETCH(QPointF, expected);

        auto* dragger = new LineDragger(orientation);
        m_scene->addItem(dragger);
        if (!bounds.isNull())
            dragger->setBoundingRect(bounds);
        dragger->setTick(tick);
        dragger->setHalfOffset(halfOffset);
        record(dragger, &LineDragger::moved, "moved");
        dragger->move(proposed);

        QCOMPARE(dragger->pos(), expected);
        QCOMPARE(
            m_log, expected.isNull() ? QStringList() : QStringList {"moved " + describe(expected)});
    }
    void pickLineFollowsTheLine()
    {
        auto* dragger = new LineDragger(Qt::Vertical);
        m_scene->addItem(dragger);
        auto* pickLine = child<InvisibleLineDragger>(dragger, "invisibleLineDragger");
        QVERIFY(pickLine);
        QVERIFY(pickLine->flags().testFlag(QGraphicsItem::ItemStacksBehindParent));

        dragger->setBoundingRect(testBounds);
        dragger->setRect(testBounds);
        dragger->setZValue(4.0);
        dragger->move(QPointF(-40, 0));
        QCOMPARE(pickLine->line(), dragger->line());
        QCOMPARE(pickLine->zValue(), 4.1);

        // The line is hit wherever its wide pick line is, not only on its thin visible pen.
        dragger->setPickWidth(10);
        QCOMPARE(pickLine->pen().width(), 10);
        QVERIFY(pickLine->pen().isCosmetic());
        QVERIFY(dragger->contains(QPointF(4, 0)));
        QVERIFY(dragger->underMousePos(QPointF(-4, 50)));
        QVERIFY(!dragger->contains(QPointF(8, 0)));
        QCOMPARE(itemAt(QPointF(-36, 20)), dragger);

        // setRect stretches the line along its own direction only.
        for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
            LineDragger line(orientation);
            line.setLine(5, 7, 9, 8);
            line.setRect(QRectF(-20, -30, 60, 70));
            QCOMPARE(line.line(),
                orientation == Qt::Horizontal ? QLineF(-20, 7, 40, 8) : QLineF(5, -30, 9, 40));
        }
    }
    void hoverCursorsArePairedAndOnlyWhenMovable()
    {
        LineDragger horizontal(Qt::Horizontal);
        LineDragger vertical(Qt::Vertical);

        horizontal.startHovering();
        vertical.startHovering();
        QCOMPARE(cursorStack(), Shapes({Qt::SizeVerCursor, Qt::SizeHorCursor}));
        vertical.stopHovering();
        horizontal.stopHovering();
        QCOMPARE(cursorStack(), Shapes());

        // A line that cannot move neither pushes nor pops.
        QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
        horizontal.setMovable(false);
        horizontal.startHovering();
        QCOMPARE(cursorStack(), Shapes({Qt::WaitCursor}));
        horizontal.stopHovering();
        QCOMPARE(cursorStack(), Shapes({Qt::WaitCursor}));
    }
    void centerDragger()
    {
        auto* center = new CenterDragger();
        m_scene->addItem(center);
        record(center, &CenterDragger::dragged, "dragged");

        // Free until a rectangle is set.
        center->setPos(500, -700);
        center->setBoundingRect(testBounds);
        center->setPos(500, -650);
        center->setPos(-101, 101);
        center->setPos(12.5, -3);
        QCOMPARE(center->pos(), QPointF(12.5, -3));
        QCOMPARE(m_log,
            QStringList(
                {"dragged 500,-700", "dragged 100,-100", "dragged -100,100", "dragged 12.5,-3"}));

        // Hover cursors only while movable.
        m_log.clear();
        center->setRect(-3, -3, 6, 6);
        record(center, &CenterDragger::hoveringStarted, "started");
        record(center, &CenterDragger::hoveringStopped, "stopped");

        center->startHovering();
        QCOMPARE(cursorStack(), Shapes({Qt::SizeAllCursor}));
        center->stopHovering();
        QCOMPARE(cursorStack(), Shapes());
        center->setMovable(false);
        center->startHovering();
        QCOMPARE(cursorStack(), Shapes());
        center->stopHovering();
        center->setMovable(true);

        // A press and release without a move still reports the position once.
        drag({center->pos()});
        QCOMPARE(m_log, QStringList({"started", "stopped", "dragged 12.5,-3"}));
    }
    void crossMovesSilentlyOrByDrag()
    {
        CrossDragger* cross = addCross();
        auto* center = child<CenterDragger>(cross);
        LineDragger* horizontal = cross->getHorizontalDragger();
        LineDragger* vertical = cross->getVerticalDragger();
        record(cross, &CrossDragger::horizontalMoved, "horizontal");
        record(cross, &CrossDragger::verticalMoved, "vertical");
        QCOMPARE(child<CenterDragger>(cross, "centerDragger"), center);
        checkCrossing(center, horizontal, vertical, QPointF(0, 0));

        // Moves by the owner are silent; the handle follows.
        cross->setHorizontalTick(10);
        cross->moveHorizontal(QPointF(50, -27));
        cross->moveVertical(QPointF(33, 50));
        QCOMPARE(horizontal->pos(), QPointF(0, -20));
        QCOMPARE(vertical->pos(), QPointF(33, 0));
        QCOMPARE(center->pos(), QPointF(33, -20));
        QCOMPARE(m_log, QStringList());

        // Dragging the handle reports the vertical line before the horizontal one, each only when
        // it moved.
        cross->setHorizontalTick(0);
        cross->moveHorizontal(QPointF(0, -10));
        cross->moveVertical(QPointF(-10, 0));
        QCOMPARE(center->pos(), QPointF(-10, -10));
        drag({QPointF(-10, -10), QPointF(20, 30), QPointF(20, 45)});
        QCOMPARE(m_log, QStringList({"vertical 20,0", "horizontal 0,30", "horizontal 0,45"}));
        QCOMPARE(vertical->pos(), QPointF(20, 0));
        QCOMPARE(horizontal->pos(), QPointF(0, 45));

        // A line follows the mouse only while its owner reports a drag, and not when the owner
        // moves it itself; dragging it moves the handle.
        m_log.clear();
        cross->setVerticalTick(10);
        cross->moveHorizontal(QPointF(0, -50));
        drag({QPointF(20, 40), QPointF(43, 40)});
        QCOMPARE(vertical->pos(), QPointF(20, 0));
        vertical->setDragging(true);
        drag({QPointF(20, 40), QPointF(37, 40), QPointF(-27, -40)});
        horizontal->setDragging(true);
        drag({QPointF(-60, -50), QPointF(-60, -23)});
        QCOMPARE(m_log, QStringList({"vertical 30,0", "vertical -30,0", "horizontal 0,-23"}));
        QCOMPARE(center->pos(), QPointF(-30, -23));
        vertical->setIsMoveHandledByCaller(true);
        drag({QPointF(-30, 40), QPointF(57, 40)});
        QCOMPARE(vertical->pos(), QPointF(-30, 0));
        vertical->setMovable(false);
        QVERIFY(!vertical->isLeftDragging());
    }
    void crossMovableAndVisibility()
    {
        CrossDragger cross;
        auto* center = child<CenterDragger>(&cross);
        LineDragger* horizontal = cross.getHorizontalDragger();
        LineDragger* vertical = cross.getVerticalDragger();
        // Movable reports the horizontal line.
        cross.setMovable(false);
        QVERIFY(!cross.getMovable());
        QVERIFY(!vertical->isMovable());
        vertical->setMovable(true);
        QVERIFY(!cross.getMovable());
        horizontal->setMovable(true);
        vertical->setMovable(false);
        QVERIFY(cross.getMovable());

        checkHandleNeedsBothLines(&cross, &CrossDragger::setHorizontalDraggerVisible,
            &CrossDragger::setVerticalDraggerVisible, horizontal, vertical, center);
        cross.setVerticalDraggerVisible(false);
        cross.setDraggerVisible(true);
        QVERIFY(vertical->isVisible() && center->isVisible());

        // Disabling a side hides the handle but not the line, which then ignores visibility
        // requests; enabling it again shows nothing by itself.
        cross.enableHorizontalDragger(false);
        QVERIFY(!center->isVisible() && horizontal->isVisible());
        cross.setDraggerVisible(false);
        QVERIFY(horizontal->isVisible() && !vertical->isVisible());
        cross.enableHorizontalDragger(true);
        QVERIFY(!center->isVisible());
        cross.setVerticalDraggerVisible(true);
        cross.enableVerticalDragger(true);
        QVERIFY(center->isVisible());
        cross.enableVerticalDragger(false);
        QVERIFY(!cross.isVerticalDraggerEnabled() && !center->isVisible());
    }

    void clipsTheLineToTheViewport_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QVector2D>("direction");
        QTest::addColumn<QLineF>("expected");

        const QPointF inside(120, 50);
        QTest::newRow("horizontal")
            << viewport << inside << QVector2D(1, 0) << QLineF(0, 50, 300, 50);
        QTest::newRow("reversed") << viewport << inside << QVector2D(-7, 0)
                                  << QLineF(300, 50, 0, 50);
        QTest::newRow("diagonal from outside") << QRectF(0, 0, 100, 100) << QPointF(-50, -50)
                                               << QVector2D(2, 2) << QLineF(0, 0, 100, 100);
        QTest::newRow("misses") << viewport << QPointF(120, 500) << QVector2D(1, 0) << QLineF();
        QTest::newRow("zero direction") << viewport << inside << QVector2D(0, 0) << QLineF();
        QTest::newRow("tiny direction") << viewport << inside << QVector2D(5e-6f, 0) << QLineF();
    }
    void clipsTheLineToTheViewport()
    {
        QFETCH(QRectF, rect);
        QFETCH(QPointF, point);
        QFETCH(QVector2D, direction);
        QFETCH(QLineF, expected);

        auto* item = new LineItem();
        m_scene->addItem(item);
        item->setViewportRectangle(rect);
        item->setLine(point, direction);

        QCOMPARE(item->line(), expected);
        QCOMPARE(child<InvisibleLineDragger>(item)->line(), expected);
        QCOMPARE(item->getRotationPoint(), point);
        QVERIFY(!expected.isNull() || !item->contains(point));
        QCOMPARE(itemAt(expected.isNull() ? point : expected.center()),
            expected.isNull() ? nullptr : item);
    }
    void unchangedLineOrViewportDoesNotRecompute()
    {
        LineItem* item = addLine(120);
        QGraphicsLineItem* drawn = item;
        const QLineF marker(1, 2, 3, 4);

        drawn->setLine(marker);
        item->setLine(QPointF(120, 50), QVector2D(1, 0));
        QCOMPARE(item->line(), marker);
        item->setViewportRectangle(QRectF(1e-13, 0, 300 + 1e-11, 100));
        QCOMPARE(item->line(), marker);

        item->setViewportRectangle(QRectF(0, 0, 200, 100));
        QCOMPARE(item->line(), QLineF(0, 50, 200, 50));
        drawn->setLine(marker);
        item->setLine(QPointF(120, 50), QVector2D(2, 0));
        QCOMPARE(item->line(), QLineF(0, 50, 200, 50));
    }
    void rotateOrTranslateZones_data()
    {
        QTest::addColumn<qreal>("rotationX");
        QTest::addColumn<qreal>("pressX");
        QTest::addColumn<bool>("rotate");
        QTest::addColumn<bool>("rotationEnabled");
        QTest::addColumn<bool>("translationEnabled");

        const auto row = [](const char* name, qreal rotationX, qreal pressX, bool rotate,
                             bool rotationEnabled = true, bool translationEnabled = true) {
            QTest::newRow(name) << rotationX << pressX << rotate << rotationEnabled
                                << translationEnabled;
        };
        // Rotation point at the start: the far third rotates.
        row("start, far end", 0, 290, true);
        row("start, just inside the third", 0, 201, true);
        row("start, exactly at the third", 0, 200, false);
        row("start, near the point", 0, 10, false);
        row("before the viewport", -100, 250, true);
        row("before the viewport, near", -100, 50, false);
        // Rotation point in the middle: the outer third of each side rotates.
        row("middle, right end", 150, 251, true);
        row("middle, right third exactly", 150, 250, false);
        row("middle, left end", 150, 49, true);
        row("middle, left third exactly", 150, 50, false);
        row("middle, at the point", 150, 150, false);
        // Rotation point at the end: the near third of the segment start rotates.
        row("end, start", 300, 99, true);
        row("end, third exactly", 300, 100, false);
        row("end, near the point", 300, 290, false);
        // Without rotation everything translates; without translation everything rotates, even the
        // rotation point itself.
        row("rotation disabled, far end", 150, 295, false, false);
        row("rotation disabled, near end", 150, 5, false, false);
        row("translation disabled, at the point", 150, 150, true, true, false);
        row("translation disabled, middle", 150, 200, true, true, false);
    }
    void rotateOrTranslateZones()
    {
        QFETCH(qreal, rotationX);
        QFETCH(qreal, pressX);
        QFETCH(bool, rotate);
        QFETCH(bool, rotationEnabled);
        QFETCH(bool, translationEnabled);

        LineItem* item = addLine(rotationX);
        item->enableRotation(rotationEnabled);
        item->enableTranslation(translationEnabled);
        QCOMPARE(item->shouldRotateAt(QPointF(pressX, 50)), rotate);
        // Only the projection onto the line counts.
        QCOMPARE(item->shouldRotateAt(QPointF(pressX, 80)), rotate);
    }
    void manipulationModes()
    {
        LineItem* item = addLine(150);
        record(item, &LineItem::lineRotated, "rotated");
        record(item, &LineItem::lineTranslated, "translated");

        QVERIFY(item->isRotatingParallelLine(QPointF(290, 50)));
        QVERIFY(item->isRotatingParallelLine(QPointF(290, 10)));
        QVERIFY(!item->isRotatingParallelLine(QPointF(10, 50)));
        QVERIFY(!item->isRotatingParallelLine(QPointF(150, -10)));
        QVERIFY(!item->isRotatingParallelLine(QPointF(150, 110)));

        // On the direction side the angle is measured from the rotation point to the mouse; no
        // change, no signal.
        item->startManipulation(QPointF(290, 50));
        QVERIFY(item->isManipulating());
        send(item, QEvent::GraphicsSceneMouseMove, QPointF(290, 50));
        send(item, QEvent::GraphicsSceneMouseMove, QPointF(250, -50));
        send(item, QEvent::GraphicsSceneMouseMove, QPointF(10, 60));
        item->stopManipulation();
        QVERIFY(!item->isManipulating());
        send(item, QEvent::GraphicsSceneMouseMove, QPointF(200, 0));

        // On the opposite side it is measured from the mouse to the rotation point, so staying on
        // that side gives small angles and crossing over gives angles near 180.
        item->startManipulation(QPointF(10, 50));
        send(item, QEvent::GraphicsSceneMouseMove, QPointF(50, 150));
        send(item, QEvent::GraphicsSceneMouseMove, QPointF(290, 52));
        item->stopManipulation();

        // Translation, and nothing while manipulation is disabled.
        item->startManipulation(QPointF(200, 50));
        QVERIFY(item->isManipulating());
        send(item, QEvent::GraphicsSceneMouseMove, QPointF(210, 80));
        item->stopManipulation();

        item->disableManipulation();
        item->startManipulation(QPointF(200, 50));
        QVERIFY(!item->isManipulating());
        send(item, QEvent::GraphicsSceneMouseMove, QPointF(220, 90));
        item->enableManipulation();
        item->startManipulation(QPointF(290, 50));
        QVERIFY(item->isManipulating());
        QCOMPARE(m_log,
            QStringList({"rotated 45.0", "rotated 184.1", "rotated 45.0", "rotated 179.2",
                "translated 210,80"}));

        // Neither rotation nor translation allowed: a press starts nothing.
        item->stopManipulation();
        item->enableRotation(false);
        item->enableTranslation(false);
        item->startManipulation(QPointF(290, 50));
        QVERIFY(!item->isManipulating());
    }
    void translationCursorFollowsTheAngle_data()
    {
        QTest::addColumn<qreal>("angle");
        QTest::addColumn<Qt::CursorShape>("shape");

        const QList<Qt::CursorShape> shapes
            = {Qt::SizeVerCursor, Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::SizeBDiagCursor};
        for (int i = 0; i < 8; ++i)
            QTest::addRow("%d degrees", i * 45) << qreal(i * 45) << shapes.at(i % 4);
        QTest::newRow("22 rounds down") << 22.0 << Qt::SizeVerCursor;
        QTest::newRow("23 rounds up") << 23.0 << Qt::SizeFDiagCursor;
        QTest::newRow("350 rounds to 8") << 350.0 << Qt::SizeVerCursor;
    }
    void translationCursorFollowsTheAngle()
    {
        QFETCH(qreal, angle);
        QFETCH(Qt::CursorShape, shape);

        auto* item = new LineItem();
        m_scene->addItem(item);
        item->setViewportRectangle(QRectF(-100, -100, 200, 200));
        item->setLine(QPointF(0, 0), QVector2D(QLineF::fromPolar(10, angle).p2()));
        QVERIFY(qAbs(item->line().angle() - angle) < 0.01);
        QCOMPARE(item->getTranslationCursor().shape(), shape);
        QCOMPARE(item->getCursor(false).shape(), shape);
    }
    void overrideCursorsArePaired()
    {
        LineItem* item = addLine(150);
        struct Step
        {
            QEvent::Type type;
            QPointF pos;
            Shapes cursors;
        };
        const Shapes rotate {Qt::BitmapCursor};
        const Step steps[] {{QEvent::GraphicsSceneHoverEnter, {290, 50}, rotate},
            {QEvent::GraphicsSceneHoverMove, {200, 50}, {Qt::SizeVerCursor}},
            {QEvent::MouseButtonPress, {290, 50}, rotate},
            {QEvent::GraphicsSceneMouseMove, {280, 20}, rotate},
            {QEvent::MouseButtonRelease, {}, rotate},
            {QEvent::GraphicsSceneHoverMove, {200, 50}, {Qt::SizeVerCursor}},
            {QEvent::GraphicsSceneHoverMove, {10, 50}, rotate},
            {QEvent::GraphicsSceneHoverLeave, {10, 90}, {}}};
        for (const Step& step : steps) {
            if (step.type == QEvent::MouseButtonPress)
                item->startManipulation(step.pos);
            else if (step.type == QEvent::MouseButtonRelease)
                item->stopManipulation();
            else
                send(item, step.type, step.pos);
            QCOMPARE(cursorStack(), step.cursors);
        }

        // The rotate cursor's pixmap is loaded once for all lines.
        LineItem other;
        const QCursor a = item->getCursor(true);
        // Anyone who loaded the file again would now get a new pixmap.
        QPixmapCache::clear();
        const QCursor b = other.getCursor(true);
        QCOMPARE(a.shape(), Qt::BitmapCursor);
        QVERIFY(!a.pixmap().isNull());
        QCOMPARE(a.pixmap().cacheKey(), b.pixmap().cacheKey());
        // A hot spot of (-1, -1) puts it in the middle of the pixmap.
        QCOMPARE(a.hotSpot(), QPoint(a.pixmap().width() / 2, a.pixmap().height() / 2));
    }
    void groupConstruction()
    {
        auto* group = new Group();
        m_scene->addItem(group);
        auto* center = child<CenterDragger>(group);
        record(group, &Group::horizontalLineTranslated, "horizontal");
        record(group, &Group::verticalLineTranslated, "vertical");
        record(center, &CenterDragger::dragged, "dragged");
        // The drawn lines are clipped in single precision.
        const auto centerNear = [&](const QPointF& p) {
            return qAbs(center->x() - p.x()) < 1e-3 && qAbs(center->y() - p.y()) < 1e-3;
        };

        group->setViewportRectangle(viewport);
        group->setHorizontalLine(QPointF(40, 30), QVector2D(1, 0));
        // The second line is still null: no crossing, the handle stays.
        QCOMPARE(center->pos(), QPointF(0, 0));
        group->setVerticalLine(QPointF(70, 10), QVector2D(0, 1));
        QVERIFY(centerNear(QPointF(70, 30)));
        group->setHorizontalLine(QPointF(40, 60), QVector2D(2, -1));
        QVERIFY(centerNear(QPointF(70, 45)));
        QCOMPARE(m_log, QStringList());

        group->setHorizontalLine(QPointF(150, 50), QVector2D(1, 0));
        group->setVerticalLine(QPointF(150, 50), QVector2D(0, 1));
        const auto [horizontal, vertical] = horizontalAndVerticalOf(group);
        QVERIFY(horizontal && vertical);
        checkCrossing(center, horizontal, vertical, QPointF(150, 50));

        group->setHorizontalColor(Qt::blue);
        QCOMPARE(horizontal->pen().color(), QColor(Qt::blue));
        QCOMPARE(horizontal->pen().widthF(), 1.0);
        QVERIFY(horizontal->pen().isCosmetic());

        // Extra lines join the group with the same pick width but no connection to its signals.
        LineItem* extra = group->addLineManipulator(Qt::yellow);
        QCOMPARE(extra->parentItem(), group);
        QCOMPARE(extra->pen().color(), QColor(Qt::yellow));
        QCOMPARE(child<InvisibleLineDragger>(extra)->pen().width(), 2);
        record(group, &Group::horizontalLineRotated, "horizontal rotated");
        record(group, &Group::verticalLineRotated, "vertical rotated");
        record(extra, &LineItem::lineRotated, "extra");
        extra->setViewportRectangle(viewport);
        extra->setLine(QPointF(150, 50), QVector2D(1, 0));
        extra->emitLineRotated(QLineF(0, 0, 10, 0));
        extra->emitLineRotated(QLineF(0, 0, 0, 10));
        QCOMPARE(m_log, QStringList({"extra 270.0"}));
    }
    void groupSignals()
    {
        Group* group = addGroup();
        const auto [horizontal, vertical] = horizontalAndVerticalOf(group);
        record(group, &Group::horizontalLineTranslated, "horizontal");
        record(group, &Group::verticalLineTranslated, "vertical");
        record(group, &Group::horizontalLineRotated, "horizontal rotated");
        record(group, &Group::verticalLineRotated, "vertical rotated");

        // Dragging the handle: once for the move and once more for the release.
        drag({QPointF(150, 50), QPointF(170, 40)});
        const QStringList pair = {"vertical 170,40", "horizontal 170,40"};
        QCOMPARE(m_log, pair + pair);

        // Each line's own manipulation is forwarded as that line's.
        m_log.clear();
        horizontal->startManipulation(QPointF(290, 50));
        send(horizontal, QEvent::GraphicsSceneMouseMove, QPointF(250, -50));
        horizontal->stopManipulation();
        vertical->startManipulation(QPointF(150, 40));
        send(vertical, QEvent::GraphicsSceneMouseMove, QPointF(170, 30));
        QCOMPARE(m_log, QStringList({"horizontal rotated 45.0", "vertical 170,30"}));
    }
    void groupHoverAndSettings()
    {
        Group* group = addGroup();
        auto* center = child<CenterDragger>(group);
        const auto [horizontal, vertical] = horizontalAndVerticalOf(group);

        center->startHovering();
        for (LineItem* line : {horizontal, vertical}) {
            line->startManipulation(QPointF(150, 50));
            QVERIFY(!line->isManipulating());
        }
        center->stopHovering();
        QCOMPARE(cursorStack(), Shapes());
        for (LineItem* line : {horizontal, vertical}) {
            line->startManipulation(QPointF(150, 50));
            QVERIFY(line->isManipulating());
            line->stopManipulation();
        }

        // A handle that cannot move does not lock the lines either.
        group->enableTranslation(false);
        center->startHovering();
        QCOMPARE(cursorStack(), Shapes());
        horizontal->startManipulation(QPointF(290, 50));
        QVERIFY(horizontal->isManipulating());

        // The group reports its horizontal line's settings and sets both lines'.
        QVERIFY(!group->isTranslationEnabled());
        QVERIFY(!vertical->isTranslationEnabled());
        QVERIFY(!center->flags().testFlag(QGraphicsItem::ItemIsMovable));
        vertical->enableTranslation(true);
        QVERIFY(!group->isTranslationEnabled());
        horizontal->enableTranslation(true);
        vertical->enableTranslation(false);
        QVERIFY(group->isTranslationEnabled());

        group->enableRotation(false);
        horizontal->enableRotation(true);
        QVERIFY(group->isRotationEnabled());
        QVERIFY(!vertical->isRotationEnabled());

        checkHandleNeedsBothLines(group, &Group::showHorizontalLine, &Group::showVerticalLine,
            horizontal, vertical, center);
    }

private:
    // Appends "name arguments" to m_log each time the signal is emitted.
    template <typename Sender, typename... Args>
    void record(Sender* sender, void (Sender::*signal)(Args...), const QString& name)
    {
        connect(sender, signal, this, [this, name](Args... args) {
            m_log << (QStringList {name} << QStringList {describe(args)...}).join(' ');
        });
    }
    // Presses at the first point, moves through the others and releases at the last.
    void drag(const QList<QPointF>& path)
    {
        QWidget* viewport = m_view->viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, m_view->mapFromScene(path.first()));
        for (const QPointF& p : path.mid(1))
            QTest::mouseMove(viewport, m_view->mapFromScene(p));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, m_view->mapFromScene(path.last()));
    }
    QGraphicsItem* itemAt(const QPointF& p) const { return m_scene->itemAt(p, QTransform()); }
    void send(QGraphicsItem* item, QEvent::Type type, const QPointF& scenePos)
    {
        if (type == QEvent::GraphicsSceneMouseMove) {
            QGraphicsSceneMouseEvent event(type);
            event.setScenePos(scenePos);
            event.setButtons(Qt::LeftButton);
            m_scene->sendEvent(item, &event);
        } else {
            QGraphicsSceneHoverEvent event(type);
            event.setScenePos(scenePos);
            m_scene->sendEvent(item, &event);
        }
    }
    // A cross spanning the test bounds, without half offsets, its lines through the origin.
    CrossDragger* addCross()
    {
        auto* cross = new CrossDragger();
        m_scene->addItem(cross);
        cross->setBoundingRect(testBounds);
        cross->setRect(testBounds);
        cross->setHorizontalHalfOffset(false);
        cross->setVerticalHalfOffset(false);
        return cross;
    }
    LineItem* addLine(qreal rotationX, const QRectF& rect = viewport)
    {
        auto* item = new LineItem();
        m_scene->addItem(item);
        item->setViewportRectangle(rect);
        item->setLine(QPointF(rotationX, 50), QVector2D(1, 0));
        return item;
    }
    // A group whose lines cross at (150, 50) in the viewport.
    Group* addGroup()
    {
        auto* group = new Group();
        m_scene->addItem(group);
        group->setViewportRectangle(viewport);
        group->setHorizontalLine(QPointF(150, 50), QVector2D(1, 0));
        group->setVerticalLine(QPointF(150, 50), QVector2D(0, 1));
        return group;
    }
    // Both crosses: red horizontal and green vertical line, at the crossing the handle on top,
    // then the horizontal line, then the vertical one; the pick lines are 2 wide.
    void checkCrossing(QGraphicsItem* center, QGraphicsLineItem* horizontal,
        QGraphicsLineItem* vertical, const QPointF& crossing)
    {
        QVERIFY(center);
        QCOMPARE(horizontal->pen().color(), QColor(Qt::red));
        QCOMPARE(vertical->pen().color(), QColor(Qt::green));
        QCOMPARE(itemAt(crossing), center);
        center->hide();
        QCOMPARE(itemAt(crossing), horizontal);
        QCOMPARE(itemAt(crossing + QPointF(0.9, -30)), vertical);
        QCOMPARE(itemAt(crossing + QPointF(1.1, -30)), nullptr);
        center->show();
    }
    // Both crosses show their handle only while both lines show.
    template <typename Cross>
    void checkHandleNeedsBothLines(Cross* cross, void (Cross::*showHorizontal)(bool),
        void (Cross::*showVertical)(bool), QGraphicsItem* horizontal, QGraphicsItem* vertical,
        QGraphicsItem* center)
    {
        (cross->*showVertical)(false);
        QVERIFY(!vertical->isVisible() && !center->isVisible());
        (cross->*showHorizontal)(true);
        QVERIFY(!center->isVisible());
        (cross->*showVertical)(true);
        QVERIFY(center->isVisible());
        (cross->*showHorizontal)(false);
        QVERIFY(!horizontal->isVisible() && !center->isVisible());
        (cross->*showHorizontal)(true);
        QVERIFY(horizontal->isVisible() && vertical->isVisible() && center->isVisible());
    }

    std::unique_ptr<QGraphicsScene> m_scene;
    std::unique_ptr<QGraphicsView> m_view;
    QStringList m_log;
};

QTEST_MAIN(tst_Manipulators)
#include "tst_manipulators.moc"
