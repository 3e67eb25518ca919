#include "ManipulatorTestSupport.h"

#include <guicore/graphics/manipulators/CenterDragger.h>
#include <guicore/graphics/manipulators/CrossDragger.h>
#include <guicore/graphics/manipulators/InvisibleLineDragger.h>
#include <guicore/graphics/manipulators/LineDragger.h>

#include <QGraphicsScene>
#include <QPen>
#include <QRegularExpression>
#include <QSignalSpy>

namespace {

const QRectF testBounds(-100, -100, 200, 200);

} // namespace

class tst_Draggers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void lineConstraint_data();
    void lineConstraint();
    void pickLineFollowsTheLine();
    void setRectStretchesAlongTheLine();
    void lineFollowsTheMouseOnlyWhileDragging();
    void hoverCursorsArePairedAndOnlyWhenMovable();

    void centerClampsIntoItsRectangle();
    void centerHoverAndRelease();

    void crossConstruction();
    void moveHorizontalIsSilent();
    void draggingTheCenterEmitsVerticalThenHorizontal();
    void draggingALineMovesTheCenter();
    void crossMovableAndVisibility();

private:
    CrossDragger* addCross();
    QPoint toViewport(const QPointF& scenePos) const { return m_view->mapFromScene(scenePos); }

    std::unique_ptr<QGraphicsScene> m_scene;
    std::unique_ptr<QGraphicsView> m_view;
};

void tst_Draggers::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_scene = std::make_unique<QGraphicsScene>(-150, -150, 300, 300);
    m_view = showWholeScene(m_scene.get());
    QVERIFY(m_view);
}

// A cross spanning the test bounds, without half offsets, its lines through the origin.
CrossDragger* tst_Draggers::addCross()
{
    auto* cross = new CrossDragger();
    m_scene->addItem(cross);
    cross->setBoundingRect(testBounds);
    cross->setRect(testBounds);
    cross->setHorizontalHalfOffset(false);
    cross->setVerticalHalfOffset(false);
    return cross;
}

void tst_Draggers::cleanup()
{
    m_view.reset();
    m_scene.reset();
    clearOverrideCursors();
}

void tst_Draggers::lineConstraint_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<bool>("useTestBounds");
    QTest::addColumn<float>("tick");
    QTest::addColumn<bool>("halfOffset");
    QTest::addColumn<QPointF>("proposed");
    QTest::addColumn<QPointF>("expected");

    const auto row = [](const char* name, Qt::Orientation orientation, bool useTestBounds,
                         float tick, bool halfOffset, QPointF proposed, QPointF expected) {
        QTest::newRow(name) << orientation << useTestBounds << tick << halfOffset << proposed
                            << expected;
    };
    // The default rectangle ends at 0 on the right and at the bottom.
    row("default vertical 50 -> 0", Qt::Vertical, false, 0.0f, true, {50, 30}, {0, 0});
    row("default horizontal 50 -> 0", Qt::Horizontal, false, 0.0f, true, {30, 50}, {0, 0});
    row("default vertical inside", Qt::Vertical, false, 0.0f, true, {-250.5, 7}, {-250.5, 0});

    row("vertical floors 27 -> 20", Qt::Vertical, true, 10.0f, false, {27, 0}, {20, 0});
    row("vertical floors -27 -> -30", Qt::Vertical, true, 10.0f, false, {-27, 0}, {-30, 0});
    row("horizontal truncates -27 -> -20", Qt::Horizontal, true, 10.0f, false, {0, -27}, {0, -20});
    row("horizontal truncates 27 -> 20", Qt::Horizontal, true, 10.0f, false, {0, 27}, {0, 20});
    row("vertical half offset 27 -> 25", Qt::Vertical, true, 10.0f, true, {27, 0}, {25, 0});
    row("horizontal half offset 27 -> 25", Qt::Horizontal, true, 10.0f, true, {0, 27}, {0, 25});

    // Clamping to the left and top edges.
    row("vertical left edge", Qt::Vertical, true, 0.0f, false, {-150, 0}, {-100, 0});
    row("horizontal top edge", Qt::Horizontal, true, 0.0f, false, {0, -150}, {0, -100});
    // Without half offset the vertical line reaches the right edge, while the horizontal line
    // always stays a whole tick above the bottom edge.
    row("vertical right edge", Qt::Vertical, true, 10.0f, false, {150, 0}, {100, 0});
    row("horizontal bottom edge less a tick", Qt::Horizontal, true, 10.0f, false, {0, 150},
        {0, 90});
    // With half offset the rectangle grows by half a tick: right edge 110, less a tick, then
    // snapped to the middle of the tick.
    row("vertical right edge half offset", Qt::Vertical, true, 10.0f, true, {150, 0}, {105, 0});
    row("vertical left edge half offset", Qt::Vertical, true, 10.0f, true, {-150, 0}, {-95, 0});

    // Snapping in single precision: 0.1 is not exact, the product is rounded as a float.
    row("single precision snap", Qt::Vertical, true, 0.1f, false, {0.35, 0}, {3 * 0.1f, 0});
}

void tst_Draggers::lineConstraint()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, useTestBounds);
    QFETCH(float, tick);
    QFETCH(bool, halfOffset);
    QFETCH(QPointF, proposed);
    QFETCH(QPointF, expected);

    auto* dragger = new LineDragger(orientation);
    m_scene->addItem(dragger);
    if (useTestBounds)
        dragger->setBoundingRect(testBounds);
    dragger->setTick(tick);
    dragger->setHalfOffset(halfOffset);

    QSignalSpy moved(dragger, &LineDragger::moved);
    dragger->move(proposed);

    QCOMPARE(dragger->pos(), expected);
    QCOMPARE(moved.count(), expected.isNull() ? 0 : 1);
    if (!moved.isEmpty())
        QCOMPARE(moved.first().first().toPointF(), expected);
}

void tst_Draggers::pickLineFollowsTheLine()
{
    auto* dragger = new LineDragger(Qt::Vertical);
    m_scene->addItem(dragger);
    auto* pickLine = childNamed<InvisibleLineDragger>(dragger, "invisibleLineDragger");
    QVERIFY(pickLine);
    QCOMPARE(pickLine->opacity(), 0.5);
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
    QCOMPARE(dragger->boundingRect(), pickLine->boundingRect());
    QVERIFY(dragger->contains(QPointF(4, 0)));
    QVERIFY(dragger->underMousePos(QPointF(-4, 50)));
    QVERIFY(!dragger->contains(QPointF(8, 0)));
    QCOMPARE(m_scene->itemAt(QPointF(-36, 20), QTransform()), dragger);
}

void tst_Draggers::setRectStretchesAlongTheLine()
{
    LineDragger horizontal(Qt::Horizontal);
    horizontal.setLine(5, 7, 9, 8);
    horizontal.setRect(QRectF(-20, -30, 60, 70));
    QCOMPARE(horizontal.line(), QLineF(-20, 7, 40, 8));

    LineDragger vertical(Qt::Vertical);
    vertical.setLine(5, 7, 9, 8);
    vertical.setRect(QRectF(-20, -30, 60, 70));
    QCOMPARE(vertical.line(), QLineF(5, -30, 9, 40));
}

void tst_Draggers::lineFollowsTheMouseOnlyWhileDragging()
{
    auto* dragger = new LineDragger(Qt::Vertical);
    m_scene->addItem(dragger);
    dragger->setBoundingRect(testBounds);
    dragger->setRect(testBounds);
    dragger->setTick(10);
    dragger->setHalfOffset(false);
    dragger->setPickWidth(6);
    QSignalSpy moved(dragger, &LineDragger::moved);

    // Not dragging: the press grabs the line but moves leave it where it is.
    QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, toViewport(QPointF(0, 10)));
    QTest::mouseMove(m_view->viewport(), toViewport(QPointF(33, 10)));
    QCOMPARE(dragger->pos(), QPointF(0, 0));

    // The owner reports the drag: the line follows, constrained and snapped.
    dragger->setDragging(true);
    QVERIFY(dragger->isLeftDragging());
    QTest::mouseMove(m_view->viewport(), toViewport(QPointF(27, 40)));
    QCOMPARE(dragger->pos(), QPointF(20, 0));
    QTest::mouseMove(m_view->viewport(), toViewport(QPointF(-27, -40)));
    QCOMPARE(dragger->pos(), QPointF(-30, 0));
    QCOMPARE(moved.count(), 2);

    // The owner moves the line itself.
    dragger->setIsMoveHandledByCaller(true);
    QVERIFY(dragger->getIsMoveHandledByCaller());
    QTest::mouseMove(m_view->viewport(), toViewport(QPointF(57, 40)));
    QCOMPARE(dragger->pos(), QPointF(-30, 0));
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, toViewport(QPointF(57, 40)));

    dragger->setMovable(false);
    QVERIFY(!dragger->isMovable());
    QVERIFY(!dragger->isLeftDragging());
}

void tst_Draggers::hoverCursorsArePairedAndOnlyWhenMovable()
{
    LineDragger horizontal(Qt::Horizontal);
    LineDragger vertical(Qt::Vertical);

    horizontal.startHovering();
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeVerCursor);
    vertical.startHovering();
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeHorCursor);
    QCOMPARE(overrideCursorDepth(), 2);
    vertical.stopHovering();
    horizontal.stopHovering();
    QCOMPARE(overrideCursorDepth(), 0);

    // A line that cannot move neither pushes nor pops.
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    horizontal.setMovable(false);
    horizontal.startHovering();
    QCOMPARE(overrideCursorDepth(), 1);
    horizontal.stopHovering();
    QCOMPARE(overrideCursorDepth(), 1);
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

void tst_Draggers::centerClampsIntoItsRectangle()
{
    auto* center = new CenterDragger();
    m_scene->addItem(center);
    QSignalSpy dragged(center, &CenterDragger::dragged);

    // Free until a rectangle is set.
    center->setPos(500, -700);
    QCOMPARE(center->pos(), QPointF(500, -700));
    QCOMPARE(dragged.count(), 1);

    center->setBoundingRect(testBounds);
    center->setPos(500, -650);
    QCOMPARE(center->pos(), QPointF(100, -100));
    center->setPos(-101, 101);
    QCOMPARE(center->pos(), QPointF(-100, 100));
    center->setPos(12.5, -3);
    QCOMPARE(center->pos(), QPointF(12.5, -3));
    QCOMPARE(dragged.count(), 4);
    QCOMPARE(dragged.last().first().toPointF(), QPointF(12.5, -3));
}

void tst_Draggers::centerHoverAndRelease()
{
    auto* center = new CenterDragger();
    center->setRect(-3, -3, 6, 6);
    m_scene->addItem(center);
    QStringList events;
    connect(center, &CenterDragger::hoveringStarted, this, [&] { events << "started"; });
    connect(center, &CenterDragger::hoveringStopped, this, [&] { events << "stopped"; });
    connect(center, &CenterDragger::dragged, this,
        [&](QPointF p) { events << QString("dragged %1,%2").arg(p.x()).arg(p.y()); });

    center->startHovering();
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::SizeAllCursor);
    center->stopHovering();
    QCOMPARE(overrideCursorDepth(), 0);
    center->setMovable(false);
    center->startHovering();
    QCOMPARE(overrideCursorDepth(), 0);
    center->stopHovering();
    center->setMovable(true);

    // A press and release without a move still reports the position once.
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, toViewport(QPointF(0, 0)));
    QCOMPARE(events, QStringList({"started", "stopped", "dragged 0,0"}));
}

void tst_Draggers::crossConstruction()
{
    CrossDragger* cross = addCross();
    auto* center = childNamed<CenterDragger>(cross, "centerDragger");
    QVERIFY(center);
    QCOMPARE(cross->getHorizontalDragger()->pen().color(), QColor(Qt::red));
    QCOMPARE(cross->getVerticalDragger()->pen().color(), QColor(Qt::green));

    // At the crossing the handle is on top, then the horizontal line, then the vertical one.
    QCOMPARE(m_scene->itemAt(QPointF(0, 0), QTransform()), center);
    center->hide();
    QCOMPARE(m_scene->itemAt(QPointF(0, 0), QTransform()), cross->getHorizontalDragger());
    // The pick lines are 2 wide.
    QCOMPARE(m_scene->itemAt(QPointF(0.9, 50), QTransform()), cross->getVerticalDragger());
    QCOMPARE(m_scene->itemAt(QPointF(1.1, 50), QTransform()), nullptr);
}

void tst_Draggers::moveHorizontalIsSilent()
{
    CrossDragger* cross = addCross();
    cross->setHorizontalTick(10);
    auto* center = childNamed<CenterDragger>(cross, "centerDragger");
    QSignalSpy horizontalMoved(cross, &CrossDragger::horizontalMoved);
    QSignalSpy verticalMoved(cross, &CrossDragger::verticalMoved);

    cross->moveHorizontal(QPointF(50, -27));
    cross->moveVertical(QPointF(33, 50));
    QCOMPARE(cross->getHorizontalDragger()->pos(), QPointF(0, -20));
    QCOMPARE(cross->getVerticalDragger()->pos(), QPointF(33, 0));
    QCOMPARE(center->pos(), QPointF(33, -20));
    QCOMPARE(horizontalMoved.count(), 0);
    QCOMPARE(verticalMoved.count(), 0);
}

void tst_Draggers::draggingTheCenterEmitsVerticalThenHorizontal()
{
    CrossDragger* cross = addCross();
    cross->moveHorizontal(QPointF(0, -10));
    cross->moveVertical(QPointF(-10, 0));
    auto* center = childNamed<CenterDragger>(cross, "centerDragger");
    QCOMPARE(center->pos(), QPointF(-10, -10));

    QStringList events;
    connect(cross, &CrossDragger::horizontalMoved, this,
        [&](QPointF p) { events << QString("horizontal %1,%2").arg(p.x()).arg(p.y()); });
    connect(cross, &CrossDragger::verticalMoved, this,
        [&](QPointF p) { events << QString("vertical %1,%2").arg(p.x()).arg(p.y()); });

    QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, toViewport(center->scenePos()));
    QTest::mouseMove(m_view->viewport(), toViewport(QPointF(20, 30)));
    // Only the horizontal line moves here: the vertical one stays where it is.
    QTest::mouseMove(m_view->viewport(), toViewport(QPointF(20, 45)));
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, toViewport(QPointF(20, 45)));

    QCOMPARE(events, QStringList({"vertical 20,0", "horizontal 0,30", "horizontal 0,45"}));
    QCOMPARE(cross->getVerticalDragger()->pos(), QPointF(20, 0));
    QCOMPARE(cross->getHorizontalDragger()->pos(), QPointF(0, 45));
}

void tst_Draggers::draggingALineMovesTheCenter()
{
    CrossDragger* cross = addCross();
    cross->setVerticalTick(10);
    auto* center = childNamed<CenterDragger>(cross, "centerDragger");
    cross->moveHorizontal(QPointF(0, -50));
    QSignalSpy verticalMoved(cross, &CrossDragger::verticalMoved);
    QSignalSpy horizontalMoved(cross, &CrossDragger::horizontalMoved);

    LineDragger* vertical = cross->getVerticalDragger();
    QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, toViewport(QPointF(0, 40)));
    vertical->setDragging(true);
    QTest::mouseMove(m_view->viewport(), toViewport(QPointF(27, 40)));
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, toViewport(QPointF(27, 40)));

    QCOMPARE(vertical->pos(), QPointF(20, 0));
    QCOMPARE(center->pos(), QPointF(20, -50));
    QCOMPARE(verticalMoved.count(), 1);
    QCOMPARE(verticalMoved.first().first().toPointF(), QPointF(20, 0));
    QCOMPARE(horizontalMoved.count(), 0);
}

void tst_Draggers::crossMovableAndVisibility()
{
    CrossDragger cross;
    // Movable reports the horizontal line.
    cross.setMovable(false);
    QVERIFY(!cross.getMovable());
    QVERIFY(!cross.getVerticalDragger()->isMovable());
    cross.getVerticalDragger()->setMovable(true);
    QVERIFY(!cross.getMovable());
    cross.getHorizontalDragger()->setMovable(true);
    cross.getVerticalDragger()->setMovable(false);
    QVERIFY(cross.getMovable());

    auto* center = childNamed<CenterDragger>(&cross, "centerDragger");
    LineDragger* horizontal = cross.getHorizontalDragger();
    LineDragger* vertical = cross.getVerticalDragger();

    // The handle shows only while both lines do.
    cross.setHorizontalDraggerVisible(false);
    QVERIFY(!horizontal->isVisible() && !center->isVisible());
    cross.setHorizontalDraggerVisible(true);
    QVERIFY(center->isVisible());
    cross.setVerticalDraggerVisible(false);
    QVERIFY(!vertical->isVisible() && !center->isVisible());
    cross.setDraggerVisible(true);
    QVERIFY(horizontal->isVisible() && vertical->isVisible() && center->isVisible());

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

QTEST_MAIN(tst_Draggers)
#include "tst_draggers.moc"
