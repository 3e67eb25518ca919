// A GraphicsSceneExtra shown in a real view takes 100,000 pseudo-random input events (presses,
// moves, releases, double clicks, wheel turns, hovers, keys) while the handlers of its items add,
// remove, hide, disable and delete items (themselves included) and restack them. Nothing may
// crash or, under the asan preset, touch freed memory; the scene's drag signals must pair up.

#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/graphics/manipulators/LineDragger.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QGraphicsSceneHoverEvent>
#include <QGraphicsView>
#include <QPainterPath>
#include <QPixmap>
#include <QPointer>
#include <QtTest>

#include <random>

class tst_DispatchStress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();
    void randomInput_data();
    void randomInput();

private:
    enum class Kind { Shape, Text, Pixmap, Dragger };

    int random(int bound) { return int(generator() % unsigned(bound)); }
    QPointF randomPoint() { return QPointF(random(400), random(400)); }

    /// A new item of a random kind at a random place, wired to the chaos handlers.
    void addItem();
    /// One of the live items (in the scene or taken out of it), or null when there is none.
    QObject* pickItem();
    /// What an item's handler does: one random change to the scene or its items. self may be
    /// deleted by it; the caller must not touch self afterwards.
    void chaos(QObject* self);
    void connectChaos(QObject* object);
    void pruneDead();
    /// Deletes items taken out of the scene, which the scene no longer owns.
    void deleteDetached();

    void sendMouse(QEvent::Type type, Qt::MouseButton button, const QPointF& pos);
    void step();
    void releaseAll();

    std::mt19937 generator;
    std::unique_ptr<GraphicsSceneExtra> scene;
    std::unique_ptr<QGraphicsView> view;
    QList<QPointer<QObject>> items;
    Qt::MouseButtons held;
    QPointF cursor;
    QStringList dragLog;
    int dragsStarted = 0;
    int dragsFinished = 0;
    int itemsCreated = 0;
    int itemsDeleted = 0;
};

namespace {

constexpr int kMaximumItems = 40;
constexpr int kEventsPerRow = 25000;

QGraphicsItem* graphicsItem(QObject* object)
{
    return dynamic_cast<QGraphicsItem*>(object);
}

} // namespace

void tst_DispatchStress::initTestCase()
{
    qRegisterMetaType<QGraphicsSceneMouseEvent*>();
    StyleManager::createManager(StyleManagerDataProvider());
}

void tst_DispatchStress::cleanupTestCase()
{
    StyleManager::deleteManager();
}

void tst_DispatchStress::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    scene = std::make_unique<GraphicsSceneExtra>();
    scene->setSceneRect(0, 0, 400, 400);
    view = std::make_unique<QGraphicsView>(scene.get());
    view->setFixedSize(400, 400);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    items.clear();
    held = Qt::NoButton;
    dragLog.clear();
    dragsStarted = dragsFinished = itemsCreated = itemsDeleted = 0;

    // The drag signals must alternate: a start is always closed by exactly one finish before the
    // next start. (In interactive mode a drag is finished without having been announced.)
    connect(scene.get(), &GraphicsSceneExtra::dragStarted, this, [this] {
        ++dragsStarted;
        dragLog << "started";
    });
    connect(scene.get(), &GraphicsSceneExtra::dragFinished, this, [this] {
        ++dragsFinished;
        dragLog << "finished";
    });
}

void tst_DispatchStress::cleanup()
{
    deleteDetached();
    view.reset();
    scene.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_DispatchStress::addItem()
{
    if (items.size() >= kMaximumItems)
        return;
    const QRectF rect(randomPoint(), QSizeF(20 + random(120), 20 + random(120)));
    const auto kind = Kind(random(4));
    QObject* object = nullptr;
    QGraphicsItem* item = nullptr;
    switch (kind) {
    case Kind::Shape: {
        auto* shape = new CustomGraphicsItem(QStringLiteral("shape%1").arg(itemsCreated));
        QPainterPath path;
        path.addRect(rect);
        shape->setPainterPath(path);
        shape->setHandleRightClick(random(2));
        object = shape;
        item = shape;
        break;
    }
    case Kind::Text: {
        auto* text = new CustomGraphicsTextItem();
        text->setPlainText(QStringLiteral("text %1").arg(itemsCreated));
        text->setPos(rect.topLeft());
        object = text;
        item = text;
        break;
    }
    case Kind::Pixmap: {
        QPixmap pixmap(rect.size().toSize());
        pixmap.fill(Qt::darkCyan);
        auto* image = new CustomGraphicsPixmapItem(
            QStringLiteral("pixmap%1").arg(itemsCreated), nullptr, pixmap);
        image->setPos(rect.topLeft());
        object = image;
        item = image;
        break;
    }
    case Kind::Dragger: {
        auto* dragger = new LineDragger(random(2) ? Qt::Horizontal : Qt::Vertical);
        dragger->setPos(rect.topLeft());
        object = dragger;
        item = dragger;
        break;
    }
    }
    item->setZValue(random(10) - 5);
    scene->addItem(item);
    ++itemsCreated;
    connect(object, &QObject::destroyed, this, [this] { ++itemsDeleted; });
    connectChaos(object);
    items.append(object);
}

void tst_DispatchStress::connectChaos(QObject* object)
{
    // Every signal an application would react to runs the chaos; the object may die in it.
    const auto run = [this, object] { chaos(object); };
    if (auto* shape = qobject_cast<CustomGraphicsItem*>(object)) {
        connect(shape, &CustomGraphicsItem::leftClicked, this, run);
        connect(shape, &CustomGraphicsItem::rightClicked, this, run);
        connect(shape, &CustomGraphicsItem::mouseReleased, this, run);
        connect(shape, &CustomGraphicsItem::mouseMoved, this, run);
        connect(shape, &CustomGraphicsItem::mouseHoverEnter, this, run);
        connect(shape, &CustomGraphicsItem::mouseHoverLeave, this, run);
        connect(shape, &CustomGraphicsItem::mouseWheelChanged, this, run);
    } else if (auto* text = qobject_cast<CustomGraphicsTextItem*>(object)) {
        connect(text, &CustomGraphicsTextItem::leftClicked, this, run);
        connect(text, &CustomGraphicsTextItem::rightClicked, this, run);
        connect(text, &CustomGraphicsTextItem::mouseReleased, this, run);
        connect(text, &CustomGraphicsTextItem::mouseHoverEnter, this, run);
    } else if (auto* image = qobject_cast<CustomGraphicsPixmapItem*>(object)) {
        connect(image, &CustomGraphicsPixmapItem::leftClicked, this, run);
        connect(image, &CustomGraphicsPixmapItem::mouseReleased, this, run);
        connect(image, &CustomGraphicsPixmapItem::mouseMoved, this, run);
        connect(image, &CustomGraphicsPixmapItem::mouseHoverMove, this, run);
    }
}

void tst_DispatchStress::pruneDead()
{
    items.removeIf([](const QPointer<QObject>& item) { return item.isNull(); });
}

QObject* tst_DispatchStress::pickItem()
{
    pruneDead();
    return items.isEmpty() ? nullptr : items.at(random(int(items.size()))).data();
}

void tst_DispatchStress::chaos(QObject* self)
{
    QObject* other = pickItem();
    QGraphicsItem* otherItem = graphicsItem(other);
    switch (random(12)) {
    case 0:
    case 1:
        addItem();
        break;
    case 2:
        if (otherItem && otherItem->scene())
            scene->removeItem(otherItem);
        break;
    case 3:
        if (otherItem && !otherItem->scene())
            scene->addItem(otherItem);
        break;
    case 4:
        if (otherItem)
            otherItem->setVisible(!otherItem->isVisible());
        break;
    case 5:
        if (otherItem)
            otherItem->setEnabled(!otherItem->isEnabled());
        break;
    case 6:
        if (otherItem)
            otherItem->setZValue(random(20) - 10);
        break;
    case 7:
        if (other && other != self)
            delete other;
        break;
    case 8:
        // The item dies inside its own handler, while the scene is dispatching to it.
        delete self;
        break;
    case 9:
        self->deleteLater();
        break;
    case 10:
        if (QGraphicsItem* item = graphicsItem(self))
            item->setZValue(item->zValue() + 1);
        break;
    default:
        if (otherItem && otherItem->scene()) {
            otherItem->setVisible(false);
            scene->removeItem(otherItem);
        }
        break;
    }
}

void tst_DispatchStress::deleteDetached()
{
    pruneDead();
    for (const QPointer<QObject>& object : std::as_const(items)) {
        const QGraphicsItem* item = graphicsItem(object.data());
        if (item && !item->scene())
            delete object.data();
    }
    pruneDead();
}

void tst_DispatchStress::sendMouse(QEvent::Type type, Qt::MouseButton button, const QPointF& pos)
{
    QWidget* viewport = view->viewport();
    QMouseEvent event(type, pos, viewport->mapToGlobal(pos), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &event);
}

void tst_DispatchStress::step()
{
    static const Qt::MouseButton buttons[]
        = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    const int choice = random(100);
    if (choice < 12) {
        const Qt::MouseButton button = buttons[random(4)];
        if (held & button)
            return;
        cursor = randomPoint();
        held |= button;
        sendMouse(QEvent::MouseButtonPress, button, cursor);
    } else if (choice < 45) {
        // Mostly small steps, so that drags stay over the items they started on.
        cursor += QPointF(random(21) - 10, random(21) - 10);
        cursor = QPointF(qBound(0.0, cursor.x(), 399.0), qBound(0.0, cursor.y(), 399.0));
        sendMouse(QEvent::MouseMove, Qt::NoButton, cursor);
    } else if (choice < 57) {
        for (Qt::MouseButton button : buttons) {
            if (held & button) {
                held &= ~button;
                sendMouse(QEvent::MouseButtonRelease, button, cursor);
                break;
            }
        }
    } else if (choice < 61) {
        const Qt::MouseButton button = random(3) ? Qt::LeftButton : Qt::RightButton;
        if (held & button)
            return;
        held |= button;
        sendMouse(QEvent::MouseButtonPress, button, cursor);
        held &= ~button;
        sendMouse(QEvent::MouseButtonRelease, button, cursor);
        held |= button;
        sendMouse(QEvent::MouseButtonDblClick, button, cursor);
        held &= ~button;
        sendMouse(QEvent::MouseButtonRelease, button, cursor);
    } else if (choice < 70) {
        const int delta = (random(2) ? 1 : -1) * (10 + random(230));
        const bool horizontal = random(4) == 0;
        QWheelEvent event(cursor, view->viewport()->mapToGlobal(cursor), QPoint(),
            horizontal ? QPoint(delta, 0) : QPoint(0, delta), held, Qt::NoModifier,
            Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view->viewport(), &event);
    } else if (choice < 88) {
        // Hover moves come from the view or host that owns the hover state.
        const QPointF last = cursor;
        cursor = random(3) ? cursor + QPointF(random(31) - 15, random(31) - 15) : randomPoint();
        QGraphicsSceneHoverEvent hover(
            random(15) ? QEvent::GraphicsSceneHoverMove : QEvent::GraphicsSceneHoverLeave);
        hover.setWidget(view->viewport());
        hover.setPos(cursor);
        hover.setScenePos(view->mapToScene(cursor.toPoint()));
        hover.setLastPos(last);
        hover.setLastScenePos(view->mapToScene(last.toPoint()));
        if (hover.type() == QEvent::GraphicsSceneHoverMove)
            scene->hoverEvent(&hover);
        else
            scene->hoverLeaveEvent(&hover);
    } else if (choice < 96) {
        static const int keys[]
            = {Qt::Key_Escape, Qt::Key_Delete, Qt::Key_A, Qt::Key_Left, Qt::Key_Return};
        const int key = keys[random(5)];
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString());
        QCoreApplication::sendEvent(view.get(), &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, QString());
        QCoreApplication::sendEvent(view.get(), &release);
    } else if (choice < 98) {
        // Between gestures only: switching in the middle of one is not what viewers do.
        if (held == Qt::NoButton)
            scene->setInteractiveMode(!scene->getInteractiveMode());
    } else {
        addItem();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void tst_DispatchStress::releaseAll()
{
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (held & button) {
            held &= ~button;
            sendMouse(QEvent::MouseButtonRelease, button, cursor);
        }
    }
}

void tst_DispatchStress::randomInput_data()
{
    // Four rows of 25,000 events make the 100,000; each row stays within the per-function
    // time limit under the sanitizers.
    QTest::addColumn<unsigned>("seed");
    for (unsigned row = 0; row < 4; ++row)
        QTest::addRow("seed %u", 20261121u + row) << 20261121u + row;
}

void tst_DispatchStress::randomInput()
{
    QFETCH(unsigned, seed);
    generator.seed(seed);
    for (int i = 0; i < 12; ++i)
        addItem();

    for (int i = 0; i < kEventsPerRow; ++i) {
        step();
        if (items.size() < 4)
            addItem();
    }
    releaseAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(!scene->isDragging());
    QVERIFY(!scene->isPressed());
    for (int i = 0; i < dragLog.size(); ++i) {
        if (dragLog.at(i) == QLatin1String("started")) {
            QVERIFY2(i + 1 < dragLog.size() && dragLog.at(i + 1) == QLatin1String("finished"),
                qPrintable(QStringLiteral("drag %1 was not finished once").arg(i)));
        }
    }
    qInfo("%d items made, %d deleted, %d drags started, %d finished", itemsCreated, itemsDeleted,
        dragsStarted, dragsFinished);
    // The run must really have exercised what it claims to.
    QVERIFY(dragsStarted > 0);
    QVERIFY(dragsFinished >= dragsStarted);
    QVERIFY(itemsDeleted > 50);
    QVERIFY(itemsCreated > 100);
}

QTEST_MAIN(tst_DispatchStress)
#include "tst_dispatchstress.moc"
