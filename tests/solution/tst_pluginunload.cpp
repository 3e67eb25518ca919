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
    void closedPluginLeavesNothingBehind()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
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
        QVERIFY(solutions.setActiveSolution("unload", true));
        const Solution hostCopy = *solutions.getActiveSolution();
        switching.installViewSwitchingShortcuts(&window);
        switching.switchToView("sub");
        QCOMPARE(switching.getCurrentViewOrSubViewID(), "sub");
        QPointer<Action> measure = solutions.getAction("measure");
        measure->start(false);
        QCOMPARE(actions.getCurrentAction(), measure.data());
        QPointer<SolutionStep> step = solutions.getCurrentSolutionStep();
        QPointer<SolutionActionGroup> group = step->getActionGroups().value(0);
        QPointer<ActionList> panel = solutions.getActionList("panel");
        QCOMPARE(panel->getActions().size(), 4);

        plugin->close();
        QVERIFY(plugin->getActions().isEmpty() && plugin->getFeatures().empty()
            && plugin->getViews().isEmpty());
        QVERIFY(loader.unload());
        QVERIFY(measure.isNull() && step.isNull());

        // Action manager: nothing runs, and passes over all actions find none.
        QCOMPARE(actions.getActiveActionsCount(), 0);
        actions.updateActions();
        actions.disableAllActions();
        actions.resetActions();
        actions.stopActiveMustBeStoppedActions(true, {});
        switching.freezeAll3DViewers(true);

        // No registry, nor a solution the host kept, hands out anything the plug-in made; what the
        // solution manager owns (group, panel) stays, empty.
        const QList<const void*> gone {actions.getCurrentAction(), solutions.getFeature("unload"),
            solutions.getFeature("extra"), solutions.getSolution("unload"),
            solutions.getActiveSolution(), solutions.getSolutionStep("step"),
            solutions.getCurrentSolutionStep(), solutions.getView("multi"),
            switching.getCurrentView(), switching.getCurrentViewOrSubView(),
            switching.getCurrentViewManager(), switching.getView("plain"),
            switching.getShortcutFor(QKeySequence("Ctrl+1")), hostCopy.getViewById("plain"),
            hostCopy.getCurrentView(), panel->getDefaultAction()};
        QCOMPARE(gone, QList<const void*>(gone.size(), nullptr));
        QTest::ignoreMessage(QtWarningMsg, "Action zoom not found.");
        QVERIFY(solutions.getActions({"zoom"}).isEmpty() && solutions.getAllActions().isEmpty());
        QVERIFY(solutions.getActionsCount() == 0 && !solutions.hasAction("measure"));
        QVERIFY(solutions.getViews().isEmpty() && !solutions.hasView({"plain", "multi"}));
        QVERIFY(switching.getViewOrSubViews().isEmpty() && switching.getCurrentViewID().isEmpty());
        QVERIFY(hostCopy.getViews().isEmpty() && hostCopy.getSolutionSteps().isEmpty());
        QCOMPARE(solutions.getActionGroup(group->getID()), group.data());
        QCOMPARE(group->getActionLists(), QList<ActionList*> {panel.data()});
        QCOMPARE(solutions.getActionList("panel"), panel.data());
        QVERIFY(panel->getActions().isEmpty() && !group->isEnabled());

        // The plug-in's view shortcuts stay installed but lead nowhere.
        QCOMPARE(shortcuts.getShortcuts().size(), size_t(2));
        for (QShortcut* shortcut : shortcuts.getShortcuts())
            Q_EMIT shortcut->activated();
        QCOMPARE(switching.getCurrentView(), nullptr);
    }
};

QTEST_MAIN(tst_PluginUnload)
#include "tst_pluginunload.moc"
