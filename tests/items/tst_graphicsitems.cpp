#include <guicore/graphics/items/CustomGraphicsEllipseItem.h>
#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsLineSetItem.h>
#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/graphics/items/CustomGraphicsPathItem.h>
#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsPointDraggerItem.h>
#include <guicore/graphics/items/CustomGraphicsPolygonItem.h>
#include <guicore/graphics/items/CustomGraphicsRectItem.h>
#include <guicore/graphics/items/CustomGraphicsSimpleTextItem.h>
#include <guicore/graphics/items/CustomGraphicsSpline.h>
#include <guicore/graphics/items/CustomGraphicsStrokerOpaquePathItem.h>
#include <guicore/graphics/items/CustomGraphicsStrokerTransparentPathItem.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <settings/SettingsManager.h>

#include <QClipboard>
#include <QGraphicsView>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <memory>
#include <tuple>

// The overlay items: hit regions, press, hover and visibility rules, painting at any zoom, and
// the label, line set and text items built on them.

namespace {

using Lines = QList<QLineF>;
using Bools = QList<bool>;

/// A scene (its own unless given one) shown through a view of 300 by 200 pixels at the given
/// zoom, centred on the origin.
struct ViewFixture
{
    std::unique_ptr<QGraphicsScene> owned;
    QGraphicsScene& scene {*owned};
    QGraphicsView view {&scene};

    explicit ViewFixture(qreal zoom = 1.0, QGraphicsScene* given = nullptr)
        : owned(given ? given : new QGraphicsScene(-500, -500, 1000, 1000))
    {
        view.setFrameShape(QFrame::NoFrame);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.resize(300, 200);
        view.setTransform(QTransform::fromScale(zoom, zoom));
        view.centerOn(0, 0);
    }

    QImage render()
    {
        QImage image(view.viewport()->size(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        view.render(&painter, QRectF(), view.viewport()->rect());
        return image;
    }

    QPoint origin() const { return view.mapFromScene(QPointF(0, 0)); }
    template <typename Item, typename... Args> Item* add(Args&&... args)
    {
        auto* item = new Item(std::forward<Args>(args)...);
        scene.addItem(item);
        return item;
    }
};

/// The box around the pixels that match.
template <typename Match> QRect pixelBox(const QImage& image, Match match)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (match(image.pixel(x, y)))
                box |= QRect(x, y, 1, 1);
    return box;
}

/// The button is the one pressed or released; by default the right one of a chord, else the one
/// held.
void fill(QGraphicsSceneMouseEvent& event, const QPointF& scenePos, Qt::MouseButtons buttons,
    Qt::MouseButton button = Qt::NoButton)
{
    if (button == Qt::NoButton)
        button = buttons & Qt::RightButton ? Qt::RightButton : Qt::MouseButton(buttons.toInt());
    event.setScenePos(scenePos);
    event.setButton(button);
    event.setButtons(buttons);
}

/// Delivers a mouse event through the scene, as a view would; returns whether it was accepted.
bool sendMouse(QGraphicsScene& scene, QEvent::Type type, const QPointF& scenePos,
    Qt::MouseButtons buttons = Qt::LeftButton, Qt::MouseButton button = Qt::NoButton)
{
    QGraphicsSceneMouseEvent event(type);
    fill(event, scenePos, buttons, button);
    QCoreApplication::sendEvent(&scene, &event);
    return event.isAccepted();
}

/// Hands a press straight to the item, as a scene dispatching by itself does.
template <typename Item>
bool pressItem(Item* item, const QPointF& scenePos, Qt::MouseButtons buttons = Qt::LeftButton)
{
    QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMousePress);
    fill(event, scenePos, buttons);
    item->mousePressEvent(&event);
    return event.isAccepted();
}

template <typename Item> void recordClicks(Item* item, QStringList& seen)
{
    QObject::connect(item, &Item::leftClicked, [&seen] { seen << "left"; });
    QObject::connect(item, &Item::rightClicked, [&seen] { seen << "right"; });
}

/// Whether each scene point is over the item.
template <typename Item> Bools over(Item* item, const QList<QPointF>& points)
{
    Bools result;
    for (const QPointF& p : points)
        result << item->isMouseOver(p);
    return result;
}

QPainterPath pathOf(const QPolygonF& polygon)
{
    QPainterPath path;
    path.addPolygon(polygon);
    return path;
}

Lines polygonLines(const QList<QPointF>& points)
{
    Lines lines;
    for (qsizetype i = 0; i < points.size(); ++i)
        lines << QLineF(points[i], points[(i + 1) % points.size()]);
    return lines;
}

/// Each loop as its sorted, rounded corners, the loops sorted: order and direction do not count.
QStringList loopKeys(const QList<QPolygonF>& loops)
{
    QStringList keys;
    for (const QPolygonF& loop : loops) {
        QStringList corners;
        for (const QPointF& p : loop)
            corners << QString::asprintf("%.3f,%.3f", p.x(), p.y());
        corners.removeDuplicates();
        corners.sort();
        keys << corners.join(QLatin1Char(' '));
    }
    keys.sort();
    return keys;
}

const QList<QPointF> square {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
const QList<QPointF> triangle {{200, 0}, {300, 0}, {250, 80}};

bool sendKey(QGraphicsScene& scene, QGraphicsItem* item, int key, const QString& text = QString(),
    Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    event.ignore();
    scene.sendEvent(item, &event);
    return event.isAccepted();
}

struct CountingItem : CustomGraphicsItem
{
    using CustomGraphicsItem::CustomGraphicsItem;
    void devicePixelRatioChanged() override
    {
        ++ratioChanges;
        CustomGraphicsItem::devicePixelRatioChanged();
    }
    int ratioChanges = 0;
};

} // namespace

class tst_GraphicsItems : public QObject
{
    Q_OBJECT

    QTemporaryDir configDir;

    static bool isYellow(QRgb p) { return qRed(p) > 200 && qGreen(p) > 200 && qBlue(p) < 100; }
    static void setLabelFontSize(int size)
    {
        settings::SettingsManager::manager()->setUserDefault("labelFontSize", size);
    }
    static QRect colourBox(const QImage& image, QRgb c)
    {
        return pixelBox(image, [c](QRgb p) { return (p & 0xffffff) == (c & 0xffffff); });
    }

private Q_SLOTS:
    void initTestCase()
    {
        // User defaults are stored through QSettings: keep them out of the real configuration.
        QVERIFY(configDir.isValid());
        qputenv("XDG_CONFIG_HOME", configDir.path().toLocal8Bit());
        StyleManager::createManager(StyleManagerDataProvider());
    }

    void cleanupTestCase() { StyleManager::deleteManager(); }

    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        setLabelFontSize(12);
    }

    void clickableRegionAndShape()
    {
        // Pen width 10: the stroke reaches 5 units either side of the outline.
        const QPainterPath sq = pathOf(QRectF(0, 0, 100, 100));
        const std::tuple<bool, QPainterPath, QPointF, bool> cases[] = {{false, sq, {50, 50}, true},
            {false, sq, {103, 50}, false}, {true, sq, {50, 50}, false}, {true, sq, {103, 50}, true},
            {true, sq, {107, 50}, false}, {true, {}, {0, 0}, false}, {false, {}, {0, 0}, false}};
        for (const auto& [stroker, path, probe, hit] : cases) {
            CustomGraphicsItem item("item");
            item.setPos(10, 20);
            item.setPen(QPen(Qt::black, 10));
            item.setUseStroker(stroker);
            item.setPainterPath(path);
            const QPointF at = probe + QPointF(10, 20);
            // Hidden or disabled items are never under the mouse.
            Bools seen {item.isMouseOver(at)};
            item.setEnabled(false);
            seen << item.isMouseOver(at);
            item.setEnabled(true);
            item.setVisible(false);
            QCOMPARE(seen << item.isMouseOver(at), (Bools {hit, false, false}));
        }

        // After a pen change the region follows once the stroker is set again.
        CustomGraphicsItem item("item");
        const QPainterPath line = pathOf({QPointF(0, 0), QPointF(100, 0)});
        item.setPen(QPen(Qt::black, 2));
        item.setUseStroker(true);
        item.setPainterPath(line);
        // The region is recomputed before the new pen takes over, so it still has width 2.
        Bools fiveAbove {item.isMouseOver({50, -5})};
        item.setPen(QPen(Qt::black, 20));
        fiveAbove << item.isMouseOver({50, -5});
        item.setUseStroker(true);
        QCOMPARE(fiveAbove << item.isMouseOver({50, -5}), (Bools {false, false, true}));

        // The shape takes the pen's stroke, but a hairline stays thin.
        item.setPen(QPen(Qt::black, 0));
        QCOMPARE(item.shape().boundingRect().size().toSize(), QSize(100, 0));
        item.setPen(QPen(Qt::black, 6, Qt::SolidLine, Qt::FlatCap));
        QCOMPARE(item.shape().boundingRect().size(), QSizeF(100, 6));
        item.setPen(Qt::NoPen);
        QCOMPARE(item.shape(), line);
        item.setPainterPath(QPainterPath());
        item.setPen(QPen(Qt::black, 6));
        QVERIFY(item.shape().isEmpty());
    }

    void pressRules()
    {
        // Exactly the left or exactly the right button on an item is a click. Off the items: on
        // the pen's stroke of a shape but off its path (the scene's hit test takes the stroke,
        // the item's region is the path), beside a simple text's glyph (its region is the stroke
        // of the glyph outline), and on a hidden pixmap.
        const std::tuple<Qt::MouseButtons, bool, QStringList> cases[]
            = {{Qt::LeftButton, true, {"left"}}, {Qt::RightButton, true, {"right"}},
                {Qt::LeftButton | Qt::RightButton, true, {}}, {Qt::MiddleButton, true, {}},
                {Qt::LeftButton, false, {}}};
        for (const auto& [buttons, on, expected] : cases) {
            QStringList seen;
            ViewFixture fixture;
            auto* shape = fixture.add<CustomGraphicsItem>("shape");
            shape->setPen(QPen(Qt::black, 4));
            shape->setPainterPath(pathOf(QRectF(200, 0, 100, 100)));
            auto* text = fixture.add<CustomGraphicsSimpleTextItem>("simple", nullptr, "I", false);
            QFont font;
            font.setPixelSize(40);
            text->setFont(font);
            text->setPen(QPen(Qt::black, 2));
            auto* pixmap
                = fixture.add<CustomGraphicsPixmapItem>("pixmap", nullptr, QPixmap(10, 10));
            pixmap->setVisible(on);
            recordClicks(shape, seen);
            recordClicks(text, seen);
            recordClicks(pixmap, seen);

            const bool taken = !expected.isEmpty();
            const QPointF onShape(on ? 250 : 301.5, 50);
            QCOMPARE(
                sendMouse(fixture.scene, QEvent::GraphicsSceneMousePress, onShape, buttons), taken);
            QCOMPARE(shape->isDragging(), expected == QStringList {"left"});
            const QRectF glyph = text->getPainterPath().boundingRect();
            const QPointF onGlyph(on ? glyph.left() : glyph.right() + 20, glyph.center().y());
            QCOMPARE(pressItem(text, onGlyph, buttons), taken);
            QCOMPARE(pressItem(pixmap, QPointF(5, 5), buttons), taken);
            QCOMPARE(seen, expected + expected + expected);
        }
    }

    void pressMoveReleaseHoverAndVisibility()
    {
        QStringList seen;
        ViewFixture fixture;
        auto* item = fixture.add<CustomGraphicsItem>("item");
        item->setPainterPath(pathOf(QRectF(0, 0, 100, 100)));
        recordClicks(item, seen);
        const auto dragging = [item] { return QString(item->isDragging() ? " dragging" : ""); };
        connect(item, &CustomGraphicsItem::mouseMoved, this, [&] { seen << "moved" + dragging(); });
        connect(item, &CustomGraphicsItem::mouseReleased, this,
            [&] { seen << "released" + dragging(); });
        connect(item, &CustomGraphicsItem::mouseHoverEnter, this, [&] { seen << "enter"; });
        connect(item, &CustomGraphicsItem::mouseHoverMove, this, [&] { seen << "move"; });
        connect(item, &CustomGraphicsItem::mouseHoverLeave, this, [&] { seen << "leave"; });

        // A point dragger proposes where it should go, and stays where it is. Grabbed 2 units
        // right of its centre; the offset is kept. A press beside it starts nothing.
        auto* parent = fixture.add<QGraphicsRectItem>(QRectF(0, 0, 1, 1));
        parent->setPos(300, 0);
        auto* handle = new CustomGraphicsPointDraggerItem("handle", parent);
        handle->setPos(10, 10);
        connect(
            handle, &CustomGraphicsPointDraggerItem::dragStarted, this, [&] { seen << "start"; });
        connect(handle, &CustomGraphicsPointDraggerItem::positionChangeRequested, this,
            [&](const QPointF& p) { seen << QStringLiteral("to %1,%2").arg(p.x()).arg(p.y()); });
        connect(
            handle, &CustomGraphicsPointDraggerItem::dragFinished, this, [&] { seen << "end"; });

        for (const QPointF& at : {QPointF(10, 10), QPointF(312, 10)}) {
            QVERIFY(sendMouse(fixture.scene, QEvent::GraphicsSceneMousePress, at));
            sendMouse(fixture.scene, QEvent::GraphicsSceneMouseMove, at + QPointF(20, 30));
            sendMouse(fixture.scene, QEvent::GraphicsSceneMouseRelease, at + QPointF(20, 30),
                Qt::NoButton, Qt::LeftButton);
        }
        QCOMPARE(
            seen, (QStringList {"left", "moved dragging", "released", "start", "to 30,40", "end"}));
        QCOMPARE(
            (QList {item->isDragging(), handle->pos() == QPointF(10, 10)}), (Bools {false, true}));
        QVERIFY(!sendMouse(fixture.scene, QEvent::GraphicsSceneMousePress, QPointF(350, 10)));

        // Hovering is reported, but not while the item is being dragged. Visibility changes are
        // reported only while in a scene.
        seen.clear();
        item->setAcceptHoverEvents(true);
        for (bool dragging : {true, false}) {
            item->setDragging(dragging);
            for (qreal x : {50, 60, 150})
                sendMouse(fixture.scene, QEvent::GraphicsSceneMouseMove, {x, 50}, Qt::NoButton);
        }
        CustomGraphicsItem loose("loose");
        for (CustomGraphicsItem* target : {item, &loose})
            connect(target, &CustomGraphicsItem::visibilityChanged, this,
                [&](bool shown) { seen << (shown ? "shown" : "hidden"); });
        for (bool visible : {false, false, true}) {
            item->setVisible(visible);
            loose.setVisible(visible);
        }
        QCOMPARE(seen, (QStringList {"enter", "move", "move", "leave", "hidden", "shown"}));
    }

    void childrenTakeClicksAndMenusUntilRemoved()
    {
        CustomGraphicsItem parent("parent");
        parent.setPainterPath(pathOf(QRectF(0, 0, 10, 10)));
        QStringList seen;
        connect(&parent, &CustomGraphicsItem::leftClicked, this, [&] { seen << "parent"; });
        QList<CustomGraphicsItem*> children;
        for (const QRectF& rect :
            {QRectF(100, 0, 10, 10), QRectF(50, 50, 20, 20), QRectF(50, 50, 20, 20)}) {
            auto* child = new CustomGraphicsItem(QString::number(children.size()));
            child->setPainterPath(pathOf(rect));
            parent.addCustomChildItem(child);
            parent.addCustomChildItem(nullptr);
            connect(child, &CustomGraphicsItem::leftClicked, this,
                [&seen, child] { seen << child->objectName(); });
            children << child;
        }
        QCOMPARE(parent.getCustomChildItems(), children);
        QCOMPARE(children[1]->parentItem(), &parent);

        // A press off the parent's region goes to the children until one takes it. The
        // forwarding connection was made before the test's own, so the parent reports first.
        QVERIFY(pressItem(&parent, QPointF(60, 60)));
        QVERIFY(!pressItem(&parent, QPointF(300, 300)));
        QCOMPARE(seen, (QStringList {"parent", "1"}));
        QCOMPARE(
            (Bools {parent.isDragging(), children[1]->isDragging(), children[2]->isDragging()}),
            (Bools {false, true, false}));

        // A menu is taken on the parent's region, then on a child's, never from the keyboard.
        Bools taken;
        using Menu = QGraphicsSceneContextMenuEvent;
        for (const auto& [x, reason] : {std::pair {5, Menu::Mouse}, {60, Menu::Mouse},
                 {25, Menu::Mouse}, {5, Menu::Keyboard}}) {
            Menu event(QEvent::GraphicsSceneContextMenu);
            event.setScenePos(QPointF(x, x));
            event.setReason(reason);
            parent.contextMenuEvent(&event);
            taken << event.isAccepted();
        }
        QCOMPARE(taken, (Bools {true, true, false, false}));

        QSignalSpy right(&parent, &CustomGraphicsItem::rightClicked);
        std::unique_ptr<CustomGraphicsItem> removed(children[1]);
        QVERIFY(pressItem(removed.get(), QPointF(60, 60), Qt::RightButton));
        parent.removeCustomChildItem(removed.get());
        parent.removeCustomChildItem(nullptr);
        QCOMPARE(removed->parentItem(), nullptr);
        QCOMPARE(parent.getCustomChildItems(), (QList {children[0], children[2]}));
        QVERIFY(pressItem(removed.get(), QPointF(60, 60), Qt::RightButton));
        QCOMPARE(right.count(), 1);

        // Removing an item that is not a child still detaches it.
        CustomGraphicsItem stranger("stranger", &parent);
        parent.removeCustomChildItem(&stranger);
        QCOMPARE(stranger.parentItem(), nullptr);
    }

    void listensToPixelRatioForWholeLife()
    {
        QWidget mainWindow;
        mainWindow.show();
        QVERIFY(QTest::qWaitForWindowExposed(&mainWindow));
        DevicePixelRatio::registerMainWindow(&mainWindow);
        QWindow* native = mainWindow.windowHandle();
        CountingItem survivor("survivor");
        QPointer<QObject> gone;
        {
            CountingItem shortLived("shortLived");
            gone = &shortLived;
            Q_EMIT native->screenChanged(native->screen());
            QCOMPARE(shortLived.ratioChanges, 1);
        }
        QVERIFY(gone.isNull());
        // The destroyed item was unregistered: notifying again reaches only the living one.
        Q_EMIT native->screenChanged(native->screen());
        QCOMPARE(survivor.ratioChanges, 2);
    }

    void zoomAgnosticItemsKeepScreenSize()
    {
        // An ellipse of diameter 20 (zoom-agnostic or not, zoom, pixels drawn).
        const std::tuple<bool, qreal, int> cases[] = {
            {true, 1.0, 20}, {true, 4.0, 20}, {true, 0.5, 20}, {false, 1.0, 20}, {false, 4.0, 80}};
        for (const auto& [agnostic, zoom, diameter] : cases) {
            ViewFixture fixture(zoom);
            auto* ellipse = fixture.add<CustomGraphicsEllipseItem>(10.0f, 10.0f, "e");
            ellipse->setPen(Qt::NoPen);
            ellipse->setBrush(Qt::red);
            ellipse->setUseZoomAgnostic(agnostic);
            const int span = colourBox(fixture.render(), qRgb(255, 0, 0)).width();
            QVERIFY2(qAbs(span - diameter) <= 1, qPrintable(QString::number(span)));
            // The hit region follows what was drawn.
            QVERIFY(ellipse->isMouseOver(fixture.view.mapToScene(fixture.origin() + QPoint(9, 0))));
        }

        // At 4x, a path's pen of 6 and a dragger handle of 6 keep their pixels.
        ViewFixture fixture(4.0);
        auto* path = fixture.add<CustomGraphicsPathItem>("path");
        path->setPen(QPen(Qt::green, 6, Qt::SolidLine, Qt::FlatCap));
        path->setPainterPath(pathOf({QPointF(0, -10), QPointF(0, 10)}));
        path->setUseZoomAgnostic(true);
        auto* handle = fixture.add<CustomGraphicsPointDraggerItem>("h", nullptr, 6.0f);
        handle->setPos(5, 0);
        handle->setBrush(Qt::red);
        handle->setPen(Qt::NoPen);
        // Six pixels at 4x zoom are 1.5 scene units.
        QCOMPARE(over(handle, {{6.4, 0}, {6.6, 0}}), (Bools {true, false}));
        const QImage image = fixture.render();
        const QList<int> spans {
            colourBox(image, qRgb(0, 255, 0)).width(), colourBox(image, qRgb(255, 0, 0)).width()};
        QVERIFY(qAbs(spans[0] - 6) <= 1 && qAbs(spans[1] - 12) <= 1);
    }

    void rectPolygonAndSplineRegions()
    {
        CustomGraphicsRectItem plain("plain", nullptr, QRectF(0, 0, 40, 20), 0.0);
        QCOMPARE(plain.getPainterPath(), pathOf(QRectF(0, 0, 40, 20)));
        CustomGraphicsRectItem rounded("rounded", nullptr, QRectF(0, 0, 40, 20), 5.0);
        QPainterPath expected;
        expected.addRoundedRect(QRectF(0, 0, 40, 20), 5.0, 5.0, Qt::AbsoluteSize);
        QCOMPARE(rounded.getPainterPath(), expected);
        // Hit along the stroke only: the middle of a large rectangle is not on it.
        plain.setRect(QRectF(0, 0, 100, 100));
        QCOMPARE(over(&plain, {{50, 50}, {100, 50}}), (Bools {false, true}));

        // A polygon is closed and hit inside.
        const QPolygonF corner {QPointF(0, 0), QPointF(100, 0), QPointF(0, 100)};
        CustomGraphicsPolygonItem polygon("polygon", nullptr, corner);
        QCOMPARE(over(&polygon, {{20, 20}, {80, 80}}), (Bools {true, false}));
        polygon.setPolygon(QPolygonF());
        QVERIFY(polygon.getPainterPath().isEmpty());

        // A spline is hit near its curve only, or within a given distance.
        CustomGraphicsSpline empty("empty");
        QVERIFY(!empty.isMouseOver(QPointF(0, 0)));
        CustomGraphicsSpline spline("spline");
        spline.setPen(QPen(Qt::black, 4));
        QPainterPath curve;
        curve.cubicTo(30, 60, 70, -60, 100, 0);
        spline.setPainterPath(curve);
        const QPointF onCurve = curve.pointAtPercent(0.5);
        QCOMPARE(over(&spline, {onCurve + QPointF(0, 1.5), onCurve + QPointF(0, 6)}),
            (Bools {true, false}));
        QVERIFY(spline.isUnderMouse(onCurve + QPointF(0, 6), 5.0f));
        QVERIFY(spline.contains(onCurve));
        spline.setVisible(false);
        QVERIFY(!pressItem(&spline, onCurve));
        spline.setVisible(true);
        QVERIFY(pressItem(&spline, onCurve));
    }

    void strokerItemsDrawTheStroke()
    {
        // A stroke ten units wide in a view zoomed to 2x: the opaque item fills it, the
        // transparent one draws its outline only (opaque, zoom-agnostic, pixels thick).
        const std::tuple<bool, bool, int> cases[]
            = {{true, true, 10}, {false, false, 20}, {false, true, 10}};
        for (const auto& [opaque, agnostic, thickness] : cases) {
            ViewFixture fixture(2.0);
            CustomGraphicsStrokerPathItem* item = opaque
                ? static_cast<CustomGraphicsStrokerPathItem*>(
                    fixture.add<CustomGraphicsStrokerOpaquePathItem>("opaque"))
                : fixture.add<CustomGraphicsStrokerTransparentPathItem>("transparent");
            item->setPen(opaque ? QPen(Qt::NoPen) : QPen(Qt::magenta, 0));
            item->setBrush(opaque ? Qt::magenta : Qt::green);
            item->setStrokerPath(pathOf({QPointF(-20, 0), QPointF(20, 0)}));
            item->setStrokerWidth(10);
            item->setCapStyle(Qt::FlatCap);
            item->setUseZoomAgnostic(agnostic);
            const QImage image = fixture.render();
            const int height = colourBox(image, qRgb(255, 0, 255)).height();
            QVERIFY2(qAbs(height - thickness) <= 1, qPrintable(QString::number(height)));
            // The stroke as painted is kept, in scene units.
            QCOMPARE(item->getPainterPath().boundingRect().height(), thickness / 2.0);
            QVERIFY(colourBox(image, qRgb(0, 255, 0)).isEmpty());
        }
    }

    void labelLayout()
    {
        // Text, icon size, wrapped to the text or a fixed box, the icon's size as shown.
        const std::tuple<QString, QSize, bool, QSize, QSizeF> cases[]
            = {{"12.5 mm", {}, true, {}, {0, 0}}, {"12.5 mm", {32, 32}, true, {}, {16, 16}},
                {"x", {40, 20}, true, {}, {16, 8}}, {"12.5 mm", {}, false, {50, 20}, {0, 0}},
                {"a", {16, 16}, false, {50, 20}, {16, 16}}, {"", {}, true, {}, {0, 0}}};
        for (const auto& [text, iconSize, wrap, fixedSize, iconShown] : cases) {
            CustomGraphicsLabelItem label("label");
            label.setText(text);
            if (iconSize.isValid())
                label.setIcon(QPixmap(iconSize));
            label.wrapSizeToText(wrap);
            label.setWidth(fixedSize.width());
            label.setHeight(fixedSize.height());
            const qreal iw = iconShown.width();
            QCOMPARE(label.getIcon()->boundingRect().size(), iconShown);
            QCOMPARE(label.getIcon()->pos(), QPointF(-iw - 3, -iconShown.height()));
            const QSizeF t = label.getTextBoundingRect().size();
            const QRectF expected = wrap
                ? QRectF(-8 - iw, 5, float(t.width()) + 10 + float(iw) + 6, -float(t.height()) - 10)
                : QRectF(-8 - iw, 5, fixedSize.width(), -fixedSize.height());
            // The box reaches 8 pixels beyond the text and icon, and from 5 below the baseline
            // to 5 above the text.
            QCOMPARE(label.getBackground()->getRect(), expected);
        }

        ViewFixture fixture(2.0);
        auto* label = fixture.add<CustomGraphicsLabelItem>("label");
        label->setPos(10, 10);
        label->setText("3.4 cm");
        label->wrapSizeToText(false);
        label->setWidth(60);
        label->setHeight(20);
        // The box is (-8, 5, 60, -20) in pixels: (-4, -7.5) to (26, 2.5) in scene units at 2x.
        QCOMPARE(label->shape().boundingRect(), QRectF(QPointF(-4, -7.5), QPointF(26, 2.5)));
        QCOMPARE(label->getClickableRegion().boundingRect(), label->shape().boundingRect());
        QCOMPARE(over(label, {{35, 3}, {37, 10}, {10, 13}}), (Bools {true, false, false}));
        QVERIFY(label->boundingRect().contains(label->shape().boundingRect()));
    }

    void labelPartsAndFont()
    {
        setLabelFontSize(17);
        CustomGraphicsLabelItem label("ruler", nullptr, 3.0, true);
        const QList<CustomGraphicsItem*> textParts = label.getTextItem()->getCustomChildItems();
        QCOMPARE((QStringList {label.getBackground()->objectName(), label.getIcon()->objectName(),
                     label.getTextItem()->objectName(), textParts[0]->objectName(),
                     textParts[1]->objectName()}),
            (QStringList {"ruler_background", "ruler_icon", "ruler_text", "ruler_text_outline",
                "ruler_text_text"}));
        QCOMPARE(label.getCustomChildItems(),
            (QList<CustomGraphicsItem*> {label.getBackground(), label.getTextItem()}));
        CustomGraphicsLabelItem plain("plain", nullptr, 0, false);
        QCOMPARE(plain.getTextItem()->getCustomChildItems().size(), 1);

        QFont font;
        font.setFamily(StyleManager::manager().getFontFamilyForQFont("@MEASUREMENT_LABEL_FONT"));
        font.setPixelSize(17);
        font.setLetterSpacing(QFont::PercentageSpacing, 110);
        QCOMPARE(label.getTextItem()->getFont(), font);
        // The text's box: advance wide, ascent above and descent below the baseline.
        label.setText("42 mm");
        const QFontMetricsF metrics(font);
        QCOMPARE(label.getTextBoundingRect(),
            QRectF(0, -metrics.ascent(), metrics.horizontalAdvance("42 mm"),
                metrics.ascent() + metrics.descent()));

        // The constructor applies a lower bound of 1 to the setting; later changes do not, and
        // QFont refuses a size of 0, keeping the one it has.
        setLabelFontSize(0);
        CustomGraphicsLabelItem tiny("tiny");
        QList<int> sizes {tiny.getTextItem()->getFont().pixelSize()};
        for (int setting : {5, 0, 24}) {
            setLabelFontSize(setting);
            sizes << tiny.getTextItem()->getFont().pixelSize();
        }
        tiny.setFontSize(9);
        QCOMPARE(sizes << tiny.getTextItem()->getFont().pixelSize(), (QList<int> {1, 5, 5, 24, 9}));
    }

    void labelPaintsHitsAndHoversInEitherScene_data()
    {
        QTest::addColumn<bool>("library");
        QTest::newRow("stock scene, BSP index") << false;
        QTest::newRow("library scene, no index") << true;
    }

    void labelPaintsHitsAndHoversInEitherScene()
    {
        QFETCH(bool, library);
        ViewFixture fixture(1.0, library ? new GraphicsSceneExtra : nullptr);
        QCOMPARE(fixture.scene.itemIndexMethod(),
            library ? QGraphicsScene::NoIndex : QGraphicsScene::BspTreeIndex);
        auto* label = fixture.add<CustomGraphicsLabelItem>("label");
        label->setText("HHHH");
        label->fillBackground(true);
        label->setBackgroundBrush(QBrush(Qt::blue));
        label->setBackgroundOutlinePen(Qt::NoPen);
        QPixmap icon(16, 16);
        icon.fill(Qt::blue);
        label->setIcon(icon);
        label->getTextItem()->setOutlineWidth(6);
        label->setAcceptHoverEvents(true);
        // Hiding or showing tells the scene the area the label covers.
        QSignalSpy changed(&fixture.scene, &QGraphicsScene::changed);
        label->setVisible(false);
        label->setVisible(true);
        const QVariantList area {QVariant::fromValue(QList {label->boundingRect()})};
        QCOMPARE(changed, (QList<QVariantList> {area, area}));
        label->setPos(40, 30);
        // Before any hit test the bounds are the box as laid out: it runs upwards from the
        // baseline.
        const QRectF box = label->getBackground()->getRect();
        QVERIFY(box.height() < 0);
        QCOMPARE(label->boundingRect(), box);

        // Left of the icon, inside the box: only the box paints there, and nothing beside the
        // box. Yellow glyphs lie inside the text's rectangle above the baseline.
        const QPointF inBoxHere(box.left() + 2, -2);
        const QImage image = fixture.render();
        const QPoint boxAt = fixture.view.mapFromScene(label->pos());
        QCOMPARE(colourBox(image, qRgb(0, 0, 255)), box.normalized().toRect().translated(boxAt));
        const QRect text = label->getTextBoundingRect().toAlignedRect().translated(boxAt);
        const QRect glyphs = pixelBox(image, isYellow);
        QVERIFY(glyphs.width() > 20 && text.adjusted(-1, -1, 1, 1).contains(glyphs));
        // A black ring as wide as the outline (6 pixels, 3 a side) surrounds the glyphs.
        const QRect ring = colourBox(image, qRgb(0, 0, 0));
        QVERIFY(ring.contains(glyphs) && ring.width() >= glyphs.width() + 5);
        QVERIFY(fixture.scene.items(label->mapToScene(inBoxHere)).contains(label));
        QVERIFY(
            !fixture.scene.items(label->mapToScene(QPointF(box.left() - 4, -2))).contains(label));

        fixture.view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.view));
        QSignalSpy entered(label, &CustomGraphicsItem::mouseHoverEnter);
        QSignalSpy left(label, &CustomGraphicsItem::mouseHoverLeave);
        QList<int> counts;
        for (const QPointF& p : {QPointF(-100, -2), inBoxHere, QPointF(0, 40)}) {
            QTest::mouseMove(
                fixture.view.viewport(), fixture.view.mapFromScene(label->mapToScene(p)));
            counts << entered.count() << left.count();
        }
        QCOMPARE(counts, (QList<int> {0, 0, 1, 0, 1, 1}));

        // Clicks on the text and on the icon are the label's; nothing takes a press beside it.
        QStringList seen;
        recordClicks(label, seen);
        const auto click = [&](Qt::MouseButton button, const QPointF& at) {
            QTest::mouseClick(fixture.view.viewport(), button, {},
                fixture.view.mapFromScene(label->mapToScene(at)));
        };
        click(Qt::LeftButton, label->getTextBoundingRect().center());
        click(Qt::LeftButton, QPointF(-11, -8));
        click(Qt::RightButton, label->getTextBoundingRect().center());
        QTest::ignoreMessage(
            QtWarningMsg, "Mouse event \"MousePress\" not accepted by receiving widget");
        click(Qt::LeftButton, QPointF(-60, 0));
        QCOMPARE(seen, (QStringList {"left", "left", "right"}));
    }

    // Line set

    void closedLoopsFromLines()
    {
        const Lines sq = polygonLines(square);
        const Lines tri = polygonLines(triangle);
        // Two triangles sharing one corner: a branching point of four segments.
        const QList<QPointF> left {{0, 0}, {-50, -50}, {-50, 50}};
        const QList<QPointF> right {{0, 0}, {50, -50}, {50, 50}};
        const std::pair<Lines, QList<QPolygonF>> cases[] = {{{}, {}}, {sq, {square}},
            // two loops interleaved
            {{sq[0], tri[1], sq[1], sq[2], tri[0], sq[3], tri[2]}, {square, triangle}},
            // an open chain
            {{QLineF(0, 0, 10, 0), QLineF(10, 0, 10, 10), QLineF(10, 10, 20, 10)}, {}},
            // a loop with a branch off a corner, and a separate chain
            {Lines {QLineF(100, 0, 140, -40)} + sq + Lines {QLineF(500, 500, 600, 500)}, {square}},
            // a figure eight
            {polygonLines(left) + polygonLines({{0, 0}, {50, 50}, {50, -50}}), {left, right}},
            // end points that differ by far less than the relative tolerance still meet
            {{QLineF(0, 0, 1e6, 0), QLineF(1e6 * (1 + 1e-14), 0, 1e6, 1e6),
                 QLineF(1e6, 1e6 * (1 - 1e-14), 0, 0)},
                {QList<QPointF> {{0, 0}, {1e6, 0}, {1e6, 1e6}}}},
            // end points too far apart
            {{QLineF(0, 0, 100, 0), QLineF(100.001, 0, 100, 100), QLineF(100, 100, 0, 0)}, {}},
            // a duplicate segment is one edge
            {tri + Lines {tri[0]}, {triangle}}};
        for (const auto& [lines, expected] : cases)
            QCOMPARE(loopKeys(CustomGraphicsLineSetItem::createPathWithClosedPolygons(lines)
                                  .toSubpathPolygons()),
                loopKeys(expected));
    }

    void lineSetModes()
    {
        const Lines sq = polygonLines(square);
        const Lines chain {QLineF(0, 0, 100, 0), QLineF(100, 0, 100, 100)};
        // Lines, fill colour, closed, hit inside, hit on the edge.
        const std::tuple<Lines, QColor, bool, bool, bool> cases[]
            = {{{}, Qt::red, false, false, false}, {sq, QColor(), false, false, true},
                {sq, Qt::red, true, true, true}, {chain, Qt::red, false, false, true}};
        for (const auto& [lines, fill, closed, hitInside, hitOnEdge] : cases) {
            CustomGraphicsLineSetItem item("lines");
            item.setPen(QPen(Qt::black, 4));
            item.setFillColor(fill);
            item.setLineSet(lines);
            QCOMPARE((Bools {item.isClosed(), item.isUsingStroker()}), (Bools {closed, !closed}));
            QCOMPARE(over(&item, {{50, 50}, {99, 50}}), (Bools {hitInside, hitOnEdge}));
            // Loose segments: one sub-path each, in list order.
            const QList<QPolygonF> parts = item.getPainterPath().toSubpathPolygons();
            QCOMPARE(parts.size(), closed ? 1 : lines.size());
            QCOMPARE(parts.value(0).value(0), lines.value(0).p1());
        }

        // A line set given as closed needs no fill colour; clearing empties everything.
        CustomGraphicsLineSetItem closed("closed");
        closed.setClosedLineSet(polygonLines({{0, 100}, {100, 100}, {100, 0}, {0, 0}}));
        QCOMPARE((Bools {closed.isClosed(), closed.isUsingStroker(), closed.isMouseOver({50, 50})}),
            (Bools {true, false, true}));
        QCOMPARE(closed.getPainterPath().elementCount(), 4);
        closed.clearLineSet();
        QCOMPARE((Bools {closed.getLineSet().isEmpty(), closed.getPainterPath().isEmpty(),
                     closed.isClosed(), closed.isMouseOver({50, 50})}),
            (Bools {true, true, false, false}));

        ViewFixture fixture;
        for (const auto& [points, fill] :
            {std::pair {square, QColor(Qt::red)}, {triangle, QColor()}}) {
            auto* item = fixture.add<CustomGraphicsLineSetItem>("lines");
            item->setPos(-140, -50);
            item->setPen(QPen(Qt::black, 2));
            item->setFillColor(fill);
            item->setLineSet(polygonLines(points));
        }
        const QImage image = fixture.render();
        const QPoint o = fixture.view.mapFromScene(QPointF(-140, -50));
        const auto at = [&](int x, int y) { return image.pixel(o + QPoint(x, y)); };
        // The fill is laid over the outline: only the outer half of the pen stays black. The
        // triangle is not filled.
        QCOMPARE((QList<QRgb> {at(50, 50), at(-1, 50), at(250, 40), at(250, 0)}),
            (QList<QRgb> {qRgb(255, 0, 0), qRgb(0, 0, 0), qRgb(255, 255, 255), qRgb(0, 0, 0)}));
    }

    void textPressUnderMouse()
    {
        // Button, under the mouse, on the item, editing before, reported, editing after.
        const std::tuple<Qt::MouseButton, bool, bool, bool, QStringList, bool> cases[]
            = {{Qt::LeftButton, true, true, false, {"left"}, false},
                {Qt::LeftButton, true, true, true, {"left"}, true},
                {Qt::LeftButton, false, true, true, {}, false},
                {Qt::RightButton, true, true, true, {"right"}, false},
                {Qt::RightButton, true, false, true, {}, true}};
        for (const auto& [button, underMouse, onItem, editingBefore, expected, editingAfter] :
            cases) {
            QStringList seen;
            ViewFixture fixture;
            auto* item = fixture.add<CustomGraphicsTextItem>();
            item->setPlainText("note");
            item->setEditing(editingBefore);
            recordClicks(item, seen);
            QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
            fill(press, onItem ? QPointF(5, 5) : QPointF(-100, -100), button);
            item->mousePressEventUnderMouse(&press, underMouse);
            // A hidden item is never hit.
            item->setVisible(false);
            item->mousePressEventUnderMouse(&press, underMouse);
            QCOMPARE(seen, expected);
            QCOMPARE(item->isEditing(), editingAfter);
        }
    }

    void textItemEditing()
    {
        ViewFixture fixture(2.0);
        auto* item = fixture.add<CustomGraphicsTextItem>();
        QCOMPARE(item->font().pixelSize(),
            StyleManager::manager().getFontSize("@MEASUREMENT_LABEL_FONT_SIZE_3D"));
        // An empty item shows a caret until its first change.
        const QRect caret = pixelBox(fixture.render(), isYellow);
        QVERIFY2(caret.width() <= 2 && caret.height() >= 10, qPrintable(QDebug::toString(caret)));

        item->setEditing(true);
        QSignalSpy changed(item, &CustomGraphicsTextItem::textChanged);
        sendKey(fixture.scene, item, Qt::Key_A, "a");
        sendKey(fixture.scene, item, Qt::Key_B, "b");
        QCOMPARE(changed, (QList<QVariantList> {{QStringLiteral("a")}, {QStringLiteral("ab")}}));
        QVERIFY(pixelBox(fixture.render(), isYellow).width() > 2);
        // Return and Enter are taken but never break the line.
        QVERIFY(sendKey(fixture.scene, item, Qt::Key_Return, "\r")
            && sendKey(fixture.scene, item, Qt::Key_Enter, "\r"));
        QCOMPARE(changed.count(), 2);
        for (int i = 0; i < 2; ++i)
            sendKey(fixture.scene, item, Qt::Key_Backspace);
        QVERIFY(item->toPlainText().isEmpty());
        item->setEditing(false);
        QVERIFY(pixelBox(fixture.render(), isYellow).isEmpty());

        // At most 256 characters: further letters are refused but still taken.
        item->setEditing(true);
        item->setPlainText(QString(255, QLatin1Char('x')));
        sendKey(fixture.scene, item, Qt::Key_Y, "y");
        QVERIFY(sendKey(fixture.scene, item, Qt::Key_Z, "z"));
        QCOMPARE(item->toPlainText(), QLatin1Char('y') + QString(255, QLatin1Char('x')));
        sendKey(fixture.scene, item, Qt::Key_Backspace);
        QCOMPARE(item->toPlainText().size(), 255);

        // Pasted line breaks become blanks; a long paste is cut.
        item->setPlainText(QString());
        QGuiApplication::clipboard()->setText("one\ntwo\r\nthree");
        sendKey(fixture.scene, item, Qt::Key_V, QString(), Qt::ControlModifier);
        QCOMPARE(changed.last().at(0).toString(), QStringLiteral("one two three"));
        item->setPlainText(QString());
        QGuiApplication::clipboard()->setText(QString(300, QLatin1Char('q')));
        sendKey(fixture.scene, item, Qt::Key_V, QString(), Qt::ControlModifier);
        QCOMPARE(item->toPlainText(), QString(256, QLatin1Char('q')));

        // Typing needs editing switched on by the owner.
        item->setEditing(false);
        sendKey(fixture.scene, item, Qt::Key_C, "c");
        QCOMPARE(item->toPlainText(), QString(256, QLatin1Char('q')));

        // The shape keeps the text's size on screen.
        QCOMPARE(item->shape().boundingRect().size(), item->boundingRect().size() / 2.0);

        // Moves are reported only while editing; releases always.
        QSignalSpy moved(item, &CustomGraphicsTextItem::mouseMoved);
        QSignalSpy released(item, &CustomGraphicsTextItem::mouseReleased);
        QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
        for (bool editing : {false, true}) {
            item->setEditing(editing);
            item->mouseMoveEvent(&move);
            item->mouseReleaseEvent(&move);
        }
        QCOMPARE((QList {moved.count(), released.count()}), (QList<qsizetype> {1, 2}));
    }

    void simpleTextCentring()
    {
        // Centred, zoom-agnostic, zoom.
        const std::tuple<bool, bool, qreal> cases[] = {{true, true, 3.0}, {false, false, 1.0}};
        for (const auto& [centered, agnostic, zoom] : cases) {
            ViewFixture fixture(zoom);
            // No descenders: the glyphs' box ends on the baseline.
            auto* item
                = fixture.add<CustomGraphicsSimpleTextItem>("simple", nullptr, "HEX", centered);
            QFont font;
            font.setPixelSize(40);
            item->setFont(font);
            item->setUseZoomAgnostic(agnostic);

            const QRect glyphs = pixelBox(fixture.render(), [](QRgb p) { return qGray(p) < 100; });
            const QPoint origin = fixture.origin();
            // Drawn at 40 pixels whatever the zoom when zoom-agnostic.
            QVERIFY2(qAbs(glyphs.height() - 29) <= 3, qPrintable(QString::number(glyphs.height())));
            // Centred: shifted by half the glyphs' box, which starts at the first glyph's left
            // bearing and ends on the baseline, so the box's centre lands that bearing right of
            // the position. Otherwise the glyphs start at the position and end on it.
            const QRectF b = item->getPainterPath().boundingRect();
            const QPoint off = centered ? glyphs.center() - QPointF(b.left(), b.bottom()).toPoint()
                                        : QPoint(glyphs.left(), glyphs.bottom());
            QVERIFY(qAbs(off.x() - origin.x()) <= (centered ? 1 : 4)
                && qAbs(off.y() - origin.y()) <= 1);
        }
    }
};

QTEST_MAIN(tst_GraphicsItems)
#include "tst_graphicsitems.moc"
