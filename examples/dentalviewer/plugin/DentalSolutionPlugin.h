#pragma once

#include "DentalSolutionApi.h"

#include <guicore/solution/SolutionPluginInterface.h>

#include <QObject>
#include <QPointer>
#include <memory>

class Action;
class CrossSectionsView;
class DentalWorkspace;
class MeasurementsPanel;
class SolutionStep;
class ToothChartView;

// The dental solution: its tools, views and solution layout, loaded by the host at run time.
class DentalSolutionPlugin : public QObject,
                             public SolutionPluginInterface,
                             public DentalSolutionApi
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID DentalSolutionApi_iid FILE "DentalSolutionPlugin.json")
    Q_INTERFACES(DentalSolutionApi)

public:
    DentalSolutionPlugin();
    ~DentalSolutionPlugin() override;

    // SolutionPluginInterface
    void initialize() override;
    void close() override;
    void loadActions() override;
    void loadFeatures() override;
    void loadViews() override;

    // DentalSolutionApi
    QString solutionId() const override;
    void buildSolution(SolutionManager& manager) override;
    void setHost(DentalHost* host) override;
    QJsonObject saveDocument() const override;
    DocumentLoad loadDocument(const QByteArray& bytes) override;
    QWidget* measurementsPanel() override;
    void restyle() override;
    QGraphicsView* graphicsViewOf(View* view) const override;
    QuickGraphicsSceneItem* sceneHostOf(View* view) const override;
    QString notation() const override;
    void setNotation(const QString& notation) override;
    QString selectedTooth() const override;
    QJsonObject debugState() const override;
    QJsonArray drawnLabels(View* view) const override;

private:
    // Why the action cannot run now, for its tooltip; empty when it can.
    QString unavailability(const QString& id) const;
    void updateActions();
    void exportSnapshot(const QString& directory);
    void showPreferences();
    // Brings the measurement on screen: its view, and its slice in a cross-section.
    void reveal(const QString& id);
    void followTooth(int tooth);
    CrossSectionsView* crossSections() const;
    ToothChartView* toothChart() const;

    std::unique_ptr<DentalWorkspace> m_workspace;
    bool m_nodeKindsRegistered = false;
    std::unique_ptr<SolutionStep> m_step;
    std::vector<std::unique_ptr<QObject>> m_handlers;
    DentalHost* m_host = nullptr;
    // Deleted here when the plug-in closes, or before by a dock that took it.
    QPointer<MeasurementsPanel> m_panel;
};
