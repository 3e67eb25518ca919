#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtraWrapper.h>

#include <QEnterEvent>
#include <QGraphicsRectItem>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QOpenGLWidget>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class tst_GraphicsViewExtra : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void rendersThroughOpenGLViewport();
    void chordIsTheViewersOwn();
    void panSignals_data();
    void panSignals();
    void positionOnlyWithoutButtons();
    void notificationsFollowEveryInput_data();
    void notificationsFollowEveryInput();
    void doubleClickSignals();
    void offscreenViewFixesScreenPosition_data();
    void offscreenViewFixesScreenPosition();
    void wrapperForwardsWithItsExceptions();
    void wrapperPassesOnEverySignalOfTheView();

private:
    QStringList log;
    std::unique_ptr<GraphicsSceneExtra> scene;
    std::unique_ptr<GraphicsViewExtra> view;
    std::unique_ptr<GraphicsViewExtraWrapper> wrapper;
};

namespace {

QMouseEvent mouseEvent(
    QEvent::Type type, const QPointF& pos, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    return QMouseEvent(type, pos, pos, button, buttons, Qt::NoModifier);
}

} // namespace

void tst_GraphicsViewExtra::initTestCase()
{
    qRegisterMetaType<QMouseEvent*>();
    qRegisterMetaType<QKeyEvent*>();
    qRegisterMetaType<QGraphicsSceneMouseEvent*>();
}

void tst_GraphicsViewExtra::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    log.clear();
    scene = std::make_unique<GraphicsSceneExtra>();
    scene->setSceneRect(0, 0, 200, 200);
    view = std::make_unique<GraphicsViewExtra>(GraphicsViewExtra::OnScreen, scene.get());
    view->resize(200, 200);
    wrapper = std::make_unique<GraphicsViewExtraWrapper>(view.get());
}

void tst_GraphicsViewExtra::cleanup()
{
    wrapper.reset();
    view.reset();
    scene.reset();
}

void tst_GraphicsViewExtra::rendersThroughOpenGLViewport()
{
    QVERIFY(qobject_cast<QOpenGLWidget*>(view->viewport()));
    QCOMPARE(view->viewportUpdateMode(), QGraphicsView::FullViewportUpdate);
    QCOMPARE(view->cacheMode(), QGraphicsView::CacheNone);
    QCOMPARE(view->frameShape(), QFrame::NoFrame);
    QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(view->scene(), scene.get());

    auto* rect = new QGraphicsRectItem(120, 20, 40, 40);
    rect->setBrush(Qt::red);
    rect->setPen(Qt::NoPen);
    scene->addItem(rect);
    scene->setBackgroundBrush(Qt::white);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    auto* glViewport = static_cast<QOpenGLWidget*>(view->viewport());
    QTRY_VERIFY(glViewport->isValid());
    // What reached the screen: the viewport's framebuffer composed into the window.
    const qreal ratio = view->devicePixelRatioF();
    const QPoint onRect = view->viewport()->mapTo(view.get(), view->mapFromScene(QPointF(140, 40)));
    const QPoint offRect
        = view->viewport()->mapTo(view.get(), view->mapFromScene(QPointF(40, 140)));
    const auto grabbed = [&](const QPoint& at) {
        const QImage image = view->screen()->grabWindow(view->winId()).toImage();
        return image.pixelColor(at * ratio);
    };
    QTRY_COMPARE(grabbed(onRect), QColor(Qt::red));
    QCOMPARE(grabbed(offRect), QColor(Qt::white));
}

void tst_GraphicsViewExtra::chordIsTheViewersOwn()
{
    QSignalSpy chord(view.get(), &GraphicsViewExtra::leftAndRightMousePressed);
    QSignalSpy pan(view.get(), &GraphicsViewExtra::panStarted);
    QSignalSpy scenePressed(scene.get(), &GraphicsSceneExtra::mousePressed);
    view->setDragMode(QGraphicsView::ScrollHandDrag);
    QMouseEvent both = mouseEvent(QEvent::MouseButtonPress, QPointF(50, 50), Qt::RightButton,
        Qt::LeftButton | Qt::RightButton);
    wrapper->mousePressEvent(&both);
    QCOMPARE(chord.count(), 1);
    QCOMPARE(pan.count(), 0);
    QCOMPARE(scenePressed.count(), 0);

    QMouseEvent left
        = mouseEvent(QEvent::MouseButtonPress, QPointF(50, 50), Qt::LeftButton, Qt::LeftButton);
    wrapper->mousePressEvent(&left);
    QCOMPARE(chord.count(), 1);
    QCOMPARE(scenePressed.count(), 1);
}

void tst_GraphicsViewExtra::panSignals_data()
{
    QTest::addColumn<int>("dragMode");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("hand drag") << int(QGraphicsView::ScrollHandDrag)
                               << QStringList {"panStarted", "panFinished", "panFinished"};
    QTest::newRow("no drag") << int(QGraphicsView::NoDrag) << QStringList();
}

void tst_GraphicsViewExtra::panSignals()
{
    QFETCH(int, dragMode);
    QFETCH(QStringList, expected);
    view->setDragMode(QGraphicsView::DragMode(dragMode));
    QStringList pans;
    connect(view.get(), &GraphicsViewExtra::panStarted, this, [&] { pans << "panStarted"; });
    connect(view.get(), &GraphicsViewExtra::panFinished, this, [&] { pans << "panFinished"; });

    QMouseEvent pressEvent
        = mouseEvent(QEvent::MouseButtonPress, QPointF(50, 50), Qt::LeftButton, Qt::LeftButton);
    wrapper->mousePressEvent(&pressEvent);
    QMouseEvent releaseEvent
        = mouseEvent(QEvent::MouseButtonRelease, QPointF(60, 50), Qt::LeftButton, Qt::NoButton);
    wrapper->mouseReleaseEvent(&releaseEvent);
    // Releasing Control ends a pan as well; other keys do not.
    QKeyEvent shift(QEvent::KeyRelease, Qt::Key_Shift, Qt::NoModifier);
    wrapper->keyReleaseEvent(&shift);
    QKeyEvent control(QEvent::KeyRelease, Qt::Key_Control, Qt::NoModifier);
    wrapper->keyReleaseEvent(&control);
    QCOMPARE(pans, expected);
}

void tst_GraphicsViewExtra::positionOnlyWithoutButtons()
{
    QSignalSpy position(view.get(), &GraphicsViewExtra::mousePositionChanged);
    QMouseEvent held = mouseEvent(QEvent::MouseMove, QPointF(30, 40), Qt::NoButton, Qt::LeftButton);
    wrapper->mouseMoveEvent(&held);
    QCOMPARE(position.count(), 0);
    QMouseEvent free = mouseEvent(QEvent::MouseMove, QPointF(30.5, 40), Qt::NoButton, Qt::NoButton);
    wrapper->mouseMoveEvent(&free);
    QCOMPARE(position.count(), 1);
    QCOMPARE(position.at(0).at(0).toDouble(), 30.5);
    QCOMPARE(position.at(0).at(1).toDouble(), 40.0);
}

void tst_GraphicsViewExtra::notificationsFollowEveryInput_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QStringList>("expected");
    const QStringList both {"viewportChanged", "sceneChanged"};
    QTest::newRow("key press") << "keyPress" << (QStringList {"keyPressed"} + both);
    QTest::newRow("key release") << "keyRelease" << (QStringList {"keyReleased"} + both);
    QTest::newRow("left release") << "leftRelease" << (QStringList {"mouseReleased"} + both);
    QTest::newRow("right release") << "rightRelease" << (QStringList {"rightMouseReleased"} + both);
    QTest::newRow("press") << "press" << both;
    QTest::newRow("hover move") << "hover" << both;
    QTest::newRow("enter") << "enter" << QStringList {"mouseEntered"};
    QTest::newRow("leave") << "leave" << QStringList {"mouseLeft"};
}

void tst_GraphicsViewExtra::notificationsFollowEveryInput()
{
    QFETCH(QString, input);
    QFETCH(QStringList, expected);
    // Recorded through the wrapper, which forwards each signal of the view.
    QStringList seen;
    using I = GraphicsViewExtraInterface;
    connect(wrapper.get(), &I::keyPressed, this, [&] { seen << "keyPressed"; });
    connect(wrapper.get(), &I::keyReleased, this, [&] { seen << "keyReleased"; });
    connect(wrapper.get(), &I::mouseReleased, this, [&] { seen << "mouseReleased"; });
    connect(wrapper.get(), &I::rightMouseReleased, this, [&] { seen << "rightMouseReleased"; });
    connect(wrapper.get(), &I::viewportChanged, this, [&] { seen << "viewportChanged"; });
    connect(wrapper.get(), &I::sceneChanged, this, [&] { seen << "sceneChanged"; });
    connect(wrapper.get(), &I::mouseEntered, this, [&] { seen << "mouseEntered"; });
    connect(wrapper.get(), &I::mouseLeft, this, [&] { seen << "mouseLeft"; });

    if (input.startsWith("key")) {
        QKeyEvent key(input == "keyPress" ? QEvent::KeyPress : QEvent::KeyRelease, Qt::Key_A,
            Qt::NoModifier, "a");
        input == "keyPress" ? wrapper->keyPressEvent(&key) : wrapper->keyReleaseEvent(&key);
    } else if (input.endsWith("Release")) {
        const Qt::MouseButton button = input == "leftRelease" ? Qt::LeftButton : Qt::RightButton;
        QMouseEvent event
            = mouseEvent(QEvent::MouseButtonRelease, QPointF(5, 5), button, Qt::NoButton);
        wrapper->mouseReleaseEvent(&event);
    } else if (input == "press") {
        QMouseEvent event
            = mouseEvent(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton);
        wrapper->mousePressEvent(&event);
    } else if (input == "hover") {
        view->hoverMoveEvent();
    } else if (input == "enter") {
        QEnterEvent event(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        wrapper->enterEvent(&event);
    } else {
        QEvent event(QEvent::Leave);
        wrapper->leaveEvent(&event);
    }
    QCOMPARE(seen, expected);
}

void tst_GraphicsViewExtra::doubleClickSignals()
{
    QSignalSpy left(view.get(), &GraphicsViewExtra::leftMouseButtonDoubleClicked);
    QSignalSpy right(view.get(), &GraphicsViewExtra::rightMouseButtonDoubleClicked);
    QMouseEvent leftDouble
        = mouseEvent(QEvent::MouseButtonDblClick, QPointF(12, 34), Qt::LeftButton, Qt::LeftButton);
    wrapper->mouseDoubleClickEvent(&leftDouble);
    QMouseEvent rightDouble = mouseEvent(
        QEvent::MouseButtonDblClick, QPointF(56, 78), Qt::RightButton, Qt::RightButton);
    wrapper->mouseDoubleClickEvent(&rightDouble);
    QCOMPARE(left.count(), 1);
    QCOMPARE(left.at(0).at(0).toPoint(), QPoint(12, 34));
    QCOMPARE(right.count(), 1);
    QCOMPARE(right.at(0).at(0).toPoint(), QPoint(56, 78));
}

void tst_GraphicsViewExtra::offscreenViewFixesScreenPosition_data()
{
    QTest::addColumn<int>("usage");
    QTest::newRow("offscreen") << int(GraphicsViewExtra::Offscreen);
    QTest::newRow("on screen") << int(GraphicsViewExtra::OnScreen);
}

void tst_GraphicsViewExtra::offscreenViewFixesScreenPosition()
{
    QFETCH(int, usage);
    GraphicsViewExtra host(GraphicsViewExtra::Usage(usage), scene.get());
    host.resize(200, 200);
    GraphicsViewExtraWrapper hostWrapper(&host);
    hostWrapper.fitInView(QRectF(0, 0, 400, 400), Qt::KeepAspectRatio);
    QPoint screenPos;
    QPointF scenePos;
    connect(
        scene.get(), &GraphicsSceneExtra::mousePressed, this, [&](QGraphicsSceneMouseEvent* event) {
            screenPos = event->screenPos();
            scenePos = event->scenePos();
        });
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(50, 60), QPointF(50, 60),
        QPointF(1050, 1060), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    hostWrapper.mousePressEvent(&event);
    if (usage == GraphicsViewExtra::Offscreen)
        QCOMPARE(screenPos, host.mapFromScene(scenePos));
    else
        QCOMPARE(screenPos, QPoint(1050, 1060));
    QCOMPARE(host.getFixedScreenPosForMouseEvent(QPointF(100, 100), QPoint(7, 8)),
        usage == GraphicsViewExtra::Offscreen ? host.mapFromScene(QPointF(100, 100))
                                              : QPoint(7, 8));
}

void tst_GraphicsViewExtra::wrapperForwardsWithItsExceptions()
{
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    QVERIFY(view->isInteractive());
    wrapper->fitInView(QRectF(0, 0, 400, 400), Qt::KeepAspectRatio);
    QVERIFY(view->isInteractive());
    QVERIFY(view->transform().m11() < 0.6);
    wrapper->setInteractive(false);
    wrapper->fitInView(QRectF(0, 0, 100, 100), Qt::KeepAspectRatio);
    QVERIFY(!wrapper->isInteractive());

    QSignalSpy resized(wrapper.get(), &GraphicsViewExtraInterface::resized);
    wrapper->resize(320, 240);
    wrapper->resize(QSize(300, 200));
    QCOMPARE(resized.count(), 2);
    QCOMPARE(resized.at(0).at(0).toRectF(), QRectF(0, 0, 320, 240));
    QCOMPARE(resized.at(1).at(0).toRectF(), QRectF(0, 0, 300, 200));
    QCOMPARE(wrapper->size(), QSize(300, 200));

    QVERIFY(wrapper->hasView(view.get()));
    QGraphicsView other;
    QVERIFY(!wrapper->hasView(&other));
    QCOMPARE(wrapper->scene(), scene.get());
    QCOMPARE(wrapper->viewport(), view->viewport());
    QCOMPARE(wrapper->viewportRect(), view->viewport()->rect());
    scene->setSceneRect(10, 20, 100, 50);
    QCOMPARE(wrapper->getVisibleSceneCenter(), QPointF(60, 45));

    QSignalSpy pan(wrapper.get(), &GraphicsViewExtraInterface::panStarted);
    wrapper->setDragMode(QGraphicsView::ScrollHandDrag);
    wrapper->setInteractive(true);
    QMouseEvent pressEvent
        = mouseEvent(QEvent::MouseButtonPress, QPointF(5, 5), Qt::LeftButton, Qt::LeftButton);
    wrapper->mousePressEvent(&pressEvent);
    QCOMPARE(pan.count(), 1);
}

void tst_GraphicsViewExtra::wrapperPassesOnEverySignalOfTheView()
{
    const QMetaObject& meta = GraphicsViewExtra::staticMetaObject;
    QStringList passedOn;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod signal = meta.method(i);
        if (signal.methodType() != QMetaMethod::Signal)
            continue;
        QSignalSpy spy(wrapper.get(), QByteArray("2" + signal.methodSignature()).constData());
        QVERIFY2(spy.isValid(), signal.methodSignature().constData());
        QVariant values[2];
        QGenericArgument arguments[2];
        for (int p = 0; p < signal.parameterCount(); ++p) {
            values[p] = QVariant(signal.parameterMetaType(p));
            arguments[p] = QGenericArgument(values[p].metaType().name(), values[p].data());
        }
        QVERIFY(signal.invoke(view.get(), Qt::DirectConnection, arguments[0], arguments[1]));
        if (spy.count() == 1)
            passedOn << QString::fromLatin1(signal.name());
    }
    QCOMPARE(passedOn.size(), 14);
}

QTEST_MAIN(tst_GraphicsViewExtra)
#include "tst_graphicsviewextra.moc"
