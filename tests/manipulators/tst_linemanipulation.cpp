#include "ManipulatorTestSupport.h"

#include <guicore/graphics/manipulators/CenterDragger.h>
#include <guicore/graphics/manipulators/CrossedLinesManipulationGraphicsItemGroup.h>
#include <guicore/graphics/manipulators/InvisibleLineDragger.h>
#include <guicore/graphics/manipulators/LineManipulationGraphicsItem.h>

#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPen>
#include <QPixmapCache>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QVector2D>

namespace {

Qt::CursorShape overrideShape()
{
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor ? cursor->shape() : Qt::ArrowCursor;
}

InvisibleLineDragger* pickLineOf(QGraphicsItem* item)
{
    return childrenOfType<InvisibleLineDragger>(item).value(0);
}

// The group's lines by their stacking: the horizontal line lies above the vertical one.
LineManipulationGraphicsItem* horizontalOf(QGraphicsItem* group)
{
    for (auto* line : childrenOfType<LineManipulationGraphicsItem>(group)) {
        if (line->zValue() == 0.2)
            return line;
    }
    return nullptr;
}

LineManipulationGraphicsItem* verticalOf(QGraphicsItem* group)
{
    for (auto* line : childrenOfType<LineManipulationGraphicsItem>(group)) {
        if (line->zValue() == 0.1)
            return line;
    }
    return nullptr;
}

// The drawn lines are clipped in single precision.
bool near(const QPointF& a, const QPointF& b)
{
    return qAbs(a.x() - b.x()) < 1e-3 && qAbs(a.y() - b.y()) < 1e-3;
}

// A 300 x 100 viewport with a horizontal line through y 50, rotation point at x.
const QRectF viewport(0, 0, 300, 100);

} // namespace

class tst_LineManipulation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void clipsTheLineToTheViewport_data();
    void clipsTheLineToTheViewport();
    void unchangedLineOrViewportDoesNotRecompute();
    void rotateOrTranslateZones_data();
    void rotateOrTranslateZones();
    void rotationModes();
    void translationAndDisabledManipulation();
    void translationCursorFollowsTheAngle_data();
    void translationCursorFollowsTheAngle();
    void rotateCursorIsLoadedOnce();
    void overrideCursorsArePaired();

    void groupConstruction();
    void groupCenterFollowsTheLinesSilently();
    void draggingTheGroupCenterTranslatesVerticalThenHorizontal();
    void hoveringTheCenterDisablesTheLines();
    void groupForwardsRotations();
    void groupSettingsReportTheHorizontalLine();
    void groupVisibility();
    void addLineManipulatorIsNotConnected();

private:
    CrossedLinesManipulationGraphicsItemGroup* addGroup();
    LineManipulationGraphicsItem* addLine(qreal rotationX, const QVector2D& direction = {1, 0});
    void sendHover(QGraphicsItem* item, QEvent::Type type, const QPointF& scenePos);
    void sendMove(QGraphicsItem* item, const QPointF& scenePos);
    QPoint toViewport(const QPointF& scenePos) const { return m_view->mapFromScene(scenePos); }

    std::unique_ptr<QGraphicsScene> m_scene;
    std::unique_ptr<QGraphicsView> m_view;
};

void tst_LineManipulation::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_scene = std::make_unique<QGraphicsScene>(-100, -100, 500, 300);
    m_view = showWholeScene(m_scene.get());
    QVERIFY(m_view);
}

void tst_LineManipulation::cleanup()
{
    m_view.reset();
    m_scene.reset();
    clearOverrideCursors();
}

LineManipulationGraphicsItem* tst_LineManipulation::addLine(
    qreal rotationX, const QVector2D& direction)
{
    auto* item = new LineManipulationGraphicsItem();
    m_scene->addItem(item);
    item->setViewportRectangle(viewport);
    item->setLine(QPointF(rotationX, 50), direction);
    return item;
}

// A group whose lines cross at (150, 50) in the viewport.
CrossedLinesManipulationGraphicsItemGroup* tst_LineManipulation::addGroup()
{
    auto* group = new CrossedLinesManipulationGraphicsItemGroup();
    m_scene->addItem(group);
    group->setViewportRectangle(viewport);
    group->setHorizontalLine(QPointF(150, 50), QVector2D(1, 0));
    group->setVerticalLine(QPointF(150, 50), QVector2D(0, 1));
    return group;
}

void tst_LineManipulation::sendHover(
    QGraphicsItem* item, QEvent::Type type, const QPointF& scenePos)
{
    QGraphicsSceneHoverEvent event(type);
    event.setScenePos(scenePos);
    event.setPos(item->mapFromScene(scenePos));
    QVERIFY(m_scene->sendEvent(item, &event));
}

void tst_LineManipulation::sendMove(QGraphicsItem* item, const QPointF& scenePos)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseMove);
    event.setScenePos(scenePos);
    event.setPos(item->mapFromScene(scenePos));
    event.setButtons(Qt::LeftButton);
    m_scene->sendEvent(item, &event);
}

void tst_LineManipulation::clipsTheLineToTheViewport_data()
{
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QVector2D>("direction");
    QTest::addColumn<QLineF>("expected");

    QTest::newRow("horizontal") << viewport << QPointF(120, 50) << QVector2D(1, 0)
                                << QLineF(0, 50, 300, 50);
    QTest::newRow("reversed") << viewport << QPointF(120, 50) << QVector2D(-7, 0)
                              << QLineF(300, 50, 0, 50);
    QTest::newRow("diagonal from outside")
        << QRectF(0, 0, 100, 100) << QPointF(-50, -50) << QVector2D(2, 2) << QLineF(0, 0, 100, 100);
    QTest::newRow("misses") << viewport << QPointF(120, 500) << QVector2D(1, 0) << QLineF();
    QTest::newRow("zero direction") << viewport << QPointF(120, 50) << QVector2D(0, 0) << QLineF();
    QTest::newRow("tiny direction")
        << viewport << QPointF(120, 50) << QVector2D(5e-6f, 0) << QLineF();
}

void tst_LineManipulation::clipsTheLineToTheViewport()
{
    QFETCH(QRectF, rect);
    QFETCH(QPointF, point);
    QFETCH(QVector2D, direction);
    QFETCH(QLineF, expected);

    auto* item = new LineManipulationGraphicsItem();
    m_scene->addItem(item);
    item->setViewportRectangle(rect);
    item->setLine(point, direction);

    QCOMPARE(item->line(), expected);
    QCOMPARE(pickLineOf(item)->line(), expected);
    QCOMPARE(item->getRotationPoint(), point);
    if (expected.isNull()) {
        QVERIFY(!item->contains(point));
        QCOMPARE(m_scene->itemAt(point, QTransform()), nullptr);
    } else {
        QCOMPARE(m_scene->itemAt(expected.center(), QTransform()), item);
    }
}

void tst_LineManipulation::unchangedLineOrViewportDoesNotRecompute()
{
    LineManipulationGraphicsItem* item = addLine(120);
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

void tst_LineManipulation::rotateOrTranslateZones_data()
{
    QTest::addColumn<qreal>("rotationX");
    QTest::addColumn<qreal>("pressX");
    QTest::addColumn<bool>("rotate");
    QTest::addColumn<bool>("rotationEnabled");
    QTest::addColumn<bool>("translationEnabled");

    // Rotation point at the start: the far third rotates.
    QTest::newRow("start, far end") << 0.0 << 290.0 << true << true << true;
    QTest::newRow("start, just inside the third") << 0.0 << 201.0 << true << true << true;
    QTest::newRow("start, exactly at the third") << 0.0 << 200.0 << false << true << true;
    QTest::newRow("start, near the point") << 0.0 << 10.0 << false << true << true;
    QTest::newRow("before the viewport") << -100.0 << 250.0 << true << true << true;
    QTest::newRow("before the viewport, near") << -100.0 << 50.0 << false << true << true;
    // Rotation point in the middle: the outer third of each side rotates.
    QTest::newRow("middle, right end") << 150.0 << 251.0 << true << true << true;
    QTest::newRow("middle, right third exactly") << 150.0 << 250.0 << false << true << true;
    QTest::newRow("middle, left end") << 150.0 << 49.0 << true << true << true;
    QTest::newRow("middle, left third exactly") << 150.0 << 50.0 << false << true << true;
    QTest::newRow("middle, at the point") << 150.0 << 150.0 << false << true << true;
    // Rotation point at the end: the near third of the segment start rotates.
    QTest::newRow("end, start") << 300.0 << 99.0 << true << true << true;
    QTest::newRow("end, third exactly") << 300.0 << 100.0 << false << true << true;
    QTest::newRow("end, near the point") << 300.0 << 290.0 << false << true << true;
    // Without rotation everything translates; without translation everything rotates, even the
    // rotation point itself.
    QTest::newRow("rotation disabled, far end") << 150.0 << 295.0 << false << false << true;
    QTest::newRow("rotation disabled, near end") << 150.0 << 5.0 << false << false << true;
    QTest::newRow("translation disabled, at the point") << 150.0 << 150.0 << true << true << false;
    QTest::newRow("translation disabled, middle") << 150.0 << 200.0 << true << true << false;
}

void tst_LineManipulation::rotateOrTranslateZones()
{
    QFETCH(qreal, rotationX);
    QFETCH(qreal, pressX);
    QFETCH(bool, rotate);
    QFETCH(bool, rotationEnabled);
    QFETCH(bool, translationEnabled);

    LineManipulationGraphicsItem* item = addLine(rotationX);
    item->enableRotation(rotationEnabled);
    item->enableTranslation(translationEnabled);
    QCOMPARE(item->shouldRotateAt(QPointF(pressX, 50)), rotate);
    // Only the projection onto the line counts.
    QCOMPARE(item->shouldRotateAt(QPointF(pressX, 80)), rotate);
}

void tst_LineManipulation::rotationModes()
{
    LineManipulationGraphicsItem* item = addLine(150);
    QSignalSpy rotated(item, &LineManipulationGraphicsItem::lineRotated);
    QSignalSpy translated(item, &LineManipulationGraphicsItem::lineTranslated);

    QVERIFY(item->isRotatingParallelLine(QPointF(290, 50)));
    QVERIFY(item->isRotatingParallelLine(QPointF(290, 10)));
    QVERIFY(!item->isRotatingParallelLine(QPointF(10, 50)));
    QVERIFY(!item->isRotatingParallelLine(QPointF(150, -10)));

    // On the direction side the angle is measured from the rotation point to the mouse.
    item->startManipulation(QPointF(290, 50));
    QVERIFY(item->isManipulating());
    sendMove(item, QPointF(290, 50));
    QCOMPARE(rotated.count(), 0);
    sendMove(item, QPointF(250, -50));
    QCOMPARE(rotated.count(), 1);
    QCOMPARE(rotated.last().first().toFloat(), 45.0f);
    sendMove(item, QPointF(10, 60));
    QVERIFY(qAbs(rotated.last().first().toFloat() - 184.1f) < 0.1f);
    item->stopManipulation();
    QVERIFY(!item->isManipulating());
    sendMove(item, QPointF(200, 0));
    QCOMPARE(rotated.count(), 2);

    // On the opposite side it is measured from the mouse to the rotation point, so staying on
    // that side gives small angles and crossing over gives angles near 180.
    item->startManipulation(QPointF(10, 50));
    sendMove(item, QPointF(50, 150));
    QCOMPARE(rotated.last().first().toFloat(), 45.0f);
    sendMove(item, QPointF(290, 52));
    QVERIFY(qAbs(rotated.last().first().toFloat() - 179.18f) < 0.1f);
    item->stopManipulation();
    QCOMPARE(translated.count(), 0);
}

void tst_LineManipulation::translationAndDisabledManipulation()
{
    LineManipulationGraphicsItem* item = addLine(150);
    QSignalSpy rotated(item, &LineManipulationGraphicsItem::lineRotated);
    QSignalSpy translated(item, &LineManipulationGraphicsItem::lineTranslated);

    item->startManipulation(QPointF(200, 50));
    QVERIFY(item->isManipulating());
    sendMove(item, QPointF(210, 80));
    QCOMPARE(translated.count(), 1);
    QCOMPARE(translated.first().first().toPointF(), QPointF(210, 80));
    item->stopManipulation();

    item->disableManipulation();
    item->startManipulation(QPointF(200, 50));
    QVERIFY(!item->isManipulating());
    sendMove(item, QPointF(220, 90));
    item->enableManipulation();
    item->startManipulation(QPointF(290, 50));
    QVERIFY(item->isManipulating());
    QCOMPARE(translated.count(), 1);
    QCOMPARE(rotated.count(), 0);

    // Neither rotation nor translation allowed: a press starts nothing.
    item->stopManipulation();
    item->enableRotation(false);
    item->enableTranslation(false);
    item->startManipulation(QPointF(290, 50));
    QVERIFY(!item->isManipulating());
}

void tst_LineManipulation::translationCursorFollowsTheAngle_data()
{
    QTest::addColumn<qreal>("angle");
    QTest::addColumn<Qt::CursorShape>("shape");

    const QList<Qt::CursorShape> shapes
        = {Qt::SizeVerCursor, Qt::SizeFDiagCursor, Qt::SizeHorCursor, Qt::SizeBDiagCursor};
    for (int i = 0; i < 8; ++i) {
        const QByteArray name = QByteArray::number(i * 45) + " degrees";
        QTest::newRow(name.constData()) << qreal(i * 45) << shapes.at(i % 4);
    }
    QTest::newRow("22 rounds down") << 22.0 << Qt::SizeVerCursor;
    QTest::newRow("23 rounds up") << 23.0 << Qt::SizeFDiagCursor;
    QTest::newRow("350 rounds to 8") << 350.0 << Qt::SizeVerCursor;
}

void tst_LineManipulation::translationCursorFollowsTheAngle()
{
    QFETCH(qreal, angle);
    QFETCH(Qt::CursorShape, shape);

    auto* item = new LineManipulationGraphicsItem();
    m_scene->addItem(item);
    item->setViewportRectangle(QRectF(-100, -100, 200, 200));
    const QLineF direction = QLineF::fromPolar(10, angle);
    item->setLine(QPointF(0, 0), QVector2D(direction.p2()));
    QVERIFY(qAbs(item->line().angle() - angle) < 0.01);

    QCOMPARE(item->getTranslationCursor().shape(), shape);
    QCOMPARE(item->getCursor(false).shape(), shape);
}

void tst_LineManipulation::rotateCursorIsLoadedOnce()
{
    LineManipulationGraphicsItem first;
    LineManipulationGraphicsItem second;
    const QCursor a = first.getCursor(true);
    // Anyone who loaded the file again would now get a new pixmap.
    QPixmapCache::clear();
    const QCursor b = second.getCursor(true);
    QCOMPARE(a.shape(), Qt::BitmapCursor);
    QVERIFY(!a.pixmap().isNull());
    QCOMPARE(a.pixmap().cacheKey(), b.pixmap().cacheKey());
    // A hot spot of (-1, -1) puts it in the middle of the pixmap.
    QCOMPARE(a.hotSpot(), QPoint(a.pixmap().width() / 2, a.pixmap().height() / 2));
}

void tst_LineManipulation::overrideCursorsArePaired()
{
    LineManipulationGraphicsItem* item = addLine(150);
    QCOMPARE(overrideCursorDepth(), 0);

    sendHover(item, QEvent::GraphicsSceneHoverEnter, QPointF(290, 50));
    QCOMPARE(overrideCursorDepth(), 1);
    QCOMPARE(overrideShape(), Qt::BitmapCursor);
    sendHover(item, QEvent::GraphicsSceneHoverMove, QPointF(200, 50));
    QCOMPARE(overrideCursorDepth(), 1);
    QCOMPARE(overrideShape(), Qt::SizeVerCursor);

    item->startManipulation(QPointF(290, 50));
    QCOMPARE(overrideCursorDepth(), 1);
    QCOMPARE(overrideShape(), Qt::BitmapCursor);
    sendMove(item, QPointF(280, 20));
    item->stopManipulation();
    QCOMPARE(overrideCursorDepth(), 1);

    sendHover(item, QEvent::GraphicsSceneHoverMove, QPointF(10, 50));
    QCOMPARE(overrideShape(), Qt::BitmapCursor);
    sendHover(item, QEvent::GraphicsSceneHoverLeave, QPointF(10, 90));
    QCOMPARE(overrideCursorDepth(), 0);
}

void tst_LineManipulation::groupConstruction()
{
    CrossedLinesManipulationGraphicsItemGroup* group = addGroup();
    LineManipulationGraphicsItem* horizontal = horizontalOf(group);
    LineManipulationGraphicsItem* vertical = verticalOf(group);
    CenterDragger* center = childrenOfType<CenterDragger>(group).first();
    QVERIFY(horizontal && vertical);
    QCOMPARE(horizontal->pen().color(), QColor(Qt::red));
    QCOMPARE(vertical->pen().color(), QColor(Qt::green));

    // At the crossing the handle is on top, then the horizontal line, then the vertical one.
    QCOMPARE(m_scene->itemAt(QPointF(150, 50), QTransform()), center);
    center->hide();
    QCOMPARE(m_scene->itemAt(QPointF(150, 50), QTransform()), horizontal);
    // The pick lines are 2 wide.
    QCOMPARE(m_scene->itemAt(QPointF(150.9, 20), QTransform()), vertical);
    QCOMPARE(m_scene->itemAt(QPointF(151.1, 20), QTransform()), nullptr);

    group->setHorizontalColor(Qt::blue);
    QCOMPARE(horizontal->pen().color(), QColor(Qt::blue));
    QCOMPARE(horizontal->pen().widthF(), 1.0);
    QVERIFY(horizontal->pen().isCosmetic());
}

void tst_LineManipulation::groupCenterFollowsTheLinesSilently()
{
    auto* group = new CrossedLinesManipulationGraphicsItemGroup();
    m_scene->addItem(group);
    CenterDragger* center = childrenOfType<CenterDragger>(group).first();
    QSignalSpy horizontalTranslated(
        group, &CrossedLinesManipulationGraphicsItemGroup::horizontalLineTranslated);
    QSignalSpy verticalTranslated(
        group, &CrossedLinesManipulationGraphicsItemGroup::verticalLineTranslated);
    QSignalSpy dragged(center, &CenterDragger::dragged);

    group->setViewportRectangle(viewport);
    group->setHorizontalLine(QPointF(40, 30), QVector2D(1, 0));
    // The second line is still null: no crossing, the handle stays.
    QCOMPARE(center->pos(), QPointF(0, 0));
    group->setVerticalLine(QPointF(70, 10), QVector2D(0, 1));
    QVERIFY(near(center->pos(), QPointF(70, 30)));
    group->setHorizontalLine(QPointF(40, 60), QVector2D(2, -1));
    QVERIFY(near(center->pos(), QPointF(70, 45)));

    QCOMPARE(dragged.count(), 0);
    QCOMPARE(horizontalTranslated.count(), 0);
    QCOMPARE(verticalTranslated.count(), 0);
}

void tst_LineManipulation::draggingTheGroupCenterTranslatesVerticalThenHorizontal()
{
    CrossedLinesManipulationGraphicsItemGroup* group = addGroup();

    QStringList events;
    connect(group, &CrossedLinesManipulationGraphicsItemGroup::horizontalLineTranslated, this,
        [&](const QPointF& p) { events << QString("horizontal %1,%2").arg(p.x()).arg(p.y()); });
    connect(group, &CrossedLinesManipulationGraphicsItemGroup::verticalLineTranslated, this,
        [&](const QPointF& p) { events << QString("vertical %1,%2").arg(p.x()).arg(p.y()); });

    QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, toViewport(QPointF(150, 50)));
    QTest::mouseMove(m_view->viewport(), toViewport(QPointF(170, 40)));
    QTest::mouseRelease(m_view->viewport(), Qt::LeftButton, {}, toViewport(QPointF(170, 40)));

    // Once for the move and once more for the release.
    const QStringList pair = {"vertical 170,40", "horizontal 170,40"};
    QCOMPARE(events, pair + pair);
}

void tst_LineManipulation::hoveringTheCenterDisablesTheLines()
{
    CrossedLinesManipulationGraphicsItemGroup* group = addGroup();
    CenterDragger* center = childrenOfType<CenterDragger>(group).first();
    const auto lines = childrenOfType<LineManipulationGraphicsItem>(group);

    center->startHovering();
    for (LineManipulationGraphicsItem* line : lines) {
        line->startManipulation(QPointF(150, 50));
        QVERIFY(!line->isManipulating());
    }
    center->stopHovering();
    QCOMPARE(overrideCursorDepth(), 0);
    for (LineManipulationGraphicsItem* line : lines) {
        line->startManipulation(QPointF(150, 50));
        QVERIFY(line->isManipulating());
        line->stopManipulation();
    }

    // A handle that cannot move does not lock the lines either.
    group->enableTranslation(false);
    center->startHovering();
    QCOMPARE(overrideCursorDepth(), 0);
    lines.first()->startManipulation(QPointF(290, 50));
    QVERIFY(lines.first()->isManipulating());
}

void tst_LineManipulation::groupForwardsRotations()
{
    CrossedLinesManipulationGraphicsItemGroup* group = addGroup();
    const QList<LineManipulationGraphicsItem*> lines = {horizontalOf(group), verticalOf(group)};
    QSignalSpy horizontalRotated(
        group, &CrossedLinesManipulationGraphicsItemGroup::horizontalLineRotated);
    QSignalSpy verticalRotated(
        group, &CrossedLinesManipulationGraphicsItemGroup::verticalLineRotated);
    QSignalSpy verticalTranslated(
        group, &CrossedLinesManipulationGraphicsItemGroup::verticalLineTranslated);

    lines.at(0)->startManipulation(QPointF(290, 50));
    sendMove(lines.at(0), QPointF(250, -50));
    lines.at(0)->stopManipulation();
    QCOMPARE(horizontalRotated.count(), 1);
    QCOMPARE(horizontalRotated.first().first().toFloat(), 45.0f);
    QCOMPARE(verticalRotated.count(), 0);

    lines.at(1)->startManipulation(QPointF(150, 40));
    sendMove(lines.at(1), QPointF(170, 30));
    QCOMPARE(verticalTranslated.count(), 1);
    QCOMPARE(verticalTranslated.first().first().toPointF(), QPointF(170, 30));
    QCOMPARE(verticalRotated.count(), 0);
}

void tst_LineManipulation::groupSettingsReportTheHorizontalLine()
{
    CrossedLinesManipulationGraphicsItemGroup group;
    const QList<LineManipulationGraphicsItem*> lines = {horizontalOf(&group), verticalOf(&group)};
    CenterDragger* center = childrenOfType<CenterDragger>(&group).first();

    group.enableTranslation(false);
    QVERIFY(!group.isTranslationEnabled());
    QVERIFY(!lines.at(1)->isTranslationEnabled());
    QVERIFY(!center->flags().testFlag(QGraphicsItem::ItemIsMovable));
    lines.at(1)->enableTranslation(true);
    QVERIFY(!group.isTranslationEnabled());
    lines.at(0)->enableTranslation(true);
    lines.at(1)->enableTranslation(false);
    QVERIFY(group.isTranslationEnabled());

    group.enableRotation(false);
    lines.at(0)->enableRotation(true);
    QVERIFY(group.isRotationEnabled());
    QVERIFY(!lines.at(1)->isRotationEnabled());
}

void tst_LineManipulation::groupVisibility()
{
    CrossedLinesManipulationGraphicsItemGroup group;
    const QList<LineManipulationGraphicsItem*> lines = {horizontalOf(&group), verticalOf(&group)};
    CenterDragger* center = childrenOfType<CenterDragger>(&group).first();

    group.showVerticalLine(false);
    QVERIFY(!lines.at(1)->isVisible());
    QVERIFY(!center->isVisible());
    group.showHorizontalLine(true);
    QVERIFY(!center->isVisible());
    group.showVerticalLine(true);
    QVERIFY(center->isVisible());
    group.showHorizontalLine(false);
    QVERIFY(!lines.at(0)->isVisible());
    QVERIFY(!center->isVisible());
}

void tst_LineManipulation::addLineManipulatorIsNotConnected()
{
    CrossedLinesManipulationGraphicsItemGroup* group = addGroup();
    LineManipulationGraphicsItem* extra = group->addLineManipulator(Qt::yellow);
    QCOMPARE(extra->parentItem(), group);
    QCOMPARE(extra->pen().color(), QColor(Qt::yellow));
    QCOMPARE(pickLineOf(extra)->pen().width(), 2);

    QSignalSpy horizontalRotated(
        group, &CrossedLinesManipulationGraphicsItemGroup::horizontalLineRotated);
    QSignalSpy verticalRotated(
        group, &CrossedLinesManipulationGraphicsItemGroup::verticalLineRotated);
    QSignalSpy extraRotated(extra, &LineManipulationGraphicsItem::lineRotated);
    extra->setViewportRectangle(viewport);
    extra->setLine(QPointF(150, 50), QVector2D(1, 0));
    extra->emitLineRotated(QLineF(0, 0, 10, 0));
    QCOMPARE(extraRotated.count(), 0);
    extra->emitLineRotated(QLineF(0, 0, 0, 10));
    QCOMPARE(extraRotated.count(), 1);
    QCOMPARE(extraRotated.first().first().toFloat(), 270.0f);
    QCOMPARE(horizontalRotated.count(), 0);
    QCOMPARE(verticalRotated.count(), 0);
}

QTEST_MAIN(tst_LineManipulation)
#include "tst_linemanipulation.moc"
