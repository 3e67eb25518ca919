#pragma once

#include "DentalHost.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QtPlugin>

class QGraphicsView;
class QuickGraphicsSceneItem;
class QWidget;
class SolutionManager;
class View;

// What was read of a document file.
struct DocumentLoad
{
    int read = 0;
    // Measurements of the file that could not be read; -1 when the file is cut short before it
    // says how many it holds.
    int lost = 0;
    // The file is not as it was written: broken, or with entries that are no measurements.
    bool damaged = false;
};

// What the host asks of the dental solution beyond SolutionPluginInterface. The host never links
// the plug-in: it reaches it through this abstract face, which the plug-in object implements.
class DentalSolutionApi
{
public:
    virtual ~DentalSolutionApi() = default;

    // The id of the solution the plug-in contributes.
    virtual QString solutionId() const = 0;

    // Registers the solution, its steps, action groups and action lists with the manager, after the
    // plug-in's actions, features and views were added to it by the host.
    virtual void buildSolution(SolutionManager& manager) = 0;

    // The host; borrowed, set once after loading.
    virtual void setHost(DentalHost* host) = 0;

    // The data the views show (the measurements with their geometry and text) as JSON; the ui
    // state tree refers to the measurements by their ids.
    virtual QJsonObject saveDocument() const = 0;
    // Replaces the document with what can be read of a document file's bytes.
    virtual DocumentLoad loadDocument(const QByteArray& bytes) = 0;

    // The list of the document's measurements, for a dock of the host. Owned by the plug-in,
    // which deletes it when it closes; the host may reparent it meanwhile.
    virtual QWidget* measurementsPanel() = 0;

    // Takes the colours of the style again after the host changed the palette.
    virtual void restyle() = 0;

    // The graphics view of the 2-D viewer shown by the given view, or null when it has none.
    // Borrowed: the view owns it.
    virtual QGraphicsView* graphicsViewOf(View* view) const = 0;

    // The Quick scene host shown by the given view, or null when it has none. Borrowed: the
    // view's page owns it.
    virtual QuickGraphicsSceneItem* sceneHostOf(View* view) const = 0;

    // The current tooth numbering, "FDI" or "UNIV".
    virtual QString notation() const = 0;
    virtual void setNotation(const QString& notation) = 0;

    // The tooth selected in the tooth chart, by its name in the current numbering; empty when
    // none is.
    virtual QString selectedTooth() const = 0;

    // For checks of scripted runs: the selection and the undo history, and what the given view
    // draws (labels with their text colour and box, in the coordinates of its graphics view's
    // viewport; the tooth chart's teeth and labels in its scene host's view).
    virtual QJsonObject debugState() const = 0;
    virtual QJsonArray drawnLabels(View* view) const = 0;
};

#define DentalSolutionApi_iid "org.guicore.examples.DentalSolutionApi/2.0"
Q_DECLARE_INTERFACE(DentalSolutionApi, DentalSolutionApi_iid)
