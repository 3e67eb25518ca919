#include <guicore/utility/input/MouseSimulator.h>

#include <QCursor>
#include <QMouseEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

namespace {

QString buttonName(Qt::MouseButtons buttons)
{
    QStringList names;
    if (buttons & Qt::LeftButton)
        names << QStringLiteral("Left");
    if (buttons & Qt::RightButton)
        names << QStringLiteral("Right");
    return names.join(QLatin1Char('|'));
}

// Logs the mouse events it receives, in order, as readable lines. The tests do not spin the
// event loop after simulating, so the hover that the platform itself queues after
// QCursor::setPos is not mixed in: the log shows exactly what the simulator delivered.
class MouseLog : public QWidget
{
public:
    MouseLog() { setMouseTracking(true); }

    QStringList log;

protected:
    void mousePressEvent(QMouseEvent* event) override { record(QStringLiteral("press"), event); }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        record(QStringLiteral("release"), event);
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
        QString line = QStringLiteral("%1 at %2,%3 [%4]")
                           .arg(what)
                           .arg(event->position().x())
                           .arg(event->position().y())
                           .arg(buttonName(event->buttons()));
        if (event->button() != Qt::NoButton)
            line.insert(what.size(), QLatin1Char(' ') + buttonName(event->button()));
        log << line;
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
    void pressWithoutButtonSendsNothing();
    void clickClicksButton();
    void scroll_data();
    void scroll();
    void dragKeepsReceiver();
    void nothingUnderPointer();

private:
    QPoint globalAt(int x, int y) const { return window->mapToGlobal(QPoint(x, y)); }

    std::unique_ptr<QWidget> window;
    MouseLog* target = nullptr;
    QPushButton* button = nullptr;
    std::unique_ptr<MouseSimulator> simulator;
};

void tst_MouseSimulator::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));

    // Plain geometries: a layout with fixed sizes makes the offscreen platform warn.
    window = std::make_unique<QWidget>();
    target = new MouseLog;
    target->setParent(window.get());
    target->setGeometry(0, 0, 200, 100);
    button = new QPushButton(QStringLiteral("Press"), window.get());
    button->setGeometry(0, 100, 200, 50);
    window->resize(200, 150);
    window->move(120, 90);
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
    const QPoint point = globalAt(50, 60);
    simulator->move(point.x(), point.y());

    QCOMPARE(QCursor::pos(), point);
    QCOMPARE(target->log, QStringList {QStringLiteral("move at 50,60 []")});
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
}

void tst_MouseSimulator::pressAndRelease()
{
    QFETCH(MouseSimulator::Buttons, buttons);
    QFETCH(QStringList, expected);

    const QPoint point = globalAt(30, 40);
    simulator->move(point.x(), point.y());
    target->log.clear();

    simulator->press(buttons);
    simulator->release(buttons);

    QCOMPARE(target->log, expected);
}

void tst_MouseSimulator::pressWithoutButtonSendsNothing()
{
    const QPoint point = globalAt(30, 40);
    simulator->move(point.x(), point.y());
    target->log.clear();

    simulator->press(MouseSimulator::NoButton);
    simulator->release(MouseSimulator::NoButton);
    simulator->scroll(0);

    QCOMPARE(target->log, QStringList());
}

void tst_MouseSimulator::clickClicksButton()
{
    QSignalSpy clicked(button, &QPushButton::clicked);
    const QPoint point = button->mapToGlobal(QPoint(100, 25));
    simulator->move(point.x(), point.y());

    simulator->press(MouseSimulator::LeftButton);
    QVERIFY(button->isDown());
    QCOMPARE(clicked.count(), 0);
    simulator->release(MouseSimulator::LeftButton);

    QCOMPARE(clicked.count(), 1);
    QVERIFY(!button->isDown());
}

void tst_MouseSimulator::scroll_data()
{
    QTest::addColumn<int>("amount");
    QTest::addColumn<int>("steps");
    QTest::newRow("two steps away") << 240 << 2;
    QTest::newRow("one step back") << -120 << -1;
}

void tst_MouseSimulator::scroll()
{
    QFETCH(int, amount);
    QFETCH(int, steps);

    const QPoint point = globalAt(70, 20);
    simulator->move(point.x(), point.y());
    target->log.clear();

    simulator->scroll(amount);

    QCOMPARE(target->log, QStringList {QStringLiteral("wheel %1 at 70,20").arg(steps * 120)});
}

void tst_MouseSimulator::dragKeepsReceiver()
{
    // A drag that leaves the window keeps going to the widget it started on, as with a real
    // mouse; without the grab the release would be lost and the widget would stay pressed.
    const QPoint start = globalAt(10, 10);
    simulator->move(start.x(), start.y());
    target->log.clear();

    simulator->press(MouseSimulator::LeftButton);
    const QPoint outside = globalAt(-50, 300);
    simulator->move(outside.x(), outside.y());
    simulator->release(MouseSimulator::LeftButton);
    simulator->move(outside.x() + 1, outside.y());

    QCOMPARE(target->log,
        (QStringList {
            "press Left at 10,10 [Left]", "move at -50,300 [Left]", "release Left at -50,300 []"}));
}

void tst_MouseSimulator::nothingUnderPointer()
{
    const QPoint outside = globalAt(-50, 300);
    simulator->move(outside.x(), outside.y());
    simulator->press(MouseSimulator::BothButtons);
    simulator->scroll(120);
    simulator->release(MouseSimulator::BothButtons);

    QCOMPARE(QCursor::pos(), outside);
    QCOMPARE(target->log, QStringList());
}

QTEST_MAIN(tst_MouseSimulator)
#include "tst_mousesimulator.moc"
