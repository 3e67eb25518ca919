#include <guicore/utility/input/MouseSimulator.h>

#include <QCursor>
#include <QGuiApplication>
#include <QHash>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

namespace {

QString names(Qt::MouseButtons buttons)
{
    return QStringList {"", "Left", "Right", "Left|Right"}.at(buttons.toInt() & 3);
}

// Logs the mouse events it receives as readable lines, in order.
class MouseLog : public QWidget
{
public:
    using QWidget::QWidget;
    QStringList log;

protected:
    bool event(QEvent* e) override
    {
        static const QHash<int, QString> kinds {{QEvent::MouseButtonPress, "press "},
            {QEvent::MouseButtonRelease, "release "}, {QEvent::MouseMove, "move"}};
        if (e->type() == QEvent::Wheel) {
            const auto* wheel = static_cast<QWheelEvent*>(e);
            log << QStringLiteral("wheel %1 at %2,%3")
                       .arg(wheel->angleDelta().y())
                       .arg(wheel->position().x())
                       .arg(wheel->position().y());
        } else if (kinds.contains(e->type())) {
            const auto* mouse = static_cast<QMouseEvent*>(e);
            log << QStringLiteral("%1%2 at %3,%4 [%5]")
                       .arg(kinds.value(e->type()), names(mouse->button()))
                       .arg(mouse->position().x())
                       .arg(mouse->position().y())
                       .arg(names(mouse->buttons()));
        }
        return QWidget::event(e);
    }
};

} // namespace

// The plain run uses the offscreen platform, where the simulator can only warn; the run against
// a real X server sends through XTest and reads the pointer and the delivered events back.
class tst_MouseSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        // A 200 x 100 logging area. Plain geometries: a layout with fixed sizes makes the
        // offscreen platform warn.
        window = std::make_unique<QWidget>();
        target = new MouseLog(window.get());
        target->setMouseTracking(true);
        target->setGeometry(0, 0, 200, 100);
        window->setGeometry(120, 90, 200, 100);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        simulator = createMouseSimulator();
        QVERIFY(simulator);
    }
    void cleanup()
    {
        simulator.reset();
        window.reset();
    }

    void unavailablePlatformWarnsOnce()
    {
        if (QGuiApplication::platformName() == QLatin1String("xcb"))
            QSKIP("The platform has synthetic input");
        const QPoint before = QCursor::pos();
        // Operations that send nothing anywhere lose nothing and do not warn.
        simulator->press(MouseSimulator::NoButton);
        simulator->release(MouseSimulator::NoButton);
        simulator->scroll(0);

        QTest::ignoreMessage(QtWarningMsg,
            qPrintable(
                QStringLiteral("MouseSimulator : synthetic input is not available on platform ")
                + QGuiApplication::platformName()));
        warp(30, 40);
        simulator->press(MouseSimulator::BothButtons);
        simulator->scroll(240);
        simulator->release(MouseSimulator::BothButtons);
        warp(31, 40);
        QCoreApplication::processEvents();
        QCOMPARE(QCursor::pos(), before);
        QCOMPARE(target->log, QStringList());
    }

    void pressReleaseAndScroll_data()
    {
        using Buttons = MouseSimulator::Buttons;
        QTest::addColumn<Buttons>("buttons");
        QTest::addColumn<QList<int>>("amounts");
        QTest::addColumn<QStringList>("expected");

        QTest::newRow("both") << Buttons(MouseSimulator::BothButtons) << QList<int> {}
                              << QStringList {"press Left at 30,40 [Left]",
                                     "press Right at 30,40 [Left|Right]",
                                     "release Left at 30,40 [Right]", "release Right at 30,40 []"};
        // One notch is 120 and positive turns away from the user.
        QTest::newRow("one notch back")
            << Buttons() << QList<int> {-120} << QStringList {"wheel -120 at 30,40"};
        // Parts of a notch add up; a turn back eats into what was carried.
        QTest::newRow("no button, halves add up")
            << Buttons(MouseSimulator::NoButton) << QList<int> {60, 0, 60}
            << QStringList {"wheel 120 at 30,40"};
        QTest::newRow("turn back cancels")
            << Buttons() << QList<int> {100, -100, 100} << QStringList();
        QTest::newRow("remainder carried") << Buttons() << QList<int> {300, 60}
                                           << QStringList(3, QStringLiteral("wheel 120 at 30,40"));
    }

    void pressReleaseAndScroll()
    {
        if (QGuiApplication::platformName() != QLatin1String("xcb"))
            QSKIP("No synthetic input on this platform");
        QFETCH(MouseSimulator::Buttons, buttons);
        QFETCH(QList<int>, amounts);
        QFETCH(QStringList, expected);

        moveTo(QPoint(30, 40));
        target->log.clear();
        simulator->press(buttons);
        simulator->release(buttons);
        for (int amount : amounts)
            simulator->scroll(amount);
        // XTest events come back in the order they were sent: once a move sent last has arrived,
        // everything before it has too. That move is not part of the result.
        moveTo(QPoint(150, 80));
        QCOMPARE(target->log, expected);
    }

private:
    QPoint global(int x, int y) const { return window->mapToGlobal(QPoint(x, y)); }
    void warp(int x, int y) { simulator->move(global(x, y).x(), global(x, y).y()); }
    // Moves the pointer over the window and waits until the move has come back from the server.
    // Qt drops a move to where it last saw the pointer, so the pointer visits a neighbour first.
    void moveTo(const QPoint& local)
    {
        for (const QPoint& point : {local + QPoint(5, 5), local}) {
            warp(point.x(), point.y());
            const QString arrived
                = QStringLiteral("move at %1,%2 []").arg(point.x()).arg(point.y());
            QTRY_VERIFY(!target->log.isEmpty() && target->log.last() == arrived);
            target->log.removeLast();
        }
    }

    std::unique_ptr<QWidget> window;
    MouseLog* target = nullptr;
    std::unique_ptr<MouseSimulator> simulator;
};

QTEST_MAIN(tst_MouseSimulator)
#include "tst_mousesimulator.moc"
