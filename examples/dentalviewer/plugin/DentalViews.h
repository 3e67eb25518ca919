#pragma once

#include <guicore/view/MultiView.h>
#include <guicore/view/View.h>
#include <guicore/view/ViewManager.h>
#include <guicore/view/ViewNodeInteractor.h>

#include "SyntheticImages.h"

#include <QJsonArray>
#include <QLineF>
#include <QList>
#include <QPointer>
#include <functional>

class CrossDragger;
class CrossedLinesManipulationGraphicsItemGroup;
class CustomGraphicsItem;
class CustomGraphicsLabelItem;
class CustomGraphicsLineSetItem;
class DentalWorkspace;
class GraphicsSceneExtra;
class QuickGraphicsSceneItem;
class ToothChartBridge;
class Viewer2D;
namespace ui {
class Viewer2DNode;
}

// Runs the one 2-D viewer of a view: while the view runs, its viewer is the workspace's current
// one, the viewer the measurement tools work in. The view owns its manager.
class Viewer2DViewManager : public ViewManager
{
    Q_OBJECT

public:
    Viewer2DViewManager(DentalWorkspace& workspace, Viewer2D* viewer);

    void start() override;
    void stop() override;

private:
    DentalWorkspace& m_workspace;
    QPointer<Viewer2D> m_viewer;
};

// A view whose screen is one 2-D viewer, run by a Viewer2DViewManager.
class Viewer2DView : public View
{
public:
    Viewer2DView(const QString& id, const QString& name, DentalWorkspace& workspace);
    ~Viewer2DView() override;

    void reset() override;
    std::unique_ptr<ui::ViewNodeInteractor> createNodeInteractor() override;

    // Borrowed: the view owns its viewer.
    Viewer2D* viewer() const { return m_viewer; }
    DentalWorkspace& workspace() const { return m_workspace; }

    // The node that records the viewer; a kind of viewer with more state than its zoom box
    // returns a more specific node kind. Ownership passes to the caller.
    virtual std::unique_ptr<ui::Viewer2DNode> createViewerNode() const;
    // Restores what createViewerNode() recorded beyond the zoom box and the measurements.
    virtual void applyViewerNode(const ui::Viewer2DNode& node);
    // Takes the colours of the style again.
    virtual void restyle();

private:
    void createWidget() override;

    DentalWorkspace& m_workspace;
    QPointer<Viewer2D> m_viewer;
};

// Records a 2-D view as a view node holding a 2-D viewer node (its zoom box), which holds one
// measurement node per measurement (its label positions), and applies such a tree back.
class Viewer2DNodeInteractor : public ui::ViewNodeInteractor
{
public:
    explicit Viewer2DNodeInteractor(Viewer2DView& view);
    std::unique_ptr<ui::Node> generate() override;
    void apply(ui::Node* node) override;

private:
    Viewer2DView& m_view;
};

// The synthetic panoramic radiograph with tooth numbers in the chosen notation, and a line where
// each cross-section cuts the arch.
class PanoramicView : public Viewer2DView
{
public:
    // Where a cross-section cuts: its name, its place along the arch (0 to 1), and whether it is
    // the one the cross-sections view shows.
    struct Cut
    {
        QString name;
        double archPosition = 0.0;
        bool shown = false;
    };

    explicit PanoramicView(DentalWorkspace& workspace);

    void start() override;
    void restyle() override;
    // Where the cuts come from; asked whenever one may have moved.
    void setCuts(std::function<QList<Cut>()> cuts);
    void updateCuts();

private:
    void updateToothLabels();

    QList<CustomGraphicsLabelItem*> m_toothLabels;
    std::function<QList<Cut>()> m_cuts;
    QList<CustomGraphicsLineSetItem*> m_cutLines;
    QList<CustomGraphicsLabelItem*> m_cutLabels;
};

// One cross-section of the stack cut across the arch, one per column of the panoramic image. The
// cross dragger's vertical line picks the slice; the crossed lines mark the bone axis and may be
// moved and turned. Measurements belong to the slice they were made on.
class CrossSectionView : public Viewer2DView
{
public:
    // One slice per panoramic column, a pixel apart.
    static constexpr int NUMBER_OF_SLICES = synthetic::PANORAMIC_WIDTH;

    CrossSectionView(
        const QString& id, const QString& name, DentalWorkspace& workspace, double archPosition);

    int sliceIndex() const { return m_sliceIndex; }
    // Out-of-range indices are clamped.
    void setSliceIndex(int index);
    double archPosition() const { return double(m_sliceIndex) / (NUMBER_OF_SLICES - 1); }
    void setArchPosition(double position);

    // A cross-sectional reslice viewer node: slice count, spacing and the slice shown.
    std::unique_ptr<ui::Viewer2DNode> createViewerNode() const override;
    void applyViewerNode(const ui::Viewer2DNode& node) override;
    void restyle() override;

private:
    void connectCrossedLines();

    int m_sliceIndex = -1;
    QRectF m_bounds;
    CrossDragger* m_cross = nullptr;
    CrossedLinesManipulationGraphicsItemGroup* m_lines = nullptr;
    // The crossed lines as the owner keeps them: each from its rotation point along its
    // direction.
    QLineF m_horizontalAxis;
    QLineF m_verticalAxis;
};

// The cross-sections: a multi view with two sub views.
class CrossSectionsView : public MultiView
{
public:
    explicit CrossSectionsView(DentalWorkspace& workspace);
};

// The tooth chart: a QML page that shows a scene through the library's Quick scene host. Both
// arches are overlay items; hover outlines a tooth, a click selects it, and the page's buttons
// and the arrow keys step to the next or previous tooth through the tooth name generator.
class ToothChartView : public View
{
public:
    explicit ToothChartView(DentalWorkspace& workspace);
    ~ToothChartView() override;

    void start() override;
    std::unique_ptr<ui::ViewNodeInteractor> createNodeInteractor() override;

    DentalWorkspace& workspace() const { return m_workspace; }
    // The selected tooth's name in the current numbering; empty when none is.
    QString selectedTooth() const;
    // The selected tooth as a Universal number, 1 to 32, or 0; the setter restores a selection.
    int selectedToothNumber() const;
    void setSelectedToothNumber(int tooth);
    // The page's scene host; null until the page is made or when QML failed. Owned by the page.
    QuickGraphicsSceneItem* sceneHost() const { return m_host; }
    void restyle();
    // The teeth and their labels as drawn, for checks (see DentalSolutionApi::drawnLabels).
    QJsonArray drawnItems() const;

private:
    void createWidget() override;
    void buildChart(GraphicsSceneExtra& scene);
    void updateChart();

    DentalWorkspace& m_workspace;
    ToothChartBridge* m_bridge = nullptr;
    QuickGraphicsSceneItem* m_host = nullptr;
    QList<CustomGraphicsItem*> m_teeth;
    QList<CustomGraphicsLabelItem*> m_labels;
    int m_hovered = -1;
    // A selection restored before the page exists.
    int m_pendingTooth = 0;
};

// Records the chart's numbering and selection as a ToothNumberingNode and a ToothSelectionNode
// under the chart's view node, and applies them back.
class ToothChartNodeInteractor : public ui::ViewNodeInteractor
{
public:
    explicit ToothChartNodeInteractor(ToothChartView& view);
    std::unique_ptr<ui::Node> generate() override;
    void apply(ui::Node* node) override;

private:
    ToothChartView& m_view;
};
