#include <guicore/utility/input/MouseSimulator.h>

#include <QCursor>
#include <QMouseEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace {

QString names(Qt::MouseButtons buttons)
{
    QStringList list;
    if (buttons & Qt::LeftButton)
        list << QStringLiteral("Left");
    if (buttons & Qt::RightButton)
        list << QStringLiteral("Right");
    return list.join(QLatin1Char('|'));
}

// Logs the mouse events it receives as readable lines, in order. The tests do not spin the event
// loop after simulating, so the hover that the platform itself queues after QCursor::setPos is
// not mixed in: the log shows exactly what the simulator delivered.
class MouseLog : public QWidget
{
public:
    using QWidget::QWidget;
    QStringList log;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        record("press " + names(event->button()), event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        record("release " + names(event->button()), event);
    }
    void mouseMoveEvent(QMouseEvent* event) override { record(QStringLiteral("move"), event); }
    void wheelEvent(QWheelEvent* event) override
    {
        log << QStringLiteral("wheel %1 at %2,%3")
                   .arg(event->angleDelta().y())
                   .arg(event->position().x())
                   .arg(event->position().y());
    }

private:
    void record(const QString& what, QMouseEvent* event)
    {
        log << QStringLiteral("%1 at %2,%3 [%4]")
                   .arg(what)
                   .arg(event->position().x())
                   .arg(event->position().y())
                   .arg(names(event->buttons()));
    }
};

} // namespace

class tst_MouseSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void moveWarpsPointer();
    void pressAndRelease_data();
    void pressAndRelease();
    void clickClicksButton();
    void scroll();
    void dragKeepsReceiver();

private:
    void moveTo(const QPoint& local)
    {
        const QPoint global = window->mapToGlobal(local);
        simulator->move(global.x(), global.y());
        target->log.clear();
    }

    std::unique_ptr<QWidget> window;
    MouseLog* target = nullptr;
    QPushButton* button = nullptr;
    std::unique_ptr<MouseSimulator> simulator;
};

void tst_MouseSimulator::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));

    // A 200 x 100 logging area above a 200 x 50 button. Plain geometries: a layout with fixed
    // sizes makes the offscreen platform warn.
    window = std::make_unique<QWidget>();
    target = new MouseLog(window.get());
    target->setMouseTracking(true);
    target->setGeometry(0, 0, 200, 100);
    button = new QPushButton(QStringLiteral("Press"), window.get());
    button->setGeometry(0, 100, 200, 50);
    window->setGeometry(120, 90, 200, 150);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    QCoreApplication::processEvents();
    target->log.clear();

    simulator = createMouseSimulator();
    QVERIFY(simulator);
}

void tst_MouseSimulator::cleanup()
{
    simulator.reset();
    window.reset();
}

void tst_MouseSimulator::moveWarpsPointer()
{
    const QPoint point = window->mapToGlobal(QPoint(50, 60));
    simulator->move(point.x(), point.y());

    QCOMPARE(QCursor::pos(), point);
    QCOMPARE(target->log, QStringList {"move at 50,60 []"});
}

void tst_MouseSimulator::pressAndRelease_data()
{
    QTest::addColumn<MouseSimulator::Buttons>("buttons");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("left") << MouseSimulator::Buttons(MouseSimulator::LeftButton)
                          << QStringList {"press Left at 30,40 [Left]", "release Left at 30,40 []"};
    QTest::newRow("right") << MouseSimulator::Buttons(MouseSimulator::RightButton)
                           << QStringList {
                                  "press Right at 30,40 [Right]", "release Right at 30,40 []"};
    QTest::newRow("both") << MouseSimulator::Buttons(MouseSimulator::BothButtons)
                          << QStringList {"press Left at 30,40 [Left]",
                                 "press Right at 30,40 [Left|Right]",
                                 "release Left at 30,40 [Right]", "release Right at 30,40 []"};
    QTest::newRow("none") << MouseSimulator::Buttons(MouseSimulator::NoButton) << QStringList();
}

void tst_MouseSimulator::pressAndRelease()
{
    QFETCH(MouseSimulator::Buttons, buttons);
    QFETCH(QStringList, expected);

    moveTo(QPoint(30, 40));
    simulator->press(buttons);
    simulator->release(buttons);

    QCOMPARE(target->log, expected);
}

void tst_MouseSimulator::clickClicksButton()
{
    QSignalSpy clicked(button, &QPushButton::clicked);
    moveTo(QPoint(100, 125));

    simulator->press(MouseSimulator::LeftButton);
    QVERIFY(button->isDown());
    QCOMPARE(clicked.count(), 0);
    simulator->release(MouseSimulator::LeftButton);

    QCOMPARE(clicked.count(), 1);
    QVERIFY(!button->isDown());
}

void tst_MouseSimulator::scroll()
{
    // One notch is 120: 240 is two steps away from the user, -120 one step back, 0 nothing.
    moveTo(QPoint(70, 20));
    simulator->scroll(240);
    simulator->scroll(0);
    simulator->scroll(-120);

    QCOMPARE(target->log, (QStringList {"wheel 240 at 70,20", "wheel -120 at 70,20"}));
}

void tst_MouseSimulator::dragKeepsReceiver()
{
    // A drag that leaves the window keeps going to the widget it started on, as with a real
    // mouse; without that the release would be lost and the widget would stay pressed.
    moveTo(QPoint(10, 10));
    simulator->press(MouseSimulator::LeftButton);
    const QPoint outside = window->mapToGlobal(QPoint(-50, 300));
    simulator->move(outside.x(), outside.y());
    simulator->release(MouseSimulator::LeftButton);
    // With no button held and no window of ours under the pointer, nothing is delivered.
    simulator->move(outside.x() + 1, outside.y());
    simulator->press(MouseSimulator::BothButtons);
    simulator->scroll(120);
    simulator->release(MouseSimulator::BothButtons);

    QCOMPARE(target->log,
        (QStringList {
            "press Left at 10,10 [Left]", "move at -50,300 [Left]", "release Left at -50,300 []"}));
}

QTEST_MAIN(tst_MouseSimulator)
#include "tst_mousesimulator.moc"
