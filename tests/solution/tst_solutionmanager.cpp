#include <guicore/action/ActionList.h>
#include <guicore/action/CustomAction.h>
#include <guicore/action/SingleAction.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionActionGroup.h>
#include <guicore/solution/SolutionBuilderHelper.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/solution/SolutionStep.h>

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

class tst_SolutionManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }

    void actionsAndFeaturesAreKeptById()
    {
        SolutionManager manager;
        QSignalSpy added(&manager, &SolutionManager::actionAdded);
        Action first("b"), second("b"), other("a");
        for (Action* action : {(Action*)nullptr, &first, &second, &other})
            manager.addAction(action);
        QCOMPARE(added.count(), 3);
        QCOMPARE(added.at(1).at(0).value<Action*>(), &second);
        QCOMPARE(manager.getActionsCount(), 2);
        // Ordered by id, whatever the order of registration.
        QCOMPARE(manager.getAllActions().values(), (QList<Action*> {&other, &second}));

        // Look-ups are exact: a different case is another id.
        QTest::ignoreMessage(QtWarningMsg, "Action A not found.");
        QTest::ignoreMessage(QtWarningMsg, "Action c not found.");
        QCOMPARE(manager.getActions({"b", "A", "a", "c"}), (QList<Action*> {&second, &other}));

        // Removal goes by id.
        manager.removeAction(&first);
        QVERIFY(!manager.hasAction("b"));
        manager.clearActions();
        QCOMPARE(manager.getActionsCount(), 0);

        // An action deleted while registered is dropped.
        manager.addAction(new Action("doomed"));
        delete manager.getAction("doomed");
        QVERIFY(!manager.hasAction("doomed") && manager.getAllActions().isEmpty());

        QSignalSpy featureAdded(&manager, &SolutionManager::featureAdded);
        solution::Feature feature("implants");
        manager.addFeature(nullptr);
        manager.addFeature(&feature);
        QCOMPARE(QList<QVariantList>(featureAdded), QList<QVariantList> {{"implants"}});
        QVERIFY(manager.hasFeature("implants") && manager.getFeature("implants") == &feature);
        QCOMPARE(manager.getFeature("other"), nullptr);

        Solution planning("planning", "Planning"), endo("endo", "Endo");
        manager.addSolution(&planning);
        manager.addSolution(&endo);
        QSignalSpy changed(&manager, &SolutionManager::solutionChanged);
        QCOMPARE(manager.setActiveSolution("unknown", false), nullptr);
        QCOMPARE(manager.getActiveSolution(), nullptr);
        QCOMPARE(manager.setActiveSolution("planning", true), &planning);
        QCOMPARE(manager.setActiveSolution("planning", false), &planning);
        QCOMPARE(manager.setActiveSolution("endo", false), &endo);
        manager.clearActiveSolution();
        QCOMPARE(manager.getActiveSolution(), nullptr);
        QCOMPARE(QList<QVariantList>(changed), (QList<QVariantList> {{true}, {false}}));
        QVERIFY(manager.getSolution("endo") == &endo && manager.hasSolution("planning"));

        SolutionStep scan("scan", "Scan"), plan("plan", "Plan");
        manager.addSolutionStep(&scan);
        manager.addSolutionStep(&plan);
        QSignalSpy stepChanged(&manager, &SolutionManager::solutionStepChanged);
        for (const char* id : {"scan", "scan", "unknown"})
            manager.setCurrentSolutionStep(id);
        QCOMPARE(manager.getCurrentSolutionStep(), &scan);
        manager.setCurrentSolutionStep("plan");
        QCOMPARE(QList<QVariantList>(stepChanged), (QList<QVariantList> {{"scan"}, {"plan"}}));
        QCOMPARE(manager.getSolutionStep("plan"), &plan);
    }

    void groupsAndParentlessListsAreOwned()
    {
        SolutionStep step("step", "Step");
        QPointer<SolutionActionGroup> removed = new SolutionActionGroup("g1", "G1");
        QPointer<SolutionActionGroup> replaced = new SolutionActionGroup("g2", "G2");
        QPointer<SolutionActionGroup> replacement = new SolutionActionGroup("g2", "G2 again");
        QObject owner;
        QPointer<ActionList> adopted = new ActionList("free", "Free", nullptr);
        QPointer<ActionList> parented = new ActionList("owned", "Owned", &owner);
        QPointer<ActionList> deletedFirst = new ActionList("early", "Early", nullptr);
        {
            SolutionManager manager;
            for (auto* group : QList<SolutionActionGroup*> {nullptr, removed, replaced})
                manager.addActionGroup(group);
            step.addActionGroup(replaced);
            manager.addActionGroup(replacement);
            QCOMPARE(manager.getActionGroup("g2"), replacement.data());
            // The step does not keep a dangling group.
            QVERIFY(replaced.isNull() && step.getActionGroups().isEmpty());
            manager.removeActionGroup(removed);
            QVERIFY(
                removed.isNull() && !manager.hasActionGroup("g1") && manager.hasActionGroup("g2"));
            for (ActionList* list : {adopted.data(), parented.data(), deletedFirst.data()})
                manager.addActionList(list);
            QCOMPARE(manager.getActionList("free"), adopted.data());
            delete deletedFirst;
            QVERIFY(!manager.hasActionList("early"));
        }
        QVERIFY(replacement.isNull() && adopted.isNull() && !parented.isNull());

        // A solution's views are only stored, never looked into, so opaque addresses do.
        int storage[2] = {};
        auto* first = reinterpret_cast<View*>(&storage[0]);
        auto* second = reinterpret_cast<View*>(&storage[1]);
        Solution solution("planning", "Planning");
        for (View* view : {first, second, first})
            solution.addView(view);
        solution.setCurrentView(second);
        solution.setCurrentView(nullptr);
        QCOMPARE(solution.getCurrentView(), second);
        solution.removeView(first);
        QCOMPARE(solution.getViews(), (QList<View*> {second, first}));
        // Copies are shallow.
        solution.addSolutionStep(&step);
        const Solution copy = solution;
        QVERIFY(copy.getSolutionSteps() == QList<SolutionStep*> {&step});
        QCOMPARE(copy.getCurrentView(), second);
    }

    void enabledStateRollsUp()
    {
        Action action("a");
        ActionList list("list", "List", nullptr);
        SolutionActionGroup group("group", "Group");
        SolutionStep step("step", "Step");
        list.addAction(&action);
        group.addActionList(&list);
        step.addActionGroup(&group);
        QVERIFY(list.isEnabled() && group.isEnabled() && step.isEnabled());

        QStringList order;
        connect(&list, &ActionList::enabledChanged, this, [&] { order.append("list"); });
        connect(&group, &SolutionActionGroup::enabledChanged, this, [&] { order.append("group"); });
        connect(&step, &SolutionStep::enabledChanged, this,
            [&](bool enabled) { order.append(enabled ? "step on" : "step off"); });

        action.setDisabled(true);
        QVERIFY(!list.isEnabled() && !group.isEnabled() && !step.isEnabled());
        // Each level reports once; the step's change comes first because it sits deepest in the
        // chain of direct calls.
        action.setDisabled(false);
        QCOMPARE(order, (QStringList {"step off", "group", "list", "step on", "group", "list"}));
        QVERIFY(step.isEnabled());

        // Groups are kept once; removing the only group leaves the step disabled.
        step.addActionGroup(nullptr);
        step.addActionGroup(&group);
        QCOMPARE(step.getActionGroups(), QList<SolutionActionGroup*> {&group});
        order.clear();
        step.removeActionGroup(&group);
        step.removeActionGroup(&group);
        QVERIFY(step.getActionGroups().isEmpty() && !step.isEnabled());
        action.setDisabled(true);
        QCOMPARE(order, (QStringList {"step off", "group", "list"}));

        // A list added twice to a group is kept twice, yet one change of it is seen once.
        SolutionActionGroup twice("g", "G");
        ActionList empty("empty", "Empty", nullptr);
        QSignalSpy changed(&twice, &SolutionActionGroup::enabledChanged);
        for (auto* added : QList<ActionList*> {nullptr, &empty, &empty})
            twice.addActionList(added);
        QCOMPARE(twice.getActionLists(), (QList<ActionList*> {&empty, &empty}));
        QVERIFY(!twice.isEnabled());
        Action other("b");
        empty.addAction(&other);
        QVERIFY(twice.isEnabled() && changed.count() == 1);
    }

    void builderNamesGroupsAfterTheStep()
    {
        SolutionManager manager;
        SolutionStep shortId("ST", "Step"), longId("ABCDE", "Step");
        int counter = 9;
        QVERIFY(!SolutionBuilderHelper::addActionGroupToSolution(manager, nullptr, counter));
        QStringList ids;
        for (SolutionStep* step : {&shortId, &shortId, &longId}) {
            SolutionActionGroup* group
                = SolutionBuilderHelper::addActionGroupToSolution(manager, step, counter);
            QCOMPARE(manager.getActionGroup(group->getName()), group);
            ids.append(group->getID());
        }
        ids << QString::number(counter) << QString::number(shortId.getActionGroups().size());
        QCOMPARE(ids, (QStringList {"ST_9", "ST_10", "ABC_11", "12", "2"}));
        SolutionActionGroup* group = longId.getActionGroups().front();

        ActionList* tools = SolutionBuilderHelper::addActionListToGroup(manager, "tools", group);
        QVERIFY(tools->getName() == "tools" && !tools->parent());
        QCOMPARE(manager.getActionList("tools"), tools);

        // An unknown action creates no list; a known one gets a list of its own.
        QVERIFY(!SolutionBuilderHelper::addActionToGroup(manager, "missing", "list", group)
            && !manager.hasActionList("list"));
        SingleAction action("distance");
        manager.addAction(&action);
        QCOMPARE(
            SolutionBuilderHelper::addActionToGroup(manager, "distance", "list", group), &action);
        ActionList* list = manager.getActionList("list");
        QCOMPARE(group->getActionLists(), (QList<ActionList*> {tools, list}));
        QVERIFY(list->getActions() == QList<Action*> {&action});
        QCOMPARE(list->getDefaultAction(), &action);
        // The new panel makes the step available, and follows the action from then on.
        QVERIFY(longId.isEnabled());
        action.setDisabled(true);
        QVERIFY(!longId.isEnabled());

        // The list type follows the first action added.
        CustomAction custom("c");
        SingleAction single("s");
        ActionList typed("list", "List", nullptr);
        typed.setDefaultListType(ActionList::DROP_DOWN_LIST);
        SolutionBuilderHelper::addActionsToList({}, &typed);
        QCOMPARE(typed.getDefaultListType(), ActionList::DROP_DOWN_LIST);
        SolutionBuilderHelper::addActionsToList({&custom, &single}, &typed);
        QCOMPARE(typed.getDefaultListType(), ActionList::CUSTOM_LIST);
        QCOMPARE(typed.getActions(), (QList<Action*> {&custom, &single}));
        QCOMPARE(typed.getDefaultAction(), &custom);
        SolutionBuilderHelper::addActionsToList({&single}, &typed);
        QCOMPARE(typed.getDefaultListType(), ActionList::BUTTON_LIST);
        SolutionBuilderHelper::addActionsToList({&single}, nullptr);
    }
};

QTEST_MAIN(tst_SolutionManager)
#include "tst_solutionmanager.moc"
