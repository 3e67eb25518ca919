#include <guicore/graphics/manipulators/CenterDragger.h>
#include <guicore/graphics/manipulators/CrossDragger.h>
#include <guicore/graphics/manipulators/CrossedLinesManipulationGraphicsItemGroup.h>
#include <guicore/graphics/manipulators/InvisibleLineDragger.h>
#include <guicore/graphics/manipulators/LineDragger.h>
#include <guicore/graphics/manipulators/LineManipulationGraphicsItem.h>

#include <QGraphicsSceneEvent>
#include <QGraphicsView>
#include <QPixmapCache>
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
    for (; QGuiApplication::overrideCursor(); QGuiApplication::restoreOverrideCursor())
        stack.prepend(*QGuiApplication::overrideCursor());
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
    for (QGraphicsItem* item : parent->childItems()) {
        auto* typed = dynamic_cast<T*>(item);
        if (typed && (name.isEmpty() || typed->objectName() == name))
            return typed;
    }
    return nullptr;
}

// A group's handle and lines; by their stacking the horizontal line lies above the vertical one.
std::tuple<CenterDragger*, LineItem*, LineItem*> partsOf(Group* group)
{
    std::tuple<CenterDragger*, LineItem*, LineItem*> parts {child<CenterDragger>(group), {}, {}};
    for (QGraphicsItem* item : group->childItems()) {
        if (auto* line = dynamic_cast<LineItem*>(item))
            (line->zValue() == 0.2 ? std::get<1>(parts) : std::get<2>(parts)) = line;
    }
    return parts;
}
std::tuple<CenterDragger*, LineDragger*, LineDragger*> partsOf(CrossDragger* cross)
{
    return {
        child<CenterDragger>(cross), cross->getHorizontalDragger(), cross->getVerticalDragger()};
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
        while (QGuiApplication::overrideCursor())
            QGuiApplication::restoreOverrideCursor();
    }

    void lineConstraint()
    {
        const Qt::Orientation v = Qt::Vertical, h = Qt::Horizontal;
        const QRectF none, b = testBounds;
        const std::tuple<Qt::Orientation, QRectF, float, bool, QPointF, QPointF> cases[] = {
            // The default rectangle ends at 0 on the right and at the bottom.
            {v, none, 0, true, {50, 30}, {0, 0}}, {h, none, 0, true, {30, 50}, {0, 0}},
            {v, none, 0, true, {-250.5, 7}, {-250.5, 0}},
            // Vertical lines floor to the tick, horizontal ones truncate; a half offset snaps to
            // the middle of the tick.
            {v, b, 10, false, {27, 0}, {20, 0}}, {v, b, 10, false, {-27, 0}, {-30, 0}},
            {h, b, 10, false, {0, -27}, {0, -20}}, {h, b, 10, false, {0, 27}, {0, 20}},
            {v, b, 10, true, {27, 0}, {25, 0}}, {h, b, 10, true, {0, 27}, {0, 25}},
            // Clamping to the left and top edges.
            {v, b, 0, false, {-150, 0}, {-100, 0}}, {h, b, 0, false, {0, -150}, {0, -100}},
            // Without half offset the vertical line reaches the right edge, while the horizontal
            // line always stays a whole tick above the bottom edge.
            {v, b, 10, false, {150, 0}, {100, 0}}, {h, b, 10, false, {0, 150}, {0, 90}},
            // With half offset the rectangle grows by half a tick: right edge 110, less a tick,
            // then snapped to the middle of the tick.
            {v, b, 10, true, {150, 0}, {105, 0}}, {v, b, 10, true, {-150, 0}, {-95, 0}},
            // Snapping in single precision: 0.1 is not exact, the product is rounded as a float.
            {v, b, 0.1f, false, {0.35, 0}, {3 * 0.1f, 0}}};
        for (const auto& [orientation, bounds, tick, halfOffset, proposed, expected] : cases) {
            m_log.clear();
            auto* dragger = add(new LineDragger(orientation));
            if (!bounds.isNull())
                dragger->setBoundingRect(bounds);
            dragger->setTick(tick);
            dragger->setHalfOffset(halfOffset);
            record(dragger, &LineDragger::moved, "moved");
            dragger->move(proposed);
            QCOMPARE(dragger->pos(), expected);
            QCOMPARE(m_log,
                expected.isNull() ? QStringList() : QStringList {"moved " + describe(expected)});
        }
    }
    void lineDragger()
    {
        auto* dragger = add(new LineDragger(Qt::Vertical));
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

        // Hover cursors are paired, and only while the line can move.
        LineDragger horizontal(Qt::Horizontal), vertical(Qt::Vertical);

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
        auto* center = add(new CenterDragger());
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
        record(center, &CenterDragger::hoveringStarted, "started", &CenterDragger::hoveringStopped,
            "stopped");

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
    void crossDragger()
    {
        // A cross spanning the test bounds, without half offsets, its lines through the origin.
        auto* cross = add(new CrossDragger());
        cross->setBoundingRect(testBounds);
        cross->setRect(testBounds);
        cross->setHorizontalHalfOffset(false);
        cross->setVerticalHalfOffset(false);
        const auto [center, horizontal, vertical] = partsOf(cross);
        record(cross, &CrossDragger::horizontalMoved, "horizontal", &CrossDragger::verticalMoved,
            "vertical");
        checkCrossing(center, horizontal, vertical, QPointF(0, 0));

        // Moves by the owner are silent; the handle follows.
        cross->setHorizontalTick(10);
        cross->moveHorizontal(QPointF(50, -27));
        cross->moveVertical(QPointF(33, 50));
        QCOMPARE(QList<QPointF>({horizontal->pos(), vertical->pos(), center->pos()}),
            QList<QPointF>({{0, -20}, {33, 0}, {33, -20}}));
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
        // Movable reports the horizontal line.
        cross->setMovable(false);
        QVERIFY(!cross->getMovable() && !vertical->isMovable());
        horizontal->setMovable(true);
        QVERIFY(cross->getMovable());

        checkHandleNeedsBothLines(cross, &CrossDragger::setHorizontalDraggerVisible,
            &CrossDragger::setVerticalDraggerVisible, horizontal, vertical, center);
        cross->setVerticalDraggerVisible(false);
        cross->setDraggerVisible(true);
        QVERIFY(vertical->isVisible() && center->isVisible());

        // Disabling a side hides the handle but not the line, which then ignores visibility
        // requests; enabling it again shows nothing by itself.
        cross->enableHorizontalDragger(false);
        QVERIFY(!center->isVisible() && horizontal->isVisible());
        cross->setDraggerVisible(false);
        QVERIFY(horizontal->isVisible() && !vertical->isVisible());
        cross->enableHorizontalDragger(true);
        QVERIFY(!center->isVisible());
        cross->setVerticalDraggerVisible(true);
        cross->enableVerticalDragger(true);
        QVERIFY(center->isVisible());
        cross->enableVerticalDragger(false);
        QVERIFY(!cross->isVerticalDraggerEnabled() && !center->isVisible());
    }

    void clipsTheLineToTheViewport()
    {
        const QPointF inside(120, 50);
        const QRectF square(0, 0, 100, 100);
        const std::tuple<QRectF, QPointF, QVector2D, QLineF> cases[]
            = {{viewport, inside, {1, 0}, {0, 50, 300, 50}},
                {viewport, inside, {-7, 0}, {300, 50, 0, 50}},
                {square, {-50, -50}, {2, 2}, {0, 0, 100, 100}}, {viewport, {120, 500}, {1, 0}, {}},
                {viewport, inside, {0, 0}, {}}, {viewport, inside, {5e-6f, 0}, {}}};
        for (const auto& [rect, point, direction, expected] : cases) {
            LineItem* item = addLine(point, direction, rect);
            QCOMPARE(item->line(), expected);
            QCOMPARE(child<InvisibleLineDragger>(item)->line(), expected);
            QCOMPARE(item->getRotationPoint(), point);
            QVERIFY(!expected.isNull() || !item->contains(point));
            QCOMPARE(itemAt(expected.isNull() ? point : expected.center()),
                expected.isNull() ? nullptr : item);
            delete item;
        }

        // An unchanged line or viewport does not recompute the drawn line.
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
    void rotateOrTranslateZones()
    {
        const bool t = true, f = false;
        // rotation point x, press x, rotates, rotation enabled, translation enabled
        const std::tuple<qreal, qreal, bool, bool, bool> cases[]
            = {// Rotation point at the start: the far third rotates; before the viewport likewise.
                {0, 290, t, t, t}, {0, 201, t, t, t}, {0, 200, f, t, t}, {0, 10, f, t, t},
                {-100, 250, t, t, t}, {-100, 50, f, t, t},
                // Rotation point in the middle: the outer third of each side rotates.
                {150, 251, t, t, t}, {150, 250, f, t, t}, {150, 49, t, t, t}, {150, 50, f, t, t},
                {150, 150, f, t, t},
                // Rotation point at the end: the near third of the segment start rotates.
                {300, 99, t, t, t}, {300, 100, f, t, t}, {300, 290, f, t, t},
                // Without rotation everything translates; without translation everything rotates,
                // even the rotation point itself.
                {150, 295, f, f, t}, {150, 5, f, f, t}, {150, 150, t, t, f}, {150, 200, t, t, f}};
        for (const auto& [rotationX, pressX, rotate, rotation, translation] : cases) {
            LineItem* item = addLine(rotationX);
            item->enableRotation(rotation);
            item->enableTranslation(translation);
            QCOMPARE(item->shouldRotateAt(QPointF(pressX, 50)), rotate);
            // Only the projection onto the line counts.
            QCOMPARE(item->shouldRotateAt(QPointF(pressX, 80)), rotate);
            delete item;
        }
    }
    void manipulationModes()
    {
        LineItem* item = addLine(150);
        record(item, &LineItem::lineRotated, "rotated", &LineItem::lineTranslated, "translated");

        for (const auto& [p, parallel] : {std::pair {QPointF(290, 50), true}, {{290, 10}, true},
                 {{10, 50}, false}, {{150, -10}, false}, {{150, 110}, false}})
            QCOMPARE(item->isRotatingParallelLine(p), parallel);

        // On the direction side the angle is measured from the rotation point to the mouse; no
        // change, no signal.
        item->startManipulation(QPointF(290, 50));
        QVERIFY(item->isManipulating());
        send(item, {{290, 50}, {250, -50}, {10, 60}});
        item->stopManipulation();
        QVERIFY(!item->isManipulating());
        send(item, {{200, 0}});

        // On the opposite side it is measured from the mouse to the rotation point, so staying on
        // that side gives small angles and crossing over gives angles near 180.
        item->startManipulation(QPointF(10, 50));
        send(item, {{50, 150}, {290, 52}});
        item->stopManipulation();

        // Translation, and nothing while manipulation is disabled.
        item->startManipulation(QPointF(200, 50));
        QVERIFY(item->isManipulating());
        send(item, {{210, 80}});
        item->stopManipulation();

        item->disableManipulation();
        item->startManipulation(QPointF(200, 50));
        QVERIFY(!item->isManipulating());
        send(item, {{220, 90}});
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
    void cursors()
    {
        const Qt::CursorShape ver = Qt::SizeVerCursor, fdiag = Qt::SizeFDiagCursor;
        const Qt::CursorShape hor = Qt::SizeHorCursor, bdiag = Qt::SizeBDiagCursor;
        // Eighths of a turn, rounded: 22 down, 23 up, 350 to the full turn.
        const std::pair<qreal, Qt::CursorShape> cases[]
            = {{0, ver}, {45, fdiag}, {90, hor}, {135, bdiag}, {180, ver}, {225, fdiag}, {270, hor},
                {315, bdiag}, {22, ver}, {23, fdiag}, {350, ver}};
        for (const auto& [angle, shape] : cases) {
            LineItem* item = addLine(
                {0, 0}, QVector2D(QLineF::fromPolar(10, angle).p2()), QRectF(-100, -100, 200, 200));
            QCOMPARE(item->getTranslationCursor().shape(), shape);
            QCOMPARE(item->getCursor(false).shape(), shape);
        }

        // Override cursors are paired.
        LineItem* item = addLine(150);
        const Shapes rotate {Qt::BitmapCursor};
        const std::tuple<QEvent::Type, QPointF, Shapes> steps[] {
            {QEvent::GraphicsSceneHoverEnter, {290, 50}, rotate},
            {QEvent::GraphicsSceneHoverMove, {200, 50}, {Qt::SizeVerCursor}},
            {QEvent::MouseButtonPress, {290, 50}, rotate},
            {QEvent::GraphicsSceneMouseMove, {280, 20}, rotate},
            {QEvent::MouseButtonRelease, {}, rotate},
            {QEvent::GraphicsSceneHoverMove, {200, 50}, {Qt::SizeVerCursor}},
            {QEvent::GraphicsSceneHoverMove, {10, 50}, rotate},
            {QEvent::GraphicsSceneHoverLeave, {10, 90}, {}}};
        for (const auto& [type, pos, cursors] : steps) {
            if (type == QEvent::MouseButtonPress)
                item->startManipulation(pos);
            else if (type == QEvent::MouseButtonRelease)
                item->stopManipulation();
            else
                send(item, {pos}, type);
            QCOMPARE(cursorStack(), cursors);
        }

        // The rotate cursor's pixmap is loaded once for all lines; a hot spot of (-1, -1) puts it
        // in the middle of the pixmap.
        const QCursor a = item->getCursor(true);
        QVERIFY(!a.pixmap().isNull());
        QPixmapCache::clear();
        QCOMPARE(a.pixmap().cacheKey(), LineItem().getCursor(true).pixmap().cacheKey());
        QCOMPARE(a.hotSpot(), QPoint(a.pixmap().width() / 2, a.pixmap().height() / 2));
    }
    void crossedLinesGroup()
    {
        auto* group = add(new Group());
        const auto [center, horizontal, vertical] = partsOf(group);
        record(group, &Group::horizontalLineTranslated, "horizontal",
            &Group::verticalLineTranslated, "vertical");
        record(center, &CenterDragger::dragged, "dragged");
        // The drawn lines are clipped in single precision.
        const auto centerNear = [center = center](const QPointF& p) {
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
        checkCrossing(center, horizontal, vertical, QPointF(150, 50));

        group->setHorizontalColor(Qt::blue);
        QCOMPARE(horizontal->pen().color(), QColor(Qt::blue));
        QVERIFY(horizontal->pen().isCosmetic());

        disconnect(center, nullptr, this, nullptr);
        record(group, &Group::horizontalLineRotated, "horizontal rotated",
            &Group::verticalLineRotated, "vertical rotated");

        // Dragging the handle: once for the move and once more for the release.
        drag({QPointF(150, 50), QPointF(170, 40)});
        const QStringList pair = {"vertical 170,40", "horizontal 170,40"};
        QCOMPARE(m_log, pair + pair);

        // Each line's own manipulation is forwarded as that line's.
        m_log.clear();
        horizontal->startManipulation(QPointF(290, 50));
        send(horizontal, {{250, -50}});
        horizontal->stopManipulation();
        vertical->startManipulation(QPointF(150, 40));
        send(vertical, {{170, 30}});
        QCOMPARE(m_log, QStringList({"horizontal rotated 45.0", "vertical 170,30"}));
        vertical->stopManipulation();

        // While the handle is hovered the lines cannot be grabbed.
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
        QVERIFY(!group->isTranslationEnabled() && !vertical->isTranslationEnabled());
        QVERIFY(!center->flags().testFlag(QGraphicsItem::ItemIsMovable));
        horizontal->enableTranslation(true);
        QVERIFY(group->isTranslationEnabled());
        group->enableRotation(false);
        horizontal->enableRotation(true);
        QVERIFY(group->isRotationEnabled() && !vertical->isRotationEnabled());

        checkHandleNeedsBothLines(group, &Group::showHorizontalLine, &Group::showVerticalLine,
            horizontal, vertical, center);

        // Extra lines join the group with the same pick width but no connection to its signals.
        LineItem* extra = group->addLineManipulator(Qt::yellow);
        QCOMPARE(extra->parentItem(), group);
        QCOMPARE(extra->pen().color(), QColor(Qt::yellow));
        QCOMPARE(child<InvisibleLineDragger>(extra)->pen().width(), 2);
        m_log.clear();
        record(extra, &LineItem::lineRotated, "extra");
        extra->setViewportRectangle(viewport);
        extra->setLine(QPointF(150, 50), QVector2D(1, 0));
        extra->emitLineRotated(QLineF(0, 0, 10, 0));
        extra->emitLineRotated(QLineF(0, 0, 0, 10));
        QCOMPARE(m_log, QStringList({"extra 270.0"}));
    }

private:
    static QString describe(QPointF p) { return QString("%1,%2").arg(p.x()).arg(p.y()); }
    static QString describe(float angle) { return QString::number(angle, 'f', 1); }
    // Appends "name arguments" to m_log each time the signal is emitted.
    template <typename Sender, typename... Args, typename... More>
    void record(Sender* sender, void (Sender::*signal)(Args...), const QString& name, More... more)
    {
        connect(sender, signal, this, [this, name](Args... args) {
            m_log << (QStringList {name} << QStringList {describe(args)...}).join(' ');
        });
        if constexpr (sizeof...(More) > 0)
            record(sender, more...);
    }
    // Presses at the first point, moves through the others and releases at the last.
    void drag(const QList<QPointF>& path)
    {
        QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, m_view->mapFromScene(path[0]));
        for (const QPointF& p : path.mid(1))
            QTest::mouseMove(m_view->viewport(), m_view->mapFromScene(p));
        QTest::mouseRelease(
            m_view->viewport(), Qt::LeftButton, {}, m_view->mapFromScene(path.last()));
    }
    QGraphicsItem* itemAt(const QPointF& p) const { return m_scene->itemAt(p, QTransform()); }
    // Sends the item a hover event, or mouse moves with the left button held through the points.
    void send(QGraphicsItem* item, const QList<QPointF>& points,
        QEvent::Type type = QEvent::GraphicsSceneMouseMove)
    {
        for (const QPointF& p : points) {
            QGraphicsSceneMouseEvent move(type);
            QGraphicsSceneHoverEvent hover(type);
            move.setScenePos(p);
            move.setButtons(Qt::LeftButton);
            hover.setScenePos(p);
            m_scene->sendEvent(item,
                type == QEvent::GraphicsSceneMouseMove ? static_cast<QEvent*>(&move) : &hover);
        }
    }
    template <typename T> T* add(T* item)
    {
        m_scene->addItem(item);
        return item;
    }
    LineItem* addLine(const QPointF& point, const QVector2D& direction, const QRectF& rect)
    {
        auto* item = add(new LineItem());
        item->setViewportRectangle(rect);
        item->setLine(point, direction);
        return item;
    }
    LineItem* addLine(qreal rotationX) { return addLine({rotationX, 50}, {1, 0}, viewport); }
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
    // Both crosses show their handle only while both lines show (after each step, the visibility
    // of horizontal line, vertical line and handle as the digits of a number).
    template <typename Cross>
    void checkHandleNeedsBothLines(Cross* cross, void (Cross::*showHorizontal)(bool),
        void (Cross::*showVertical)(bool), QGraphicsItem* horizontal, QGraphicsItem* vertical,
        QGraphicsItem* center)
    {
        QList<int> shown;
        for (const auto& [show, visible] : {std::pair {showVertical, false}, {showHorizontal, true},
                 {showVertical, true}, {showHorizontal, false}, {showHorizontal, true}}) {
            (cross->*show)(visible);
            shown << 100 * horizontal->isVisible() + 10 * vertical->isVisible()
                    + center->isVisible();
        }
        QCOMPARE(shown, QList<int>({100, 100, 111, 10, 111}));
    }

    std::unique_ptr<QGraphicsScene> m_scene;
    std::unique_ptr<QGraphicsView> m_view;
    QStringList m_log;
};

QTEST_MAIN(tst_Manipulators)
#include "tst_manipulators.moc"
