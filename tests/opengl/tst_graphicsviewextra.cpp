#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtraWrapper.h>

#include <QGraphicsSceneMouseEvent>
#include <QOpenGLWidget>
#include <QSignalSpy>
#include <QTest>

// One input handed to the wrapper's event handlers; a key event's key is in `button`.
struct Input
{
    QEvent::Type type;
    int button = Qt::NoButton;
    Qt::MouseButtons buttons = Qt::NoButton;
    QPointF at = QPointF(5, 5);
};
Q_DECLARE_METATYPE(QList<Input>)

class tst_GraphicsViewExtra : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        log.clear();
        wrapper.reset(); // the last test's wrapper and view go before their scene
        view.reset();
        scene = std::make_unique<GraphicsSceneExtra>();
        scene->setSceneRect(0, 0, 200, 200);
        view = std::make_unique<GraphicsViewExtra>(GraphicsViewExtra::OnScreen, scene.get());
        view->resize(200, 200);
        wrapper = std::make_unique<GraphicsViewExtraWrapper>(view.get());

        // Every signal of the view, as the wrapper passes it on, in order, and the scene's presses.
        using I = GraphicsViewExtraInterface;
        const auto at = [this](const char* name) {
            return
                [this, name](QPointF p) { log << name + QString(" %1,%2").arg(p.x()).arg(p.y()); };
        };
        I* w = wrapper.get();
        const auto note = [this](const char* name) { return [this, name] { log << name; }; };
        connect(w, &I::panStarted, this, note("panStarted"));
        connect(w, &I::panFinished, this, note("panFinished"));
        connect(w, &I::keyPressed, this, note("keyPressed"));
        connect(w, &I::keyReleased, this, note("keyReleased"));
        connect(w, &I::viewportChanged, this, note("viewportChanged"));
        connect(w, &I::leftAndRightMousePressed, this, note("leftAndRightMousePressed"));
        connect(w, &I::mouseReleased, this, note("mouseReleased"));
        connect(w, &I::rightMouseReleased, this, note("rightMouseReleased"));
        connect(w, &I::mouseEntered, this, note("mouseEntered"));
        connect(w, &I::mouseLeft, this, note("mouseLeft"));
        connect(w, &I::sceneChanged, this, note("sceneChanged"));
        connect(w, &I::mousePositionChanged, this,
            [at](double x, double y) { at("mousePositionChanged")(QPointF(x, y)); });
        connect(w, &I::leftMouseButtonDoubleClicked, this, at("leftMouseButtonDoubleClicked"));
        connect(w, &I::rightMouseButtonDoubleClicked, this, at("rightMouseButtonDoubleClicked"));
        connect(scene.get(), &GraphicsSceneExtra::mousePressed, this,
            [this] { log << "scenePressed"; });
    }

    void rendersThroughOpenGLViewport()
    {
        QCOMPARE(
            (QList<int> {view->viewportUpdateMode(), int(view->cacheMode()), view->frameShape(),
                view->horizontalScrollBarPolicy(), view->verticalScrollBarPolicy()}),
            (QList<int> {QGraphicsView::FullViewportUpdate, QGraphicsView::CacheNone,
                QFrame::NoFrame, Qt::ScrollBarAlwaysOff, Qt::ScrollBarAlwaysOff}));

        scene->addRect(120, 20, 40, 40, Qt::NoPen, Qt::red);
        scene->setBackgroundBrush(Qt::white);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        auto* gl = qobject_cast<QOpenGLWidget*>(view->viewport());
        QVERIFY(gl);
        QTRY_VERIFY(gl->isValid());
        // What reached the screen: the viewport's framebuffer composed into the window.
        const auto grabbed = [&](const QPointF& scenePos) {
            const QImage image = view->screen()->grabWindow(view->winId()).toImage();
            const QPoint at = view->viewport()->mapTo(view.get(), view->mapFromScene(scenePos));
            return image.pixelColor(at * view->devicePixelRatioF());
        };
        QTRY_COMPARE(grabbed(QPointF(140, 40)), QColor(Qt::red));
        QCOMPARE(grabbed(QPointF(40, 140)), QColor(Qt::white));
    }

    void signalsOfEveryInput_data()
    {
        QTest::addColumn<bool>("handDrag");
        QTest::addColumn<QList<Input>>("inputs");
        QTest::addColumn<QStringList>("expected");
        const auto row = [](const char* name, bool handDrag, const QList<Input>& inputs,
                             const QStringList& expected) {
            QTest::newRow(name) << handDrag << inputs << expected;
        };
        const QStringList changed {"viewportChanged", "sceneChanged"};
        const QList<Input> pan {{QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton},
            {QEvent::MouseButtonRelease, Qt::LeftButton}, {QEvent::KeyRelease, Qt::Key_Shift},
            {QEvent::KeyRelease, Qt::Key_Control}};
        const QStringList released = QStringList {"mouseReleased"} + changed;
        const QStringList keyReleased = QStringList {"keyReleased"} + changed;
        // Releasing Control ends a pan as well; other keys do not. The hand cursor's changes are
        // viewport events too.
        row("pan", true, pan,
            QStringList {"scenePressed"} + changed + QStringList {"panStarted"} + changed
                + QStringList {"panFinished"} + changed + released + keyReleased
                + QStringList {"panFinished"} + keyReleased);
        row("no pan without hand drag", false, pan,
            QStringList {"scenePressed"} + changed + released + keyReleased + keyReleased);
        // Both buttons are the viewer's own gesture: no press for the scene, no pan.
        row("left and right", true,
            {{QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton}},
            QStringList {"leftAndRightMousePressed"} + changed);
        row("key press", false, {{QEvent::KeyPress, Qt::Key_A}},
            QStringList {"keyPressed"} + changed);
        row("right release", false, {{QEvent::MouseButtonRelease, Qt::RightButton}},
            QStringList {"rightMouseReleased"} + changed);
        row("left double click", false,
            {{QEvent::MouseButtonDblClick, Qt::LeftButton, Qt::LeftButton, {12, 34}}},
            QStringList {"leftMouseButtonDoubleClicked 12,34"} + changed);
        row("right double click", false,
            {{QEvent::MouseButtonDblClick, Qt::RightButton, Qt::RightButton, {56, 78}}},
            QStringList {"rightMouseButtonDoubleClicked 56,78"} + changed);
        // The position is reported for moves without a button only.
        row("move", false,
            {{QEvent::MouseMove, Qt::NoButton, Qt::LeftButton},
                {QEvent::MouseMove, Qt::NoButton, Qt::NoButton, {30.5, 40}}},
            changed + QStringList {"mousePositionChanged 30.5,40"} + changed);
        row("hover move", false, {{QEvent::HoverMove}}, changed);
        row("enter", false, {{QEvent::Enter}}, {"mouseEntered"});
        row("leave", false, {{QEvent::Leave}}, {"mouseLeft"});
    }

    void signalsOfEveryInput()
    {
        QFETCH(bool, handDrag);
        QFETCH(QList<Input>, inputs);
        QFETCH(QStringList, expected);
        wrapper->setDragMode(handDrag ? QGraphicsView::ScrollHandDrag : QGraphicsView::NoDrag);
        log.clear();
        for (const Input& input : inputs) {
            QMouseEvent mouse(input.type, input.at, input.at, Qt::MouseButton(input.button),
                input.buttons, Qt::NoModifier);
            QKeyEvent key(input.type, input.button, Qt::NoModifier, "a");
            QEnterEvent enter(input.at, input.at, input.at);
            QEvent leave(QEvent::Leave);
            const QHash<QEvent::Type, std::function<void()>> handlers {
                {QEvent::MouseButtonPress, [&] { wrapper->mousePressEvent(&mouse); }},
                {QEvent::MouseButtonRelease, [&] { wrapper->mouseReleaseEvent(&mouse); }},
                {QEvent::MouseButtonDblClick, [&] { wrapper->mouseDoubleClickEvent(&mouse); }},
                {QEvent::MouseMove, [&] { wrapper->mouseMoveEvent(&mouse); }},
                {QEvent::KeyPress, [&] { wrapper->keyPressEvent(&key); }},
                {QEvent::KeyRelease, [&] { wrapper->keyReleaseEvent(&key); }},
                {QEvent::Enter, [&] { wrapper->enterEvent(&enter); }},
                {QEvent::Leave, [&] { wrapper->leaveEvent(&leave); }},
                {QEvent::HoverMove, [&] { view->hoverMoveEvent(); }}};
            handlers[input.type]();
        }
        QCOMPARE(log, expected);
    }

    void offscreenViewFixesScreenPosition()
    {
        for (const auto usage : {GraphicsViewExtra::Offscreen, GraphicsViewExtra::OnScreen}) {
            GraphicsViewExtra host(usage, scene.get());
            host.resize(200, 200);
            GraphicsViewExtraWrapper hostWrapper(&host);
            hostWrapper.fitInView(QRectF(0, 0, 400, 400), Qt::KeepAspectRatio);
            QPoint screenPos;
            QPointF scenePos;
            connect(scene.get(), &GraphicsSceneExtra::mousePressed, &host,
                [&](QGraphicsSceneMouseEvent* event) {
                    screenPos = event->screenPos();
                    scenePos = event->scenePos();
                });
            QMouseEvent event(QEvent::MouseButtonPress, QPointF(50, 60), QPointF(50, 60),
                QPointF(1050, 1060), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            hostWrapper.mousePressEvent(&event);
            const bool offscreen = usage == GraphicsViewExtra::Offscreen;
            QCOMPARE(screenPos, offscreen ? host.mapFromScene(scenePos) : QPoint(1050, 1060));
            QCOMPARE(host.getFixedScreenPosForMouseEvent(QPointF(100, 100), QPoint(7, 8)),
                offscreen ? host.mapFromScene(QPointF(100, 100)) : QPoint(7, 8));
        }
    }

    void wrapperForwardsWithItsExceptions()
    {
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        wrapper->fitInView(QRectF(0, 0, 400, 400), Qt::KeepAspectRatio);
        QVERIFY(view->isInteractive() && view->transform().m11() < 0.6);
        wrapper->setInteractive(false);
        wrapper->fitInView(QRectF(0, 0, 100, 100), Qt::KeepAspectRatio);
        QVERIFY(!wrapper->isInteractive());

        QSignalSpy resized(wrapper.get(), &GraphicsViewExtraInterface::resized);
        wrapper->resize(320, 240);
        wrapper->resize(QSize(300, 200));
        QCOMPARE(
            resized, (QList<QVariantList> {{QRectF(0, 0, 320, 240)}, {QRectF(0, 0, 300, 200)}}));
        QCOMPARE(wrapper->size(), QSize(300, 200));

        QGraphicsView other;
        QVERIFY(wrapper->hasView(view.get()) && !wrapper->hasView(&other));
        QCOMPARE(wrapper->scene(), scene.get());
        QCOMPARE(wrapper->viewport(), view->viewport());
        QCOMPARE(wrapper->viewportRect(), view->viewport()->rect());
        scene->setSceneRect(10, 20, 100, 50);
        QCOMPARE(wrapper->getVisibleSceneCenter(), QPointF(60, 45));
    }

private:
    QStringList log;
    std::unique_ptr<GraphicsSceneExtra> scene;
    std::unique_ptr<GraphicsViewExtra> view;
    std::unique_ptr<GraphicsViewExtraWrapper> wrapper;
};

QTEST_MAIN(tst_GraphicsViewExtra)
#include "tst_graphicsviewextra.moc"
