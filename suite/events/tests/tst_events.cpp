#include <events/ClickOrDragDeterminer.h>
#include <events/SceneEventHandler.h>

#include <QGuiApplication>
#include <QStyleHints>
#include <QtTest>

class tst_Events : public QObject
{
    Q_OBJECT

    QStringList m_calls;
    events::ClickOrDragDeterminer m_gesture;
    const int m_distance = QGuiApplication::styleHints()->startDragDistance();

    std::function<void()> record(const char* what)
    {
        return [this, what] { m_calls.append(QString::fromLatin1(what)); };
    }
    void drag(Qt::MouseButton button, QPoint global, QPointF local = {})
    {
        m_gesture.handleMouseDraggingEvent(button, global, local, record("start"), record("move"));
    }
    void release(Qt::MouseButton button, const char* click = "click", const char* end = "end")
    {
        m_gesture.handleMouseReleasedEvent(button, record(click), record(end));
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        m_calls.clear();
        m_gesture = {};
    }

    void clickBelowTheDragDistance()
    {
        m_gesture.handleMousePressedEvent(Qt::RightButton, QPoint(100, 100));
        drag(Qt::RightButton, QPoint(100 + m_distance - 1, 100));
        release(Qt::RightButton);
        QCOMPARE(m_calls, QStringList({"click"}));
    }

    void dragStartsOnceThenMoves()
    {
        m_gesture.handleMousePressedEvent(Qt::LeftButton, QPoint(0, 0));
        drag(Qt::LeftButton, QPoint(0, m_distance));
        QVERIFY(m_gesture.isDragging(Qt::LeftButton));
        drag(Qt::LeftButton, QPoint(0, 0), QPointF(1.5, 2));
        QCOMPARE(m_gesture.lastDragPosition(Qt::LeftButton), QPointF(1.5, 2));
        release(Qt::LeftButton);
        QCOMPARE(m_calls, QStringList({"start", "move", "end"}));
        // The gesture is forgotten: the next press and release is a click.
        m_gesture.handleMousePressedEvent(Qt::LeftButton, QPoint(0, 0));
        release(Qt::LeftButton);
        QCOMPARE(m_calls.last(), QStringLiteral("click"));
    }

    void moveWithoutPressMeasuresFromFirstMove()
    {
        drag(Qt::RightButton, QPoint(500, 500));
        QVERIFY(m_calls.isEmpty());
        drag(Qt::RightButton, QPoint(500 + m_distance, 500));
        QCOMPARE(m_calls, QStringList({"start"}));
    }

    void buttonsAreIndependent()
    {
        m_gesture.handleMousePressedEvent(Qt::LeftButton, QPoint(0, 0));
        m_gesture.handleMousePressedEvent(Qt::RightButton, QPoint(0, 0));
        drag(Qt::LeftButton, QPoint(m_distance * 2, 0));
        release(Qt::RightButton, "right click", "right end");
        release(Qt::LeftButton, "left click", "left end");
        QCOMPARE(m_calls, QStringList({"start", "right click", "left end"}));
    }

    void handlersSeeAllViewersByDefault()
    {
        struct Handler : events::SceneEventHandler
        {
            bool handleSceneEvent(QEvent*, const QString&) override { return true; }
        } handler;
        QCOMPARE(int(handler.viewerFilter()), 3); // both the 2-D and the 3-D viewers
    }
};

QTEST_MAIN(tst_Events)
#include "tst_events.moc"
