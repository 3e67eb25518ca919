#include <guicore/action/ActionList.h>
#include <guicore/action/ActionManager.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionActionGroup.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/solution/SolutionPluginInterface.h>
#include <guicore/solution/SolutionStep.h>
#include <guicore/utility/shortcuts/ShortcutManager.h>
#include <guicore/view/SwitchingViewsManager.h>

#include <QPluginLoader>
#include <QPointer>
#include <QRegularExpression>
#include <QShortcut>
#include <QTest>
#include <QWidget>

// The host side of a plug-in's life: load it, register what it makes, use it, close and unload
// it. Afterwards no registry may hand out, or touch, anything the plug-in made; under the asan
// preset every such pointer is a use after free or a call into unmapped code.
class tst_PluginUnload : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void closedPluginLeavesNothingBehind();
};

void tst_PluginUnload::closedPluginLeavesNothingBehind()
{
    SolutionManager solutions;
    action::ActionManager actions;
    actions.setSolutionManager(&solutions);
    ShortcutManager shortcuts;
    SwitchingViewsManager switching;
    switching.setSolutionManager(&solutions);
    switching.setActionManager(&actions);
    switching.setShortcutManager(&shortcuts);
    QWidget window;

    QPluginLoader loader(QStringLiteral(UNLOAD_TEST_PLUGIN));
    auto* plugin = dynamic_cast<SolutionPluginInterface*>(loader.instance());
    QVERIFY2(plugin, qPrintable(loader.errorString()));
    plugin->initialize();
    plugin->loadFeatures();
    plugin->loadActions();
    plugin->loadViews();
    // Null features and views, and an action added twice, are not kept.
    QCOMPARE(plugin->getFeatures().size(), size_t(2));
    QCOMPARE(plugin->getActions().size(), 4);
    QCOMPARE(plugin->getViews().size(), 2);
    for (Action* action : plugin->getActions())
        solutions.addAction(action);
    for (const auto& feature : plugin->getFeatures())
        solutions.addFeature(feature.get());
    for (View* view : plugin->getViews())
        solutions.addView(view);
    QVERIFY(QMetaObject::invokeMethod(
        loader.instance(), "buildSolution", Q_ARG(SolutionManager*, &solutions)));
    solutions.setViewsSortPredicate(
        [](const View* a, const View* b) { return a->getID() < b->getID(); });

    // Use it: an active solution, a copy of it kept by the host, view shortcuts, the current
    // view a sub view, and a running action.
    QVERIFY(solutions.setActiveSolution(QStringLiteral("unload"), true));
    const Solution hostCopy = *solutions.getActiveSolution();
    switching.installViewSwitchingShortcuts(&window);
    switching.switchToView(QStringLiteral("sub"));
    QCOMPARE(switching.getCurrentViewOrSubViewID(), QStringLiteral("sub"));
    QCOMPARE(solutions.getActionsCount(), 4);
    QPointer<Action> measure = solutions.getAction(QStringLiteral("measure"));
    measure->start(false);
    QCOMPARE(actions.getCurrentAction(), measure.data());
    QPointer<SolutionStep> step = solutions.getCurrentSolutionStep();
    QVERIFY(step);
    QPointer<SolutionActionGroup> group = step->getActionGroups().value(0);
    QPointer<ActionList> panel = solutions.getActionList(QStringLiteral("panel"));
    QCOMPARE(panel->getActions().size(), 4);

    plugin->close();
    QVERIFY(plugin->getActions().isEmpty());
    QVERIFY(plugin->getFeatures().empty());
    QVERIFY(plugin->getViews().isEmpty());
    QVERIFY(loader.unload());
    QVERIFY(measure.isNull());
    QVERIFY(step.isNull());

    // Solution manager: what it borrowed is gone, what it owns (group, panel) is empty.
    QVERIFY(solutions.getAllActions().isEmpty());
    QCOMPARE(solutions.getActionsCount(), 0);
    QTest::ignoreMessage(QtWarningMsg, "Action zoom not found.");
    QVERIFY(solutions.getActions({QStringLiteral("zoom")}).isEmpty());
    for (const char* id : {"measure", "tools", "zoom", "note"})
        QVERIFY(!solutions.hasAction(QLatin1String(id)));
    for (const char* id : {"unload", "extra"})
        QCOMPARE(solutions.getFeature(QLatin1String(id)), nullptr);
    QCOMPARE(solutions.getSolution(QStringLiteral("unload")), nullptr);
    QCOMPARE(solutions.getActiveSolution(), nullptr);
    QCOMPARE(solutions.getSolutionStep(QStringLiteral("step")), nullptr);
    QCOMPARE(solutions.getCurrentSolutionStep(), nullptr);
    QVERIFY(solutions.getViews().isEmpty());
    QCOMPARE(solutions.getView(QStringLiteral("multi")), nullptr);
    QVERIFY(!solutions.hasView(QList<QString> {QStringLiteral("plain"), QStringLiteral("multi")}));
    QCOMPARE(solutions.getActionGroup(group->getID()), group.data());
    QCOMPARE(group->getActionLists(), QList<ActionList*> {panel.data()});
    QCOMPARE(solutions.getActionList(QStringLiteral("panel")), panel.data());
    QVERIFY(panel->getActions().isEmpty());
    QCOMPARE(panel->getDefaultAction(), nullptr);
    QVERIFY(!group->isEnabled());

    // Action manager: nothing runs, and passes over all actions find none.
    QCOMPARE(actions.getCurrentAction(), nullptr);
    QCOMPARE(actions.getActiveActionsCount(), 0);
    actions.updateActions();
    actions.disableAllActions();
    actions.resetActions();
    actions.stopActiveMustBeStoppedActions(true, {});

    // View switching: no current view, no view behind a shortcut.
    QCOMPARE(switching.getCurrentView(), nullptr);
    QCOMPARE(switching.getCurrentViewOrSubView(), nullptr);
    QCOMPARE(switching.getCurrentViewID(), QString());
    QCOMPARE(switching.getCurrentViewManager(), nullptr);
    QVERIFY(switching.getViewOrSubViews().isEmpty());
    QCOMPARE(switching.getView(QStringLiteral("plain")), nullptr);
    QCOMPARE(switching.getShortcutFor(QKeySequence(QStringLiteral("Ctrl+1"))), nullptr);
    switching.freezeAll3DViewers(true);
    QCOMPARE(shortcuts.getShortcuts().size(), size_t(2));
    for (QShortcut* shortcut : shortcuts.getShortcuts())
        Q_EMIT shortcut->activated();
    QCOMPARE(switching.getCurrentView(), nullptr);

    // A solution the host kept lists neither the plug-in's views nor its step.
    QVERIFY(hostCopy.getViews().isEmpty());
    QCOMPARE(hostCopy.getViewById(QStringLiteral("plain")), nullptr);
    QCOMPARE(hostCopy.getCurrentView(), nullptr);
    QVERIFY(hostCopy.getSolutionSteps().isEmpty());
}

QTEST_MAIN(tst_PluginUnload)
#include "tst_pluginunload.moc"
