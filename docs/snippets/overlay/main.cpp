// The program of the guide "Overlay tools on a 2-D viewer": a length tool placed with two clicks
// on a GraphicsSceneExtra, with a line, a label and a dragger, cancelled with Escape. Exits with
// 1 when the tool does not behave as the guide says.

#include <guicore/action/ActionHandler.h>
#include <guicore/action/SingleAction.h>
#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/graphics/items/CustomGraphicsPathItem.h>
#include <guicore/graphics/items/CustomGraphicsPointDraggerItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <QApplication>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QLineF>
#include <QPen>
#include <QPointer>

//! [tool]
// Measures a distance with two clicks. The items belong to the scene; the tool keeps guarded
// pointers so that it notices items someone else deleted.
class LengthTool : public ActionHandler
{
public:
    explicit LengthTool(GraphicsSceneExtra& scene)
        : m_scene(scene)
    {
    }

protected:
    void start() override
    {
        connect(&m_scene, &GraphicsSceneExtra::mousePressed, this, &LengthTool::pressed);
    }

    void stop() override
    {
        disconnect(&m_scene, &GraphicsSceneExtra::mousePressed, this, &LengthTool::pressed);
        if (isCanceled()) // Escape, a right click, or a view switch before the second click
            delete m_line;
        m_line = nullptr;
    }

private:
    void pressed(QGraphicsSceneMouseEvent* event)
    {
        if (event->button() != Qt::LeftButton)
            return;
        if (!m_line) {
            m_start = event->scenePos();
            m_line = new CustomGraphicsPathItem(QStringLiteral("length"));
            const QColor color
                = StyleManager::manager().getColor(QStringLiteral("@MEASUREMENT_LINE_COLOR"));
            m_line->setPen(QPen(color, 0)); // width 0: one screen pixel at any zoom
            m_scene.addItem(m_line);
            return;
        }
        const QLineF segment(m_start, event->scenePos()); // scene units: image pixels
        QPainterPath path(segment.p1());
        path.lineTo(segment.p2());
        m_line->setPainterPath(path);

        // Children of the line: they move and die with it.
        auto* label = new CustomGraphicsLabelItem(QStringLiteral("length.label"), m_line);
        label->setText(QStringLiteral("%1 px").arg(segment.length(), 0, 'f', 1));
        label->setPos(segment.center());
        auto* end = new CustomGraphicsPointDraggerItem(QStringLiteral("length.end"), m_line);
        end->setPos(segment.p2());

        setCanceled(false); // the measurement is complete
        stopCurrentAction();
    }

    GraphicsSceneExtra& m_scene;
    QPointer<CustomGraphicsPathItem> m_line;
    QPointF m_start;
};
//! [tool]

static void click(QGraphicsScene& scene, const QPointF& at)
{
    for (QEvent::Type type : {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseRelease}) {
        QGraphicsSceneMouseEvent event(type);
        event.setScenePos(at);
        event.setButton(Qt::LeftButton);
        event.setButtons(type == QEvent::GraphicsSceneMousePress ? Qt::LeftButton : Qt::NoButton);
        QCoreApplication::sendEvent(&scene, &event);
    }
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    StyleManager::createManager(StyleManagerDataProvider()); // labels take fonts from the style

    //! [action]
    GraphicsSceneExtra scene;
    LengthTool tool(scene);
    SingleAction length(QStringLiteral("tools.length"), QStringLiteral("Length"),
        QStringLiteral("Measure a distance"), QIcon());
    length.setCheckable(true); // stays active until the second click
    length.setActionHandler(&tool);
    length.enableStopWithEventFilter(); // Escape and a right click cancel it
    //! [action]

    // First try: one click, then Escape.
    length.start(false);
    click(scene, QPointF(10, 10));
    //! [escape]
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&scene, &escape); // any receiver: the tool watches the application
    //! [escape]
    bool ok = !length.isActive() && scene.items().isEmpty() && escape.isAccepted();

    // Second try: two clicks.
    length.start(false);
    click(scene, QPointF(10, 10));
    click(scene, QPointF(40, 50));
    int labels = 0;
    for (QGraphicsItem* item : scene.items()) {
        if (auto* label = dynamic_cast<CustomGraphicsLabelItem*>(item))
            labels += label->getTextItem()->getText() == QLatin1String("50.0 px") ? 1 : 0;
    }
    ok = ok && !length.isActive() && labels == 1;

    scene.clear();
    StyleManager::deleteManager();
    if (!ok)
        qCritical("the length tool did not behave as the guide says");
    return ok ? 0 : 1;
}
