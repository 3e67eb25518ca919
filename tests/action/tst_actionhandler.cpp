#include <guicore/action/Action.h>
#include <guicore/action/ActionHandler.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/action/MultiActionHandler.h>
#include <guicore/action/SimpleActionHandlerInterface.h>

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTest>
#include <QWidget>

namespace {

// A concrete handler that exposes what it saw of its runs.
class ProbeHandler : public ActionHandler
{
public:
    QStringList log;
    QVariantMap parametersAtStart;
    QVariantMap parametersAtStop;
    bool canceledAtStart = false;
    bool completeRun = false;

    using ActionHandler::clearParameters;
    using ActionHandler::containsParameter;
    using ActionHandler::getParameter;
    using ActionHandler::isActive;
    using ActionHandler::isCanceled;
    using ActionHandler::removeParameter;

protected:
    void start() override
    {
        log.append(QStringLiteral("start ") + getCurrentAction()->getID());
        parametersAtStart = getCurrentParameters();
        canceledAtStart = isCanceled();
        if (completeRun)
            setCanceled(false);
    }
    void stop() override
    {
        log.append(QStringLiteral("stop ") + getCurrentAction()->getID());
        parametersAtStop = getCurrentParameters();
    }
};

class KeyAndMouseRecorder : public QWidget
{
public:
    int escapes = 0;
    int rightReleases = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Escape)
            ++escapes;
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::RightButton)
            ++rightReleases;
    }
};

class CountingReceiver : public SimpleActionHandlerInterface
{
public:
    using SimpleActionHandlerInterface::SimpleActionHandlerInterface;
    void handleTriggered() override { ++calls; }
    int calls = 0;
};

void sendMouse(QWidget* widget, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons,
    QPoint local)
{
    QMouseEvent event(
        type, QPointF(local), QPointF(widget->mapToGlobal(local)), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

// A checkable tool with its own handler, optionally stopped by Escape or a right click.
struct Tool
{
    explicit Tool(const char* id, bool stopWithEvents = true)
        : action(QString::fromLatin1(id))
    {
        action.setCheckable(true);
        if (stopWithEvents)
            action.enableStopWithEventFilter();
        action.setActionHandler(&handler);
    }
    EmptyActionHandler handler;
    Action action;
};

bool showAndWait(QWidget& widget)
{
    widget.resize(300, 300);
    widget.show();
    return QTest::qWaitForWindowExposed(&widget);
}

void attach(ActionHandler* handler, std::initializer_list<Action*> actions)
{
    for (Action* action : actions) {
        action->setCheckable(true);
        action->setActionHandler(handler);
    }
}

} // namespace

class tst_ActionHandler : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void busyHandlerRefusesSecondAction();
    void runIsCanceledUntilCompleted();
    void parametersAreCopiedAtStartAndStop();
    void emptyHandlerEndsCommandsOnly_data();
    void emptyHandlerEndsCommandsOnly();
    void escapeStopsWatchedActionOnly();
    void rightClickStopsOnNextLoopTurnButRightDragDoesNot();
    void multiHandlerDispatchesById();
    void multiHandlerOwnsItsHandlers();
    void simpleInterfaceFollowsQAction();
};

void tst_ActionHandler::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_ActionHandler::busyHandlerRefusesSecondAction()
{
    ProbeHandler handler;
    Action first(QStringLiteral("first"));
    Action second(QStringLiteral("second"));
    attach(&handler, {&first, &second});

    first.start(false);
    QSignalSpy secondTriggered(&second, &Action::triggered);
    QTest::ignoreMessage(
        QtDebugMsg, "ActionHandler::startHandler : there is still an action that is busy");
    second.start(false);

    QCOMPARE(secondTriggered.count(), 2);
    QCOMPARE(secondTriggered.at(0).at(0).toBool(), true);
    QCOMPARE(secondTriggered.at(1).at(0).toBool(), false);
    QVERIFY(!second.isActive());
    QVERIFY(first.isActive());
    QVERIFY(handler.isActive());
    QCOMPARE(handler.log, QStringList {QStringLiteral("start first")});

    // Stopping an idle handler is a harmless no-op.
    first.stop();
    QVERIFY(handler.stopHandler(&first));
    QCOMPARE(handler.log.count(QStringLiteral("stop first")), 1);
}

void tst_ActionHandler::runIsCanceledUntilCompleted()
{
    ProbeHandler handler;
    Action action(QStringLiteral("a"));
    attach(&handler, {&action});

    handler.completeRun = true;
    action.start(false);
    QVERIFY(handler.canceledAtStart);
    QVERIFY(!handler.isCanceled());
    action.stop();

    // A completed earlier run does not carry over.
    handler.completeRun = false;
    action.start(false);
    QVERIFY(handler.isCanceled());
}

void tst_ActionHandler::parametersAreCopiedAtStartAndStop()
{
    ProbeHandler handler;
    Action action(QStringLiteral("a"));
    attach(&handler, {&action});
    action.setParameter(QStringLiteral("mode"), 1);

    action.start(false);
    QCOMPARE(handler.parametersAtStart.value(QStringLiteral("mode")), QVariant(1));
    QVERIFY(handler.containsParameter(QStringLiteral("mode")));

    handler.removeParameter(QStringLiteral("mode"));
    QVERIFY(!handler.getParameter(QStringLiteral("mode")).isValid());
    handler.clearParameters();
    QCOMPARE(action.getParameter(QStringLiteral("mode")), QVariant(1));

    // Values set during the run reach stop().
    action.setParameter(QStringLiteral("result"), 42);
    action.stop();
    QCOMPARE(handler.parametersAtStop.value(QStringLiteral("result")), QVariant(42));
    QCOMPARE(handler.parametersAtStop.value(QStringLiteral("mode")), QVariant(1));
}

void tst_ActionHandler::emptyHandlerEndsCommandsOnly_data()
{
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<QList<bool>>("expected");
    QTest::addColumn<bool>("activeAfter");
    QTest::newRow("one-shot command") << false << QList<bool> {true, false} << false;
    QTest::newRow("checkable tool") << true << QList<bool> {true} << true;
}

void tst_ActionHandler::emptyHandlerEndsCommandsOnly()
{
    QFETCH(bool, checkable);
    QFETCH(QList<bool>, expected);
    QFETCH(bool, activeAfter);

    EmptyActionHandler handler;
    Action action(QStringLiteral("a"));
    action.setCheckable(checkable);
    action.setActionHandler(&handler);
    QList<bool> seen;
    connect(&action, &Action::triggered, this, [&seen](bool checked) { seen.append(checked); });

    action.start(false);
    QCOMPARE(seen, expected);
    QCOMPARE(action.isActive(), activeAfter);
    QVERIFY(handler.allowClose());
    QVERIFY(action.allowClose());
}

void tst_ActionHandler::escapeStopsWatchedActionOnly()
{
    KeyAndMouseRecorder widget;
    QVERIFY(showAndWait(widget));

    Tool tool("a");
    Action& action = tool.action;
    action.start(false);
    QVERIFY(action.isActive());
    // Other keys pass while a watched action runs.
    QTest::keyClick(&widget, Qt::Key_A);
    QVERIFY(action.isActive());

    QTest::keyClick(&widget, Qt::Key_Escape);
    QVERIFY(!action.isActive());
    QCOMPARE(widget.escapes, 0);

    // The filter went with the run: the next Escape reaches the widget.
    QTest::keyClick(&widget, Qt::Key_Escape);
    QCOMPARE(widget.escapes, 1);

    // A running action that does not ask for the filter leaves Escape alone.
    Tool plain("p", false);
    plain.action.start(false);
    QTest::keyClick(&widget, Qt::Key_Escape);
    QVERIFY(plain.action.isActive());
    QCOMPARE(widget.escapes, 2);
}

void tst_ActionHandler::rightClickStopsOnNextLoopTurnButRightDragDoesNot()
{
    KeyAndMouseRecorder widget;
    QVERIFY(showAndWait(widget));

    Tool tool("a");
    Action& action = tool.action;
    action.start(false);

    const QPoint at(50, 50);
    sendMouse(&widget, QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, at);
    sendMouse(&widget, QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, at);
    // The release itself still reaches the widget; the stop waits for the event loop.
    QCOMPARE(widget.rightReleases, 1);
    QVERIFY(action.isActive());
    QTRY_VERIFY(!action.isActive());

    // A left click does nothing.
    action.start(false);
    sendMouse(&widget, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, at);
    sendMouse(&widget, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, at);
    QCoreApplication::processEvents();
    QVERIFY(action.isActive());

    // Nor does a right drag.
    const int far = QGuiApplication::styleHints()->startDragDistance() * 4 + 10;
    const QPoint from(20, 20);
    const QPoint to(20 + far, 20 + far);
    sendMouse(&widget, QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton, from);
    sendMouse(&widget, QEvent::MouseMove, Qt::NoButton, Qt::RightButton, (from + to) / 2);
    sendMouse(&widget, QEvent::MouseMove, Qt::NoButton, Qt::RightButton, to);
    sendMouse(&widget, QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, to);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QVERIFY(action.isActive());
}

void tst_ActionHandler::multiHandlerDispatchesById()
{
    MultiActionHandler multi;
    auto* forA = new ProbeHandler;
    auto* forB = new ProbeHandler;
    multi.addActionHandler(QStringLiteral("a"), forA);
    multi.addActionHandler(QStringLiteral("b"), forB);

    Action a(QStringLiteral("a"));
    Action b(QStringLiteral("b"));
    attach(&multi, {&a, &b});

    a.start(false);
    a.stop();
    b.start(false);
    QCOMPARE(forA->log, (QStringList {"start a", "stop a"}));
    QCOMPARE(forB->log, QStringList {"start b"});
    QVERIFY(b.isActive());

    b.stop();

    // An action without a handler of its own is stopped at once.
    Action unknown(QStringLiteral("unknown"));
    attach(&multi, {&unknown});
    QList<bool> seen;
    connect(&unknown, &Action::triggered, this, [&seen](bool checked) { seen.append(checked); });
    unknown.start(false);
    QCOMPARE(seen, (QList<bool> {true, false}));
    QVERIFY(!unknown.isActive());
}

void tst_ActionHandler::multiHandlerOwnsItsHandlers()
{
    QPointer<ActionHandler> replaced = new ProbeHandler;
    QPointer<ActionHandler> replacement = new ProbeHandler;
    {
        MultiActionHandler multi;
        multi.addActionHandler(QStringLiteral("a"), replaced);
        multi.addActionHandler(QStringLiteral("a"), replacement);
        QVERIFY(replaced.isNull());
        QVERIFY(!replacement.isNull());
    }
    QVERIFY(replacement.isNull());
}

void tst_ActionHandler::simpleInterfaceFollowsQAction()
{
    auto* qaction = new QAction(QStringLiteral("Print"));
    QPointer<CountingReceiver> receiver = new CountingReceiver(qaction);
    QCOMPARE(receiver->parent(), qaction);
    qaction->trigger();
    qaction->trigger();
    QCOMPARE(receiver->calls, 2);
    delete qaction;
    QVERIFY(receiver.isNull());

    CountingReceiver detached(nullptr);
    QCOMPARE(detached.parent(), nullptr);
}

QTEST_MAIN(tst_ActionHandler)
#include "tst_actionhandler.moc"
