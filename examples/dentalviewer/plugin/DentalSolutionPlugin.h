#pragma once

#include "DentalSolutionApi.h"

#include <guicore/solution/SolutionPluginInterface.h>

#include <QObject>
#include <QPointer>
#include <memory>

class DentalWorkspace;
class SolutionStep;

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
    void setDialogParent(QWidget* parent) override;
    QJsonObject saveDocument() const override;
    bool loadDocument(const QJsonObject& document) override;
    QGraphicsView* graphicsViewOf(View* view) const override;
    QuickGraphicsSceneItem* sceneHostOf(View* view) const override;
    QString notation() const override;
    void setNotation(const QString& notation) override;
    QString selectedTooth() const override;

private:
    void exportSnapshot(const QString& directory);
    void showPreferences();

    std::unique_ptr<DentalWorkspace> m_workspace;
    bool m_numberingKindRegistered = false;
    std::unique_ptr<SolutionStep> m_step;
    std::vector<std::unique_ptr<QObject>> m_handlers;
    QPointer<QWidget> m_dialogParent;
};
