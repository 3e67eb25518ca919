#include <events/ClickOrDragDeterminer.h>
#include <events/SceneEventHandler.h>

#include <QGuiApplication>
#include <QStyleHints>
#include <QtTest>

class tst_Events : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void clickBelowTheDragDistance();
    void dragStartsOnceThenMoves();
    void moveWithoutPressMeasuresFromFirstMove();
    void buttonsAreIndependent();
    void viewerFilterFlags();

private:
    QStringList m_calls;
    std::function<void()> record(const char* what)
    {
        return [this, what] { m_calls.append(QString::fromLatin1(what)); };
    }
};

void tst_Events::clickBelowTheDragDistance()
{
    m_calls.clear();
    const int distance = QGuiApplication::styleHints()->startDragDistance();
    events::ClickOrDragDeterminer determiner;
    determiner.handleMousePressedEvent(Qt::RightButton, QPoint(100, 100));
    determiner.handleMouseDraggingEvent(
        Qt::RightButton, QPoint(100 + distance - 1, 100), {}, record("start"), record("move"));
    determiner.handleMouseReleasedEvent(Qt::RightButton, record("click"), record("end"));
    QCOMPARE(m_calls, QStringList({"click"}));
}

void tst_Events::dragStartsOnceThenMoves()
{
    m_calls.clear();
    const int distance = QGuiApplication::styleHints()->startDragDistance();
    events::ClickOrDragDeterminer determiner;
    determiner.handleMousePressedEvent(Qt::LeftButton, QPoint(0, 0));
    determiner.handleMouseDraggingEvent(
        Qt::LeftButton, QPoint(0, distance), {}, record("start"), record("move"));
    QVERIFY(determiner.isDragging(Qt::LeftButton));
    determiner.handleMouseDraggingEvent(
        Qt::LeftButton, QPoint(0, 0), QPointF(1.5, 2), record("start"), record("move"));
    QCOMPARE(determiner.lastDragPosition(Qt::LeftButton), QPointF(1.5, 2));
    determiner.handleMouseReleasedEvent(Qt::LeftButton, record("click"), record("end"));
    QCOMPARE(m_calls, QStringList({"start", "move", "end"}));
    // The gesture is forgotten: the next press and release is a click.
    determiner.handleMousePressedEvent(Qt::LeftButton, QPoint(0, 0));
    determiner.handleMouseReleasedEvent(Qt::LeftButton, record("click"), record("end"));
    QCOMPARE(m_calls.last(), QStringLiteral("click"));
}

void tst_Events::moveWithoutPressMeasuresFromFirstMove()
{
    m_calls.clear();
    const int distance = QGuiApplication::styleHints()->startDragDistance();
    events::ClickOrDragDeterminer determiner;
    determiner.handleMouseDraggingEvent(
        Qt::RightButton, QPoint(500, 500), {}, record("start"), record("move"));
    QVERIFY(m_calls.isEmpty());
    determiner.handleMouseDraggingEvent(
        Qt::RightButton, QPoint(500 + distance, 500), {}, record("start"), record("move"));
    QCOMPARE(m_calls, QStringList({"start"}));
}

void tst_Events::buttonsAreIndependent()
{
    m_calls.clear();
    const int distance = QGuiApplication::styleHints()->startDragDistance();
    events::ClickOrDragDeterminer determiner;
    determiner.handleMousePressedEvent(Qt::LeftButton, QPoint(0, 0));
    determiner.handleMousePressedEvent(Qt::RightButton, QPoint(0, 0));
    determiner.handleMouseDraggingEvent(
        Qt::LeftButton, QPoint(distance * 2, 0), {}, record("start"), record("move"));
    determiner.handleMouseReleasedEvent(
        Qt::RightButton, record("right click"), record("right end"));
    determiner.handleMouseReleasedEvent(Qt::LeftButton, record("left click"), record("left end"));
    QCOMPARE(m_calls, QStringList({"start", "right click", "left end"}));
}

void tst_Events::viewerFilterFlags()
{
    using events::SceneEventViewerFilterFlag;
    const events::SceneEventViewerFilter all(SceneEventViewerFilterFlag::AllViewers);
    QVERIFY(all.testFlag(SceneEventViewerFilterFlag::Viewer2D));
    QVERIFY(all.testFlag(SceneEventViewerFilterFlag::Viewer3D));
    QCOMPARE(int(SceneEventViewerFilterFlag::Viewer2D | SceneEventViewerFilterFlag::Viewer3D), 3);

    struct Handler : events::SceneEventHandler
    {
        bool handleSceneEvent(QEvent*, const QString&) override { return true; }
    } handler;
    QCOMPARE(handler.viewerFilter(), all);
}

QTEST_MAIN(tst_Events)
#include "tst_events.moc"
