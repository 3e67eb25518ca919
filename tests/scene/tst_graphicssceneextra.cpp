#include "SceneTestSupport.h"

#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/graphics/manipulators/LineDragger.h>
#include <guicore/graphics/manipulators/LineManipulationGraphicsItem.h>
#include <guicore/graphics/scene/GraphicsSceneEventHandler.h>
#include <guicore/graphics/scene/KeyboardInteractionHandler.h>
#include <guicore/graphics/scene/KeyboardInteractionListener.h>
#include <guicore/graphics/scene/WheelEventHandler.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

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

using Mouse = QGraphicsSceneMouseEvent;
using Hover = QGraphicsSceneHoverEvent;

/// Consumes the events whose kinds are listed, and records every call; a press first runs onPress.
struct RecordingHandler : GraphicsSceneEventHandler
{
    QStringList* log = nullptr;
    QSet<QString> consume;
    std::function<void()> onPress;

#define RECORDED(handler, Event, what)                                                             \
    bool handler(Event*, const QString& tag) override                                              \
    {                                                                                              \
        if (QLatin1String(what) == QLatin1String("press") && onPress)                              \
            onPress();                                                                             \
        log->append(QStringLiteral("handler:" what "@") + tag);                                    \
        return consume.contains(what);                                                             \
    }
    RECORDED(handleMousePressEvent, Mouse, "press")
    RECORDED(handleMouseDoubleClickEvent, Mouse, "double")
    RECORDED(handleMouseMoveEvent, Mouse, "move")
    RECORDED(handleMouseReleaseEvent, Mouse, "release")
    RECORDED(handleHoverEvent, Hover, "hover")
    RECORDED(handleHoverLeaveEvent, Hover, "hoverLeave")
    RECORDED(handleKeyPressEvent, QKeyEvent, "key")
    RECORDED(handleKeyReleaseEvent, QKeyEvent, "keyRelease")
};

struct RecordingListener : KeyboardInteractionListener
{
    QList<int> pressed, released;
    void onKeyPressed(QKeyEvent* event) override { pressed.append(event->key()); }
    void onKeyReleased(QKeyEvent* event) override { released.append(event->key()); }
};

struct KeyboardScene : KeyboardInteractionHandler
{
    void press(QKeyEvent* event) const { notifyKeyPressed(event); }
    void release(QKeyEvent* event) const { notifyKeyReleased(event); }
};

QGraphicsRectItem* addMovable(QGraphicsScene& scene, const QRectF& rect, qreal z = 0.0)
{
    auto* movable = scene.addRect(rect);
    movable->setFlag(QGraphicsItem::ItemIsMovable);
    movable->setZValue(z);
    return movable;
}

// Subclasses ask the scene where its own items handle events.
struct OpenScene : GraphicsSceneExtra
{
    using GraphicsSceneExtra::eventHandlingObjectBelowMouse;
};

} // namespace

// The scene's own dispatch of mouse, hover, wheel and key events to its items, and the wheel and
// keyboard helpers of the viewers.
class tst_GraphicsSceneExtra : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<QGraphicsSceneMouseEvent*>();
        StyleManager::createManager(StyleManagerDataProvider());
    }
    void cleanupTestCase() { StyleManager::deleteManager(); }
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        log.clear();
        scene = std::make_unique<OpenScene>();
        scene->setSceneRect(0, 0, 400, 400);
        // Text items measure their hit shape through the scene's first view.
        view = std::make_unique<QGraphicsView>(scene.get());
    }
    void cleanup()
    {
        view.reset();
        scene.reset();
        handler.reset();
        QGuiApplication::restoreOverrideCursor();
    }

    void nonInteractiveGesture()
    {
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

        // A click, then a drag. The left press belongs to the viewer's tools: the item never sees
        // it, nor the moves.
        const QString served = run("p50,50 r60,60 p50,50 m60,60 m61,60 r60,60");
        QVERIFY(!served.contains(QRegularExpression(":(press|move)")));
        QCOMPARE(signalLog,
            (QStringList {
                "pressed", "released", "pressed", "dragStarted", "dragMotion", "dragFinished"}));
        QVERIFY(!item->isDragging() && !scene->isDragging() && !scene->isPressed());
    }

    void gestureEndsWithFirstButton()
    {
        QSignalSpy finished(scene.get(), &GraphicsSceneExtra::dragFinished);
        const auto drag = [&](const QString& script) {
            run(script);
            return QStringLiteral("%1, finished %2")
                .arg(scene->isDragging() ? "dragging" : "idle")
                .arg(finished.count());
        };
        // A second button pressed and released in between does not end the drag.
        QCOMPARE(drag("p300,300 m310,300 pRL310,300 rRL310,300"), "dragging, finished 0");
        QCOMPARE(drag("r310,300"), "idle, finished 1");
        // A button still held once the gesture's own button is up starts no drag: its release
        // would not end one.
        QCOMPARE(drag("p300,300 pRL300,300 rLR300,300 mR320,300 rR320,300"), "idle, finished 1");
        // A double click stands in for a press: a drag from it ends at its release.
        QCOMPARE(drag("p300,300 r300,300 d300,300 m330,300"), "dragging, finished 1");
        QCOMPARE(drag("r330,300"), "idle, finished 2");
    }

    void wheelRemainders()
    {
        QList<int> seen;
        QSignalSpy interacted(scene.get(), &GraphicsSceneExtra::userInteracted);
        connect(scene.get(), &GraphicsSceneExtra::mouseScrolled, this,
            [&](QPointF pos, int delta, Qt::Orientation) {
                QCOMPARE(pos, QPointF(20, 30));
                seen << delta;
            });
        // Whole notches go out, the rest is kept per orientation and adds up with its sign;
        // negative sums are cut toward zero.
        run("w20,30,250 w20,30,110 W20,30,60 w20,30,-100 W20,30,60 w20,30,-150 w20,30,100");
        QCOMPARE(seen, (QList<int> {240, 120, 120, -240}));
        QCOMPARE(interacted.count(), 4);
    }

    void wheelReachesItemsOnlyAboveHandlingObjects()
    {
        // The stock handling runs first and gives the raw wheel to the topmost taker; the scene's
        // own delivery adds whole notches for every overlay item under the point, top first.
        addProbe("quiet", QRectF(0, 0, 50, 50))->setHandleRightClick(false);
        QCOMPARE(run("w25,25,120"), "quiet:wheel120");
        // A line item under the cursor makes the point one that handles events.
        // Only the line itself counts: beside it, the quiet item alone is no such object.
        QGraphicsLineItem* line = scene->addLine(0, 25, 50, 25, QPen(Qt::black, 4));
        QCOMPARE(run("w25,25,120 w25,10,120"), "quiet:wheel120 quiet:wheel120 quiet:wheel120");
        QVERIFY(scene->eventHandlingObjectBelowMouse(QPointF(25, 25)));
        QVERIFY(!scene->eventHandlingObjectBelowMouse(QPointF(25, 10)));
        delete line;
        addProbe("handling", QRectF(0, 0, 50, 50), 1);
        QCOMPARE(run("w25,25,60"), "handling:wheel60");
        // The remainder 10 stays for later.
        QCOMPARE(run("w25,25,70"), "handling:wheel70 handling:wheel120 quiet:wheel120");
    }

    void wheelHandlerSteps()
    {
        // Deltas fed in turn, the whole steps returned, the fraction left over.
        struct Case
        {
            QList<int> deltas, steps;
            double remainder;
        };
        const Case cases[] = {{{60, -120}, {0, -1}, 0.0}, // a reversal drops the fraction
            {{300}, {2}, 0.5}, {{-90, -90}, {0, -1}, -0.5}, {{60, 0, 60}, {0, 0, 1}, 0.0}};
        for (const Case& c : cases) {
            WheelEventHandler wheelHandler;
            QList<int> steps;
            for (int delta : c.deltas) {
                QGraphicsSceneWheelEvent event(QEvent::GraphicsSceneWheel);
                event.setDelta(delta);
                steps.append(wheelHandler.handleWheelEvent(&event));
            }
            QCOMPARE(steps, c.steps);
            QCOMPARE(wheelHandler.remainder(), c.remainder);
        }
        QCOMPARE(WheelEventHandler().handleWheelEvent(nullptr), 0);
    }

    void keyboardListenersRegisteredOnceAndCopied()
    {
        RecordingListener first, second;
        KeyboardScene keyboard;
        keyboard.registerKeyboardListener(&first);
        keyboard.registerKeyboardListener(&first);
        keyboard.registerKeyboardListener(nullptr);
        const KeyboardScene copy = keyboard; // the copy notifies the same listeners
        keyboard.registerKeyboardListener(&second);

        QKeyEvent pressEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QKeyEvent releaseEvent(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
        keyboard.press(&pressEvent);
        keyboard.release(&releaseEvent);
        copy.press(&pressEvent);
        QCOMPARE(first.pressed + first.released, QList<int>(3, Qt::Key_A));
        QCOMPARE(second.pressed + second.released, (QList<int> {Qt::Key_A, Qt::Key_A}));
    }

    void eventHandlerHasFirstSay()
    {
        RecordingHandler& handler = installHandler({"press", "move"});
        scene->setViewerTag("axial");
        addProbe("item", QRectF(0, 0, 50, 50));
        addMovable(*scene, QRectF(0, 0, 50, 50), -1);
        QSignalSpy empty(scene.get(), &GraphicsSceneExtra::pressedInEmptySpace);
        QSignalSpy pressed(scene.get(), &GraphicsSceneExtra::mousePressed);

        QCOMPARE(run("p25,25 m30,25"), "handler:press@axial handler:move@axial");
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(empty.count(), 0);
        // The stock handling did not run either: nobody grabbed the mouse.
        QCOMPARE(scene->mouseGrabberItem(), nullptr);
        handler.consume = {};
        QCOMPARE(run("r30,25"), "handler:release@axial item:release");
    }

    void pressPriorities()
    {
        // Bottom to top: a movable stock item, a pixmap, an overlay item, a text item. Lists are
        // served by kind first: text, overlay items, then pixmaps, whatever their stacking.
        QGraphicsRectItem* movable = addMovable(*scene, QRectF(0, 0, 100, 100));
        QPixmap pixels(100, 100);
        pixels.fill(Qt::red);
        auto* pixmap = new CustomGraphicsPixmapItem("pixmap", nullptr, pixels);
        pixmap->setZValue(5);
        scene->addItem(pixmap);
        addProbe("overlay", QRectF(0, 0, 40, 40), 1);
        auto* text = new CustomGraphicsTextItem();
        text->setPlainText("note");
        text->setZValue(0.5);
        scene->addItem(text);
        connect(text, &CustomGraphicsTextItem::leftClicked, this, [&] { log << "text:clicked"; });
        connect(
            pixmap, &CustomGraphicsPixmapItem::leftClicked, this, [&] { log << "pixmap:clicked"; });
        connect(scene.get(), &GraphicsSceneExtra::pressedInEmptySpace, this,
            [&](Qt::MouseButtons buttons) {
                log << QStringLiteral("empty:%1").arg(buttons.toInt());
            });

        const QPoint onText = text->mapToScene(text->boundingRect().center()).toPoint();
        QVERIFY(QRect(0, 0, 40, 40).contains(onText));
        QCOMPARE(run(QStringLiteral("p%1,%2").arg(onText.x()).arg(onText.y())), "text:clicked");
        QCOMPARE(scene->mouseGrabberItem(), nullptr);
        // Beside the text but on the overlay item: the overlay item takes it, the pixmap above
        // does not get it, and the stock handling does not run. Releases reach every item.
        QVERIFY(!text->mapToScene(text->shape()).contains(QPointF(35, 35)));
        QCOMPARE(run(QStringLiteral("r%1,%2 p35,35").arg(onText.x()).arg(onText.y())),
            "overlay:release overlay:press");
        QCOMPARE(scene->mouseGrabberItem(), nullptr);
        // Outside the overlay item: the pixmap takes it.
        QCOMPARE(run("r35,35 p80,80"), "overlay:release pixmap:clicked");
        // A hidden pixmap is skipped; nobody takes the press, so the stock scene runs and its
        // movable item grabs the mouse.
        pixmap->setVisible(false);
        QCOMPARE(run("r80,80 p80,80"), "overlay:release empty:1");
        QCOMPARE(scene->mouseGrabberItem(), movable);
        // A press with two buttons held that no item takes reports both.
        QCOMPARE(run("r80,80 pRM200,200"), "overlay:release empty:6");
    }

    void manipulatorAndDraggerTakeLeftPressOnly()
    {
        QGraphicsRectItem* movable = addMovable(*scene, QRectF(0, 0, 400, 400));
        auto* manipulator = new LineManipulationGraphicsItem();
        manipulator->setViewportRectangle(QRectF(0, 0, 400, 400));
        manipulator->setLine(QPointF(200, 200), QVector2D(1, 0));
        scene->addItem(manipulator);
        manipulator->setZValue(10);
        auto* dragger = new LineDragger(Qt::Vertical);
        dragger->setBoundingRect(QRectF(0, 0, 400, 400));
        dragger->setLine(0, 0, 0, 400);
        dragger->setPickWidth(10);
        dragger->move(QPointF(100, 0));
        scene->addItem(dragger);
        QSignalSpy empty(scene.get(), &GraphicsSceneExtra::pressedInEmptySpace);
        const auto state = [&](const QString& script) {
            run(script);
            return QStringLiteral("manipulating %1 dragging %2 empty %3")
                .arg(manipulator->isManipulating())
                .arg(dragger->isLeftDragging())
                .arg(empty.count());
        };
        QCOMPARE(
            state("pR300,200 rR300,200 pR100,50 rR100,50"), "manipulating 0 dragging 0 empty 2");
        // The manipulator's left press also runs the stock handling: the movable item grabs.
        QCOMPARE(state("p300,200"), "manipulating 1 dragging 0 empty 2");
        QCOMPARE(scene->mouseGrabberItem(), movable);
        QCOMPARE(state("r300,200 p100,50"), "manipulating 0 dragging 1 empty 2");
        // The dragger follows the drag (from the second delivery of the first move on).
        QCOMPARE(state("m150,60"), "manipulating 0 dragging 1 empty 2");
        QCOMPARE(dragger->pos().x(), 150.0);
        QCOMPARE(state("r150,60"), "manipulating 0 dragging 0 empty 2");
    }

    void firstDragMoveServesItemsTwiceReleaseAll()
    {
        addProbe("near", QRectF(0, 0, 50, 50), 2);
        ProbeItem* far = addProbe("far", QRectF(300, 300, 50, 50), 1);
        QSignalSpy moved(scene.get(), &GraphicsSceneExtra::mouseMoved);
        QSignalSpy released(scene.get(), &GraphicsSceneExtra::mouseReleased);
        // Without a button and without tracking, moves reach no item and report nothing.
        QCOMPARE(run("mN10,10 pR200,200"), "");
        QCOMPARE(run("mR210,200"), "near:move far:move near:move far:move");
        QCOMPARE(run("mR220,200"), "near:move far:move");
        QCOMPARE(moved.count(), 2);
        QCOMPARE(moved.at(1).at(0).toPointF(), QPointF(220, 200));
        // Releases reach every item in stacking order; in interactive mode the view and the
        // items report them, not this signal.
        QCOMPARE(run("rR220,200"), "near:release far:release");
        QCOMPARE(released.count(), 0);

        // Tracking reaches the views too: without hover items their viewports would not track.
        QVERIFY(!view->viewport()->hasMouseTracking());
        scene->setMouseTracking(true);
        QVERIFY(view->viewport()->hasMouseTracking());
        QCOMPARE(run("mN10,10"), "");
        QCOMPARE(moved.count(), 3);

        // A child sorts with its parent's accumulated z-value.
        QGraphicsRectItem* parent = scene->addRect(0, 0, 1, 1);
        parent->setZValue(5);
        far->setParentItem(parent);
        QCOMPARE(run("rM200,200"), "far:release near:release");
    }

    void hoverGoesToFirstItemUnderCursor()
    {
        addProbe("top", QRectF(0, 0, 100, 100), 2);
        addProbe("below", QRectF(50, 50, 100, 100), 1);
        addProbe("apart", QRectF(300, 300, 50, 50));
        // Then only "below" is under the cursor: it enters, "top" leaves.
        QCOMPARE(run("h75,75 h80,80 h120,120"), "top:enter top:hover top:leave below:enter");
        // Back into the overlap: "top" takes the hover; "below" stays hovered without events.
        QCOMPARE(run("h75,75 h320,320 l-10,-10"),
            "top:enter top:leave below:leave apart:enter apart:leave");
        // During a drag the hover stays where it was.
        run("h75,75 p200,200 m210,200");
        QCOMPARE(run("h320,320 l0,0"), "");
        run("r210,200");
        QCOMPARE(run("h320,320"), "top:leave apart:enter");
    }

    void keysDoubleClicksAndContextMenus()
    {
        // Keys: items hear the press only, the handler both.
        installHandler({"key", "double"});
        addProbe("item", QRectF(300, 300, 50, 50));
        QKeyEvent pressEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
        QCoreApplication::sendEvent(scene.get(), &pressEvent);
        QKeyEvent releaseEvent(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier, "a");
        QCoreApplication::sendEvent(scene.get(), &releaseEvent);
        QCOMPARE(log, (QStringList {"item:key", "handler:key@", "handler:keyRelease@"}));

        // A double click: the handler first, then the scene's signals, even when it was consumed.
        connect(
            scene.get(), &GraphicsSceneExtra::userInteracted, this, [&] { log << "interacted"; });
        connect(scene.get(), &GraphicsSceneExtra::mouseDoubleClicked, this,
            [&](Qt::MouseButtons buttons, QPointF pos) {
                QCOMPARE(buttons, Qt::MouseButtons(Qt::LeftButton));
                QCOMPARE(pos, QPointF(5, 6));
                log << "doubleClicked";
            });
        QCOMPARE(run("d5,6"), "handler:double@ interacted doubleClicked");

        // The context menu is asked for only where no item takes the right click.
        QSignalSpy asked(scene.get(), &GraphicsSceneExtra::rightClickMenuAsked);
        for (const QPointF& pos : {QPointF(325, 325), QPointF(200, 200)}) {
            QGraphicsSceneContextMenuEvent event(QEvent::GraphicsSceneContextMenu);
            event.setReason(QGraphicsSceneContextMenuEvent::Mouse);
            event.setScenePos(pos);
            event.setScreenPos(QPoint(700, 800));
            QCoreApplication::sendEvent(scene.get(), &event);
        }
        QCOMPARE(asked.count(), 1);
        QCOMPARE(asked.at(0).at(0).toPoint(), QPoint(700, 800));
    }

    void itemsRemovedDuringDispatchAreSkipped_data()
    {
        QTest::addColumn<QString>("trigger");
        QTest::addColumn<int>("actingCall");
        QTest::addColumn<QString>("setup");
        // The middle button: no overlay item accepts it, so every one is offered it.
        QTest::newRow("press") << "pM50,50" << 1 << "";
        QTest::newRow("move") << "mR50,50" << 1 << "pR300,300 mR301,300";
        QTest::newRow("release") << "rR50,50" << 1 << "pR300,300";
        // "victim" is hovered first, so that it would be owed a leave.
        QTest::newRow("hover") << "h50,50" << 1 << "h50,50";
        // The stock handling gives the wheel to the top item first; act in the scene's own pass.
        QTest::newRow("wheel") << "w50,50,120" << 2 << "";
    }

    void itemsRemovedDuringDispatchAreSkipped()
    {
        QFETCH(QString, setup);
        QFETCH(QString, trigger);
        QFETCH(int, actingCall);
        // Four items over one point, top first: "actor" deletes "victim" and itself and takes
        // "removed" out of the scene; "witness" at the bottom must still be served.
        ProbeItem* actor = addProbe("actor", QRectF(0, 0, 100, 100), 4);
        QPointer<ProbeItem> victim = addProbe("victim", QRectF(0, 0, 100, 100), 3);
        ProbeItem* removed = addProbe("removed", QRectF(0, 0, 100, 100), 2);
        addProbe("witness", QRectF(0, 0, 100, 100), 1);
        std::unique_ptr<ProbeItem> removedOwner;
        QPointer<ProbeItem> actorGuard = actor;
        int calls = 0;
        const ProbeItem::Action act = [&, actor] {
            if (++calls != actingCall)
                return;
            delete victim.data();
            scene->removeItem(removed);
            removedOwner.reset(removed);
            delete actor;
        };
        victim->setZValue(10);
        run(setup);
        victim->setZValue(3);
        const QString kind = QTest::currentDataTag();
        const QHash<QString, ProbeItem::Action ProbeItem::*> hooks {{"press", &ProbeItem::onPress},
            {"move", &ProbeItem::onMove}, {"release", &ProbeItem::onRelease},
            {"hover", &ProbeItem::onHoverEnter}, {"wheel", &ProbeItem::onWheel}};
        actor->*hooks.value(kind) = act;
        const QString served = run(trigger);

        QVERIFY(actorGuard.isNull());
        QVERIFY(victim.isNull());
        QCOMPARE(removed->scene(), nullptr);
        QVERIFY2(!served.contains(QRegularExpression("(victim|removed):")), qPrintable(served));
        if (kind != "hover")
            QVERIFY2(served.contains("witness:"), qPrintable(served));
        // The scene keeps working with what is left; the second press is the stock scene's.
        QCOMPARE(run("pM50,50 rM50,50"), "witness:press witness:press witness:release");
    }

    void handlerDeletesItemsBeforePressDelivery()
    {
        QPointer<ProbeItem> doomed = addProbe("doomed", QRectF(0, 0, 100, 100), 2);
        addProbe("kept", QRectF(0, 0, 100, 100), 1);
        installHandler().onPress = [&] { delete doomed.data(); };
        QCOMPARE(run("pM50,50"), "handler:press@ kept:press kept:press");
        QVERIFY(doomed.isNull());
    }

    void plainHoverableDeletedByAnother()
    {
        // Hover goes by priority, not stacking. Items that are no QObject are found in the
        // scene's item list, made again when it changed.
        const QRectF rects[] = {{200, 0, 50, 50}, {0, 0, 300, 50}, {100, 0, 50, 50}};
        PlainHoverable* items[3];
        for (int i = 0; i < 3; ++i) {
            items[i] = new PlainHoverable(rects[i]);
            items[i]->setData(0, QStringList {"top", "big", "victim"}.at(i));
            items[i]->hoverLog = &log;
            items[i]->setHoverPriority(3 - i);
            items[i]->setZValue(i);
            scene->addItem(items[i]);
        }
        QCOMPARE(run("h25,25"), "big:hovered");
        items[1]->onHoverState = [&](bool) { delete items[2]; };
        QCOMPARE(run("h225,25"), "big:unhovered top:hovered");
        QCOMPARE(scene->items().size(), 2);
    }

private:
    QString run(const QString& script) { return play(*scene, log, script); }

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
        handler = std::make_unique<RecordingHandler>();
        handler->log = &log;
        handler->consume = consume;
        scene->setEventHandler(handler.get());
        return *handler;
    }

    QStringList log;
    std::unique_ptr<RecordingHandler> handler;
    std::unique_ptr<OpenScene> scene;
    std::unique_ptr<QGraphicsView> view;
};

QTEST_MAIN(tst_GraphicsSceneExtra)
#include "tst_graphicssceneextra.moc"
