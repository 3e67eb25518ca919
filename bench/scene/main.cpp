// Event dispatch of the extended scene against a stock QGraphicsScene (no index, as the extended
// scene uses) holding the same overlay items: N rectangles scattered over the scene, three of them
// under the cursor. Each event kind is timed per event; the goals are at most 3x the stock scene
// at N = 10,000 and at most 15x growth from N = 1,000 to N = 10,000.

#include <BenchReport.h>

#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QPainterPath>
#include <QRandomGenerator>

#include <algorithm>
#include <map>
#include <vector>

namespace {

const QPointF cursor(2000, 2000);
constexpr int eventsPerRun = 50;

void populate(QGraphicsScene& scene, int count)
{
    QRandomGenerator random(4711);
    for (int i = 0; i < count; ++i) {
        QPointF at(random.bounded(4000.0), random.bounded(4000.0));
        if (i < 3)
            at = cursor - QPointF(10 + i, 10 + i);
        else if (QLineF(at, cursor).length() < 60)
            at += QPointF(200, 200);
        auto* item = new CustomGraphicsItem(QString("item%1").arg(i));
        QPainterPath path;
        path.addRect(0, 0, 30, 30);
        item->setPainterPath(path);
        item->setPos(at);
        item->setZValue(random.bounded(10));
        // Overlay items react to hover: the stock scene then does its own hover bookkeeping.
        item->setAcceptHoverEvents(true);
        scene.addItem(item);
    }
}

void sendMouse(QGraphicsScene& scene, QEvent::Type type, const QPointF& pos, Qt::MouseButton button,
    Qt::MouseButtons buttons)
{
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(pos);
    event.setButton(button);
    event.setButtons(buttons);
    if (button != Qt::NoButton)
        event.setButtonDownScenePos(button, pos);
    event.setAccepted(false);
    QCoreApplication::sendEvent(&scene, &event);
}

void hover(QGraphicsScene& scene, const QPointF& pos)
{
    QGraphicsSceneHoverEvent event(QEvent::GraphicsSceneHoverMove);
    event.setScenePos(pos);
    if (auto* extra = qobject_cast<GraphicsSceneExtra*>(&scene))
        extra->hoverEvent(&event);
    else
        QCoreApplication::sendEvent(&scene, &event);
}

void wheel(QGraphicsScene& scene, const QPointF& pos)
{
    QGraphicsSceneWheelEvent event(QEvent::GraphicsSceneWheel);
    event.setScenePos(pos);
    event.setDelta(120);
    event.setOrientation(Qt::Vertical);
    event.setAccepted(false);
    QCoreApplication::sendEvent(&scene, &event);
}

/// Median over runs of the mean time of one press and of one release, from whole click gestures.
std::pair<double, double> pressAndRelease(QGraphicsScene& scene)
{
    std::vector<double> presses, releases;
    for (int run = 0; run < 8; ++run) {
        qint64 pressNs = 0, releaseNs = 0;
        for (int i = 0; i < eventsPerRun; ++i) {
            QElapsedTimer timer;
            timer.start();
            sendMouse(
                scene, QEvent::GraphicsSceneMousePress, cursor, Qt::LeftButton, Qt::LeftButton);
            pressNs += timer.nsecsElapsed();
            timer.start();
            sendMouse(
                scene, QEvent::GraphicsSceneMouseRelease, cursor, Qt::LeftButton, Qt::NoButton);
            releaseNs += timer.nsecsElapsed();
        }
        if (run > 0) {
            presses.push_back(double(pressNs) / eventsPerRun);
            releases.push_back(double(releaseNs) / eventsPerRun);
        }
    }
    std::sort(presses.begin(), presses.end());
    std::sort(releases.begin(), releases.end());
    return {presses[presses.size() / 2], releases[releases.size() / 2]};
}

std::map<QString, double> measure(QGraphicsScene& scene)
{
    std::map<QString, double> result;
    const auto [pressNs, releaseNs] = pressAndRelease(scene);
    result["press"] = pressNs;
    result["release"] = releaseNs;

    sendMouse(scene, QEvent::GraphicsSceneMousePress, cursor, Qt::LeftButton, Qt::LeftButton);
    int step = 0;
    result["drag move"] = bench::medianNanoseconds([&] {
        for (int i = 0; i < eventsPerRun; ++i, ++step) {
            sendMouse(scene, QEvent::GraphicsSceneMouseMove, cursor + QPointF(step % 7, 0),
                Qt::NoButton, Qt::LeftButton);
        }
    }) / eventsPerRun;
    sendMouse(scene, QEvent::GraphicsSceneMouseRelease, cursor, Qt::LeftButton, Qt::NoButton);

    result["hover move"] = bench::medianNanoseconds([&] {
        for (int i = 0; i < eventsPerRun; ++i, ++step)
            hover(scene, cursor + QPointF(step % 7, step % 5));
    }) / eventsPerRun;
    result["wheel"] = bench::medianNanoseconds([&] {
        for (int i = 0; i < eventsPerRun; ++i)
            wheel(scene, cursor);
    }) / eventsPerRun;
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    // Every size is measured in each of several rounds, the sizes in turn, and each result is
    // the median over the rounds: a busy spell of the machine then cannot fall on one size (or
    // one scene) only and bend a growth or a ratio.
    constexpr int rounds = 5;
    const int counts[] = {100, 1000, 10000};
    std::map<int, std::map<QString, std::vector<double>>> extraRuns;
    std::map<int, std::map<QString, std::vector<double>>> stockRuns;
    for (int round = 0; round < rounds; ++round) {
        for (int count : counts) {
            GraphicsSceneExtra extra;
            QGraphicsScene stock;
            stock.setItemIndexMethod(QGraphicsScene::NoIndex);
            populate(extra, count);
            populate(stock, count);
            for (const auto& [kind, ns] : measure(extra))
                extraRuns[count][kind].push_back(ns);
            for (const auto& [kind, ns] : measure(stock))
                stockRuns[count][kind].push_back(ns);
        }
    }
    const auto median = [](std::vector<double> values) {
        std::sort(values.begin(), values.end());
        return values[values.size() / 2];
    };
    for (int count : counts) {
        for (const auto& [kind, runs] : extraRuns[count]) {
            bench::report(QString("scene %1, N=%2").arg(kind).arg(count), median(runs),
                median(stockRuns[count].at(kind)), count == 10000 ? 3.0 : 0.0,
                "stock QGraphicsScene, NoIndex, same items");
        }
    }
    for (const auto& [kind, runs] : extraRuns[10000]) {
        bench::report(QString("scene %1 growth N=1000 to 10000").arg(kind), median(runs),
            median(extraRuns[1000].at(kind)), 15.0, "extended scene at N=1000");
    }
    return 0;
}
