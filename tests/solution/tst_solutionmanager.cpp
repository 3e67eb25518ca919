#include <guicore/action/Action.h>
#include <guicore/action/ActionList.h>
#include <guicore/action/CustomAction.h>
#include <guicore/action/SingleAction.h>
#include <guicore/solution/Feature.h>
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
        Action first(QStringLiteral("b"));
        Action second(QStringLiteral("b"));
        Action other(QStringLiteral("a"));
        manager.addAction(nullptr);
        manager.addAction(&first);
        manager.addAction(&second);
        manager.addAction(&other);
        QCOMPARE(added.count(), 3);
        QCOMPARE(added.at(1).at(0).value<Action*>(), &second);
        QCOMPARE(manager.getActionsCount(), 2);
        QCOMPARE(manager.getAction(QStringLiteral("b")), &second);
        // Ordered by id, whatever the order of registration.
        QCOMPARE(manager.getAllActions().values(), (QList<Action*> {&other, &second}));

        // Look-ups are exact: a different case is another id.
        QTest::ignoreMessage(QtWarningMsg, "Action nothing not found.");
        QCOMPARE(manager.getAction(QStringLiteral("nothing")), nullptr);
        QTest::ignoreMessage(QtWarningMsg, "Action A not found.");
        QTest::ignoreMessage(QtWarningMsg, "Action c not found.");
        QCOMPARE(manager.getActions({"b", "A", "a", "c"}), (QList<Action*> {&second, &other}));
        QVERIFY(!manager.hasAction(QStringLiteral("A")));

        // Removal goes by id.
        manager.removeAction(&first);
        QVERIFY(!manager.hasAction(QStringLiteral("b")));
        manager.clearActions();
        QCOMPARE(manager.getActionsCount(), 0);
        QCOMPARE(added.count(), 3);

        // An action deleted while registered is dropped.
        auto* doomed = new Action(QStringLiteral("doomed"));
        manager.addAction(doomed);
        delete doomed;
        QVERIFY(!manager.hasAction(QStringLiteral("doomed")));
        QVERIFY(manager.getAllActions().isEmpty());

        QSignalSpy featureAdded(&manager, &SolutionManager::featureAdded);
        solution::Feature feature(QStringLiteral("implants"));
        manager.addFeature(nullptr);
        manager.addFeature(&feature);
        QCOMPARE(featureAdded.count(), 1);
        QCOMPARE(featureAdded.at(0).at(0).toString(), QStringLiteral("implants"));
        QVERIFY(manager.hasFeature(QStringLiteral("implants")));
        QCOMPARE(manager.getFeature(QStringLiteral("implants")), &feature);
        QCOMPARE(manager.getFeature(QStringLiteral("other")), nullptr);
    }

    void activeSolutionAndCurrentStep()
    {
        SolutionManager manager;
        Solution planning(QStringLiteral("planning"), QStringLiteral("Planning"));
        Solution endo(QStringLiteral("endo"), QStringLiteral("Endo"));
        manager.addSolution(&planning);
        manager.addSolution(&endo);
        QSignalSpy changed(&manager, &SolutionManager::solutionChanged);
        QCOMPARE(manager.setActiveSolution(QStringLiteral("unknown"), false), nullptr);
        QCOMPARE(manager.getActiveSolution(), nullptr);
        QCOMPARE(manager.setActiveSolution(QStringLiteral("planning"), true), &planning);
        QCOMPARE(manager.setActiveSolution(QStringLiteral("planning"), false), &planning);
        QCOMPARE(manager.setActiveSolution(QStringLiteral("endo"), false), &endo);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed.at(0).at(0).toBool(), true);
        QCOMPARE(changed.at(1).at(0).toBool(), false);
        manager.clearActiveSolution();
        QCOMPARE(manager.getActiveSolution(), nullptr);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(manager.getSolution(QStringLiteral("endo")), &endo);
        QVERIFY(manager.hasSolution(QStringLiteral("planning")));

        SolutionStep scan(QStringLiteral("scan"), QStringLiteral("Scan"));
        SolutionStep plan(QStringLiteral("plan"), QStringLiteral("Plan"));
        manager.addSolutionStep(&scan);
        manager.addSolutionStep(&plan);
        QSignalSpy stepChanged(&manager, &SolutionManager::solutionStepChanged);
        manager.setCurrentSolutionStep(QStringLiteral("unknown"));
        QCOMPARE(manager.getCurrentSolutionStep(), nullptr);
        manager.setCurrentSolutionStep(QStringLiteral("scan"));
        manager.setCurrentSolutionStep(QStringLiteral("scan"));
        QCOMPARE(stepChanged.count(), 1);
        QCOMPARE(stepChanged.at(0).at(0).toString(), QStringLiteral("scan"));
        manager.setCurrentSolutionStep(QStringLiteral("unknown"));
        QCOMPARE(manager.getCurrentSolutionStep(), &scan);
        manager.setCurrentSolutionStep(QStringLiteral("plan"));
        QCOMPARE(stepChanged.count(), 2);
        QCOMPARE(manager.getSolutionStep(QStringLiteral("plan")), &plan);
    }

    void groupsAndParentlessListsAreOwned()
    {
        SolutionStep step(QStringLiteral("step"), QStringLiteral("Step"));
        QPointer<SolutionActionGroup> removed = new SolutionActionGroup("g1", "G1");
        QPointer<SolutionActionGroup> replaced = new SolutionActionGroup("g2", "G2");
        QPointer<SolutionActionGroup> replacement = new SolutionActionGroup("g2", "G2 again");
        QObject owner;
        QPointer<ActionList> adopted = new ActionList("free", "Free", nullptr);
        QPointer<ActionList> parented = new ActionList("owned", "Owned", &owner);
        QPointer<ActionList> deletedFirst = new ActionList("early", "Early", nullptr);
        {
            SolutionManager manager;
            manager.addActionGroup(nullptr);
            manager.addActionGroup(removed);
            manager.addActionGroup(replaced);
            step.addActionGroup(replaced);
            manager.addActionGroup(replacement);
            QVERIFY(replaced.isNull());
            QCOMPARE(manager.getActionGroup(QStringLiteral("g2")), replacement.data());
            // The step does not keep a dangling group.
            QVERIFY(step.getActionGroups().isEmpty());
            manager.removeActionGroup(removed);
            QVERIFY(removed.isNull());
            QVERIFY(!manager.hasActionGroup(QStringLiteral("g1")));
            QVERIFY(manager.hasActionGroup(QStringLiteral("g2")));

            manager.addActionList(adopted);
            manager.addActionList(parented);
            manager.addActionList(deletedFirst);
            QCOMPARE(manager.getActionList(QStringLiteral("free")), adopted.data());
            delete deletedFirst;
            QVERIFY(!manager.hasActionList(QStringLiteral("early")));
        }
        QVERIFY(replacement.isNull());
        QVERIFY(adopted.isNull());
        QVERIFY(!parented.isNull());
    }

    void enabledStateRollsUp()
    {
        Action action(QStringLiteral("a"));
        ActionList list(QStringLiteral("list"), QStringLiteral("List"), nullptr);
        SolutionActionGroup group(QStringLiteral("group"), QStringLiteral("Group"));
        SolutionStep step(QStringLiteral("step"), QStringLiteral("Step"));
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
        QCOMPARE(order, (QStringList {"step off", "group", "list"}));
        order.clear();
        action.setDisabled(false);
        QCOMPARE(order, (QStringList {"step on", "group", "list"}));
        QVERIFY(step.isEnabled());

        // Groups are kept once; removing the only group leaves the step disabled.
        step.addActionGroup(nullptr);
        step.addActionGroup(&group);
        QCOMPARE(step.getActionGroups(), QList<SolutionActionGroup*> {&group});
        order.clear();
        step.removeActionGroup(&group);
        step.removeActionGroup(&group);
        QVERIFY(step.getActionGroups().isEmpty());
        QVERIFY(!step.isEnabled());
        QCOMPARE(order, QStringList {"step off"});
        action.setDisabled(true);
        QCOMPARE(order, (QStringList {"step off", "group", "list"}));

        // A list added twice to a group is kept twice, yet one change of it is seen once.
        SolutionActionGroup twice(QStringLiteral("g"), QStringLiteral("G"));
        ActionList empty(QStringLiteral("empty"), QStringLiteral("Empty"), nullptr);
        QSignalSpy changed(&twice, &SolutionActionGroup::enabledChanged);
        twice.addActionList(nullptr);
        twice.addActionList(&empty);
        twice.addActionList(&empty);
        QCOMPARE(twice.getActionLists(), (QList<ActionList*> {&empty, &empty}));
        QVERIFY(!twice.isEnabled());
        Action other(QStringLiteral("b"));
        empty.addAction(&other);
        QVERIFY(twice.isEnabled());
        QCOMPARE(changed.count(), 1);
    }

    void solutionKeepsViewsAndSteps()
    {
        // Views are only stored here, never looked into, so opaque addresses do.
        int storage[2] = {};
        auto* first = reinterpret_cast<View*>(&storage[0]);
        auto* second = reinterpret_cast<View*>(&storage[1]);

        Solution solution(QStringLiteral("planning"), QStringLiteral("Planning"));
        solution.addView(first);
        solution.addView(second);
        solution.addView(first);
        solution.setCurrentView(second);
        solution.setCurrentView(nullptr);
        QCOMPARE(solution.getCurrentView(), second);
        solution.removeView(first);
        QCOMPARE(solution.getViews(), (QList<View*> {second, first}));

        // Copies are shallow.
        SolutionStep step(QStringLiteral("s"), QStringLiteral("S"));
        solution.addSolutionStep(&step);
        Solution copy = solution;
        QCOMPARE(copy.getSolutionSteps(), QList<SolutionStep*> {&step});
        QCOMPARE(copy.getCurrentView(), second);
    }

    void builderNamesGroupsAfterTheStep()
    {
        SolutionManager manager;
        SolutionStep shortId(QStringLiteral("ST"), QStringLiteral("Step"));
        SolutionStep longId(QStringLiteral("ABCDE"), QStringLiteral("Step"));
        int counter = 9;
        QCOMPARE(
            SolutionBuilderHelper::addActionGroupToSolution(manager, nullptr, counter), nullptr);
        QStringList ids;
        for (SolutionStep* step : {&shortId, &shortId, &longId}) {
            SolutionActionGroup* group
                = SolutionBuilderHelper::addActionGroupToSolution(manager, step, counter);
            QCOMPARE(group->getName(), group->getID());
            QCOMPARE(manager.getActionGroup(group->getID()), group);
            ids.append(group->getID());
        }
        QCOMPARE(ids, (QStringList {"ST_9", "ST_10", "ABC_11"}));
        QCOMPARE(counter, 12);
        QCOMPARE(shortId.getActionGroups().size(), 2);
        SolutionActionGroup* group = longId.getActionGroups().front();

        ActionList* tools = SolutionBuilderHelper::addActionListToGroup(manager, "tools", group);
        QCOMPARE(tools->getName(), QStringLiteral("tools"));
        QCOMPARE(tools->parent(), nullptr);
        QCOMPARE(manager.getActionList(QStringLiteral("tools")), tools);

        // An unknown action creates no list; a known one gets a list of its own.
        QCOMPARE(
            SolutionBuilderHelper::addActionToGroup(manager, "missing", "list", group), nullptr);
        QVERIFY(!manager.hasActionList(QStringLiteral("list")));
        SingleAction action(QStringLiteral("distance"));
        manager.addAction(&action);
        QCOMPARE(
            SolutionBuilderHelper::addActionToGroup(manager, "distance", "list", group), &action);
        ActionList* list = manager.getActionList(QStringLiteral("list"));
        QCOMPARE(group->getActionLists(), (QList<ActionList*> {tools, list}));
        QCOMPARE(list->getActions(), QList<Action*> {&action});
        QCOMPARE(list->getDefaultAction(), &action);
        // The new panel makes the step available, and follows the action from then on.
        QVERIFY(longId.isEnabled());
        action.setDisabled(true);
        QVERIFY(!longId.isEnabled());
    }

    void builderListTypeFollowsTheFirstAction()
    {
        CustomAction custom(QStringLiteral("c"));
        SingleAction single(QStringLiteral("s"));
        Action plain(QStringLiteral("p"));
        const std::tuple<Action*, Action*, ActionList::ACTION_LIST_TYPE> cases[] {
            {&custom, &single, ActionList::CUSTOM_LIST},
            {&single, &custom, ActionList::BUTTON_LIST},
            {&plain, &custom, ActionList::BUTTON_LIST}};
        for (const auto& [first, second, expected] : cases) {
            ActionList list(QStringLiteral("list"), QStringLiteral("List"), nullptr);
            list.setDefaultListType(ActionList::DROP_DOWN_LIST);
            SolutionBuilderHelper::addActionsToList({}, &list);
            QCOMPARE(list.getDefaultListType(), ActionList::DROP_DOWN_LIST);
            SolutionBuilderHelper::addActionsToList({first, second}, &list);
            QCOMPARE(list.getDefaultListType(), expected);
            QCOMPARE(list.getDefaultAction(), first);
            QCOMPARE(list.getActions(), (QList<Action*> {first, second}));
        }
        SolutionBuilderHelper::addActionsToList({&plain}, nullptr);
    }
};

QTEST_MAIN(tst_SolutionManager)
#include "tst_solutionmanager.moc"
