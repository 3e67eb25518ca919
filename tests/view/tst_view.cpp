#include <guicore/ui/Node.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/view/MultiView.h>
#include <guicore/view/ViewManager.h>
#include <guicore/view/ViewNodeInteractor.h>

#include <QPointer>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTest>
#include <QWidget>

#include <memory>

#include "ViewTestDoubles.h"

namespace {

class PlainView : public View
{
public:
    using View::View;

private:
    void createWidget() override { }
};

} // namespace

class tst_View : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void identity();
    void widgetIsCreatedLazily();
    void startAndStopAreIdempotent();
    void secondManagerIsRejected();
    void viewSettingsPassThroughTheHooks();
    void nodeInteractorGeneratesViewNode();

    void subViewsKeepInsertionOrder();
    void emptyMultiViewIsNeutral();
    void switchToSubView_data();
    void switchToSubView();
    void switchToSubViewIgnoresEmptySameAndUnknown();
    void multiViewForwardsToActiveSubView();
    void destructionTakesPagesOutFirst();
    void parentedStackedWidgetOutlivesMultiView();

private:
    struct Multi
    {
        std::unique_ptr<MultiView> view;
        RecordingView* a;
        RecordingView* b;
    };
    // A multi view "M" with the sub views "A" and "B".
    Multi makeMultiView();

    QStringList m_log;
};

void tst_View::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_log.clear();
}

void tst_View::identity()
{
    PlainView unnamed;
    QCOMPARE(unnamed.getID(), QStringLiteral("undefined_view"));
    QVERIFY(!unnamed.isActive());
    QCOMPARE(unnamed.getViewManager(), nullptr);
}

void tst_View::widgetIsCreatedLazily()
{
    RecordingView view(QStringLiteral("A"), m_log);
    QCOMPARE(view.widgetsCreated, 0);
    QCOMPARE(view.currentWidget(), nullptr);

    QWidget* widget = view.getWidget();
    QVERIFY(widget);
    QCOMPARE(view.getActiveWidget(), widget);
    view.start();
    QCOMPARE(view.widgetsCreated, 1);

    // start() alone builds the widget too.
    RecordingView started(QStringLiteral("B"), m_log);
    started.start();
    QCOMPARE(started.widgetsCreated, 1);
    QVERIFY(started.currentWidget());

    // A widget deleted by its owner is built again rather than handed out dangling.
    delete view.ownWidget.data();
    QVERIFY(view.getWidget());
    QCOMPARE(view.widgetsCreated, 2);
}

void tst_View::startAndStopAreIdempotent()
{
    RecordingView view(QStringLiteral("A"), m_log);
    view.stop();
    view.start();
    view.start();
    QVERIFY(view.isActive());
    view.stop();
    view.stop();
    QVERIFY(!view.isActive());
    view.reset();
    view.stopActions();
    QCOMPARE(m_log, (QStringList {"A.start", "A.stop", "A.initialize", "A.stopActions"}));

    // Without a manager the flag still follows, and nothing else happens.
    RecordingView bare(QStringLiteral("bare"), m_log, false);
    m_log.clear();
    bare.start();
    QVERIFY(bare.isActive());
    bare.reset();
    bare.stopActions();
    bare.stop();
    QVERIFY(!bare.isActive());
    QVERIFY(m_log.isEmpty());
}

void tst_View::secondManagerIsRejected()
{
    auto view = std::make_unique<RecordingView>(QStringLiteral("A"), m_log);
    QPointer<ViewManager> first = view->getViewManager();

    auto second = std::make_unique<RecordingManager>(QStringLiteral("second"), m_log);
    QPointer<ViewManager> secondGuard = second.get();
    QTest::ignoreMessage(QtWarningMsg, "View : this view already has a manager set.");
    view->setViewManager(std::move(second));

    QVERIFY(secondGuard.isNull());
    QCOMPARE(view->getViewManager(), first.data());
    view->start();
    QCOMPARE(m_log, (QStringList {"A.start"}));

    // The view owns its manager.
    view.reset();
    QVERIFY(first.isNull());
}

void tst_View::viewSettingsPassThroughTheHooks()
{
    RecordingManager manager(QStringLiteral("m"), m_log);
    const ViewSettings defaults = manager.getViewSettings();
    QCOMPARE(defaults.firstValue, 0);
    QCOMPARE(defaults.factor, 1.0f);
    QVERIFY(!defaults.flag);

    ViewSettings settings;
    settings.firstValue = 7;
    settings.fourthValue = -3;
    settings.flag = true;
    manager.setViewSettings(settings);
    QCOMPARE(m_log, (QStringList {"m.read(7)"}));

    // The stored record comes back, refreshed from the live viewers.
    manager.liveValue = 4;
    const ViewSettings written = manager.getViewSettings();
    QCOMPARE(written.firstValue, 4);
    QCOMPARE(written.fourthValue, -3);
    QCOMPARE(written.flag, true);
}

void tst_View::nodeInteractorGeneratesViewNode()
{
    PlainView view(QStringLiteral("Panoramic"));
    std::unique_ptr<ui::ViewNodeInteractor> interactor = view.createNodeInteractor();
    QVERIFY(interactor);
    QCOMPARE(interactor->getNodeTypeId(), QStringLiteral("ViewNode"));
    std::unique_ptr<ui::Node> node = interactor->generate();
    auto* viewNode = dynamic_cast<ui::ViewNode*>(node.get());
    QVERIFY(viewNode);
    QCOMPARE(viewNode->getViewId(), QStringLiteral("Panoramic"));
    interactor->apply(node.get());
    interactor->apply(nullptr);
}

tst_View::Multi tst_View::makeMultiView()
{
    auto a = std::make_unique<RecordingView>(QStringLiteral("A"), m_log);
    auto b = std::make_unique<RecordingView>(QStringLiteral("B"), m_log);
    Multi result {std::make_unique<MultiView>(QStringLiteral("M")), a.get(), b.get()};
    result.view->addSubView(std::move(a));
    result.view->addSubView(std::move(b));
    return result;
}

void tst_View::subViewsKeepInsertionOrder()
{
    auto [multi, a, b] = makeMultiView();
    multi->addSubView(nullptr);

    QCOMPARE(multi->getSubViews(), (std::vector<View*> {a, b}));
    QCOMPARE(multi->getActiveSubView(), a);
    QCOMPARE(multi->getActiveSubViewID(), QStringLiteral("A"));
    QCOMPARE(multi->getSubViewByID(QStringLiteral("B")), b);
    QCOMPARE(multi->getSubViewByID(QStringLiteral("b")), nullptr);

    auto* stacked = qobject_cast<QStackedWidget*>(multi->getWidget());
    QVERIFY(stacked);
    QCOMPARE(stacked->objectName(), QStringLiteral("M"));
    QCOMPARE(stacked->count(), 2);
    QCOMPARE(stacked->widget(0), a->getWidget());
    QCOMPARE(stacked->widget(1), b->getWidget());
    QCOMPARE(stacked->currentWidget(), a->getWidget());
    QCOMPARE(multi->getActiveWidget(), a->getWidget());
}

void tst_View::emptyMultiViewIsNeutral()
{
    MultiView multi(QStringLiteral("M"));
    multi.setViewManager(std::make_unique<RecordingManager>(QStringLiteral("own"), m_log));

    QCOMPARE(multi.getActiveSubView(), nullptr);
    QVERIFY(multi.getActiveSubViewID().isEmpty());
    QCOMPARE(multi.getActiveWidget(), nullptr);
    QVERIFY(multi.getWidget());
    // The multi view's own manager is never consulted.
    QCOMPARE(multi.getViewManager(), nullptr);
    multi.reset();
    multi.stopActions();
    multi.releaseWidget();
    QVERIFY(m_log.isEmpty());

    auto interactor = multi.createNodeInteractor();
    auto node = interactor->generate();
    QCOMPARE(static_cast<ui::ViewNode*>(node.get())->getViewId(), QStringLiteral("M"));
}

void tst_View::switchToSubView_data()
{
    QTest::addColumn<bool>("running");
    QTest::addColumn<QStringList>("expectedLog");
    QTest::addColumn<QString>("expectedPage");

    QTest::newRow("running multi view shows and starts the new sub view")
        << true << QStringList {"A.stop", "B.start"} << QStringLiteral("B");
    QTest::newRow("idle multi view only records the choice")
        << false << QStringList {} << QStringLiteral("A");
}

void tst_View::switchToSubView()
{
    QFETCH(bool, running);
    QFETCH(QStringList, expectedLog);
    QFETCH(QString, expectedPage);

    auto [multi, a, b] = makeMultiView();
    auto* stacked = static_cast<QStackedWidget*>(multi->getWidget());
    if (running)
        multi->start();
    m_log.clear();

    multi->switchToSubView(QStringLiteral("B"));
    QCOMPARE(multi->getActiveSubView(), b);
    QCOMPARE(multi->getActiveWidget(), b->getWidget());
    QCOMPARE(m_log, expectedLog);
    QCOMPARE(stacked->currentWidget()->objectName(), expectedPage);
    QCOMPARE(b->isActive(), running);

    // Either way, the next start shows and starts the chosen sub view only.
    multi->stop();
    QVERIFY(!b->isActive());
    m_log.clear();
    multi->start();
    QCOMPARE(m_log, (QStringList {"B.start"}));
    QCOMPARE(stacked->currentWidget(), b->getWidget());
    QVERIFY(!a->isActive());
}

void tst_View::switchToSubViewIgnoresEmptySameAndUnknown()
{
    auto [multi, a, b] = makeMultiView();
    multi->start();
    m_log.clear();

    multi->switchToSubView(QString());
    multi->switchToSubView(QStringLiteral("A"));
    QTest::ignoreMessage(QtWarningMsg, "Can't switch to unknown sub view Nope");
    multi->switchToSubView(QStringLiteral("Nope"));

    QVERIFY(m_log.isEmpty());
    QCOMPARE(multi->getActiveSubView(), a);
    QVERIFY(a->isActive());
}

void tst_View::multiViewForwardsToActiveSubView()
{
    auto [multi, a, b] = makeMultiView();
    multi->setViewManager(std::make_unique<RecordingManager>(QStringLiteral("own"), m_log));

    QCOMPARE(multi->getViewManager(), a->getViewManager());
    multi->switchToSubView(QStringLiteral("B"));
    QCOMPARE(multi->getViewManager(), b->getViewManager());

    multi->reset();
    multi->stopActions();
    multi->releaseWidget();
    QCOMPARE(m_log, (QStringList {"B.initialize", "B.stopActions", "B.releaseWidget"}));

    auto node = multi->createNodeInteractor()->generate();
    QCOMPARE(static_cast<ui::ViewNode*>(node.get())->getViewId(), QStringLiteral("B"));
}

void tst_View::destructionTakesPagesOutFirst()
{
    auto [multi, a, b] = makeMultiView();
    QPointer<QStackedWidget> stacked = static_cast<QStackedWidget*>(multi->getWidget());
    QPointer<ViewManager> managerOfB = b->getViewManager();

    // Each sub view notes, as it dies, how many pages the stacked widget still has.
    const auto notePages = [this, stacked](RecordingView& view) {
        m_log.append(QStringLiteral("%1 dies, pages left %2")
                         .arg(view.getID())
                         .arg(stacked ? stacked->count() : -1));
    };
    a->onDestroy = notePages;
    b->onDestroy = notePages;

    multi.reset();
    QCOMPARE(m_log, (QStringList {"A dies, pages left 0", "B dies, pages left 0"}));
    QVERIFY(managerOfB.isNull());
    // Nobody adopted the stacked widget, so it went with the multi view.
    QVERIFY(stacked.isNull());
}

void tst_View::parentedStackedWidgetOutlivesMultiView()
{
    QWidget window;
    auto multi = makeMultiView().view;
    QPointer<QWidget> stacked = multi->getWidget();
    stacked->setParent(&window);

    multi.reset();
    QVERIFY(!stacked.isNull());
    QCOMPARE(static_cast<QStackedWidget*>(stacked.data())->count(), 0);
}

QTEST_MAIN(tst_View)
#include "tst_view.moc"
