#include "MeasurementHandlers.h"

#include "DentalWorkspace.h"
#include "Viewer2D.h"

#include <guicore/action/Action.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>

#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QLineF>
#include <QTimer>

ViewerToolHandler::ViewerToolHandler(DentalWorkspace& workspace)
    : m_workspace(workspace)
{
}

void ViewerToolHandler::start()
{
    m_viewer = m_workspace.currentViewer();
    if (!m_viewer) {
        // The current view has no 2-D viewer (the tooth chart): nothing to measure on.
        stopCurrentAction();
        return;
    }
    // Outside interactive mode the scene reports presses and drags to us instead of letting
    // the items under the cursor take them.
    m_viewer->scene()->setInteractiveMode(false);
    begin(*m_viewer);
}

void ViewerToolHandler::stop()
{
    for (const auto& connection : std::as_const(m_connections))
        QObject::disconnect(connection);
    m_connections.clear();
    if (m_viewer) {
        end(*m_viewer);
        m_viewer->scene()->setInteractiveMode(true);
    }
    m_viewer = nullptr;
}

void LengthMeasurementHandler::begin(Viewer2D& viewer)
{
    GraphicsSceneExtra* scene = viewer.scene();
    track(connect(scene, &GraphicsSceneExtra::mousePressed, this,
        [this, &viewer](QGraphicsSceneMouseEvent* event) {
            if (event->button() != Qt::LeftButton || m_pending)
                return;
            const QPointF at = event->scenePos();
            m_pending = viewer.addMeasurement(QStringLiteral("length"), {at, at});
        }));
    auto follow = [this, &viewer](QGraphicsSceneMouseEvent* event) {
        if (!m_pending)
            return;
        m_pending->points[1] = event->scenePos();
        viewer.updateMeasurement(m_pending);
    };
    track(connect(scene, &GraphicsSceneExtra::dragStarted, this, follow));
    track(connect(scene, &GraphicsSceneExtra::dragMotion, this, follow));
    auto finish = [this, &viewer](QGraphicsSceneMouseEvent* event) {
        if (!m_pending || event->button() != Qt::LeftButton)
            return;
        m_pending->points[1] = event->scenePos();
        // A click without a drag is no measurement.
        if (QLineF(m_pending->points[0], m_pending->points[1]).length() < 1.0) {
            viewer.removeMeasurement(m_pending);
        } else {
            viewer.updateMeasurement(m_pending);
            setCanceled(false);
        }
        m_pending = nullptr;
    };
    track(connect(scene, &GraphicsSceneExtra::dragFinished, this, finish));
    track(connect(scene, &GraphicsSceneExtra::mouseReleased, this, finish));
}

void LengthMeasurementHandler::end(Viewer2D& viewer)
{
    if (m_pending)
        viewer.removeMeasurement(m_pending);
    m_pending = nullptr;
}

void AreaMeasurementHandler::begin(Viewer2D& viewer)
{
    GraphicsSceneExtra* scene = viewer.scene();
    scene->setMouseTracking(true);
    m_corners.clear();
    track(connect(scene, &GraphicsSceneExtra::mousePressed, this,
        [this, &viewer](QGraphicsSceneMouseEvent* event) {
            if (event->button() != Qt::LeftButton)
                return;
            m_corners.append(event->scenePos());
            QList<QPointF> shown = m_corners;
            shown.append(event->scenePos());
            if (!m_pending)
                m_pending = viewer.addMeasurement(QStringLiteral("area"), shown);
            m_pending->points = shown;
            viewer.updateMeasurement(m_pending);
        }));
    track(connect(scene, &GraphicsSceneExtra::mouseMoved, this, [this, &viewer](QPointF at) {
        if (!m_pending)
            return;
        m_pending->points.last() = at;
        viewer.updateMeasurement(m_pending);
    }));
    track(connect(scene, &GraphicsSceneExtra::mouseDoubleClicked, this,
        [this](Qt::MouseButtons, QPointF) { close(); }));
    track(connect(viewer.view(), &GraphicsViewExtra::keyPressed, this, [this](QKeyEvent* event) {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            close();
    }));
}

void AreaMeasurementHandler::close()
{
    if (!m_pending || !viewer())
        return;
    // A double click repeats its last corner; drop duplicates before judging the outline.
    QList<QPointF> corners;
    for (const QPointF& corner : std::as_const(m_corners)) {
        if (corners.isEmpty() || QLineF(corners.last(), corner).length() >= 1.0)
            corners.append(corner);
    }
    if (corners.size() < 3)
        return;
    m_pending->points = corners;
    viewer()->updateMeasurement(m_pending);
    m_pending = nullptr;
    m_corners.clear();
    setCanceled(false);
}

void AreaMeasurementHandler::end(Viewer2D& viewer)
{
    viewer.scene()->setMouseTracking(false);
    if (m_pending)
        viewer.removeMeasurement(m_pending);
    m_pending = nullptr;
    m_corners.clear();
}

void TextAnnotationHandler::begin(Viewer2D& viewer)
{
    track(connect(viewer.scene(), &GraphicsSceneExtra::mousePressed, this,
        [this, &viewer](QGraphicsSceneMouseEvent* event) {
            if (event->button() != Qt::LeftButton)
                return;
            Measurement* note
                = viewer.addMeasurement(QStringLiteral("text"), {event->scenePos()}, tr("Note"));
            setCanceled(false);
            // The tool ends on the next turn of the event loop, after the press is delivered,
            // so that the scene is interactive again before the note is edited.
            QTimer::singleShot(0, this, [this, note, &viewer] {
                stopCurrentAction();
                if (!viewer.measurements().contains(note))
                    return;
                // The scene hands every key press to its text items itself. A text item takes
                // the focus when made, and with it the stock delivery would type each key a
                // second time; editing mode alone is what it needs.
                note->textItem->setEditing(true);
                note->textItem->clearFocus();
            });
        }));
}

void TextAnnotationHandler::end(Viewer2D&) { }

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
