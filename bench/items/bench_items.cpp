// Frame time of 1,000 labels and 1,000 zoom-agnostic ellipses in one zoomed view, rendered into a
// QImage, against 1,000 stock QGraphicsSimpleTextItems and QGraphicsEllipseItems in the same run.
//
// Two render paths are timed: QGraphicsView::render() into a painter on the image, and the
// viewport's own paint event rendered into the image (the path an on-screen frame takes). Each
// result is the median frame time, the frames of the two sides rendered in turn; one BENCH row per
// comparison, nothing is asserted.
//
// The library's items are drawn in the library's scene (GraphicsSceneExtra, which keeps no item
// index) and the stock items in a stock QGraphicsScene, as each would be used. One more row,
// without a goal, shows labels in a stock scene with its default BSP index: Qt looks up every
// part of an item that ignores transformations in a linear list there, so the cost of many
// labels grows with the square of their number.
//
//     bench_items [frames]          (offscreen platform unless QT_QPA_PLATFORM says otherwise)

#include <guicore/graphics/items/CustomGraphicsEllipseItem.h>
#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <BenchReport.h>

#include <QApplication>
#include <QGraphicsEllipseItem>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>
#include <QPainter>
#include <QRandomGenerator>

#include <functional>
#include <memory>

namespace {

constexpr int itemCount = 1000;
constexpr int viewSize = 1000;
constexpr qreal zoom = 2.0;

enum class RenderPath { ViewRender, ViewportPaint };
enum class SceneKind { Library, Stock };

using Populate = std::function<void(QGraphicsScene&, QRandomGenerator&)>;

QPointF randomPosition(QRandomGenerator& random)
{
    return QPointF(random.bounded(viewSize / zoom), random.bounded(viewSize / zoom));
}

QString measurement(int i)
{
    return QStringLiteral("%1.%2 mm").arg(i % 97).arg(i % 10);
}

/// A populated scene shown in a zoomed view, and the image its frames are rendered into.
class Frame
{
public:
    Frame(SceneKind kind, const Populate& populate)
        : scene(kind == SceneKind::Library ? std::make_unique<GraphicsSceneExtra>()
                                           : std::make_unique<QGraphicsScene>())
        , image(viewSize, viewSize, QImage::Format_ARGB32_Premultiplied)
    {
        QRandomGenerator random(42); // the same positions for both kinds of item
        populate(*scene, random);
        view = std::make_unique<QGraphicsView>(scene.get());
        view->setFrameShape(QFrame::NoFrame);
        view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view->setRenderHint(QPainter::Antialiasing, true);
        view->resize(viewSize, viewSize);
        view->setTransform(QTransform::fromScale(zoom, zoom));
        view->setSceneRect(0, 0, viewSize / zoom, viewSize / zoom);
    }

    /// One frame. The warm-up frame also lets zoom-agnostic items settle their geometry.
    void render(RenderPath path)
    {
        image.fill(Qt::black);
        if (path == RenderPath::ViewportPaint) {
            view->viewport()->render(&image);
        } else {
            QPainter painter(&image);
            view->render(&painter, QRectF(image.rect()), view->viewport()->rect());
        }
    }

private:
    std::unique_ptr<QGraphicsScene> scene;
    std::unique_ptr<QGraphicsView> view;
    QImage image;
};

/// Median nanoseconds per frame of the two, rendered in turn.
std::pair<double, double> frameTimes(Frame& ours, Frame& stock, RenderPath path, int frames)
{
    return bench::pairedMedianNanoseconds(
        [&] { ours.render(path); }, [&] { stock.render(path); }, frames);
}

void labels(QGraphicsScene& scene, QRandomGenerator& random)
{
    for (int i = 0; i < itemCount; ++i) {
        auto* label = new CustomGraphicsLabelItem(QStringLiteral("label%1").arg(i));
        scene.addItem(label);
        label->setText(measurement(i));
        label->setPos(randomPosition(random));
    }
}

void stockTexts(QGraphicsScene& scene, QRandomGenerator& random)
{
    QFont font;
    font.setPixelSize(12);
    for (int i = 0; i < itemCount; ++i) {
        auto* text = scene.addSimpleText(measurement(i), font);
        text->setBrush(Qt::yellow);
        text->setFlag(QGraphicsItem::ItemIgnoresTransformations, true);
        text->setPos(randomPosition(random));
    }
}

void ellipses(QGraphicsScene& scene, QRandomGenerator& random)
{
    for (int i = 0; i < itemCount; ++i) {
        auto* ellipse = new CustomGraphicsEllipseItem(5.0f, 5.0f);
        ellipse->setUseZoomAgnostic(true);
        ellipse->setPen(QPen(Qt::green, 0));
        ellipse->setBrush(Qt::red);
        scene.addItem(ellipse);
        ellipse->setPos(randomPosition(random));
    }
}

void stockEllipses(QGraphicsScene& scene, QRandomGenerator& random)
{
    for (int i = 0; i < itemCount; ++i) {
        // The same on-screen size: a radius of 5 pixels at the view's zoom.
        auto* ellipse = scene.addEllipse(QRectF(-5 / zoom, -5 / zoom, 10 / zoom, 10 / zoom),
            QPen(Qt::green, 0), QBrush(Qt::red));
        ellipse->setPos(randomPosition(random));
    }
}

void compare(const QString& name, const Populate& ours, const QString& stockName,
    const Populate& stock, double goal, int frames)
{
    Frame oursFrame(SceneKind::Library, ours);
    Frame stockFrame(SceneKind::Stock, stock);
    for (RenderPath path : {RenderPath::ViewRender, RenderPath::ViewportPaint}) {
        const bool viewRender = path == RenderPath::ViewRender;
        const auto [oursNs, stockNs] = frameTimes(oursFrame, stockFrame, path, frames);
        bench::report(
            QStringLiteral("items.%1.%2").arg(name, viewRender ? "view_render" : "viewport_paint"),
            oursNs, stockNs, goal,
            QStringLiteral("%1 %2, %3 frame in a %4x%4 view at %5x zoom")
                .arg(itemCount)
                .arg(stockName, viewRender ? "QGraphicsView::render" : "viewport paint event")
                .arg(viewSize)
                .arg(zoom));
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int frames = argc > 1 ? qMax(1, QString::fromLocal8Bit(argv[1]).toInt()) : 20;
    StyleManager::createManager(StyleManagerDataProvider());

    compare(QStringLiteral("labels"), labels, QStringLiteral("QGraphicsSimpleTextItems"),
        stockTexts, 3.0, frames);
    Frame labelsInStockScene(SceneKind::Stock, labels);
    Frame stockTextFrame(SceneKind::Stock, stockTexts);
    const auto [bspLabelsNs, bspTextsNs]
        = frameTimes(labelsInStockScene, stockTextFrame, RenderPath::ViewRender, frames);
    bench::report(QStringLiteral("items.labels.view_render.bsp_index"), bspLabelsNs, bspTextsNs,
        0.0,
        QStringLiteral("labels and QGraphicsSimpleTextItems both in a stock scene with the BSP "
                       "index, QGraphicsView::render frame"));
    compare(QStringLiteral("ellipses"), ellipses, QStringLiteral("QGraphicsEllipseItems"),
        stockEllipses, 1.5, frames);

    StyleManager::deleteManager();
    return 0;
}
