#include <guicore/action/Action.h>
#include <guicore/action/ActionHandler.h>
#include <guicore/action/EmptyActionHandler.h>

#include <objectmodel/StringConversions.h>

#include <QAction>
#include <QSignalSpy>
#include <QTest>

namespace {

// Accepts or refuses every start and records its calls into the shared log.
class RecordingHandler : public ActionHandler
{
public:
    RecordingHandler(QStringList* log, bool accept)
        : m_log(log)
        , m_accept(accept)
    {
    }

    bool startHandler(Action* action) override
    {
        if (!m_accept) {
            m_log->append(QStringLiteral("refused"));
            return false;
        }
        return ActionHandler::startHandler(action);
    }

    int stops = 0;

protected:
    void start() override { m_log->append(QStringLiteral("start")); }
    void stop() override
    {
        ++stops;
        m_log->append(QStringLiteral("stop"));
    }

private:
    QStringList* m_log;
    bool m_accept;
};

// An application action whose own availability rule enables it.
class CountingAction : public Action
{
public:
    using Action::Action;
    void updateState() override
    {
        ++updateStateCalls;
        Action::updateState();
    }
    int updateStateCalls = 0;
};

// A checkable action driven by a recording handler.
struct Rig
{
    Rig(QStringList* log, bool accept, bool checkable = true)
        : handler(log, accept)
    {
        action.setCheckable(checkable);
        action.setActionHandler(&handler);
    }
    RecordingHandler handler;
    Action action {QStringLiteral("a")};
};

void record(Action* action, QStringList* log)
{
    QObject::connect(action, &Action::triggered, action, [log](bool checked) {
        log->append(
            checked ? QStringLiteral("triggered(true)") : QStringLiteral("triggered(false)"));
    });
    QObject::connect(
        action, &Action::handled, action, [log] { log->append(QStringLiteral("handled")); });
    QObject::connect(action, &Action::disabled, action,
        [log](bool d) { log->append(QStringLiteral("disabled(%1)").arg(d ? "true" : "false")); });
    QObject::connect(action, &Action::enabled, action,
        [log](bool e) { log->append(QStringLiteral("enabled(%1)").arg(e ? "true" : "false")); });
}

} // namespace

class tst_Action : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void construction();
    void startSequence_data();
    void startSequence();
    void stopSequence();
    void disabledBlocksStartAndToggleButNotTrigger();
    void repeatedStartAndIdleStopAreSilent();
    void triggerFollowsCheckedState_data();
    void triggerFollowsCheckedState();
    void setDisabledEmitsDisabledThenEnabledOnce();
    void nameFillsEmptyTooltipSilently();
    void tooltipSignalsAndShortcutSuffix();
    void disableOthersDefaultsToNotCheckable();
    void updateKeepsActionDisabledWhileBlocked();
    void qactionsFollowTheAction();
    void qactionDrivesTheAction();

private:
    QStringList m_log;
};

void tst_Action::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_log.clear();
}

void tst_Action::construction()
{
    Action unnamed;
    QCOMPARE(unnamed.getID(), QStringLiteral("undefined_action"));
    QCOMPARE(unnamed.getType(), QStringLiteral("Action"));
    QVERIFY(unnamed.stopOnViewSwitch());
    QVERIFY(unnamed.mustBeDisabled());
    QVERIFY(!unnamed.mustBeStopped());
}

void tst_Action::startSequence_data()
{
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<int>("explicitDisableOthers"); // -1 unset, 0 false, 1 true
    QTest::addColumn<bool>("accept");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("activeAfter");

    QTest::newRow("checkable, accepted")
        << true << -1 << true << QStringList {"triggered(true)", "start", "handled"} << true;
    QTest::newRow("checkable, refused: handled still emitted")
        << true << -1 << false
        << QStringList {"triggered(true)", "refused", "handled", "triggered(false)"} << false;
    QTest::newRow("checkable with explicit choice: no handled")
        << true << 0 << true << QStringList {"triggered(true)", "start"} << true;
    QTest::newRow("one-shot, accepted")
        << false << -1 << true << QStringList {"triggered(true)", "start"} << true;
    QTest::newRow("one-shot, refused")
        << false << -1 << false << QStringList {"triggered(true)", "refused", "triggered(false)"}
        << false;
}

void tst_Action::startSequence()
{
    QFETCH(bool, checkable);
    QFETCH(int, explicitDisableOthers);
    QFETCH(bool, accept);
    QFETCH(QStringList, expected);
    QFETCH(bool, activeAfter);

    Rig rig(&m_log, accept, checkable);
    Action& action = rig.action;
    if (explicitDisableOthers >= 0)
        action.disableOtherActionsOnStart(explicitDisableOthers == 1);
    action.setCancelled(true);
    record(&action, &m_log);

    action.start(false);
    QCOMPARE(m_log, expected);
    QCOMPARE(action.isActive(), activeAfter);
    QVERIFY(!action.isCancelled());
}

void tst_Action::stopSequence()
{
    Rig rig(&m_log, true);
    Action& action = rig.action;
    action.disableOtherActionsOnStart(false);
    record(&action, &m_log);
    action.start(false);
    m_log.clear();

    action.stop();
    QCOMPARE(m_log, (QStringList {"stop", "triggered(false)"}));
    QVERIFY(!action.isActive());

    m_log.clear();
    action.toggle();
    action.toggle();
    QCOMPARE(m_log, (QStringList {"triggered(true)", "start", "stop", "triggered(false)"}));
}

void tst_Action::disabledBlocksStartAndToggleButNotTrigger()
{
    Rig rig(&m_log, true);
    Action& action = rig.action;
    action.setDisabled(true);

    action.start(false);
    action.toggle();
    QVERIFY(!action.isActive());
    QVERIFY(m_log.isEmpty());

    action.start(true);
    QVERIFY(action.isActive());
    action.stop();

    // Kept on purpose: the QAction path does not look at the disabled flag.
    action.trigger(true);
    QVERIFY(action.isActive());

    // Disabled blocks starting, never stopping.
    action.toggle();
    QVERIFY(action.isActive());
    action.stop();
    QVERIFY(!action.isActive());
}

void tst_Action::repeatedStartAndIdleStopAreSilent()
{
    Rig rig(&m_log, true);
    Action& action = rig.action;

    action.stop();
    QCOMPARE(rig.handler.stops, 0);

    action.start(false);
    QSignalSpy triggered(&action, &Action::triggered);
    QSignalSpy handled(&action, &Action::handled);
    action.start(false);
    action.start(true);
    action.trigger(true);
    QCOMPARE(triggered.count(), 0);
    QCOMPARE(handled.count(), 0);
    QCOMPARE(m_log.count(QStringLiteral("start")), 1);
}

void tst_Action::triggerFollowsCheckedState_data()
{
    QTest::addColumn<bool>("checkable");
    QTest::addColumn<bool>("startActive");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("activeAfter");

    QTest::newRow("checkable, unchecked while active stops") << true << true << false << false;
    QTest::newRow("checkable, unchecked while idle does nothing")
        << true << false << false << false;
    QTest::newRow("checkable, checked while idle starts") << true << false << true << true;
    QTest::newRow("checkable, checked while active stays") << true << true << true << true;
    QTest::newRow("command, unchecked starts") << false << false << false << true;
    QTest::newRow("command, while active stays") << false << true << false << true;
}

void tst_Action::triggerFollowsCheckedState()
{
    QFETCH(bool, checkable);
    QFETCH(bool, startActive);
    QFETCH(bool, checked);
    QFETCH(bool, activeAfter);

    Rig rig(&m_log, true, checkable);
    Action& action = rig.action;
    if (startActive)
        action.start(false);
    QVERIFY(action.isActive() == startActive);

    action.trigger(checked);
    QCOMPARE(action.isActive(), activeAfter);
}

void tst_Action::setDisabledEmitsDisabledThenEnabledOnce()
{
    Action action(QStringLiteral("a"));
    record(&action, &m_log);

    action.setDisabled(true);
    action.setDisabled(true);
    QCOMPARE(m_log, (QStringList {"disabled(true)", "enabled(false)"}));
    QVERIFY(action.isDisabled());

    m_log.clear();
    action.setEnabled(true);
    action.setEnabled(true);
    QCOMPARE(m_log, (QStringList {"disabled(false)", "enabled(true)"}));
    QVERIFY(action.isEnabled());
}

void tst_Action::nameFillsEmptyTooltipSilently()
{
    Action action(QStringLiteral("a"));
    QSignalSpy names(&action, &Action::nameChanged);
    QSignalSpy tooltips(&action, &Action::tooltipChanged);

    action.setName(QStringLiteral("Angle"));
    QCOMPARE(action.getTooltip(), QStringLiteral("Angle"));
    QCOMPARE(names.count(), 1);
    QCOMPARE(names.at(0).at(0).toString(), QStringLiteral("Angle"));
    QCOMPARE(tooltips.count(), 0);

    action.setName(QStringLiteral("Angle"));
    QCOMPARE(names.count(), 1);

    // Once the tooltip has text, a new name leaves it alone.
    action.setName(QStringLiteral("Angle 2"));
    QCOMPARE(action.getTooltip(), QStringLiteral("Angle"));
}

void tst_Action::tooltipSignalsAndShortcutSuffix()
{
    Action action(QStringLiteral("a"));
    QSignalSpy tooltips(&action, &Action::tooltipChanged);
    const QList<QKeySequence> shortcuts {QKeySequence(Qt::CTRL | Qt::Key_M)};
    const QString suffix = StringConversions::qkeySequencesToAppendableString(shortcuts);
    QVERIFY(!suffix.isEmpty());

    action.setShortcuts(shortcuts);
    QCOMPARE(tooltips.takeFirst().at(0).toString(), suffix);

    // The change signal carries the bare text; the getter appends the shortcuts.
    action.setTooltip(QStringLiteral("Measure"));
    QCOMPARE(tooltips.takeFirst().at(0).toString(), QStringLiteral("Measure"));
    QCOMPARE(action.getTooltip(), QStringLiteral("Measure") + suffix);
    action.setTooltip(QStringLiteral("Measure"));
    QCOMPARE(tooltips.count(), 0);

    const QKeySequence other(Qt::Key_F5);
    action.setShortcutSequence(other);
    QCOMPARE(action.getShortcuts(), QList<QKeySequence> {other});
    const QString otherTooltip
        = QStringLiteral("Measure") + StringConversions::qkeySequencesToAppendableString({other});
    QCOMPARE(tooltips.takeFirst().at(0).toString(), otherTooltip);

    action.setShowShortcutInTooltip(false);
    QCOMPARE(tooltips.takeFirst().at(0).toString(), QStringLiteral("Measure"));
    QCOMPARE(action.getTooltip(), QStringLiteral("Measure"));
    action.setShowShortcutInTooltip(false);
    action.setShortcuts(shortcuts);
    QCOMPARE(tooltips.count(), 0);
}

void tst_Action::disableOthersDefaultsToNotCheckable()
{
    Action action(QStringLiteral("a"));
    QVERIFY(action.shouldDisableOtherActionsOnStart());
    action.setCheckable(true);
    QVERIFY(!action.shouldDisableOtherActionsOnStart());
    action.disableOtherActionsOnStart(true);
    QVERIFY(action.shouldDisableOtherActionsOnStart());
    action.setCheckable(false);
    action.disableOtherActionsOnStart(false);
    QVERIFY(!action.shouldDisableOtherActionsOnStart());
}

void tst_Action::updateKeepsActionDisabledWhileBlocked()
{
    CountingAction action(QStringLiteral("a"));
    Action blocker(QStringLiteral("b"));
    action.addBlockingAction(&blocker);
    action.setDisabled(true);

    action.update();
    QCOMPARE(action.updateStateCalls, 1);
    QVERIFY(action.isEnabled());

    // A state change of the blocker updates the dependent action by itself.
    blocker.setActionState(Action::Blocking);
    QCOMPARE(action.updateStateCalls, 2);
    QVERIFY(action.isDisabled());

    blocker.setActionState(Action::NoState);
    QCOMPARE(action.updateStateCalls, 3);
    QVERIFY(action.isEnabled());

    // A blocker deleted first is forgotten.
    {
        Action shortLived(QStringLiteral("c"));
        action.addBlockingAction(&shortLived);
        shortLived.setActionState(Action::Blocking);
        QVERIFY(action.isDisabled());
    }
    action.update();
    QVERIFY(action.isEnabled());
}

void tst_Action::qactionsFollowTheAction()
{
    EmptyActionHandler handler;
    Action action(QStringLiteral("measure"), QStringLiteral("Measure"), QString(), QIcon());
    action.setCheckable(true);
    action.setActionHandler(&handler);

    QAction* first = action.getQAction();
    QAction* second = action.getQAction();
    QVERIFY(first != second);
    QCOMPARE(first->parent(), &action);
    QCOMPARE(first->objectName(), QStringLiteral("measure"));
    QVERIFY(first->isCheckable());
    QVERIFY(!first->isChecked());

    action.setName(QStringLiteral("Distance"));
    QCOMPARE(first->text(), QStringLiteral("Distance"));
    QCOMPARE(second->text(), QStringLiteral("Distance"));
    action.setTooltip(QStringLiteral("Measures a distance"));
    QCOMPARE(second->toolTip(), QStringLiteral("Measures a distance"));

    action.start(false);
    QVERIFY(first->isChecked());
    QVERIFY(second->isChecked());
    action.stop();
    QVERIFY(!first->isChecked());

    action.setDisabled(true);
    QVERIFY(!first->isEnabled());
    QVERIFY(!action.getQAction()->isEnabled());
}

void tst_Action::qactionDrivesTheAction()
{
    // A checkable action follows the QAction's check box, and a refusing handler unchecks it.
    {
        Rig refusing(&m_log, false);
        QAction* qaction = refusing.action.getQAction();
        qaction->trigger();
        QCOMPARE(m_log, QStringList {"refused"});
        QVERIFY(!refusing.action.isActive());
        QVERIFY(!qaction->isChecked());
    }
    {
        Rig accepting(&m_log, true);
        QAction* qaction = accepting.action.getQAction();
        qaction->trigger();
        QVERIFY(accepting.action.isActive());
        qaction->trigger();
        QVERIFY(!accepting.action.isActive());
    }
    // A one-shot command runs and ends inside one trigger.
    {
        EmptyActionHandler handler;
        Action command(QStringLiteral("c"));
        command.setActionHandler(&handler);
        QSignalSpy triggered(&command, &Action::triggered);
        command.getQAction()->trigger();
        QCOMPARE(triggered.count(), 2);
        QVERIFY(!command.isActive());
    }
}

QTEST_MAIN(tst_Action)
#include "tst_action.moc"
