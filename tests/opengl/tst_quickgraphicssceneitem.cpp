#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtraInterface.h>
#include <guicore/graphics/scene/QuickGraphicsSceneItem.h>
#include <guicore/style/DevicePixelRatio.h>

#include <QGraphicsSceneMouseEvent>
#include <QPainterPath>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

// Runs in a real X server with Mesa's software OpenGL; CTest runs it once as it is and once with
// QT_SCALE_FACTOR=2, where every forwarded position must be scaled to device pixels.
class tst_QuickGraphicsSceneItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
        qRegisterMetaType<QKeyEvent*>();
        QuickGraphicsSceneItem::registerQMLType();
        DevicePixelRatio::registerMainWindow(&mainWindowStandIn);
    }

    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        window.reset(); // before the engine that made it
        engine = std::make_unique<QQmlEngine>();
        QQmlComponent component(engine.get());
        component.setData(
            "import QtQuick; import com.korvani.qmlcomponents 1.0\n"
            "Window { width: 200; height: 200; color: 'white'\n"
            "    QuickGraphicsSceneItem { objectName: 'host'; anchors.fill: parent } }",
            QUrl());
        window.reset(qobject_cast<QQuickWindow*>(component.create()));
        QVERIFY2(window, qPrintable(component.errorString()));
        host = window->findChild<QuickGraphicsSceneItem*>("host");
        QVERIFY(host);

        GraphicsSceneExtra* scene = host->getGraphicsScene();
        scene->setSceneRect(0, 0, 200, 200);
        overlay = new CustomGraphicsItem("overlay");
        QPainterPath path;
        path.addRect(20, 120, 40, 40);
        overlay->setPainterPath(path);
        overlay->setPen(Qt::NoPen);
        overlay->setBrush(Qt::red);
        scene->addItem(overlay);

        QSignalSpy frames(window.get(), &QQuickWindow::frameSwapped);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        QTRY_VERIFY(frames.count() > 0);
    }

    void rendersSceneThroughOpenGL()
    {
        QCOMPARE(DevicePixelRatio::value(), ratio);
        // The view was sized to the framebuffer, in device pixels.
        QCOMPARE(host->getGraphicsView()->size(), QSize(200, 200) * ratio);

        const QImage image = window->grabWindow();
        // Red where the item is, white elsewhere, and not mirrored upside down.
        QCOMPARE(image.pixelColor(QPoint(40, 140) * ratio), QColor(Qt::red));
        QCOMPARE(image.pixelColor(QPoint(40, 60) * ratio), QColor(Qt::white));
        QCOMPARE(image.pixelColor(QPoint(140, 140) * ratio), QColor(Qt::white));

        // A change in the scene repaints the item.
        overlay->setBrush(Qt::blue);
        QTRY_COMPARE(window->grabWindow().pixelColor(QPoint(40, 140) * ratio), QColor(Qt::blue));
    }

    void inputReachesTheSceneAtDevicePixels()
    {
        QPointF clickedAt;
        connect(overlay, &CustomGraphicsItem::leftClicked, this,
            [&](QGraphicsSceneMouseEvent* event) { clickedAt = event->scenePos(); });
        QSignalSpy moved(host, &QuickGraphicsSceneItem::mouseMoved);

        QTest::mouseClick(window.get(), Qt::LeftButton, Qt::NoModifier, QPoint(40, 140));
        QTRY_VERIFY(!clickedAt.isNull());
        // The press reached the view at the device-pixel position of the click.
        QCOMPARE(
            clickedAt, host->getGraphicsView()->mapToScene((QPointF(40, 140) * ratio).toPoint()));
        // And the fit maps the window onto the scene almost one to one (a margin of two pixels).
        QVERIFY(qAbs(clickedAt.x() - 40) < 3 && qAbs(clickedAt.y() - 140) < 3);

        QTest::mousePress(window.get(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
        QTest::mouseMove(window.get(), QPoint(110, 100));
        QTRY_VERIFY(moved.count() > 0);
        QTest::mouseRelease(window.get(), Qt::LeftButton, Qt::NoModifier, QPoint(110, 100));

        QSignalSpy entered(overlay, &CustomGraphicsItem::mouseHoverEnter);
        QTest::mouseMove(window.get(), QPoint(150, 20));
        QTest::mouseMove(window.get(), QPoint(40, 140));
        QTRY_COMPARE(entered.count(), 1);

        QSignalSpy wheeled(overlay, &CustomGraphicsItem::mouseWheelChanged);
        QSignalSpy scrolled(host->getGraphicsScene(), &GraphicsSceneExtra::mouseScrolled);
        const QPointF at(40, 140);
        QWheelEvent turn(at, window->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.get(), &turn);
        const QPointF scenePos = host->getGraphicsView()->mapToScene((at * ratio).toPoint());
        QCOMPARE(
            scrolled, (QList<QVariantList> {{scenePos, 120, QVariant::fromValue(Qt::Vertical)}}));
        QVERIFY(wheeled.count() >= 1);

        QSignalSpy keys(host->getGraphicsView(), &GraphicsViewExtraInterface::keyPressed);
        host->forceActiveFocus();
        QTest::keyClick(window.get(), Qt::Key_A);
        QCOMPARE(keys.count(), 1);
    }

    void resizeLeadsToExactlyOneFit()
    {
        for (const bool interactive : {true, false}) {
            if (!interactive)
                init(); // a fresh window at its first size
            // No hover noise: only the fit may notify.
            host->setAcceptHoverEvents(false);
            GraphicsViewExtraInterface* view = host->getGraphicsView();
            view->setInteractive(interactive);
            QSignalSpy late(host, &QuickGraphicsSceneItem::lateUpdate);
            QSignalSpy fits(view, &GraphicsViewExtraInterface::sceneChanged);
            QSignalSpy frames(window.get(), &QQuickWindow::frameSwapped);

            window->resize(320, 260);
            QTRY_COMPARE(fits.count(), 1);
            QTRY_VERIFY(frames.count() > 0);
            QTest::qWait(100);
            QCOMPARE(late.count(), 1);
            QCOMPARE(fits.count(), 1);
            QCOMPARE(view->isInteractive(), interactive);
            // The framebuffer and the view follow the new size; the scene fits its height.
            QTRY_COMPARE(view->size(), QSize(320, 260) * ratio);
            const QImage image = window->grabWindow();
            QCOMPARE(image.pixelColor(view->mapFromScene(QPointF(40, 140))), QColor(Qt::red));
        }
    }

private:
    const double ratio = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toDouble();

    // DevicePixelRatio follows the application's main window; a hidden stand-in reports the
    // screen's ratio.
    QWidget mainWindowStandIn;
    std::unique_ptr<QQmlEngine> engine;
    std::unique_ptr<QQuickWindow> window;
    QuickGraphicsSceneItem* host = nullptr;
    CustomGraphicsItem* overlay = nullptr;
};

QTEST_MAIN(tst_QuickGraphicsSceneItem)
#include "tst_quickgraphicssceneitem.moc"
