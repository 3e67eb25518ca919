#include <guicore/graphics/scene/KeyboardInteractionHandler.h>
#include <guicore/graphics/scene/KeyboardInteractionListener.h>
#include <guicore/graphics/scene/WheelEventHandler.h>

#include <QGraphicsSceneWheelEvent>
#include <QKeyEvent>
#include <QtTest>

namespace {

struct RecordingListener : KeyboardInteractionListener
{
    QList<int> pressed;
    QList<int> released;
    void onKeyPressed(QKeyEvent* event) override { pressed.append(event->key()); }
    void onKeyReleased(QKeyEvent* event) override { released.append(event->key()); }
};

class KeyboardScene : public KeyboardInteractionHandler
{
public:
    void press(QKeyEvent* event) const { notifyKeyPressed(event); }
    void release(QKeyEvent* event) const { notifyKeyReleased(event); }
};

} // namespace

class tst_WheelAndKeyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void wheelSteps_data();
    void wheelSteps();
    void listenersRegisteredOnceAndCopied();
};

void tst_WheelAndKeyboard::wheelSteps_data()
{
    QTest::addColumn<QList<int>>("deltas");
    QTest::addColumn<QList<int>>("steps");
    QTest::addColumn<double>("remainder");
    QTest::newRow("two halves make a step") << QList<int> {60, 60} << QList<int> {0, 1} << 0.0;
    QTest::newRow("reversal drops the fraction")
        << QList<int> {60, -120} << QList<int> {0, -1} << 0.0;
    QTest::newRow("large delta keeps its fraction") << QList<int> {300} << QList<int> {2} << 0.5;
    QTest::newRow("touchpad thirds")
        << QList<int> {40, 40, 40, 40, 40, 40} << QList<int> {0, 0, 1, 0, 0, 1} << 0.0;
    QTest::newRow("negative fractions carry")
        << QList<int> {-90, -90} << QList<int> {0, -1} << -0.5;
    QTest::newRow("reversal from negative") << QList<int> {-60, 180} << QList<int> {0, 1} << 0.5;
    QTest::newRow("zero delta keeps the fraction")
        << QList<int> {60, 0, 60} << QList<int> {0, 0, 1} << 0.0;
}

void tst_WheelAndKeyboard::wheelSteps()
{
    QFETCH(QList<int>, deltas);
    QFETCH(QList<int>, steps);
    QFETCH(double, remainder);
    WheelEventHandler handler;
    QList<int> actual;
    for (int delta : deltas) {
        QGraphicsSceneWheelEvent event(QEvent::GraphicsSceneWheel);
        event.setDelta(delta);
        actual.append(handler.handleWheelEvent(&event));
        QVERIFY(handler.remainder() > -1.0 && handler.remainder() < 1.0);
    }
    QCOMPARE(actual, steps);
    QCOMPARE(handler.remainder(), remainder);
    QCOMPARE(handler.handleWheelEvent(nullptr), 0);
}

void tst_WheelAndKeyboard::listenersRegisteredOnceAndCopied()
{
    RecordingListener first;
    RecordingListener second;
    KeyboardScene scene;
    scene.registerKeyboardListener(&first);
    scene.registerKeyboardListener(&first);
    scene.registerKeyboardListener(nullptr);
    const KeyboardScene copy = scene; // the copy notifies the same listeners
    scene.registerKeyboardListener(&second);

    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    scene.press(&press);
    scene.release(&release);
    QCOMPARE(first.pressed, QList<int> {Qt::Key_A});
    QCOMPARE(first.released, QList<int> {Qt::Key_A});
    QCOMPARE(second.pressed, QList<int> {Qt::Key_A});

    copy.press(&press);
    QCOMPARE(first.pressed.size(), 2);
    QCOMPARE(second.pressed.size(), 1);
}

QTEST_MAIN(tst_WheelAndKeyboard)
#include "tst_wheelandkeyboard.moc"
