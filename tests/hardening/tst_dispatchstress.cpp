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

namespace {

constexpr Qt::MouseButton kButtons[]
    = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};

} // namespace

class tst_DispatchStress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<QGraphicsSceneMouseEvent*>();
        StyleManager::createManager(StyleManagerDataProvider());
    }
    void cleanupTestCase() { StyleManager::deleteManager(); }
    void cleanup()
    {
        // Items taken out of the scene are no longer the scene's to delete.
        for (const QPointer<QObject>& object : live()) {
            const QGraphicsItem* item = dynamic_cast<QGraphicsItem*>(object.data());
            if (item && !item->scene())
                delete object.data();
        }
        view.reset();
        scene.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        items.clear();
        dragLog.clear();
        held = Qt::NoButton;
        itemsCreated = itemsDeleted = 0;
    }
    void randomInput_data()
    {
        // Four rows of 25,000 events make the 100,000; each row stays within the per-function
        // time limit under the sanitizers.
        QTest::addColumn<unsigned>("seed");
        for (unsigned row = 0; row < 4; ++row)
            QTest::addRow("seed %u", 20261121u + row) << 20261121u + row;
    }
    void randomInput();

private:
    int random(int bound) { return int(generator() % unsigned(bound)); }
    QPointF randomPoint() { return QPointF(random(400), random(400)); }
    const QList<QPointer<QObject>>& live()
    {
        items.removeIf([](const QPointer<QObject>& item) { return item.isNull(); });
        return items;
    }
    /// A new item of a random kind at a random place whose handlers run chaos().
    void addItem();
    /// One random change to the scene or its items. self may be deleted by it; the caller must
    /// not touch self afterwards.
    void chaos(QObject* self);
    void step();
    // Presses and double clicks add the button to those held, releases take it away.
    void mouse(QEvent::Type type, Qt::MouseButton button = Qt::NoButton)
    {
        held = type == QEvent::MouseButtonRelease ? held & ~button : held | button;
        QWidget* viewport = view->viewport();
        QMouseEvent event(type, cursor, viewport->mapToGlobal(cursor), button, held, {});
        QCoreApplication::sendEvent(viewport, &event);
    }
    /// Every signal an application would react to runs the chaos; the object may die in it.
    template <typename T, typename... Signals> void onSignals(T* object, Signals... handlerSignals)
    {
        (connect(object, handlerSignals, this, [this, object] { chaos(object); }), ...);
    }

    std::mt19937 generator;
    std::unique_ptr<GraphicsSceneExtra> scene;
    std::unique_ptr<QGraphicsView> view;
    QList<QPointer<QObject>> items;
    Qt::MouseButtons held;
    QPointF cursor;
    QStringList dragLog;
    int itemsCreated = 0;
    int itemsDeleted = 0;
};

void tst_DispatchStress::addItem()
{
    if (items.size() >= 40)
        return;
    const QRectF rect(randomPoint(), QSizeF(20 + random(120), 20 + random(120)));
    const QString name = QStringLiteral("item%1").arg(itemsCreated);
    QGraphicsItem* item = nullptr;
    QObject* object = nullptr;
    const auto adopt = [&](auto* created) {
        item = created;
        object = created;
        return created;
    };
    const int kind = random(4);
    if (kind == 0) {
        auto* shape = adopt(new CustomGraphicsItem(name));
        QPainterPath path;
        path.addRect(rect);
        shape->setPainterPath(path);
        shape->setHandleRightClick(random(2));
        onSignals(shape, &CustomGraphicsItem::leftClicked, &CustomGraphicsItem::rightClicked,
            &CustomGraphicsItem::mouseReleased, &CustomGraphicsItem::mouseMoved,
            &CustomGraphicsItem::mouseHoverEnter, &CustomGraphicsItem::mouseHoverLeave,
            &CustomGraphicsItem::mouseWheelChanged);
    } else if (kind == 1) {
        auto* text = adopt(new CustomGraphicsTextItem());
        text->setPlainText(QStringLiteral("text %1").arg(itemsCreated));
        onSignals(text, &CustomGraphicsTextItem::leftClicked, &CustomGraphicsTextItem::rightClicked,
            &CustomGraphicsTextItem::mouseReleased, &CustomGraphicsTextItem::mouseHoverEnter);
    } else if (kind == 2) {
        QPixmap pixmap(rect.size().toSize());
        pixmap.fill(Qt::darkCyan);
        auto* image = adopt(new CustomGraphicsPixmapItem(name, nullptr, pixmap));
        onSignals(image, &CustomGraphicsPixmapItem::leftClicked,
            &CustomGraphicsPixmapItem::mouseReleased, &CustomGraphicsPixmapItem::mouseMoved,
            &CustomGraphicsPixmapItem::mouseHoverMove);
    } else {
        adopt(new LineDragger(random(2) ? Qt::Horizontal : Qt::Vertical));
    }
    if (!dynamic_cast<CustomGraphicsItem*>(item))
        item->setPos(rect.topLeft());
    item->setZValue(random(10) - 5);
    scene->addItem(item);
    ++itemsCreated;
    connect(object, &QObject::destroyed, this, [this] { ++itemsDeleted; });
    items.append(object);
}

void tst_DispatchStress::chaos(QObject* self)
{
    const QList<QPointer<QObject>>& candidates = live();
    QObject* other = candidates.isEmpty() ? nullptr : candidates.at(random(candidates.size()));
    QGraphicsItem* otherItem = dynamic_cast<QGraphicsItem*>(other);
    const int action = random(12);
    if (action < 2) {
        addItem();
    } else if (action == 7 && other != self) {
        delete other;
    } else if (action == 8) {
        // The item dies inside its own handler, while the scene is dispatching to it.
        delete self;
    } else if (action == 9) {
        self->deleteLater();
    } else if (action == 10) {
        if (auto* item = dynamic_cast<QGraphicsItem*>(self))
            item->setZValue(item->zValue() + 1);
    } else if (otherItem && (action == 2 || action == 11) && otherItem->scene()) {
        if (action == 11)
            otherItem->setVisible(false);
        scene->removeItem(otherItem);
    } else if (otherItem && action == 3 && !otherItem->scene()) {
        scene->addItem(otherItem);
    } else if (otherItem && action == 4) {
        otherItem->setVisible(!otherItem->isVisible());
    } else if (otherItem && action == 5) {
        otherItem->setEnabled(!otherItem->isEnabled());
    } else if (otherItem && action == 6) {
        otherItem->setZValue(random(20) - 10);
    }
}

void tst_DispatchStress::step()
{
    const int choice = random(100);
    if (choice < 12) {
        const Qt::MouseButton button = kButtons[random(4)];
        if (held & button)
            return;
        cursor = randomPoint();
        mouse(QEvent::MouseButtonPress, button);
    } else if (choice < 45) {
        // Mostly small steps, so that drags stay over the items they started on.
        cursor += QPointF(random(21) - 10, random(21) - 10);
        cursor = QPointF(qBound(0.0, cursor.x(), 399.0), qBound(0.0, cursor.y(), 399.0));
        mouse(QEvent::MouseMove);
    } else if (choice < 57) {
        for (Qt::MouseButton button : kButtons) {
            if (held & button) {
                mouse(QEvent::MouseButtonRelease, button);
                break;
            }
        }
    } else if (choice < 61) {
        const Qt::MouseButton button = random(3) ? Qt::LeftButton : Qt::RightButton;
        if (held & button)
            return;
        for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                 QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease})
            mouse(type, button);
    } else if (choice < 70) {
        const int delta = (random(2) ? 1 : -1) * (10 + random(230));
        const QPoint angle = random(4) == 0 ? QPoint(delta, 0) : QPoint(0, delta);
        QWheelEvent event(cursor, view->viewport()->mapToGlobal(cursor), QPoint(), angle, held,
            Qt::NoModifier, Qt::NoScrollPhase, false);
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
        for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier, QString());
            QCoreApplication::sendEvent(view.get(), &event);
        }
    } else if (choice < 98) {
        // Between gestures only: switching in the middle of one is not what viewers do.
        if (held == Qt::NoButton)
            scene->setInteractiveMode(!scene->getInteractiveMode());
    } else {
        addItem();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void tst_DispatchStress::randomInput()
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
    connect(scene.get(), &GraphicsSceneExtra::dragStarted, this, [this] { dragLog << "started"; });
    connect(
        scene.get(), &GraphicsSceneExtra::dragFinished, this, [this] { dragLog << "finished"; });
    QFETCH(unsigned, seed);
    generator.seed(seed);
    for (int i = 0; i < 12; ++i)
        addItem();
    for (int i = 0; i < 25000; ++i) {
        step();
        if (items.size() < 4)
            addItem();
    }
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (held & button)
            mouse(QEvent::MouseButtonRelease, button);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QVERIFY(!scene->isDragging());
    QVERIFY(!scene->isPressed());
    // Every start of a drag is followed at once by its finish. (In interactive mode a drag is
    // finished without having been announced.)
    const QString log = dragLog.join(' ') + " end";
    QVERIFY(!log.contains(QRegularExpression("started (?!finished)")));
    const qsizetype started = dragLog.count("started");
    const qsizetype finished = dragLog.count("finished");
    qInfo("%d items made, %d deleted, %d drags started, %d finished", itemsCreated, itemsDeleted,
        int(started), int(finished));
    // The run must really have exercised what it claims to.
    QVERIFY(started > 0);
    QVERIFY(finished >= started);
    QVERIFY(itemsDeleted > 50);
    QVERIFY(itemsCreated > 100);
}

QTEST_MAIN(tst_DispatchStress)
#include "tst_dispatchstress.moc"
