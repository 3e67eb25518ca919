#pragma once

#include <QJsonObject>
#include <QString>
#include <QtPlugin>

class QGraphicsView;
class QuickGraphicsSceneItem;
class QWidget;
class SolutionManager;
class View;

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

    // The parent widget for the plug-in's dialogs; borrowed, may be null.
    virtual void setDialogParent(QWidget* parent) = 0;

    // The data the views show (the measurements with their geometry and text) as JSON; the ui
    // state tree refers to the measurements by their ids.
    virtual QJsonObject saveDocument() const = 0;
    virtual bool loadDocument(const QJsonObject& document) = 0;

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
};

#define DentalSolutionApi_iid "org.guicore.examples.DentalSolutionApi/1.0"
Q_DECLARE_INTERFACE(DentalSolutionApi, DentalSolutionApi_iid)
