#include "ViewTestDoubles.h"

#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionManager.h>

#include <QPointer>
#include <QtTest>

// The solution manager's view registry: ownership, replacement, lookups and ordering.
class tst_SolutionViews : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void registryOwnsAndReplacesViews();
    void removeViewHandsOwnershipBack();
    void viewsAreSortedWithThePredicate();
    void solutionFindsItsViewsById();

private:
    QStringList m_log;
};

void tst_SolutionViews::registryOwnsAndReplacesViews()
{
    bool firstGone = false;
    bool secondGone = false;
    {
        SolutionManager manager;
        auto* first = new RecordingView(QStringLiteral("pano"), m_log);
        first->onDestroy = [&](RecordingView&) { firstGone = true; };
        manager.addView(first);
        QCOMPARE(manager.getView(QStringLiteral("pano")), first);
        QVERIFY(manager.hasView(QStringLiteral("pano")));
        QVERIFY(manager.hasView(QList<QString> {QStringLiteral("x"), QStringLiteral("pano")}));
        QVERIFY(!manager.hasView(QList<QString> {QStringLiteral("x")}));

        auto* second = new RecordingView(QStringLiteral("pano"), m_log);
        second->onDestroy = [&](RecordingView&) { secondGone = true; };
        manager.addView(second); // same id, different view: the old one is deleted
        QVERIFY(firstGone);
        QCOMPARE(manager.getView(QStringLiteral("pano")), second);
        manager.addView(second); // the same view again changes nothing
        QVERIFY(!secondGone);
        QCOMPARE(manager.getViews().size(), 1);
    }
    QVERIFY(secondGone); // the manager deletes what it still owns
}

void tst_SolutionViews::removeViewHandsOwnershipBack()
{
    SolutionManager manager;
    bool gone = false;
    auto* view = new RecordingView(QStringLiteral("chart"), m_log);
    view->onDestroy = [&](RecordingView&) { gone = true; };
    manager.addView(view);
    std::unique_ptr<View> taken = manager.removeView(QStringLiteral("chart"));
    QCOMPARE(taken.get(), view);
    QVERIFY(!manager.hasView(QStringLiteral("chart")));
    QVERIFY(!manager.removeView(QStringLiteral("chart")));
    manager.clearViews();
    QVERIFY(!gone);
    taken.reset();
    QVERIFY(gone);
}

void tst_SolutionViews::viewsAreSortedWithThePredicate()
{
    SolutionManager manager;
    for (const char* id : {"b", "c", "a"})
        manager.addView(new RecordingView(QString::fromLatin1(id), m_log));
    auto ids = [&] {
        QStringList result;
        for (const View* view : manager.getViews())
            result.append(view->getID());
        return result;
    };
    QCOMPARE(ids(), QStringList({"a", "b", "c"}));
    manager.setViewsSortPredicate(
        [](const View* left, const View* right) { return left->getID() > right->getID(); });
    QCOMPARE(ids(), QStringList({"c", "b", "a"}));
}

void tst_SolutionViews::solutionFindsItsViewsById()
{
    RecordingView pano(QStringLiteral("pano"), m_log);
    RecordingView chart(QStringLiteral("chart"), m_log);
    Solution solution(QStringLiteral("dental"), QStringLiteral("Dental"));
    solution.addView(&pano);
    solution.addView(&chart);
    QCOMPARE(solution.getViewById(QStringLiteral("chart")), &chart);
    QCOMPARE(solution.getViewById(QStringLiteral("none")), nullptr);
    solution.removeView(&chart);
    QCOMPARE(solution.getViewById(QStringLiteral("chart")), nullptr);
}

QTEST_MAIN(tst_SolutionViews)
#include "tst_solutionviews.moc"
