#include <guicore/utility/input/MouseSimulator.h>

#include <QCursor>
#include <QGuiApplication>
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

// Logs the mouse events it receives as readable lines, in order.
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

bool hasSyntheticInput()
{
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

} // namespace

class tst_MouseSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void unavailablePlatformWarnsOnce();
    void moveWarpsPointer();
    void pressAndRelease_data();
    void pressAndRelease();
    void clickClicksButton();
    void scroll_data();
    void scroll();

private:
    // Moves the pointer over the window and waits until the move has come back from the server,
    // so that the log starts empty for what follows.
    void moveTo(const QPoint& local);
    // XTest events come back through the server in the order they were sent: once a move sent
    // last has arrived, everything sent before it has arrived too. The move is not logged.
    void sendFenceAndWait();

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

    simulator = createMouseSimulator();
    QVERIFY(simulator);
}

void tst_MouseSimulator::cleanup()
{
    simulator.reset();
    window.reset();
}

void tst_MouseSimulator::moveTo(const QPoint& local)
{
    // Qt drops a move to where it last saw the pointer and merges queued moves into the last
    // one, so the pointer visits a neighbouring point first and that move is waited for.
    for (const QPoint& point : {local + QPoint(5, 5), local}) {
        const QPoint global = window->mapToGlobal(point);
        simulator->move(global.x(), global.y());
        const QString arrived = QStringLiteral("move at %1,%2 []").arg(point.x()).arg(point.y());
        QTRY_VERIFY(!target->log.isEmpty() && target->log.last() == arrived);
    }
    target->log.clear();
}

void tst_MouseSimulator::sendFenceAndWait()
{
    const QPoint fence = window->mapToGlobal(QPoint(150, 80));
    simulator->move(fence.x(), fence.y());
    QTRY_VERIFY(!target->log.isEmpty() && target->log.last() == "move at 150,80 []");
    target->log.removeLast();
}

void tst_MouseSimulator::unavailablePlatformWarnsOnce()
{
    if (hasSyntheticInput())
        QSKIP("The platform has synthetic input");

    const QPoint before = QCursor::pos();
    // Operations that send nothing anywhere lose nothing and do not warn.
    simulator->press(MouseSimulator::NoButton);
    simulator->release(MouseSimulator::NoButton);
    simulator->scroll(0);

    QTest::ignoreMessage(QtWarningMsg,
        qPrintable(QStringLiteral("MouseSimulator : synthetic input is not available on platform ")
            + QGuiApplication::platformName()));
    const QPoint inside = window->mapToGlobal(QPoint(30, 40));
    simulator->move(inside.x(), inside.y());
    simulator->press(MouseSimulator::BothButtons);
    simulator->scroll(240);
    simulator->release(MouseSimulator::BothButtons);
    simulator->move(inside.x() + 1, inside.y());
    QCoreApplication::processEvents();

    QCOMPARE(QCursor::pos(), before);
    QCOMPARE(target->log, QStringList());
}

void tst_MouseSimulator::moveWarpsPointer()
{
    if (!hasSyntheticInput())
        QSKIP("No synthetic input on this platform");

    const QPoint point = window->mapToGlobal(QPoint(50, 60));
    simulator->move(point.x(), point.y());

    QTRY_COMPARE(QCursor::pos(), point);
    QTRY_VERIFY(!target->log.isEmpty() && target->log.last() == "move at 50,60 []");

    // A second move lands exactly as well: the coordinates are absolute, not relative.
    const QPoint next = window->mapToGlobal(QPoint(190, 5));
    simulator->move(next.x(), next.y());
    QTRY_COMPARE(QCursor::pos(), next);
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
    if (!hasSyntheticInput())
        QSKIP("No synthetic input on this platform");
    QFETCH(MouseSimulator::Buttons, buttons);
    QFETCH(QStringList, expected);

    moveTo(QPoint(30, 40));
    simulator->press(buttons);
    simulator->release(buttons);
    sendFenceAndWait();

    QCOMPARE(target->log, expected);
}

void tst_MouseSimulator::clickClicksButton()
{
    if (!hasSyntheticInput())
        QSKIP("No synthetic input on this platform");
    QSignalSpy clicked(button, &QPushButton::clicked);
    const QPoint global = window->mapToGlobal(QPoint(100, 125));
    simulator->move(global.x(), global.y());
    QTRY_COMPARE(QCursor::pos(), global);

    simulator->press(MouseSimulator::LeftButton);
    QTRY_VERIFY(button->isDown());
    QCOMPARE(clicked.count(), 0);
    simulator->release(MouseSimulator::LeftButton);

    QTRY_COMPARE(clicked.count(), 1);
    QVERIFY(!button->isDown());
}

void tst_MouseSimulator::scroll_data()
{
    QTest::addColumn<QList<int>>("amounts");
    QTest::addColumn<QStringList>("expected");

    // One notch is 120 and positive turns away from the user.
    QTest::newRow("two notches away")
        << QList<int> {240} << QStringList {"wheel 120 at 70,20", "wheel 120 at 70,20"};
    QTest::newRow("one notch back") << QList<int> {-120} << QStringList {"wheel -120 at 70,20"};
    QTest::newRow("nothing") << QList<int> {0} << QStringList();
    // Parts of a notch add up; a turn back eats into what was carried.
    QTest::newRow("halves add up") << QList<int> {60, 0, 60} << QStringList {"wheel 120 at 70,20"};
    QTest::newRow("turn back cancels") << QList<int> {100, -100, 100} << QStringList();
    QTest::newRow("remainder carried")
        << QList<int> {180, 60} << QStringList {"wheel 120 at 70,20", "wheel 120 at 70,20"};
}

void tst_MouseSimulator::scroll()
{
    if (!hasSyntheticInput())
        QSKIP("No synthetic input on this platform");
    QFETCH(QList<int>, amounts);
    QFETCH(QStringList, expected);

    moveTo(QPoint(70, 20));
    for (int amount : amounts)
        simulator->scroll(amount);
    sendFenceAndWait();

    QCOMPARE(target->log, expected);
}

QTEST_MAIN(tst_MouseSimulator)
#include "tst_mousesimulator.moc"
