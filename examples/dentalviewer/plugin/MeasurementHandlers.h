#pragma once

#include <guicore/action/ActionHandler.h>
#include <guicore/action/EmptyActionHandler.h>

#include <QList>
#include <QMetaObject>
#include <QPointF>
#include <functional>

class DentalWorkspace;
class Viewer2D;
struct Measurement;

// Common part of the tools that work in the current 2-D viewer: they take the scene's press, drag
// and release signals while they run, and give the scene back its items when they stop.
class ViewerToolHandler : public ActionHandler
{
    Q_OBJECT

public:
    explicit ViewerToolHandler(DentalWorkspace& workspace);

protected:
    void start() override;
    void stop() override;

    // Called once the tool has its viewer; false refuses the run.
    virtual void begin(Viewer2D& viewer) = 0;
    // Called at every stop; an unfinished measurement must be dropped here.
    virtual void end(Viewer2D& viewer) = 0;

    void track(const QMetaObject::Connection& connection) { m_connections.append(connection); }
    Viewer2D* viewer() const { return m_viewer; }
    DentalWorkspace& workspace() const { return m_workspace; }

private:
    DentalWorkspace& m_workspace;
    Viewer2D* m_viewer = nullptr;
    QList<QMetaObject::Connection> m_connections;
};

// Press, drag and release draw a line whose label shows its length in millimetres.
class LengthMeasurementHandler : public ViewerToolHandler
{
    Q_OBJECT

public:
    using ViewerToolHandler::ViewerToolHandler;

protected:
    void begin(Viewer2D& viewer) override;
    void end(Viewer2D& viewer) override;

private:
    Measurement* m_pending = nullptr;
};

// Clicks add corners; a double click or Enter closes the outline and shows its area.
class AreaMeasurementHandler : public ViewerToolHandler
{
    Q_OBJECT

public:
    using ViewerToolHandler::ViewerToolHandler;

protected:
    void begin(Viewer2D& viewer) override;
    void end(Viewer2D& viewer) override;

private:
    void close();

    Measurement* m_pending = nullptr;
    QList<QPointF> m_corners;
};

// A click places a text annotation and opens it for editing; the tool then ends.
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
