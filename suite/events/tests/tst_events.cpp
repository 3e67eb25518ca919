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

    void clickOrDragAndViewerFilter()
    {
        const int distance = QGuiApplication::styleHints()->startDragDistance();
        events::ClickOrDragDeterminer gesture;
        QStringList calls;
        const auto record
            = [&calls](const char* what) { return [&calls, what] { calls << what; }; };
        const auto drag = [&](Qt::MouseButton button, QPoint global, QPointF local = {}) {
            gesture.handleMouseDraggingEvent(
                button, global, local, record("start"), record("move"));
        };
        const auto release = [&](Qt::MouseButton button) {
            gesture.handleMouseReleasedEvent(button, record("click"), record("end"));
        };
        // Below the drag distance the right button clicks, while the left one drags.
        gesture.handleMousePressedEvent(Qt::RightButton, QPoint(100, 100));
        gesture.handleMousePressedEvent(Qt::LeftButton, QPoint(0, 0));
        drag(Qt::RightButton, QPoint(100 + distance - 1, 100));
        drag(Qt::LeftButton, QPoint(0, distance));
        QVERIFY(gesture.isDragging(Qt::LeftButton) && !gesture.isDragging(Qt::RightButton));
        drag(Qt::LeftButton, QPoint(0, 0), QPointF(1.5, 2));
        QCOMPARE(gesture.lastDragPosition(Qt::LeftButton), QPointF(1.5, 2));
        release(Qt::RightButton);
        release(Qt::LeftButton);
        QCOMPARE(calls, QStringList({"start", "move", "click", "end"}));
        // The gesture is forgotten: the next press and release is a click.
        gesture.handleMousePressedEvent(Qt::LeftButton, QPoint(0, 0));
        release(Qt::LeftButton);
        // A move without a press (it went to another widget) measures from itself.
        drag(Qt::RightButton, QPoint(500, 500));
        drag(Qt::RightButton, QPoint(500 + distance, 500));
        QCOMPARE(calls, QStringList({"start", "move", "click", "end", "click", "start"}));
        struct Handler : events::SceneEventHandler
        {
            bool handleSceneEvent(QEvent*, const QString&) override { return true; }
        } handler;
        QCOMPARE(int(handler.viewerFilter()), 3); // both the 2-D and the 3-D viewers
    }
};

QTEST_MAIN(tst_Events)
#include "tst_events.moc"
