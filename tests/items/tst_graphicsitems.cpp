#include <guicore/graphics/items/CustomGraphicsEllipseItem.h>
#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/items/CustomGraphicsPathItem.h>
#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsPointDraggerItem.h>
#include <guicore/graphics/items/CustomGraphicsPolygonItem.h>
#include <guicore/graphics/items/CustomGraphicsRectItem.h>
#include <guicore/graphics/items/CustomGraphicsSpline.h>
#include <guicore/graphics/items/CustomGraphicsStrokerOpaquePathItem.h>
#include <guicore/graphics/items/CustomGraphicsStrokerTransparentPathItem.h>
#include <guicore/graphics/items/CustomGraphicsSvgItem.h>
#include <guicore/graphics/items/HoverableItem.h>
#include <guicore/style/DevicePixelRatio.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include "ItemTestSupport.h"

#include <QGraphicsScene>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QTest>
#include <QWindow>

#include <memory>

using namespace itemtest;

namespace {

bool pressThroughScene(QGraphicsScene& scene, const QPointF& scenePos,
    Qt::MouseButton button = Qt::LeftButton, Qt::MouseButtons buttons = Qt::LeftButton)
{
    return sendMouse(scene, QEvent::GraphicsSceneMousePress, scenePos, button, buttons);
}

void fillButtons(QGraphicsSceneMouseEvent& event, const QPointF& scenePos, Qt::MouseButtons buttons)
{
    fillPress(
        event, scenePos, buttons & Qt::RightButton ? Qt::RightButton : Qt::LeftButton, buttons);
}

// Renders the view and counts the pixels of the colour in the row through the scene origin.
int spanThroughOrigin(ViewFixture& fixture, QRgb color)
{
    return countInRow(fixture.render(), fixture.origin().y(), color);
}

class TestHoverable : public HoverableItem
{
public:
    TestHoverable(int priority, QString tag)
        : tag(std::move(tag))
    {
        setHoverPriority(priority);
    }
    bool isHoverHit(const QPointF&) const override { return true; }
    void hoverStateChanged(bool state) override { notified.append(qMakePair(state, isHovered())); }

    QString tag;
    QList<QPair<bool, bool>> notified; // new state, stored state at notification
};

class CountingItem : public CustomGraphicsItem
{
public:
    using CustomGraphicsItem::CustomGraphicsItem;
    void devicePixelRatioChanged() override
    {
        ++ratioChanges;
        CustomGraphicsItem::devicePixelRatioChanged();
    }
    int ratioChanges = 0;
};

} // namespace

class tst_GraphicsItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void clickableRegion_data();
    void clickableRegion();
    void setPenRecomputesFromOldPen();
    void shapeKeepsHairlinesThin();
    void pressRules_data();
    void pressRules();
    void pressMoveReleaseSequence();
    void pressOutsideStopsAtFirstAcceptingChild();
    void removedChildNoLongerForwards();
    void contextMenuTakenOnRegionElseByChild();
    void hoverSignalsSuppressedWhileDragging();
    void visibilitySignalOnlyInScene();
    void listensToPixelRatioForWholeLife();
    void sortByHoverPriority_data();
    void sortByHoverPriority();
    void setHoveredNotifiesBeforeStoring();

    void zoomAgnosticEllipseKeepsScreenSize_data();
    void zoomAgnosticEllipseKeepsScreenSize();
    void rectAndPolygonPaths();
    void pathItemZoomAgnosticPenWidth();
    void splineHitNearLineOnly();
    void strokerOpaqueBuildsStrokeWhenPainted();
    void strokerTransparentDrawsOutlineOnly_data();
    void strokerTransparentDrawsOutlineOnly();
    void pixmapItemPressRules_data();
    void pixmapItemPressRules();
    void svgItemReportsClicks();
    void pointDraggerProposesWithoutMoving();
    void pointDraggerHitKeepsScreenSize();
};

void tst_GraphicsItems::initTestCase()
{
    qRegisterMetaType<QGraphicsSceneMouseEvent*>();
    StyleManager::createManager(StyleManagerDataProvider());
}

void tst_GraphicsItems::cleanupTestCase()
{
    StyleManager::deleteManager();
}

void tst_GraphicsItems::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_GraphicsItems::clickableRegion_data()
{
    QTest::addColumn<bool>("useStroker");
    QTest::addColumn<QPainterPath>("path");
    QTest::addColumn<QPointF>("probe");
    QTest::addColumn<bool>("hit");

    const QPainterPath square = rectPath(QRectF(0, 0, 100, 100));
    // Pen width 10: the stroke reaches 5 units either side of the outline.
    QTest::newRow("no stroker, inside") << false << square << QPointF(50, 50) << true;
    QTest::newRow("no stroker, just outside") << false << square << QPointF(103, 50) << false;
    QTest::newRow("stroker, inside far from outline") << true << square << QPointF(50, 50) << false;
    QTest::newRow("stroker, just outside the outline")
        << true << square << QPointF(103, 50) << true;
    QTest::newRow("stroker, beyond half the pen") << true << square << QPointF(107, 50) << false;
    QTest::newRow("stroker, empty path") << true << QPainterPath() << QPointF(0, 0) << false;
    QTest::newRow("no stroker, empty path") << false << QPainterPath() << QPointF(0, 0) << false;
}

void tst_GraphicsItems::clickableRegion()
{
    QFETCH(bool, useStroker);
    QFETCH(QPainterPath, path);
    QFETCH(QPointF, probe);
    QFETCH(bool, hit);

    QGraphicsScene scene;
    auto* item = new CustomGraphicsItem(QStringLiteral("item"));
    scene.addItem(item);
    item->setPos(10, 20);
    item->setPen(QPen(Qt::black, 10));
    item->setUseStroker(useStroker);
    item->setPainterPath(path);

    QCOMPARE(item->getPainterPath(), path);
    QCOMPARE(item->getClickableRegion().isEmpty(), path.isEmpty());
    QCOMPARE(item->isMouseOver(probe + QPointF(10, 20)), hit);

    // Hidden or disabled items are never under the mouse.
    if (hit) {
        item->setEnabled(false);
        QVERIFY(!item->isMouseOver(probe + QPointF(10, 20)));
        item->setEnabled(true);
        item->setVisible(false);
        QVERIFY(!item->isMouseOver(probe + QPointF(10, 20)));
    }
}

void tst_GraphicsItems::setPenRecomputesFromOldPen()
{
    CustomGraphicsItem item(QStringLiteral("item"));
    item.setPen(QPen(Qt::black, 2));
    item.setUseStroker(true);
    item.setPainterPath(linePath(QPointF(0, 0), QPointF(100, 0)));
    const QPointF fiveAbove(50, -5);
    QVERIFY(!item.isMouseOver(fiveAbove));

    // The region is recomputed before the new pen takes over, so it still has width 2.
    item.setPen(QPen(Qt::black, 20));
    QVERIFY(!item.isMouseOver(fiveAbove));

    item.setUseStroker(true);
    QVERIFY(item.isMouseOver(fiveAbove));
}

void tst_GraphicsItems::shapeKeepsHairlinesThin()
{
    CustomGraphicsItem item(QStringLiteral("item"));
    const QPainterPath line = linePath(QPointF(0, 0), QPointF(100, 0));
    item.setPainterPath(line);

    item.setPen(QPen(Qt::black, 0));
    QVERIFY(item.shape().boundingRect().height() < 1e-6);
    QVERIFY(item.shape().boundingRect().width() >= 100.0);

    item.setPen(QPen(Qt::black, 6));
    QCOMPARE(item.shape().boundingRect().height(), 6.0);

    item.setPen(Qt::NoPen);
    QCOMPARE(item.shape(), line);

    item.setPainterPath(QPainterPath());
    item.setPen(QPen(Qt::black, 6));
    QVERIFY(item.shape().isEmpty());
}

void tst_GraphicsItems::pressRules_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<Qt::MouseButtons>("buttons");
    QTest::addColumn<QPointF>("where");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("dragging");

    const QPointF inside(50, 50);
    QTest::newRow("left") << Qt::LeftButton << Qt::MouseButtons(Qt::LeftButton) << inside
                          << QStringList {"left"} << true;
    QTest::newRow("right") << Qt::RightButton << Qt::MouseButtons(Qt::RightButton) << inside
                           << QStringList {"right"} << false;
    QTest::newRow("left and right") << Qt::RightButton << (Qt::LeftButton | Qt::RightButton)
                                    << inside << QStringList() << false;
    QTest::newRow("middle") << Qt::MiddleButton << Qt::MouseButtons(Qt::MiddleButton) << inside
                            << QStringList() << false;
    // The scene's hit test takes the pen's stroke; the item's own region is the path only.
    QTest::newRow("on the stroke, off the region")
        << Qt::LeftButton << Qt::MouseButtons(Qt::LeftButton) << QPointF(101.5, 50) << QStringList()
        << false;
}

void tst_GraphicsItems::pressRules()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(Qt::MouseButtons, buttons);
    QFETCH(QPointF, where);
    QFETCH(QStringList, expected);
    QFETCH(bool, dragging);

    QGraphicsScene scene;
    auto* item = new CustomGraphicsItem(QStringLiteral("item"));
    item->setPen(QPen(Qt::black, 4));
    item->setPainterPath(rectPath(QRectF(0, 0, 100, 100)));
    scene.addItem(item);
    QVERIFY(!(item->flags() & QGraphicsItem::ItemIsMovable));

    QStringList seen;
    connect(item, &CustomGraphicsItem::leftClicked, this, [&] { seen << "left"; });
    connect(item, &CustomGraphicsItem::rightClicked, this, [&] { seen << "right"; });

    const bool accepted = pressThroughScene(scene, where, button, buttons);
    QCOMPARE(seen, expected);
    QCOMPARE(accepted, !expected.isEmpty());
    QCOMPARE(item->isDragging(), dragging);
    QCOMPARE(scene.mouseGrabberItem() == item, !expected.isEmpty());
}

void tst_GraphicsItems::pressMoveReleaseSequence()
{
    QGraphicsScene scene;
    auto* item = new CustomGraphicsItem(QStringLiteral("item"));
    item->setPainterPath(rectPath(QRectF(0, 0, 100, 100)));
    scene.addItem(item);

    QStringList seen;
    connect(item, &CustomGraphicsItem::leftClicked, this, [&] { seen << "left"; });
    connect(item, &CustomGraphicsItem::mouseMoved, this,
        [&] { seen << (item->isDragging() ? "moved dragging" : "moved"); });
    connect(item, &CustomGraphicsItem::mouseReleased, this,
        [&] { seen << (item->isDragging() ? "released dragging" : "released"); });

    pressThroughScene(scene, QPointF(10, 10));
    sendMouse(
        scene, QEvent::GraphicsSceneMouseMove, QPointF(200, 200), Qt::NoButton, Qt::LeftButton);
    sendMouse(
        scene, QEvent::GraphicsSceneMouseRelease, QPointF(200, 200), Qt::LeftButton, Qt::NoButton);

    QCOMPARE(seen, (QStringList {"left", "moved dragging", "released"}));
    QVERIFY(!item->isDragging());
}

void tst_GraphicsItems::pressOutsideStopsAtFirstAcceptingChild()
{
    CustomGraphicsItem parent(QStringLiteral("parent"));
    parent.setPainterPath(rectPath(QRectF(0, 0, 10, 10)));
    auto* first = new CustomGraphicsItem(QStringLiteral("first"));
    auto* second = new CustomGraphicsItem(QStringLiteral("second"));
    auto* third = new CustomGraphicsItem(QStringLiteral("third"));
    first->setPainterPath(rectPath(QRectF(100, 0, 10, 10)));
    second->setPainterPath(rectPath(QRectF(50, 50, 20, 20)));
    third->setPainterPath(rectPath(QRectF(50, 50, 20, 20)));
    parent.addCustomChildItem(first);
    parent.addCustomChildItem(nullptr);
    parent.addCustomChildItem(second);
    parent.addCustomChildItem(third);
    QCOMPARE(parent.getCustomChildItems(), (QList<CustomGraphicsItem*> {first, second, third}));
    QCOMPARE(second->parentItem(), &parent);

    QStringList seen;
    connect(&parent, &CustomGraphicsItem::leftClicked, this, [&] { seen << "parent"; });
    connect(first, &CustomGraphicsItem::leftClicked, this, [&] { seen << "first"; });
    connect(second, &CustomGraphicsItem::leftClicked, this, [&] { seen << "second"; });
    connect(third, &CustomGraphicsItem::leftClicked, this, [&] { seen << "third"; });

    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    fillButtons(press, QPointF(60, 60), Qt::LeftButton);
    parent.mousePressEvent(&press);
    QVERIFY(press.isAccepted());
    // The forwarding connection was made before the test's own, so the parent reports first.
    QCOMPARE(seen, (QStringList {"parent", "second"}));
    QVERIFY(second->isDragging());
    QVERIFY(!third->isDragging());
    QVERIFY(!parent.isDragging());

    seen.clear();
    QGraphicsSceneMouseEvent miss(QEvent::GraphicsSceneMousePress);
    fillButtons(miss, QPointF(300, 300), Qt::LeftButton);
    parent.mousePressEvent(&miss);
    QVERIFY(!miss.isAccepted());
    QVERIFY(seen.isEmpty());
}

void tst_GraphicsItems::removedChildNoLongerForwards()
{
    CustomGraphicsItem parent(QStringLiteral("parent"));
    auto child = std::make_unique<CustomGraphicsItem>(QStringLiteral("child"));
    child->setPainterPath(rectPath(QRectF(0, 0, 10, 10)));
    parent.addCustomChildItem(child.get());
    QSignalSpy right(&parent, &CustomGraphicsItem::rightClicked);

    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    fillButtons(press, QPointF(5, 5), Qt::RightButton);
    child->mousePressEvent(&press);
    QCOMPARE(right.count(), 1);

    parent.removeCustomChildItem(child.get());
    parent.removeCustomChildItem(nullptr);
    QCOMPARE(child->parentItem(), nullptr);
    QVERIFY(parent.getCustomChildItems().isEmpty());
    child->mousePressEvent(&press);
    QCOMPARE(right.count(), 1);

    // Removing an item that is not a child still detaches it.
    auto stranger = std::make_unique<CustomGraphicsItem>(QStringLiteral("stranger"));
    stranger->setParentItem(&parent);
    parent.removeCustomChildItem(stranger.get());
    QCOMPARE(stranger->parentItem(), nullptr);
}

void tst_GraphicsItems::contextMenuTakenOnRegionElseByChild()
{
    QGraphicsScene scene;
    auto* parent = new CustomGraphicsItem(QStringLiteral("parent"));
    parent->setPainterPath(rectPath(QRectF(0, 0, 10, 10)));
    auto* child = new CustomGraphicsItem(QStringLiteral("child"));
    child->setPainterPath(rectPath(QRectF(40, 40, 10, 10)));
    parent->addCustomChildItem(child);
    scene.addItem(parent);

    const auto sendMenu = [&](const QPointF& pos, QGraphicsSceneContextMenuEvent::Reason reason) {
        QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
        event.setScenePos(pos);
        event.setReason(reason);
        parent->contextMenuEvent(&event);
        return event.isAccepted();
    };
    QVERIFY(sendMenu(QPointF(5, 5), QGraphicsSceneContextMenuEvent::Mouse));
    QVERIFY(sendMenu(QPointF(45, 45), QGraphicsSceneContextMenuEvent::Mouse));
    QVERIFY(!sendMenu(QPointF(25, 25), QGraphicsSceneContextMenuEvent::Mouse));
    QVERIFY(!sendMenu(QPointF(5, 5), QGraphicsSceneContextMenuEvent::Keyboard));
}

void tst_GraphicsItems::hoverSignalsSuppressedWhileDragging()
{
    QGraphicsScene scene;
    auto* item = new CustomGraphicsItem(QStringLiteral("item"));
    item->setPainterPath(rectPath(QRectF(0, 0, 100, 100)));
    item->setAcceptHoverEvents(true);
    scene.addItem(item);
    QStringList seen;
    connect(item, &CustomGraphicsItem::mouseHoverEnter, this, [&] { seen << "enter"; });
    connect(item, &CustomGraphicsItem::mouseHoverMove, this, [&] { seen << "move"; });
    connect(item, &CustomGraphicsItem::mouseHoverLeave, this, [&] { seen << "leave"; });
    const auto moveTo = [&](qreal x) {
        sendMouse(
            scene, QEvent::GraphicsSceneMouseMove, QPointF(x, 50), Qt::NoButton, Qt::NoButton);
    };

    moveTo(50);
    moveTo(60);
    moveTo(300);
    QCOMPARE(seen, (QStringList {"enter", "move", "move", "leave"}));

    seen.clear();
    item->setDragging(true);
    moveTo(50);
    moveTo(60);
    moveTo(300);
    QVERIFY(seen.isEmpty());
}

void tst_GraphicsItems::visibilitySignalOnlyInScene()
{
    CustomGraphicsItem loose(QStringLiteral("loose"));
    QSignalSpy looseSpy(&loose, &CustomGraphicsItem::visibilityChanged);
    loose.setVisible(false);
    QCOMPARE(looseSpy.count(), 0);

    QGraphicsScene scene;
    auto* item = new CustomGraphicsItem(QStringLiteral("item"));
    scene.addItem(item);
    QSignalSpy spy(item, &CustomGraphicsItem::visibilityChanged);
    item->setVisible(false);
    item->setVisible(false);
    item->setVisible(true);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).at(0).toBool(), false);
    QCOMPARE(spy.at(1).at(0).toBool(), true);
}

void tst_GraphicsItems::listensToPixelRatioForWholeLife()
{
    QWidget mainWindow;
    mainWindow.resize(50, 50);
    mainWindow.show();
    QVERIFY(QTest::qWaitForWindowExposed(&mainWindow));
    DevicePixelRatio::registerMainWindow(&mainWindow);
    QWindow* native = mainWindow.windowHandle();
    QVERIFY(native);

    CountingItem survivor(QStringLiteral("survivor"));
    QPointer<QObject> gone;
    {
        CountingItem shortLived(QStringLiteral("shortLived"));
        gone = &shortLived;
        Q_EMIT native->screenChanged(native->screen());
        QCOMPARE(shortLived.ratioChanges, 1);
    }
    QVERIFY(gone.isNull());
    // The destroyed item was unregistered: notifying again reaches only the living one.
    Q_EMIT native->screenChanged(native->screen());
    QCOMPARE(survivor.ratioChanges, 2);
    DevicePixelRatio::registerMainWindow(nullptr);
}

void tst_GraphicsItems::sortByHoverPriority_data()
{
    QTest::addColumn<QList<int>>("priorities");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("empty") << QList<int>() << QStringList();
    QTest::newRow("one") << QList<int> {4} << QStringList {"a"};
    QTest::newRow("1 3 2") << QList<int> {1, 3, 2} << QStringList {"b", "c", "a"};
    QTest::newRow("equal keep order")
        << QList<int> {2, 5, 2, 5, -1} << QStringList {"b", "d", "a", "c", "e"};
    QTest::newRow("ascending") << QList<int> {-1, 0, 1, 2} << QStringList {"d", "c", "b", "a"};
}

void tst_GraphicsItems::sortByHoverPriority()
{
    QFETCH(QList<int>, priorities);
    QFETCH(QStringList, expected);

    std::vector<std::unique_ptr<TestHoverable>> owned;
    QList<HoverableItem*> items;
    for (int i = 0; i < priorities.size(); ++i) {
        owned.push_back(std::make_unique<TestHoverable>(priorities[i], QString(QChar('a' + i))));
        items.append(owned.back().get());
    }
    HoverableItem::sortByHoverPriority(items);
    QStringList tags;
    for (HoverableItem* item : items)
        tags << static_cast<TestHoverable*>(item)->tag;
    QCOMPARE(tags, expected);
}

void tst_GraphicsItems::setHoveredNotifiesBeforeStoring()
{
    TestHoverable item(3, QStringLiteral("a"));
    QVERIFY(!item.isHovered());
    item.setHovered(false);
    item.setHovered(true);
    item.setHovered(true);
    item.setHovered(false);
    QCOMPARE(item.notified, (QList<QPair<bool, bool>> {{true, false}, {false, true}}));

    item.setHovered(true);
    TestHoverable copy(0, QStringLiteral("b"));
    copy = item;
    QVERIFY(copy.isHovered());
    QCOMPARE(copy.getHoverPriority(), 3);
}

void tst_GraphicsItems::zoomAgnosticEllipseKeepsScreenSize_data()
{
    QTest::addColumn<bool>("agnostic");
    QTest::addColumn<qreal>("zoom");
    QTest::addColumn<int>("diameter");

    QTest::newRow("agnostic 1x") << true << 1.0 << 20;
    QTest::newRow("agnostic 4x") << true << 4.0 << 20;
    QTest::newRow("agnostic 0.5x") << true << 0.5 << 20;
    QTest::newRow("scaled 1x") << false << 1.0 << 20;
    QTest::newRow("scaled 4x") << false << 4.0 << 80;
}

void tst_GraphicsItems::zoomAgnosticEllipseKeepsScreenSize()
{
    QFETCH(bool, agnostic);
    QFETCH(qreal, zoom);
    QFETCH(int, diameter);

    ViewFixture fixture(zoom);
    auto* ellipse = new CustomGraphicsEllipseItem(10.0f, 10.0f, QStringLiteral("ellipse"));
    ellipse->setPen(Qt::NoPen);
    ellipse->setBrush(Qt::red);
    ellipse->setUseZoomAgnostic(agnostic);
    fixture.scene.addItem(ellipse);

    const int span = spanThroughOrigin(fixture, qRgb(255, 0, 0));
    QVERIFY2(qAbs(span - diameter) <= 1, qPrintable(QString::number(span)));

    // The hit region follows what was drawn.
    const QPointF nineteenPixelsRight = fixture.view.mapToScene(fixture.origin() + QPoint(9, 0));
    QVERIFY(ellipse->isMouseOver(nineteenPixelsRight));
}

void tst_GraphicsItems::rectAndPolygonPaths()
{
    CustomGraphicsRectItem plain(QStringLiteral("plain"), nullptr, QRectF(0, 0, 40, 20), 0.0);
    QVERIFY(plain.isUsingStroker());
    QVERIFY(!plain.getHandleRightClick());
    QCOMPARE(plain.getPainterPath(), rectPath(QRectF(0, 0, 40, 20)));

    CustomGraphicsRectItem rounded(QStringLiteral("rounded"), nullptr, QRectF(0, 0, 40, 20), 5.0);
    QPainterPath expected;
    expected.addRoundedRect(QRectF(0, 0, 40, 20), 5.0, 5.0, Qt::AbsoluteSize);
    QCOMPARE(rounded.getPainterPath(), expected);

    // Hit along the stroke only: the middle of a large rectangle is not on it.
    plain.setRect(QRectF(0, 0, 100, 100));
    QVERIFY(!plain.isMouseOver(QPointF(50, 50)));
    QVERIFY(plain.isMouseOver(QPointF(100, 50)));

    // A polygon is closed and hit inside.
    const QPolygonF triangle {QPointF(0, 0), QPointF(100, 0), QPointF(0, 100)};
    CustomGraphicsPolygonItem item(QStringLiteral("polygon"), nullptr, triangle);
    QVERIFY(item.isMouseOver(QPointF(20, 20)));
    QVERIFY(!item.isMouseOver(QPointF(80, 80)));
    item.setPolygon(QPolygonF());
    QVERIFY(item.getPainterPath().isEmpty());
}

void tst_GraphicsItems::pathItemZoomAgnosticPenWidth()
{
    ViewFixture fixture(4.0);
    auto* item = new CustomGraphicsPathItem(QStringLiteral("path"));
    item->setPen(QPen(Qt::green, 6, Qt::SolidLine, Qt::FlatCap));
    item->setPainterPath(linePath(QPointF(0, -10), QPointF(0, 10)));
    item->setUseZoomAgnostic(true);
    fixture.scene.addItem(item);
    const int span = spanThroughOrigin(fixture, QColor(Qt::green).rgb());
    QVERIFY2(qAbs(span - 6) <= 1, qPrintable(QString::number(span)));
}

void tst_GraphicsItems::splineHitNearLineOnly()
{
    QGraphicsScene scene;
    auto* spline = new CustomGraphicsSpline(QStringLiteral("spline"));
    spline->setPen(QPen(Qt::black, 4));
    QPainterPath curve;
    curve.moveTo(0, 0);
    curve.cubicTo(30, 60, 70, -60, 100, 0);
    spline->setPainterPath(curve);
    scene.addItem(spline);

    const QPointF onCurve = curve.pointAtPercent(0.5);
    QVERIFY(spline->isMouseOver(onCurve + QPointF(0, 1.5)));
    QVERIFY(!spline->isMouseOver(onCurve + QPointF(0, 6)));
    QVERIFY(spline->isUnderMouse(onCurve + QPointF(0, 6), 5.0f));
    QVERIFY(spline->contains(onCurve));

    spline->setVisible(false);
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    fillButtons(press, onCurve, Qt::LeftButton);
    QSignalSpy left(spline, &CustomGraphicsItem::leftClicked);
    spline->mousePressEvent(&press);
    QCOMPARE(left.count(), 0);
    spline->setVisible(true);
    spline->mousePressEvent(&press);
    QCOMPARE(left.count(), 1);

    CustomGraphicsSpline empty(QStringLiteral("empty"));
    QVERIFY(!empty.isMouseOver(QPointF(0, 0)));
}

void tst_GraphicsItems::strokerOpaqueBuildsStrokeWhenPainted()
{
    ViewFixture fixture(2.0);
    auto* item = new CustomGraphicsStrokerOpaquePathItem(QStringLiteral("stroker"));
    item->setPen(Qt::NoPen);
    item->setBrush(Qt::magenta);
    item->setStrokerPath(linePath(QPointF(-20, 0), QPointF(20, 0)));
    item->setStrokerWidth(10);
    item->setCapStyle(Qt::FlatCap);
    item->setUseZoomAgnostic(true);
    fixture.scene.addItem(item);
    const QImage image = fixture.render();

    // Ten pixels thick on screen at 2x zoom: five scene units.
    QCOMPARE(item->getPainterPath().boundingRect().height(), 5.0);
    const int thickness
        = pixelBox(image, [](QRgb p) { return sameRgb(p, QColor(Qt::magenta).rgb()); }).height();
    QVERIFY2(qAbs(thickness - 10) <= 1, qPrintable(QString::number(thickness)));
}

void tst_GraphicsItems::strokerTransparentDrawsOutlineOnly_data()
{
    QTest::addColumn<bool>("zoomAgnostic");
    QTest::addColumn<int>("thickness");
    // A stroke ten units wide in a view zoomed to 2x.
    QTest::newRow("at the view's scale") << false << 20;
    QTest::newRow("zoom-agnostic") << true << 10;
}

void tst_GraphicsItems::strokerTransparentDrawsOutlineOnly()
{
    QFETCH(bool, zoomAgnostic);
    QFETCH(int, thickness);
    ViewFixture fixture(2.0);
    auto* item = new CustomGraphicsStrokerTransparentPathItem(QStringLiteral("stroker"));
    item->setPen(QPen(Qt::magenta, 0));
    item->setBrush(Qt::green);
    item->setStrokerPath(linePath(QPointF(-20, 0), QPointF(20, 0)));
    item->setStrokerWidth(10);
    item->setCapStyle(Qt::FlatCap);
    item->setUseZoomAgnostic(zoomAgnostic);
    fixture.scene.addItem(item);
    const QImage image = fixture.render();

    const QRect outline
        = pixelBox(image, [](QRgb p) { return sameRgb(p, QColor(Qt::magenta).rgb()); });
    QVERIFY2(
        qAbs(outline.height() - thickness) <= 1, qPrintable(QString::number(outline.height())));
    QVERIFY(pixelBox(image, [](QRgb p) { return sameRgb(p, QColor(Qt::green).rgb()); }).isEmpty());
}

void tst_GraphicsItems::pixmapItemPressRules_data()
{
    QTest::addColumn<Qt::MouseButtons>("buttons");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("left") << Qt::MouseButtons(Qt::LeftButton) << true << QStringList {"left"};
    QTest::newRow("right") << Qt::MouseButtons(Qt::RightButton) << true << QStringList {"right"};
    QTest::newRow("both") << (Qt::LeftButton | Qt::RightButton) << true << QStringList();
    QTest::newRow("hidden") << Qt::MouseButtons(Qt::LeftButton) << false << QStringList();
}

void tst_GraphicsItems::pixmapItemPressRules()
{
    QFETCH(Qt::MouseButtons, buttons);
    QFETCH(bool, visible);
    QFETCH(QStringList, expected);

    QPixmap pixmap(10, 10);
    pixmap.fill(Qt::red);
    QGraphicsScene scene;
    auto* item = new CustomGraphicsPixmapItem(QStringLiteral("pixmap"), nullptr, pixmap);
    scene.addItem(item);
    item->setVisible(visible);
    QStringList seen;
    connect(item, &CustomGraphicsPixmapItem::leftClicked, this, [&] { seen << "left"; });
    connect(item, &CustomGraphicsPixmapItem::rightClicked, this, [&] { seen << "right"; });

    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    fillButtons(press, QPointF(5, 5), buttons);
    item->mousePressEvent(&press);
    QCOMPARE(seen, expected);
    QCOMPARE(press.isAccepted(), !expected.isEmpty());

    QSignalSpy visibility(item, &CustomGraphicsPixmapItem::visibilityChanged);
    item->setVisible(!visible);
    QCOMPARE(visibility.count(), 1);
}

void tst_GraphicsItems::svgItemReportsClicks()
{
    QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='20'>"
                     "<rect width='20' height='20' fill='red'/></svg>";
    QSvgRenderer renderer(svg);
    QGraphicsScene scene;
    auto* item = new CustomGraphicsSvgItem(QStringLiteral("svg"));
    item->setSharedRenderer(&renderer);
    scene.addItem(item);
    QSignalSpy left(item, &CustomGraphicsSvgItem::leftClicked);
    QSignalSpy released(item, &CustomGraphicsSvgItem::mouseReleased);

    pressThroughScene(scene, QPointF(10, 10));
    sendMouse(
        scene, QEvent::GraphicsSceneMouseRelease, QPointF(10, 10), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(left.count(), 1);
    QCOMPARE(released.count(), 1);
}

void tst_GraphicsItems::pointDraggerProposesWithoutMoving()
{
    ViewFixture fixture;
    auto* parent = new QGraphicsRectItem(QRectF(0, 0, 1, 1));
    parent->setPos(100, 0);
    fixture.scene.addItem(parent);
    auto* handle = new CustomGraphicsPointDraggerItem(QStringLiteral("handle"), parent);
    handle->setPos(10, 10);

    QStringList seen;
    QList<QPointF> proposals;
    connect(handle, &CustomGraphicsPointDraggerItem::dragStarted, this, [&] { seen << "started"; });
    connect(handle, &CustomGraphicsPointDraggerItem::positionChangeRequested, this,
        [&](const QPointF& p) {
            seen << "proposed";
            proposals << p;
        });
    connect(
        handle, &CustomGraphicsPointDraggerItem::dragFinished, this, [&] { seen << "finished"; });

    // Grabbed 2 units right of its centre; the offset is kept.
    QVERIFY(pressThroughScene(fixture.scene, QPointF(112, 10)));
    sendMouse(fixture.scene, QEvent::GraphicsSceneMouseMove, QPointF(132, 40), Qt::NoButton,
        Qt::LeftButton);
    sendMouse(fixture.scene, QEvent::GraphicsSceneMouseRelease, QPointF(132, 40), Qt::LeftButton,
        Qt::NoButton);

    QCOMPARE(seen, (QStringList {"started", "proposed", "finished"}));
    QCOMPARE(proposals.first(), QPointF(30, 40));
    QCOMPARE(handle->pos(), QPointF(10, 10));

    // A press beside the handle starts nothing.
    seen.clear();
    QVERIFY(!pressThroughScene(fixture.scene, QPointF(150, 10)));
    QVERIFY(seen.isEmpty());
}

void tst_GraphicsItems::pointDraggerHitKeepsScreenSize()
{
    ViewFixture fixture(4.0);
    auto* handle = new CustomGraphicsPointDraggerItem(QStringLiteral("handle"), nullptr, 6.0f);
    handle->setBrush(Qt::red);
    handle->setPen(Qt::NoPen);
    fixture.scene.addItem(handle);
    // Six pixels at 4x zoom are 1.5 scene units.
    QVERIFY(handle->isMouseOver(QPointF(1.4, 0)));
    QVERIFY(!handle->isMouseOver(QPointF(1.6, 0)));

    const int span = spanThroughOrigin(fixture, qRgb(255, 0, 0));
    QVERIFY2(qAbs(span - 12) <= 1, qPrintable(QString::number(span)));
}

QTEST_MAIN(tst_GraphicsItems)
#include "tst_graphicsitems.moc"
