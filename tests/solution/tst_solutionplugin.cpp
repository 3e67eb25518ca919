#include <guicore/action/ActionList.h>
#include <guicore/action/ActionManager.h>
#include <guicore/action/CustomAction.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/action/SingleAction.h>
#include <guicore/solution/Feature.h>
#include <guicore/solution/SolutionActionGroup.h>
#include <guicore/solution/SolutionBuilderHelper.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/solution/SolutionPluginInterface.h>
#include <guicore/solution/SolutionStep.h>

#include <QPointer>
#include <QTest>

#include <functional>
#include <memory>

namespace {

class MeasurementPlugin : public SolutionPluginInterface
{
public:
    void initialize() override { }
    void loadActions() override
    {
        auto* distance = new SingleAction(QStringLiteral("distance"));
        distance->setCheckable(true);
        distance->setActionHandler(&handler);
        addAction(distance);
        addAction(new CustomAction(QStringLiteral("angle")));
    }
    void loadFeatures() override
    {
        addFeature(QStringLiteral("measurements"));
        addFeature(std::make_unique<solution::Feature>(QStringLiteral("reports")));
        addFeature(std::unique_ptr<solution::Feature>());
    }

    EmptyActionHandler handler;
};

} // namespace

using ActionFactory = std::function<Action*()>;
Q_DECLARE_METATYPE(ActionFactory)

class tst_SolutionPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void groupIdsTruncateStepId_data();
    void groupIdsTruncateStepId();
    void listIsMadeForGroupAndManager();
    void knownActionGetsItsOwnList();
    void defaultListType_data();
    void defaultListType();
    void closeReleasesEverything();
};

void tst_SolutionPlugin::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_SolutionPlugin::groupIdsTruncateStepId_data()
{
    QTest::addColumn<QString>("stepId");
    QTest::addColumn<int>("counter");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("short id") << "ST" << 5 << QStringList {"ST_5", "ST_6", "ST_7"};
    QTest::newRow("long id") << "ABCDE" << 0 << QStringList {"ABC_0", "ABC_1", "ABC_2"};
    QTest::newRow("three characters") << "XYZ" << 9 << QStringList {"XYZ_9", "XYZ_10", "XYZ_11"};
}

void tst_SolutionPlugin::groupIdsTruncateStepId()
{
    QFETCH(QString, stepId);
    QFETCH(int, counter);
    QFETCH(QStringList, expected);

    SolutionManager manager;
    SolutionStep step(stepId, QStringLiteral("Step"));
    const int start = counter;
    QStringList ids;
    for (int i = 0; i < 3; ++i) {
        SolutionActionGroup* group
            = SolutionBuilderHelper::addActionGroupToSolution(manager, &step, counter);
        QCOMPARE(group->getName(), group->getID());
        QCOMPARE(manager.getActionGroup(group->getID()), group);
        ids.append(group->getID());
    }
    QCOMPARE(ids, expected);
    QCOMPARE(counter, start + 3);
    QCOMPARE(step.getActionGroups().size(), 3);
}

void tst_SolutionPlugin::listIsMadeForGroupAndManager()
{
    SolutionManager manager;
    SolutionActionGroup group(QStringLiteral("g"), QStringLiteral("G"));
    ActionList* list = SolutionBuilderHelper::addActionListToGroup(manager, "tools", &group);
    QCOMPARE(list->getID(), QStringLiteral("tools"));
    QCOMPARE(list->getName(), QStringLiteral("tools"));
    QCOMPARE(list->parent(), nullptr);
    QCOMPARE(group.getActionLists(), QList<ActionList*> {list});
    QCOMPARE(manager.getActionList(QStringLiteral("tools")), list);

    // An unknown action creates no list.
    QCOMPARE(SolutionBuilderHelper::addActionToGroup(manager, "missing", "list", &group), nullptr);
    QCOMPARE(group.getActionLists().size(), 1);
    QVERIFY(!manager.hasActionList(QStringLiteral("list")));
}

void tst_SolutionPlugin::knownActionGetsItsOwnList()
{
    SolutionManager manager;
    SolutionStep step(QStringLiteral("step"), QStringLiteral("Step"));
    int counter = 0;
    SolutionActionGroup* group
        = SolutionBuilderHelper::addActionGroupToSolution(manager, &step, counter);
    SingleAction action(QStringLiteral("distance"));
    manager.addAction(&action);

    QCOMPARE(SolutionBuilderHelper::addActionToGroup(manager, "distance", "list", group), &action);
    ActionList* list = manager.getActionList(QStringLiteral("list"));
    QVERIFY(list);
    QCOMPARE(group->getActionLists(), QList<ActionList*> {list});
    QCOMPARE(list->getActions(), QList<Action*> {&action});
    QCOMPARE(list->getDefaultAction(), &action);

    // The new panel makes the step available, and follows the action from then on.
    QVERIFY(step.isEnabled());
    action.setDisabled(true);
    QVERIFY(!step.isEnabled());
}

void tst_SolutionPlugin::defaultListType_data()
{
    QTest::addColumn<ActionFactory>("first");
    QTest::addColumn<ActionFactory>("second");
    QTest::addColumn<int>("expected");

    const ActionFactory custom = [] { return new CustomAction(QStringLiteral("c")); };
    const ActionFactory single = [] { return new SingleAction(QStringLiteral("s")); };
    const ActionFactory plain = [] { return new Action(QStringLiteral("p")); };
    QTest::newRow("custom first") << custom << single << 2;
    QTest::newRow("single first") << single << custom << 0;
    QTest::newRow("plain first") << plain << custom << 0;
}

void tst_SolutionPlugin::defaultListType()
{
    QFETCH(ActionFactory, first);
    QFETCH(ActionFactory, second);
    QFETCH(int, expected);

    std::unique_ptr<Action> a(first());
    std::unique_ptr<Action> b(second());
    ActionList list(QStringLiteral("list"), QStringLiteral("List"), nullptr);
    list.setDefaultListType(ActionList::DROP_DOWN_LIST);
    SolutionBuilderHelper::addActionsToList({a.get(), b.get()}, &list);
    QCOMPARE(int(list.getDefaultListType()), expected);
    QCOMPARE(list.getDefaultAction(), a.get());
    QCOMPARE(list.getActions(), (QList<Action*> {a.get(), b.get()}));
}

void tst_SolutionPlugin::closeReleasesEverything()
{
    SolutionManager manager;
    action::ActionManager actions;
    actions.setSolutionManager(&manager);

    MeasurementPlugin plugin;
    plugin.initialize();
    plugin.loadFeatures();
    plugin.loadActions();
    plugin.loadViews();
    QCOMPARE(plugin.getFeatures().size(), size_t(2));
    QCOMPARE(plugin.getActions().size(), 2);
    QVERIFY(plugin.getViews().isEmpty());

    // The host registers what the plug-in made.
    for (Action* action : plugin.getActions())
        manager.addAction(action);
    for (const auto& feature : plugin.getFeatures())
        manager.addFeature(feature.get());
    QPointer<Action> distance = plugin.getActions().first();
    distance->start(false);
    QCOMPARE(actions.getCurrentAction(), distance.data());

    plugin.close();
    QVERIFY(plugin.getActions().isEmpty());
    QVERIFY(plugin.getFeatures().empty());
    QVERIFY(plugin.getViews().isEmpty());
    QVERIFY(distance.isNull());

    // Nothing is left dangling in the registries.
    QCOMPARE(manager.getActionsCount(), 0);
    QVERIFY(!manager.hasFeature(QStringLiteral("measurements")));
    QVERIFY(!manager.hasFeature(QStringLiteral("reports")));
    QCOMPARE(actions.getCurrentAction(), nullptr);
    QCOMPARE(actions.getActiveActionsCount(), 0);

    plugin.close();
}

QTEST_MAIN(tst_SolutionPlugin)
#include "tst_solutionplugin.moc"
