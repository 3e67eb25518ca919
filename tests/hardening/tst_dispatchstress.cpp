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
#include <QPointer>
#include <QtTest>

#include <random>

class tst_DispatchStress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { StyleManager::createManager(StyleManagerDataProvider()); }
    void cleanupTestCase() { StyleManager::deleteManager(); }
    void cleanup()
    {
        // Items taken out of the scene are no longer the scene's to delete.
        for (const QPointer<QObject>& object : live()) {
            if (!dynamic_cast<QGraphicsItem*>(object.data())->scene())
                delete object.data();
        }
        view.reset();
        scene.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        items.clear();
        dragLog.clear();
        itemsCreated = itemsDeleted = 0;
    }
    // Four rows of 25,000 events make the 100,000; each row stays within the per-function time
    // limit under the sanitizers.
    void randomInput_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 20261121u; seed < 20261125u; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }
    void randomInput()
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
        connect(scene.get(), &GraphicsSceneExtra::dragStarted, this, [this] { dragLog << "s"; });
        connect(scene.get(), &GraphicsSceneExtra::dragFinished, this, [this] { dragLog << "f"; });
        QFETCH(unsigned, seed);
        generator.seed(seed);
        held = Qt::NoButton;
        for (int i = 0; i < 12; ++i)
            addItem();
        for (int i = 0; i < 25000; ++i) {
            step();
            if (items.size() < 4)
                addItem();
        }
        while (held != Qt::NoButton)
            releaseOne();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        QVERIFY(!scene->isDragging() && !scene->isPressed());
        // Every start of a drag is followed at once by its finish. (In interactive mode a drag is
        // finished without having been announced.)
        QVERIFY(!(dragLog.join("") + "e").contains(QRegularExpression("s(?!f)")));
        // The run must really have exercised what it claims to.
        QVERIFY(dragLog.count("s") > 0 && dragLog.count("f") >= dragLog.count("s"));
        QVERIFY(itemsDeleted > 50 && itemsCreated > 100);
    }

private:
    int random(int bound) { return int(generator() % unsigned(bound)); }
    QPointF randomPoint() { return QPointF(random(400), random(400)); }
    const QList<QPointer<QObject>>& live()
    {
        items.removeIf([](const QPointer<QObject>& item) { return item.isNull(); });
        return items;
    }
    // Presses and double clicks add the button to those held, releases take it away.
    void mouse(QEvent::Type type, Qt::MouseButton button = Qt::NoButton)
    {
        held = type == QEvent::MouseButtonRelease ? held & ~button : held | button;
        QMouseEvent event(type, cursor, view->viewport()->mapToGlobal(cursor), button, held, {});
        QCoreApplication::sendEvent(view->viewport(), &event);
    }
    void releaseOne()
    {
        for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            if (held & button)
                return mouse(QEvent::MouseButtonRelease, button);
        }
    }
    /// Every signal an application would react to runs the chaos; the object may die in it.
    template <typename T, typename... Signals> T* onSignals(T* object, Signals... handlerSignals)
    {
        (connect(object, handlerSignals, this, [this, object] { chaos(object); }), ...);
        return object;
    }
    /// A new item of a random kind at a random place whose handlers run chaos().
    void addItem()
    {
        if (items.size() >= 40)
            return;
        const QRectF rect(randomPoint(), QSizeF(20 + random(120), 20 + random(120)));
        QGraphicsItem* item = nullptr;
        const int kind = random(4);
        using Shape = CustomGraphicsItem;
        using Text = CustomGraphicsTextItem;
        using Image = CustomGraphicsPixmapItem;
        if (kind == 0) {
            auto* shape = onSignals(new Shape(QString::number(itemsCreated)), &Shape::leftClicked,
                &Shape::rightClicked, &Shape::mouseReleased, &Shape::mouseMoved,
                &Shape::mouseHoverEnter, &Shape::mouseHoverLeave, &Shape::mouseWheelChanged);
            QPainterPath path;
            path.addRect(rect);
            shape->setPainterPath(path);
            shape->setHandleRightClick(random(2));
            item = shape;
        } else if (kind == 1) {
            auto* text = onSignals(new Text(), &Text::leftClicked, &Text::rightClicked,
                &Text::mouseReleased, &Text::mouseHoverEnter);
            text->setPlainText(QStringLiteral("text %1").arg(itemsCreated));
            item = text;
        } else if (kind == 2) {
            QPixmap pixmap(rect.size().toSize());
            pixmap.fill(Qt::darkCyan);
            item = onSignals(new Image(QString::number(itemsCreated), nullptr, pixmap),
                &Image::leftClicked, &Image::mouseReleased, &Image::mouseMoved,
                &Image::mouseHoverMove);
        } else {
            item = new LineDragger(random(2) ? Qt::Horizontal : Qt::Vertical);
        }
        if (kind != 0)
            item->setPos(rect.topLeft());
        item->setZValue(random(10) - 5);
        scene->addItem(item);
        ++itemsCreated;
        auto* object = dynamic_cast<QObject*>(item);
        connect(object, &QObject::destroyed, this, [this] { ++itemsDeleted; });
        items.append(object);
    }
    /// One random change to the scene or its items. self may be deleted by it; the caller must
    /// not touch self afterwards.
    void chaos(QObject* self)
    {
        const QList<QPointer<QObject>>& candidates = live();
        QObject* other = candidates.isEmpty() ? nullptr : candidates.at(random(candidates.size()));
        auto* otherItem = dynamic_cast<QGraphicsItem*>(other);
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
            auto* item = dynamic_cast<QGraphicsItem*>(self);
            item->setZValue(item->zValue() + 1);
        } else if (otherItem && (action == 2 || action == 11) && otherItem->scene()) {
            otherItem->setVisible(otherItem->isVisible() && action != 11);
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
    void step()
    {
        static const Qt::MouseButton buttons[]
            = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
        const int choice = random(100);
        if (choice < 12) {
            const Qt::MouseButton button = buttons[random(4)];
            cursor = held & button ? cursor : randomPoint();
            if (!(held & button))
                mouse(QEvent::MouseButtonPress, button);
        } else if (choice < 45) {
            // Mostly small steps, so that drags stay over the items they started on.
            cursor += QPointF(random(21) - 10, random(21) - 10);
            cursor = QPointF(qBound(0.0, cursor.x(), 399.0), qBound(0.0, cursor.y(), 399.0));
            mouse(QEvent::MouseMove);
        } else if (choice < 57) {
            releaseOne();
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
            cursor = random(3) ? cursor + QPointF(random(31) - 15, random(31) - 15) : randomPoint();
            QGraphicsSceneHoverEvent hover(
                random(15) ? QEvent::GraphicsSceneHoverMove : QEvent::GraphicsSceneHoverLeave);
            hover.setWidget(view->viewport());
            hover.setScenePos(view->mapToScene(cursor.toPoint()));
            if (hover.type() == QEvent::GraphicsSceneHoverMove)
                scene->hoverEvent(&hover);
            else
                scene->hoverLeaveEvent(&hover);
        } else if (choice < 96) {
            const int key = std::array {
                Qt::Key_Escape, Qt::Key_Delete, Qt::Key_A, Qt::Key_Left, Qt::Key_Return}[random(5)];
            for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                QKeyEvent event(type, key, Qt::NoModifier, QString());
                QCoreApplication::sendEvent(view.get(), &event);
            }
        } else if (choice < 98 && held == Qt::NoButton) {
            // Between gestures only: switching in the middle of one is not what viewers do.
            scene->setInteractiveMode(!scene->getInteractiveMode());
        } else if (choice >= 98) {
            addItem();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
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

QTEST_MAIN(tst_DispatchStress)
#include "tst_dispatchstress.moc"
