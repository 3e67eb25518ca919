#pragma once

#include "MeasurementData.h"

#include <guicore/action/ActionHandler.h>
#include <guicore/action/EmptyActionHandler.h>

#include <QList>
#include <QMetaObject>
#include <QPointF>
#include <functional>

class DentalWorkspace;
class QGraphicsSceneMouseEvent;
class Viewer2D;

// Common part of the tools that work in the current 2-D viewer: they take the scene's press, drag
// and release signals while they run, tell the person in the status bar what to do next, and give
// the scene back its items when they stop.
class ViewerToolHandler : public ActionHandler
{
    Q_OBJECT

public:
    explicit ViewerToolHandler(DentalWorkspace& workspace);

protected:
    void start() override;
    void stop() override;

    // Called once the tool has its viewer.
    virtual void begin(Viewer2D& viewer) = 0;
    // Called at every stop; an unfinished measurement must be dropped here.
    virtual void end(Viewer2D& viewer) = 0;

    void track(const QMetaObject::Connection& connection) { m_connections.append(connection); }
    Viewer2D* viewer() const { return m_viewer; }
    DentalWorkspace& workspace() const { return m_workspace; }
    // A new measurement of the viewer, on its current slice.
    MeasurementData newMeasurement(const QString& kind, const QList<QPointF>& points) const;
    // Adds data to the document as one undo step named undoText, selects it, marks the run as
    // completed and tells the person; status holds %1 for the measured value.
    void commitMeasurement(
        const MeasurementData& data, const QString& undoText, const QString& status);
    // False, with a word to the person, for a point outside the image: a measurement in the
    // letterbox around the image measures nothing.
    bool acceptPoint(const QPointF& scenePos, const QString& what) const;

private:
    DentalWorkspace& m_workspace;
    Viewer2D* m_viewer = nullptr;
    QList<QMetaObject::Connection> m_connections;
};

// A length: press, drag and release, or a click on each end. The free end follows the mouse and
// stops at the image's edge.
class LengthMeasurementHandler : public ViewerToolHandler
{
    Q_OBJECT

public:
    using ViewerToolHandler::ViewerToolHandler;

protected:
    void begin(Viewer2D& viewer) override;
    void end(Viewer2D& viewer) override;

private:
    void press(QGraphicsSceneMouseEvent* event);
    void follow(const QPointF& scenePos);
    void finish(const QPointF& scenePos);

    // The ends while one is placed: empty, the first end only, or both.
    QList<QPointF> m_ends;
    bool m_dragged = false;
};

// Clicks add corners, with the segment to the mouse and a marker on each corner shown; a
// double click or Enter closes the outline, Backspace takes the last corner back. A corner or a
// closing that would make the outline cross itself is refused: such an outline has no area.
class AreaMeasurementHandler : public ViewerToolHandler
{
    Q_OBJECT

public:
    using ViewerToolHandler::ViewerToolHandler;

protected:
    void begin(Viewer2D& viewer) override;
    void end(Viewer2D& viewer) override;

private:
    void addCorner(const QPointF& scenePos);
    void showOutline(const QPointF& mouse);
    void close();

    QList<QPointF> m_corners;
    QPointF m_mouse;
};

// A click places a note and opens it for editing; the tool then ends.
class TextAnnotationHandler : public ViewerToolHandler
{
    Q_OBJECT

public:
    using ViewerToolHandler::ViewerToolHandler;

protected:
    void begin(Viewer2D& viewer) override;
    void end(Viewer2D& viewer) override;
};

// A one-shot command: runs a function, then ends a non-checkable action as the empty handler does.
class CommandHandler : public EmptyActionHandler
{
    Q_OBJECT

public:
    explicit CommandHandler(std::function<void(ActionHandler&)> command);

    // The parameter the action was started with, for the command.
    QVariant parameter(const QString& key) const { return getParameter(key); }

protected:
    void start() override;

private:
    std::function<void(ActionHandler&)> m_command;
};
