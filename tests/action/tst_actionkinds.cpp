#include <guicore/action/ActionGroup.h>
#include <guicore/action/ActionList.h>
#include <guicore/action/ActionStopper.h>
#include <guicore/action/CustomAction.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/action/MultiAction.h>
#include <guicore/action/SingleAction.h>
#include <guicore/solution/SolutionManager.h>

#include <QAction>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

// Opens up the protected building blocks the application's own multi-actions use.
class BuildingMultiAction : public MultiAction
{
public:
    using MultiAction::insertAction;
    using MultiAction::MultiAction;
    using MultiAction::syncEnabledStateWithChildren;
};

Action* makeTool(const QString& id, ActionHandler* handler, QObject* owner)
{
    auto* action = new Action(id);
    action->setParent(owner);
    action->setCheckable(true);
    action->setActionHandler(handler);
    return action;
}

} // namespace

class tst_ActionKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tagsAndDefaultIds();
    void multiActionDisablesDescendants_data();
    void multiActionDisablesDescendants();
    void multiActionRegistersChildren();
    void multiActionForgetsDeletedChild();
    void groupAcceptsCheckableOnly();
    void groupStopsOtherMembers();
    void listFollowsMembers();
    void listDefaultAction();
    void stopperStopsAtScopeEnd();

private:
    EmptyActionHandler m_handler;
};

void tst_ActionKinds::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_ActionKinds::tagsAndDefaultIds()
{
    const SingleAction single;
    const CustomAction custom;
    const MultiAction multi;
    QCOMPARE(single.getID(), QStringLiteral("undefined_single_action"));
    QCOMPARE(single.getType(), QStringLiteral("SingleAction"));
    QCOMPARE(custom.getID(), QStringLiteral("undefined_custom_action"));
    QCOMPARE(custom.getType(), QStringLiteral("CustomAction"));
    QCOMPARE(multi.getID(), QStringLiteral("undefined_multi_action"));
    QCOMPARE(multi.getType(), QStringLiteral("MultiAction"));
}

void tst_ActionKinds::multiActionDisablesDescendants_data()
{
    QTest::addColumn<bool>("sync");
    QTest::newRow("synchronised") << true;
    QTest::newRow("independent") << false;
}

void tst_ActionKinds::multiActionDisablesDescendants()
{
    QFETCH(bool, sync);

    BuildingMultiAction top(QStringLiteral("top"));
    MultiAction nested(QStringLiteral("nested"));
    Action child(QStringLiteral("child"));
    Action grandchild(QStringLiteral("grandchild"));
    top.syncEnabledStateWithChildren(sync);
    top.addAction(&child);
    top.addAction(&nested);
    nested.addAction(&grandchild);

    top.setDisabled(true);
    QVERIFY(top.isDisabled());
    QCOMPARE(child.isDisabled(), sync);
    QCOMPARE(nested.isDisabled(), sync);
    QCOMPARE(grandchild.isDisabled(), sync);

    top.setEnabled(true);
    QVERIFY(child.isEnabled());
    QVERIFY(grandchild.isEnabled());
}

void tst_ActionKinds::multiActionRegistersChildren()
{
    SolutionManager manager;
    BuildingMultiAction multi(QStringLiteral("multi"));
    multi.setSolutionManager(&manager);
    Action first(QStringLiteral("first"));
    Action second(QStringLiteral("second"));
    Action stranger(QStringLiteral("stranger"));
    QSignalSpy added(&multi, &MultiAction::actionAdded);
    QSignalSpy removed(&multi, &MultiAction::actionRemoved);

    multi.addAction(&first);
    QCOMPARE(added.count(), 1);
    QCOMPARE(added.at(0).at(0).value<Action*>(), &first);
    QCOMPARE(manager.getAllActions().value(QStringLiteral("first")), &first);

    // Inserting registers but announces nothing.
    multi.insertAction(&second, 0);
    QCOMPARE(added.count(), 1);
    QVERIFY(manager.hasAction(QStringLiteral("second")));
    QCOMPARE(multi.getActions(), (QList<Action*> {&second, &first}));
    QVERIFY(multi.hasActions());

    // Removing a stranger still announces it.
    multi.removeAction(&stranger);
    QCOMPARE(removed.count(), 1);
    QCOMPARE(removed.at(0).at(0).value<Action*>(), &stranger);
    QCOMPARE(multi.getActions().size(), 2);

    multi.clearActions();
    QCOMPARE(removed.count(), 3);
    QCOMPARE(removed.at(1).at(0).value<Action*>(), &second);
    QCOMPARE(removed.at(2).at(0).value<Action*>(), &first);
    QVERIFY(!multi.hasActions());
    QCOMPARE(manager.getActionsCount(), 0);
}

void tst_ActionKinds::multiActionForgetsDeletedChild()
{
    SolutionManager manager;
    auto* multi = new MultiAction(QStringLiteral("multi"));
    multi->setSolutionManager(&manager);
    auto* doomed = new Action(QStringLiteral("doomed"));
    Action kept(QStringLiteral("kept"));
    multi->addAction(doomed);
    multi->addAction(&kept);

    delete doomed;
    QCOMPARE(multi->getActions(), QList<Action*> {&kept});
    QVERIFY(!manager.hasAction(QStringLiteral("doomed")));

    // The destructor removes what is left, unregistering it.
    QSignalSpy removed(multi, &MultiAction::actionRemoved);
    delete multi;
    QCOMPARE(removed.count(), 1);
    QVERIFY(!manager.hasAction(QStringLiteral("kept")));
}

void tst_ActionKinds::groupAcceptsCheckableOnly()
{
    ActionGroup group;
    Action command(QStringLiteral("command"));
    group.addAction(&command);
    QVERIFY(group.getActions().isEmpty());
    QCOMPARE(command.getActionGroup(), nullptr);
    QVERIFY(group.canToggleAction(&command));

    Action tool(QStringLiteral("tool"));
    tool.setCheckable(true);
    group.addAction(&tool);
    QCOMPARE(group.getActions(), QList<Action*> {&tool});
    QCOMPARE(tool.getActionGroup(), &group);
}

void tst_ActionKinds::groupStopsOtherMembers()
{
    QObject owner;
    ActionGroup group;
    EmptyActionHandler h1, h2, h3;
    Action* a = makeTool(QStringLiteral("a"), &h1, &owner);
    Action* b = makeTool(QStringLiteral("b"), &h2, &owner);
    Action* c = makeTool(QStringLiteral("c"), &h3, &owner);
    QStringList order;
    for (Action* member : {a, b, c}) {
        connect(member, &Action::triggered, this, [&order, member](bool checked) {
            order.append(member->getID() + (checked ? "+" : "-"));
        });
        group.addAction(member);
    }

    a->start(false);
    QVERIFY(!group.canToggleAction(a));
    QVERIFY(group.canToggleAction(b));

    // Exclusivity comes after the fact: the newcomer runs, the others are stopped.
    order.clear();

    b->start(false);
    QCOMPARE(order, (QStringList {"b+", "a-"}));
    QVERIFY(b->isActive());
    QVERIFY(!a->isActive());

    // Stopping a member starts nobody.
    order.clear();
    b->stop();
    QCOMPARE(order, QStringList {"b-"});
    QVERIFY(!a->isActive() && !c->isActive());

    delete c;
    QCOMPARE(group.getActions(), (QList<Action*> {a, b}));
}

void tst_ActionKinds::listFollowsMembers()
{
    ActionList list(QStringLiteral("list"), QStringLiteral("List"), nullptr);
    QVERIFY(!list.isEnabled());
    QSignalSpy changed(&list, &ActionList::enabledChanged);

    Action a(QStringLiteral("a"));
    Action b(QStringLiteral("b"));
    list.addAction(nullptr);
    list.addAction(&a);
    QVERIFY(list.isEnabled());
    QCOMPARE(changed.count(), 1);
    list.addAction(&b);
    QCOMPARE(changed.count(), 1);

    a.setDisabled(true);
    QVERIFY(list.isEnabled());
    QCOMPARE(changed.count(), 1);
    b.setDisabled(true);
    QVERIFY(!list.isEnabled());
    QCOMPARE(changed.count(), 2);

    b.setDisabled(false);
    QVERIFY(list.isEnabled());
    QCOMPARE(changed.count(), 3);
    QCOMPARE(list.getDefaultListType(), ActionList::BUTTON_LIST);
}

void tst_ActionKinds::listDefaultAction()
{
    ActionList list(QStringLiteral("list"), QStringLiteral("List"), nullptr);
    Action a(QStringLiteral("a"));
    list.setDefaultAction(nullptr);
    QCOMPARE(list.getDefaultAction(), nullptr);

    list.setDefaultAction(&a);
    QCOMPARE(list.getDefaultAction(), &a);
    QCOMPARE(list.getActions(), QList<Action*> {&a});
    list.setDefaultAction(&a);
    QCOMPARE(list.getActions().size(), 1);

    {
        Action shortLived(QStringLiteral("s"));
        list.setDefaultAction(&shortLived);
        QCOMPARE(list.getActions().size(), 2);
    }
    QCOMPARE(list.getActions(), QList<Action*> {&a});
    QCOMPARE(list.getDefaultAction(), nullptr);
}

void tst_ActionKinds::stopperStopsAtScopeEnd()
{
    Action tool(QStringLiteral("tool"));
    tool.setCheckable(true);
    tool.setActionHandler(&m_handler);
    tool.start(false);
    QSignalSpy triggered(&tool, &Action::triggered);
    {
        ActionStopper stopper(&tool);
        ActionStopper copy(nullptr);
        copy = stopper;
        QVERIFY(tool.isActive());
    }
    QVERIFY(!tool.isActive());
    QCOMPARE(triggered.count(), 1);

    // An action deleted before its stopper is left alone.
    auto* gone = new Action(QStringLiteral("gone"));
    ActionStopper late(gone);
    delete gone;
}

QTEST_MAIN(tst_ActionKinds)
#include "tst_actionkinds.moc"
