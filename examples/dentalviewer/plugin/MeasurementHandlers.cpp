#include "MeasurementHandlers.h"

#include "DentalWorkspace.h"
#include "Viewer2D.h"

#include <guicore/action/Action.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>

#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QLineF>
#include <QTimer>
#include <QUuid>

namespace {

// Points closer than this, in image pixels, are one point: a click, or a double click's repeat.
constexpr double SAME_POINT = 1.0;

} // namespace

ViewerToolHandler::ViewerToolHandler(DentalWorkspace& workspace)
    : m_workspace(workspace)
{
}

void ViewerToolHandler::start()
{
    m_viewer = m_workspace.currentViewer();
    if (!m_viewer) {
        // The tools are disabled where there is no image; a run started anyway says why.
        m_workspace.showStatus(
            tr("%1 needs an image: switch to the panoramic or a cross-section.")
                .arg(getCurrentAction() ? getCurrentAction()->getName() : QString()),
            5000);
        stopCurrentAction();
        return;
    }
    m_viewer->endNoteEditing();
    // Outside interactive mode the scene reports presses and drags to us instead of letting
    // the items under the cursor take them.
    m_viewer->scene()->setInteractiveMode(false);
    m_viewer->scene()->setMouseTracking(true);
    begin(*m_viewer);
}

void ViewerToolHandler::stop()
{
    for (const auto& connection : std::as_const(m_connections))
        QObject::disconnect(connection);
    m_connections.clear();
    if (m_viewer) {
        end(*m_viewer);
        m_viewer->clearPreview();
        m_viewer->scene()->setMouseTracking(false);
        m_viewer->scene()->setInteractiveMode(true);
        // A note placed by the tool keeps its own hint.
        m_workspace.showStatus(m_viewer->isEditingNote() ? Viewer2D::noteHint() : QString());
    }
    m_viewer = nullptr;
}

MeasurementData ViewerToolHandler::newMeasurement(
    const QString& kind, const QList<QPointF>& points) const
{
    MeasurementData data;
    data.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    data.viewer = m_viewer->getId();
    data.kind = kind;
    data.points = points;
    data.slice = m_viewer->slice();
    return data;
}

void ViewerToolHandler::commitMeasurement(
    const MeasurementData& data, const QString& undoText, const QString& status)
{
    m_viewer->clearPreview();
    m_workspace.addMeasurement(data, undoText);
    m_workspace.selectMeasurement(data.id);
    setCanceled(false);
    m_workspace.showStatus(status.arg(data.valueText(m_viewer->pixelSpacing())));
}

bool ViewerToolHandler::acceptPoint(const QPointF& scenePos, const QString& what) const
{
    if (m_viewer->isOnImage(scenePos))
        return true;
    m_workspace.showStatus(
        tr("%1 outside the image measures nothing: click on the image.").arg(what), 5000);
    return false;
}

// --- Length ---------------------------------------------------------------------------------

void LengthMeasurementHandler::begin(Viewer2D& viewer)
{
    m_ends.clear();
    m_dragged = false;
    workspace().showStatus(
        tr("Length: drag from one end to the other, or click both ends. Escape ends the tool."));
    GraphicsSceneExtra* scene = viewer.scene();
    track(
        connect(scene, &GraphicsSceneExtra::mousePressed, this, &LengthMeasurementHandler::press));
    auto drag = [this](QGraphicsSceneMouseEvent* event) {
        if (m_ends.size() != 1)
            return;
        m_dragged = true;
        follow(event->scenePos());
    };
    track(connect(scene, &GraphicsSceneExtra::dragStarted, this, drag));
    track(connect(scene, &GraphicsSceneExtra::dragMotion, this, drag));
    track(connect(scene, &GraphicsSceneExtra::mouseMoved, this, [this](QPointF at) {
        if (m_ends.size() == 1 && !m_dragged)
            follow(at);
    }));
    track(connect(
        scene, &GraphicsSceneExtra::dragFinished, this, [this](QGraphicsSceneMouseEvent* event) {
            if (m_ends.size() == 1 && m_dragged && event->button() == Qt::LeftButton)
                finish(event->scenePos());
        }));
    track(connect(
        scene, &GraphicsSceneExtra::mouseReleased, this, [this](QGraphicsSceneMouseEvent* event) {
            // A click places the first end; the second click places the other.
            if (m_ends.size() == 1 && event->button() == Qt::LeftButton)
                workspace().showStatus(tr("Length: click the other end. Escape ends the tool."));
        }));
}

void LengthMeasurementHandler::press(QGraphicsSceneMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_ends.size() == 1) {
        finish(event->scenePos());
        return;
    }
    if (!acceptPoint(event->scenePos(), tr("A length")))
        return;
    m_ends = {event->scenePos()};
    m_dragged = false;
    follow(event->scenePos());
}

void LengthMeasurementHandler::follow(const QPointF& scenePos)
{
    viewer()->setPreview(newMeasurement(QStringLiteral("length"),
                             {m_ends.first(), viewer()->clampToImage(scenePos)}),
        1);
}

void LengthMeasurementHandler::finish(const QPointF& scenePos)
{
    const QPointF other = viewer()->clampToImage(scenePos);
    if (QLineF(m_ends.first(), other).length() < SAME_POINT) {
        // A drag that went nowhere is a click: the other end is still to come.
        m_dragged = false;
        return;
    }
    const MeasurementData data = newMeasurement(QStringLiteral("length"), {m_ends.first(), other});
    m_ends.clear();
    m_dragged = false;
    commitMeasurement(data, tr("Add length"),
        tr("Length %1 added. Drag or click for another; Escape ends the tool."));
}

void LengthMeasurementHandler::end(Viewer2D&)
{
    m_ends.clear();
    m_dragged = false;
}

// --- Area -----------------------------------------------------------------------------------

void AreaMeasurementHandler::begin(Viewer2D& viewer)
{
    m_corners.clear();
    workspace().showStatus(tr("Area: click the corners; double-click or Enter closes the "
                              "outline, Backspace takes a corner back, Escape ends the tool."));
    GraphicsSceneExtra* scene = viewer.scene();
    track(connect(
        scene, &GraphicsSceneExtra::mousePressed, this, [this](QGraphicsSceneMouseEvent* event) {
            if (event->button() == Qt::LeftButton)
                addCorner(event->scenePos());
        }));
    track(connect(scene, &GraphicsSceneExtra::mouseMoved, this, [this](QPointF at) {
        m_mouse = at;
        showOutline(at);
    }));
    track(connect(scene, &GraphicsSceneExtra::mouseDoubleClicked, this,
        [this](Qt::MouseButtons, QPointF) { close(); }));
    track(connect(viewer.view(), &GraphicsViewExtra::keyPressed, this, [this](QKeyEvent* event) {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            close();
        } else if (event->key() == Qt::Key_Backspace && !m_corners.isEmpty()) {
            m_corners.removeLast();
            showOutline(m_mouse);
        }
    }));
}

void AreaMeasurementHandler::addCorner(const QPointF& scenePos)
{
    if (!acceptPoint(scenePos, tr("A corner")))
        return;
    // A double click repeats its corner.
    if (!m_corners.isEmpty() && QLineF(m_corners.last(), scenePos).length() < SAME_POINT)
        return;
    if (m_corners.size() > 1 && geometry::segmentCrossesOutline(m_corners, scenePos)) {
        workspace().showStatus(tr("A corner there would make the outline cross itself, and a "
                                  "crossed outline has no area: click elsewhere."),
            5000);
        return;
    }
    m_corners.append(scenePos);
    m_mouse = scenePos;
    showOutline(scenePos);
}

void AreaMeasurementHandler::showOutline(const QPointF& mouse)
{
    if (m_corners.isEmpty()) {
        viewer()->clearPreview();
        return;
    }
    QList<QPointF> points = m_corners;
    points.append(viewer()->clampToImage(mouse));
    // The value is shown only for an outline that has one.
    const bool simple = points.size() > 2 && !geometry::crossesItself(points);
    viewer()->setPreview(
        newMeasurement(simple ? QStringLiteral("area") : QStringLiteral("outline"), points),
        int(m_corners.size()));
}

void AreaMeasurementHandler::close()
{
    if (m_corners.size() < 3) {
        workspace().showStatus(tr("An area needs at least three corners."), 5000);
        return;
    }
    if (geometry::crossesItself(m_corners)) {
        workspace().showStatus(tr("Closed here the outline would cross itself, and a crossed "
                                  "outline has no area: add a corner or take one back with "
                                  "Backspace."),
            8000);
        return;
    }
    const MeasurementData data = newMeasurement(QStringLiteral("area"), m_corners);
    m_corners.clear();
    commitMeasurement(data, tr("Add area"),
        tr("Area %1 added. Click the corners of another; Escape ends the tool."));
}

void AreaMeasurementHandler::end(Viewer2D&)
{
    m_corners.clear();
}

// --- Text -----------------------------------------------------------------------------------

void TextAnnotationHandler::begin(Viewer2D& viewer)
{
    workspace().showStatus(tr("Text: click on the image where the note goes. Escape ends the "
                              "tool."));
    track(connect(viewer.scene(), &GraphicsSceneExtra::mousePressed, this,
        [this, &viewer](QGraphicsSceneMouseEvent* event) {
            if (event->button() != Qt::LeftButton || !acceptPoint(event->scenePos(), tr("A note")))
                return;
            viewer.createNote(event->scenePos());
            setCanceled(false);
            // The tool ends on the next turn of the event loop, after the press is delivered,
            // so that the scene is interactive again while the note is typed.
            QTimer::singleShot(0, this, [this] { stopCurrentAction(); });
        }));
}

void TextAnnotationHandler::end(Viewer2D&) { }

// --- Commands -------------------------------------------------------------------------------

CommandHandler::CommandHandler(std::function<void(ActionHandler&)> command)
    : m_command(std::move(command))
{
}

void CommandHandler::start()
{
    if (m_command)
        m_command(*this);
    setCanceled(false);
    EmptyActionHandler::start();
}
