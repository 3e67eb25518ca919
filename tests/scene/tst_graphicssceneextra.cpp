#include "SceneTestSupport.h"

#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/graphics/manipulators/LineDragger.h>
#include <guicore/graphics/manipulators/LineManipulationGraphicsItem.h>
#include <guicore/graphics/scene/GraphicsSceneEventHandler.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QGraphicsLineItem>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QVector2D>

#include <memory>

namespace {

/// Consumes the events whose kinds are listed, and records every call.
class RecordingHandler : public GraphicsSceneEventHandler
{
public:
    explicit RecordingHandler(QStringList* log)
        : log(log)
    {
    }
    QSet<QString> consume;
    std::function<void()> onPress;

    bool record(const QString& what, const QString& tag)
    {
        log->append("handler:" + what + "@" + tag);
        return consume.contains(what);
    }
    bool handleMousePressEvent(QGraphicsSceneMouseEvent*, const QString& tag) override
    {
        if (onPress)
            onPress();
        return record("press", tag);
    }
    bool handleMouseDoubleClickEvent(QGraphicsSceneMouseEvent*, const QString& tag) override
    {
        return record("double", tag);
    }
    bool handleMouseMoveEvent(QGraphicsSceneMouseEvent*, const QString& tag) override
    {
        return record("move", tag);
    }
    bool handleHoverEvent(QGraphicsSceneHoverEvent*, const QString& tag) override
    {
        return record("hover", tag);
    }
    bool handleHoverLeaveEvent(QGraphicsSceneHoverEvent*, const QString& tag) override
    {
        return record("hoverLeave", tag);
    }
    bool handleMouseReleaseEvent(QGraphicsSceneMouseEvent*, const QString& tag) override
    {
        return record("release", tag);
    }
    bool handleKeyPressEvent(QKeyEvent*, const QString& tag) override { return record("key", tag); }
    bool handleKeyReleaseEvent(QKeyEvent*, const QString& tag) override
    {
        return record("keyRelease", tag);
    }

private:
    QStringList* log;
};

} // namespace

class tst_GraphicsSceneExtra : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void nonInteractiveGesture_data();
    void nonInteractiveGesture();
    void gestureEndsWithFirstButton();
    void wheelRemainders_data();
    void wheelRemainders();
    void wheelReachesItemsOnlyAboveHandlingObjects();
    void pressInEmptySpace();
    void eventHandlerHasFirstSay();
    void pressPriorities();
    void manipulatorPressAlsoRunsStockHandler();
    void lineDraggerTakesLeftPressOnly();
    void firstDragMoveServesItemsTwice();
    void mouseTrackingReachesTheViews();
    void releaseReachesEveryItem();
    void hoverGoesToFirstItemUnderCursor();
    void hoverFrozenDuringDrag();
    void hoverPriorityDecidesHoverableItem();
    void keysReachItemsAsymmetrically();
    void contextMenuAskedOnlyWithoutTaker();
    void doubleClickOrder();
    void itemsRemovedDuringDispatchAreSkipped_data();
    void itemsRemovedDuringDispatchAreSkipped();
    void handlerDeletesItemsBeforePressDelivery();
    void plainHoverableDeletedByAnother();
    void raisedItemsReorderDelivery();

private:
    ProbeItem* addProbe(const QString& name, const QRectF& rect, qreal z = 0.0)
    {
        auto* item = new ProbeItem(name, rect, &log);
        item->setZValue(z);
        scene->addItem(item);
        return item;
    }

    /// Installs a handler that consumes the listed kinds; it outlives the scene.
    RecordingHandler& installHandler(const QSet<QString>& consume = {})
    {
        handler = std::make_unique<RecordingHandler>(&log);
        handler->consume = consume;
        scene->setEventHandler(handler.get());
        return *handler;
    }

    QStringList log;
    std::unique_ptr<RecordingHandler> handler;
    std::unique_ptr<GraphicsSceneExtra> scene;
    std::unique_ptr<QGraphicsView> view;
};

void tst_GraphicsSceneExtra::initTestCase()
{
    qRegisterMetaType<QGraphicsSceneMouseEvent*>();
    StyleManager::createManager(StyleManagerDataProvider());
}

void tst_GraphicsSceneExtra::cleanupTestCase()
{
    StyleManager::deleteManager();
}

void tst_GraphicsSceneExtra::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    log.clear();
    scene = std::make_unique<GraphicsSceneExtra>();
    scene->setSceneRect(0, 0, 400, 400);
    // Text items measure their hit shape through the scene's first view.
    view = std::make_unique<QGraphicsView>(scene.get());
}

void tst_GraphicsSceneExtra::cleanup()
{
    view.reset();
    scene.reset();
    handler.reset();
}

void tst_GraphicsSceneExtra::nonInteractiveGesture_data()
{
    QTest::addColumn<int>("moves");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("click") << 0 << QStringList {"pressed", "released"};
    QTest::newRow("drag") << 2
                          << QStringList {"pressed", "dragStarted", "dragMotion", "dragFinished"};
}

void tst_GraphicsSceneExtra::nonInteractiveGesture()
{
    QFETCH(int, moves);
    QFETCH(QStringList, expected);
    scene->setInteractiveMode(false);
    ProbeItem* item = addProbe("item", QRectF(0, 0, 100, 100));
    QStringList signalLog;
    const auto note = [&](auto signal, const char* name) {
        connect(scene.get(), signal, this, [&signalLog, name] { signalLog << name; });
    };
    note(&GraphicsSceneExtra::mousePressed, "pressed");
    note(&GraphicsSceneExtra::mouseReleased, "released");
    note(&GraphicsSceneExtra::dragStarted, "dragStarted");
    note(&GraphicsSceneExtra::dragMotion, "dragMotion");
    note(&GraphicsSceneExtra::dragFinished, "dragFinished");

    press(*scene, QPointF(50, 50));
    for (int i = 0; i < moves; ++i)
        move(*scene, QPointF(60 + i, 60));
    release(*scene, QPointF(60, 60));

    QCOMPARE(signalLog, expected);
    // The left press belongs to the viewer's tools: the item never saw it, nor the moves.
    QVERIFY(!log.contains("item:press"));
    QVERIFY(!log.contains("item:move"));
    QVERIFY(!item->isDragging());
    QVERIFY(!scene->isDragging());
    QVERIFY(!scene->isPressed());
}

void tst_GraphicsSceneExtra::gestureEndsWithFirstButton()
{
    QSignalSpy finished(scene.get(), &GraphicsSceneExtra::dragFinished);
    press(*scene, QPointF(300, 300), Qt::LeftButton);
    move(*scene, QPointF(310, 300), Qt::LeftButton);
    QVERIFY(scene->isDragging());
    press(*scene, QPointF(310, 300), Qt::RightButton, Qt::LeftButton);
    release(*scene, QPointF(310, 300), Qt::RightButton, Qt::LeftButton);
    QVERIFY(scene->isDragging());
    QCOMPARE(finished.count(), 0);
    release(*scene, QPointF(310, 300), Qt::LeftButton);
    QVERIFY(!scene->isDragging());
    QCOMPARE(finished.count(), 1);

    // A button still held once the gesture's own button is up starts no drag: its release
    // would not end one.
    press(*scene, QPointF(300, 300), Qt::LeftButton);
    press(*scene, QPointF(300, 300), Qt::RightButton, Qt::LeftButton);
    release(*scene, QPointF(300, 300), Qt::LeftButton, Qt::RightButton);
    move(*scene, QPointF(320, 300), Qt::RightButton);
    QVERIFY(!scene->isDragging());
    release(*scene, QPointF(320, 300), Qt::RightButton);
    QCOMPARE(finished.count(), 1);

    // A double click stands in for a press: a drag from it ends at its release.
    press(*scene, QPointF(300, 300), Qt::LeftButton);
    release(*scene, QPointF(300, 300), Qt::LeftButton);
    sendMouse(*scene, QEvent::GraphicsSceneMouseDoubleClick, QPointF(300, 300), Qt::LeftButton,
        Qt::LeftButton);
    move(*scene, QPointF(330, 300), Qt::LeftButton);
    QVERIFY(scene->isDragging());
    release(*scene, QPointF(330, 300), Qt::LeftButton);
    QVERIFY(!scene->isDragging());
    QCOMPARE(finished.count(), 2);
}

void tst_GraphicsSceneExtra::wheelRemainders_data()
{
    QTest::addColumn<QList<int>>("deltas");
    QTest::addColumn<QList<bool>>("horizontal");
    QTest::addColumn<QList<int>>("scrolled");
    QTest::newRow("three quarters of a third")
        << QList<int> {40, 40, 40} << QList<bool> {0, 0, 0} << QList<int> {120};
    QTest::newRow("250 keeps 10") << QList<int> {250, 110} << QList<bool> {0, 0}
                                  << QList<int> {240, 120};
    QTest::newRow("opposite deltas cancel")
        << QList<int> {100, -100, 100} << QList<bool> {0, 0, 0} << QList<int> {};
    QTest::newRow("negative truncates toward zero")
        << QList<int> {-250} << QList<bool> {0} << QList<int> {-240};
    QTest::newRow("orientations keep their own remainder")
        << QList<int> {60, 60, 60, 60} << QList<bool> {0, 1, 1, 0} << QList<int> {120, 120};
}

void tst_GraphicsSceneExtra::wheelRemainders()
{
    QFETCH(QList<int>, deltas);
    QFETCH(QList<bool>, horizontal);
    QFETCH(QList<int>, scrolled);
    QList<int> seen;
    QSignalSpy interacted(scene.get(), &GraphicsSceneExtra::userInteracted);
    connect(scene.get(), &GraphicsSceneExtra::mouseScrolled, this,
        [&](QPointF pos, int delta, Qt::Orientation) {
            QCOMPARE(pos, QPointF(20, 30));
            seen << delta;
        });
    for (int i = 0; i < deltas.size(); ++i)
        wheel(*scene, QPointF(20, 30), deltas[i], horizontal[i] ? Qt::Horizontal : Qt::Vertical);
    QCOMPARE(seen, scrolled);
    QCOMPARE(interacted.count(), scrolled.size());
}

void tst_GraphicsSceneExtra::wheelReachesItemsOnlyAboveHandlingObjects()
{
    // The stock handling runs first and gives the raw wheel to the topmost taker; the scene's own
    // delivery adds whole notches for every overlay item under the point, top first.
    ProbeItem* quiet = addProbe("quiet", QRectF(0, 0, 50, 50));
    quiet->setHandleRightClick(false);
    wheel(*scene, QPointF(25, 25), 120);
    QCOMPARE(log, QStringList {"quiet:wheel120"});

    // A line item under the cursor makes the point one that handles events.
    log.clear();
    auto* line = new QGraphicsLineItem(0, 25, 50, 25);
    line->setPen(QPen(Qt::black, 4));
    scene->addItem(line);
    wheel(*scene, QPointF(25, 25), 120);
    QCOMPARE(log, (QStringList {"quiet:wheel120", "quiet:wheel120"}));

    delete line;
    log.clear();
    addProbe("handling", QRectF(0, 0, 50, 50), 1);
    wheel(*scene, QPointF(25, 25), 60);
    QCOMPARE(log, QStringList {"handling:wheel60"});
    log.clear();
    wheel(*scene, QPointF(25, 25), 70);
    // The remainder 10 stays for later.
    QCOMPARE(log, (QStringList {"handling:wheel70", "handling:wheel120", "quiet:wheel120"}));
}

void tst_GraphicsSceneExtra::pressInEmptySpace()
{
    ProbeItem* item = addProbe("item", QRectF(0, 0, 50, 50));
    QSignalSpy empty(scene.get(), &GraphicsSceneExtra::pressedInEmptySpace);
    press(*scene, QPointF(200, 200), Qt::LeftButton);
    QCOMPARE(empty.count(), 1);
    QCOMPARE(empty.at(0).at(0).value<Qt::MouseButtons>(), Qt::MouseButtons(Qt::LeftButton));
    release(*scene, QPointF(200, 200));

    QSignalSpy clicked(item, &CustomGraphicsItem::leftClicked);
    press(*scene, QPointF(25, 25), Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(empty.count(), 1);
    release(*scene, QPointF(25, 25));

    // A press with two buttons held that no item takes reports both.
    press(*scene, QPointF(200, 200), Qt::RightButton, Qt::MiddleButton);
    QCOMPARE(empty.count(), 2);
    QCOMPARE(empty.at(1).at(0).value<Qt::MouseButtons>(), Qt::RightButton | Qt::MiddleButton);
}

void tst_GraphicsSceneExtra::eventHandlerHasFirstSay()
{
    RecordingHandler& handler = installHandler({"press", "move"});
    scene->setViewerTag("axial");
    addProbe("item", QRectF(0, 0, 50, 50));
    auto* movable = new QGraphicsRectItem(0, 0, 50, 50);
    movable->setFlag(QGraphicsItem::ItemIsMovable);
    movable->setZValue(-1);
    scene->addItem(movable);
    QSignalSpy empty(scene.get(), &GraphicsSceneExtra::pressedInEmptySpace);
    QSignalSpy pressed(scene.get(), &GraphicsSceneExtra::mousePressed);

    press(*scene, QPointF(25, 25));
    move(*scene, QPointF(30, 25));
    QCOMPARE(log, (QStringList {"handler:press@axial", "handler:move@axial"}));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(empty.count(), 0);
    // The stock handling did not run either: nobody grabbed the mouse.
    QCOMPARE(scene->mouseGrabberItem(), nullptr);

    log.clear();
    handler.consume = {};
    release(*scene, QPointF(30, 25));
    QCOMPARE(log, (QStringList {"handler:release@axial", "item:release"}));
}

void tst_GraphicsSceneExtra::pressPriorities()
{
    // Bottom to top: a movable stock item, a pixmap, an overlay item, a text item. Lists are served
    // by kind first: text, overlay items, then pixmaps, whatever their stacking.
    auto* movable = new QGraphicsRectItem(0, 0, 100, 100);
    movable->setFlag(QGraphicsItem::ItemIsMovable);
    scene->addItem(movable);
    QPixmap pixels(100, 100);
    pixels.fill(Qt::red);
    auto* pixmap = new CustomGraphicsPixmapItem("pixmap", nullptr, pixels);
    pixmap->setZValue(5);
    scene->addItem(pixmap);
    ProbeItem* overlay = addProbe("overlay", QRectF(0, 0, 40, 40), 1);
    auto* text = new CustomGraphicsTextItem();
    text->setPlainText("note");
    text->setPos(QPointF(0, 0));
    text->setZValue(0.5);
    scene->addItem(text);

    QSignalSpy textClicked(text, &CustomGraphicsTextItem::leftClicked);
    QSignalSpy overlayClicked(overlay, &CustomGraphicsItem::leftClicked);
    QSignalSpy pixmapClicked(pixmap, &CustomGraphicsPixmapItem::leftClicked);
    QSignalSpy empty(scene.get(), &GraphicsSceneExtra::pressedInEmptySpace);

    const QPointF onText = text->mapToScene(text->boundingRect().center());
    QVERIFY(QRectF(0, 0, 40, 40).contains(onText));
    press(*scene, onText);
    QCOMPARE(textClicked.count(), 1);
    QCOMPARE(overlayClicked.count(), 0);
    QCOMPARE(scene->mouseGrabberItem(), nullptr);
    release(*scene, onText);

    // Beside the text but on the overlay item: the overlay item takes it, the pixmap above does
    // not get it, and the stock handling does not run.
    const QPointF onOverlay(35, 35);
    QVERIFY(!text->mapToScene(text->shape()).contains(onOverlay));
    press(*scene, onOverlay);
    QCOMPARE(overlayClicked.count(), 1);
    QCOMPARE(pixmapClicked.count(), 0);
    QCOMPARE(scene->mouseGrabberItem(), nullptr);
    release(*scene, onOverlay);

    // Outside the overlay item: the pixmap takes it.
    press(*scene, QPointF(80, 80));
    QCOMPARE(pixmapClicked.count(), 1);
    QCOMPARE(empty.count(), 0);
    release(*scene, QPointF(80, 80));

    // A hidden pixmap is skipped; nobody takes the press, so the stock scene runs and its movable
    // item grabs the mouse.
    pixmap->setVisible(false);
    press(*scene, QPointF(80, 80));
    QCOMPARE(pixmapClicked.count(), 1);
    QCOMPARE(empty.count(), 1);
    QCOMPARE(scene->mouseGrabberItem(), movable);
    release(*scene, QPointF(80, 80));
}

void tst_GraphicsSceneExtra::manipulatorPressAlsoRunsStockHandler()
{
    auto* movable = new QGraphicsRectItem(0, 0, 400, 400);
    movable->setFlag(QGraphicsItem::ItemIsMovable);
    scene->addItem(movable);
    auto* manipulator = new LineManipulationGraphicsItem();
    manipulator->setViewportRectangle(QRectF(0, 0, 400, 400));
    manipulator->setLine(QPointF(200, 200), QVector2D(1, 0));
    manipulator->setZValue(10);
    scene->addItem(manipulator);
    QSignalSpy empty(scene.get(), &GraphicsSceneExtra::pressedInEmptySpace);

    press(*scene, QPointF(200, 200), Qt::RightButton);
    QVERIFY(!manipulator->isManipulating());
    QCOMPARE(empty.count(), 1);
    release(*scene, QPointF(200, 200), Qt::RightButton);

    press(*scene, QPointF(200, 200), Qt::LeftButton);
    QVERIFY(manipulator->isManipulating());
    QCOMPARE(empty.count(), 1);
    QCOMPARE(scene->mouseGrabberItem(), movable);
    release(*scene, QPointF(200, 200));
    QVERIFY(!manipulator->isManipulating());
    QGuiApplication::restoreOverrideCursor();
}

void tst_GraphicsSceneExtra::lineDraggerTakesLeftPressOnly()
{
    auto* dragger = new LineDragger(Qt::Vertical);
    dragger->setBoundingRect(QRectF(0, 0, 400, 400));
    dragger->setLine(0, 0, 0, 400);
    dragger->setPickWidth(10);
    dragger->move(QPointF(100, 0));
    scene->addItem(dragger);
    QSignalSpy empty(scene.get(), &GraphicsSceneExtra::pressedInEmptySpace);

    press(*scene, QPointF(100, 200), Qt::RightButton);
    QVERIFY(!dragger->isLeftDragging());
    QCOMPARE(empty.count(), 1);
    release(*scene, QPointF(100, 200), Qt::RightButton);

    press(*scene, QPointF(100, 200), Qt::LeftButton);
    QVERIFY(dragger->isLeftDragging());
    QCOMPARE(empty.count(), 1);
    // The dragger follows the drag (from the second delivery of the first move on).
    move(*scene, QPointF(150, 210));
    QCOMPARE(dragger->pos().x(), 150.0);
    release(*scene, QPointF(150, 210));
    QVERIFY(!dragger->isLeftDragging());
}

void tst_GraphicsSceneExtra::firstDragMoveServesItemsTwice()
{
    addProbe("near", QRectF(0, 0, 50, 50), 2);
    addProbe("far", QRectF(300, 300, 50, 50), 1);
    QSignalSpy moved(scene.get(), &GraphicsSceneExtra::mouseMoved);

    // Without a button and without tracking, moves reach no item and report nothing.
    move(*scene, QPointF(10, 10), Qt::NoButton);
    QCOMPARE(log, QStringList());
    QCOMPARE(moved.count(), 0);

    press(*scene, QPointF(200, 200), Qt::RightButton);
    log.clear();
    move(*scene, QPointF(210, 200), Qt::RightButton);
    QCOMPARE(log, (QStringList {"near:move", "far:move", "near:move", "far:move"}));
    log.clear();
    move(*scene, QPointF(220, 200), Qt::RightButton);
    QCOMPARE(log, (QStringList {"near:move", "far:move"}));
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved.at(1).at(0).toPointF(), QPointF(220, 200));
    release(*scene, QPointF(220, 200), Qt::RightButton);

    scene->setMouseTracking(true);
    log.clear();
    move(*scene, QPointF(10, 10), Qt::NoButton);
    QCOMPARE(log, QStringList());
    QCOMPARE(moved.count(), 3);
}

// Without hover items a view's viewport does not track the mouse, and a tracking scene then
// heard no move without a button.
void tst_GraphicsSceneExtra::mouseTrackingReachesTheViews()
{
    QVERIFY(!view->viewport()->hasMouseTracking());
    scene->setMouseTracking(true);
    QVERIFY(view->viewport()->hasMouseTracking());
}

void tst_GraphicsSceneExtra::releaseReachesEveryItem()
{
    addProbe("low", QRectF(0, 0, 50, 50), -1);
    addProbe("high", QRectF(300, 300, 50, 50), 3);
    auto* manipulator = new LineManipulationGraphicsItem();
    manipulator->setViewportRectangle(QRectF(0, 0, 400, 400));
    manipulator->setLine(QPointF(200, 100), QVector2D(1, 0));
    scene->addItem(manipulator);
    manipulator->startManipulation(QPointF(200, 100));
    QVERIFY(manipulator->isManipulating());
    QSignalSpy released(scene.get(), &GraphicsSceneExtra::mouseReleased);

    press(*scene, QPointF(200, 300));
    log.clear();
    release(*scene, QPointF(200, 300));
    QCOMPARE(log, (QStringList {"high:release", "low:release"}));
    QVERIFY(!manipulator->isManipulating());
    // In interactive mode a release is reported by the view and the items, not by this signal.
    QCOMPARE(released.count(), 0);
    QGuiApplication::restoreOverrideCursor();
}

void tst_GraphicsSceneExtra::hoverGoesToFirstItemUnderCursor()
{
    addProbe("top", QRectF(0, 0, 100, 100), 2);
    addProbe("below", QRectF(50, 50, 100, 100), 1);
    addProbe("apart", QRectF(300, 300, 50, 50));

    hover(*scene, QPointF(75, 75));
    hover(*scene, QPointF(80, 80));
    QCOMPARE(log, (QStringList {"top:enter", "top:hover"}));
    log.clear();
    // Only "below" is under the cursor now: it enters, "top" leaves.
    hover(*scene, QPointF(120, 120));
    QCOMPARE(log, (QStringList {"top:leave", "below:enter"}));
    log.clear();
    // Back into the overlap: "top" takes the hover; "below" stays hovered without events.
    hover(*scene, QPointF(75, 75));
    QCOMPARE(log, (QStringList {"top:enter"}));
    log.clear();
    hover(*scene, QPointF(320, 320));
    QCOMPARE(log, (QStringList {"top:leave", "below:leave", "apart:enter"}));
    log.clear();

    QGraphicsSceneHoverEvent leave(QEvent::GraphicsSceneHoverLeave);
    leave.setScenePos(QPointF(-10, -10));
    scene->hoverLeaveEvent(&leave);
    QCOMPARE(log, (QStringList {"apart:leave"}));
}

void tst_GraphicsSceneExtra::hoverFrozenDuringDrag()
{
    addProbe("a", QRectF(0, 0, 50, 50));
    addProbe("b", QRectF(100, 0, 50, 50));
    hover(*scene, QPointF(25, 25));
    press(*scene, QPointF(200, 200));
    move(*scene, QPointF(210, 200));
    log.clear();
    hover(*scene, QPointF(125, 25));
    QGraphicsSceneHoverEvent leave(QEvent::GraphicsSceneHoverLeave);
    scene->hoverLeaveEvent(&leave);
    QCOMPARE(log, QStringList());
    release(*scene, QPointF(210, 200));
    log.clear();
    hover(*scene, QPointF(125, 25));
    QCOMPARE(log, (QStringList {"a:leave", "b:enter"}));
}

void tst_GraphicsSceneExtra::hoverPriorityDecidesHoverableItem()
{
    auto* low = new HoverableProbe("low", QRectF(0, 0, 100, 100), &log);
    auto* high = new HoverableProbe("high", QRectF(0, 0, 100, 100), &log);
    low->setZValue(5);
    high->setHoverPriority(3);
    low->setHoverPriority(1);
    scene->addItem(low);
    scene->addItem(high);

    hover(*scene, QPointF(50, 50));
    QVERIFY(high->isHovered());
    QVERIFY(!low->isHovered());
    hover(*scene, QPointF(200, 200));
    QVERIFY(!high->isHovered());
    QVERIFY(!low->isHovered());
}

void tst_GraphicsSceneExtra::keysReachItemsAsymmetrically()
{
    installHandler({"key"});
    addProbe("item", QRectF(0, 0, 10, 10));

    QKeyEvent pressEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
    QCoreApplication::sendEvent(scene.get(), &pressEvent);
    QKeyEvent releaseEvent(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier, "a");
    QCoreApplication::sendEvent(scene.get(), &releaseEvent);
    QCOMPARE(log, (QStringList {"item:key", "handler:key@", "handler:keyRelease@"}));
}

void tst_GraphicsSceneExtra::contextMenuAskedOnlyWithoutTaker()
{
    addProbe("item", QRectF(0, 0, 50, 50));
    QSignalSpy asked(scene.get(), &GraphicsSceneExtra::rightClickMenuAsked);
    for (const QPointF& pos : {QPointF(25, 25), QPointF(200, 200)}) {
        QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
        event.setReason(QGraphicsSceneContextMenuEvent::Mouse);
        event.setScenePos(pos);
        event.setScreenPos(QPoint(700, 800));
        QCoreApplication::sendEvent(scene.get(), &event);
    }
    QCOMPARE(asked.count(), 1);
    QCOMPARE(asked.at(0).at(0).toPoint(), QPoint(700, 800));
}

void tst_GraphicsSceneExtra::doubleClickOrder()
{
    installHandler({"double"});
    connect(scene.get(), &GraphicsSceneExtra::userInteracted, this, [&] { log << "interacted"; });
    connect(scene.get(), &GraphicsSceneExtra::mouseDoubleClicked, this,
        [&](Qt::MouseButtons buttons, QPointF pos) {
            QCOMPARE(buttons, Qt::MouseButtons(Qt::LeftButton));
            QCOMPARE(pos, QPointF(5, 6));
            log << "doubleClicked";
        });
    sendMouse(*scene, QEvent::GraphicsSceneMouseDoubleClick, QPointF(5, 6), Qt::LeftButton,
        Qt::LeftButton);
    QCOMPARE(log, (QStringList {"handler:double@", "interacted", "doubleClicked"}));
}

void tst_GraphicsSceneExtra::itemsRemovedDuringDispatchAreSkipped_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("press") << "press";
    QTest::newRow("move") << "move";
    QTest::newRow("release") << "release";
    QTest::newRow("hover") << "hover";
    QTest::newRow("wheel") << "wheel";
}

void tst_GraphicsSceneExtra::itemsRemovedDuringDispatchAreSkipped()
{
    QFETCH(QString, kind);
    // Four items over one point, top first: "actor" deletes "victim" and itself and takes
    // "removed" out of the scene; "witness" at the bottom must still be served.
    ProbeItem* actor = addProbe("actor", QRectF(0, 0, 100, 100), 4);
    QPointer<ProbeItem> victim = addProbe("victim", QRectF(0, 0, 100, 100), 3);
    ProbeItem* removed = addProbe("removed", QRectF(0, 0, 100, 100), 2);
    addProbe("witness", QRectF(0, 0, 100, 100), 1);
    std::unique_ptr<ProbeItem> removedOwner;
    QPointer<ProbeItem> actorGuard = actor;
    const auto act = [&, actor] {
        delete victim.data();
        scene->removeItem(removed);
        removedOwner.reset(removed);
        delete actor;
    };
    // Hover: make "victim" hovered first, so that it would be owed a leave.
    if (kind == "hover") {
        victim->setZValue(10);
        hover(*scene, QPointF(50, 50));
        victim->setZValue(3);
        log.clear();
    }

    const QPointF at(50, 50);
    if (kind == "press") {
        actor->onPress = act;
        // The middle button: no overlay item accepts it, so every one is offered it.
        press(*scene, at, Qt::MiddleButton);
    } else if (kind == "move") {
        press(*scene, QPointF(300, 300), Qt::RightButton);
        move(*scene, QPointF(301, 300), Qt::RightButton);
        log.clear();
        actor->onMove = act;
        move(*scene, at, Qt::RightButton);
    } else if (kind == "release") {
        press(*scene, QPointF(300, 300), Qt::RightButton);
        log.clear();
        actor->onRelease = act;
        release(*scene, at, Qt::RightButton);
    } else if (kind == "hover") {
        actor->onHoverEnter = act;
        hover(*scene, at);
    } else {
        // The stock handling gives the wheel to the top item first; act in the scene's own pass.
        int wheelCalls = 0;
        actor->onWheel = [&] {
            if (++wheelCalls == 2)
                act();
        };
        wheel(*scene, at, 120);
    }

    QVERIFY(actorGuard.isNull());
    QVERIFY(victim.isNull());
    QCOMPARE(removed->scene(), nullptr);
    QVERIFY(!log.contains("victim:" + kind));
    QVERIFY(!log.filter(QRegularExpression("^(victim|removed):")).size());
    if (kind != "hover")
        QVERIFY2(log.filter("witness:").size() > 0, qPrintable(log.join(',')));

    // The scene keeps working with what is left.
    log.clear();
    press(*scene, QPointF(50, 50), Qt::MiddleButton);
    release(*scene, QPointF(50, 50), Qt::MiddleButton);
    // The second press is the stock scene's: the middle button is taken by nobody.
    QCOMPARE(log, (QStringList {"witness:press", "witness:press", "witness:release"}));
}

void tst_GraphicsSceneExtra::handlerDeletesItemsBeforePressDelivery()
{
    QPointer<ProbeItem> doomed = addProbe("doomed", QRectF(0, 0, 100, 100), 2);
    addProbe("kept", QRectF(0, 0, 100, 100), 1);
    installHandler().onPress = [&] { delete doomed.data(); };
    press(*scene, QPointF(50, 50), Qt::MiddleButton);
    QVERIFY(doomed.isNull());
    QCOMPARE(log, (QStringList {"handler:press@", "kept:press", "kept:press"}));
}

void tst_GraphicsSceneExtra::plainHoverableDeletedByAnother()
{
    // Items that are no QObject are found in the scene's item list, made again when it changed.
    auto* first = new PlainHoverable(QRectF(0, 0, 50, 50), &log, "first");
    auto* second = new PlainHoverable(QRectF(100, 0, 50, 50), &log, "second");
    auto* third = new PlainHoverable(QRectF(200, 0, 50, 50), &log, "third");
    first->setHoverPriority(3);
    second->setHoverPriority(2);
    third->setHoverPriority(1);
    scene->addItem(first);
    scene->addItem(second);
    scene->addItem(third);
    hover(*scene, QPointF(25, 25));
    QCOMPARE(log, QStringList {"first:hovered"});
    log.clear();

    first->onHoverState = [&](bool) { delete second; };
    hover(*scene, QPointF(225, 25));
    QCOMPARE(log, (QStringList {"first:unhovered", "third:hovered"}));
    QCOMPARE(scene->items().size(), 2);
}

void tst_GraphicsSceneExtra::raisedItemsReorderDelivery()
{
    ProbeItem* a = addProbe("a", QRectF(0, 0, 10, 10), 1);
    addProbe("b", QRectF(20, 0, 10, 10), 2);
    press(*scene, QPointF(200, 200), Qt::MiddleButton);
    log.clear();
    release(*scene, QPointF(200, 200), Qt::MiddleButton);
    QCOMPARE(log, (QStringList {"b:release", "a:release"}));

    // A child sorts with its parent's accumulated z-value.
    auto* group = new QGraphicsRectItem(0, 0, 1, 1);
    group->setZValue(5);
    scene->addItem(group);
    a->setParentItem(group);
    log.clear();
    release(*scene, QPointF(200, 200), Qt::MiddleButton);
    QCOMPARE(log, (QStringList {"a:release", "b:release"}));
}

QTEST_MAIN(tst_GraphicsSceneExtra)
#include "tst_graphicssceneextra.moc"
