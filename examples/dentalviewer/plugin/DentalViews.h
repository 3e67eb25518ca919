#pragma once

#include <guicore/view/MultiView.h>
#include <guicore/view/View.h>
#include <guicore/view/ViewNodeInteractor.h>

#include <QList>
#include <QPointer>

class CrossDragger;
class CrossedLinesManipulationGraphicsItemGroup;
class CustomGraphicsItem;
class CustomGraphicsLabelItem;
class DentalWorkspace;
class GraphicsSceneExtra;
class ToothChartBridge;
class ToothNameGenerator;
class Viewer2D;

// A view whose screen is one 2-D viewer. While it runs, its viewer is the workspace's current one,
// the viewer the measurement tools work in.
class Viewer2DView : public View
{
public:
    Viewer2DView(const QString& id, const QString& name, DentalWorkspace& workspace);
    ~Viewer2DView() override;

    void start() override;
    void stop() override;
    void reset() override;
    std::unique_ptr<ui::ViewNodeInteractor> createNodeInteractor() override;

    // Borrowed: the view owns its viewer.
    Viewer2D* viewer() const { return m_viewer; }

protected:
    DentalWorkspace& workspace() const { return m_workspace; }

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

// The synthetic panoramic radiograph with tooth numbers in the chosen notation.
class PanoramicView : public Viewer2DView
{
public:
    explicit PanoramicView(DentalWorkspace& workspace);

private:
    void updateToothLabels();

    QList<CustomGraphicsLabelItem*> m_toothLabels;
};

// One cross-section whose reslice position follows a cross dragger and a pair of crossed lines.
class CrossSectionView : public Viewer2DView
{
public:
    CrossSectionView(
        const QString& id, const QString& name, DentalWorkspace& workspace, double archPosition);

    double archPosition() const { return m_archPosition; }

private:
    void setArchPosition(double position);

    double m_archPosition;
    CrossDragger* m_cross = nullptr;
    CrossedLinesManipulationGraphicsItemGroup* m_lines = nullptr;
    CustomGraphicsLabelItem* m_positionLabel = nullptr;
};

// The cross-sections: a multi view with two sub views.
class CrossSectionsView : public MultiView
{
public:
    explicit CrossSectionsView(DentalWorkspace& workspace);
};

// The tooth chart: a QML page that shows a scene through the library's Quick scene host. Both
// arches are overlay items; hover highlights a tooth, a click selects it, and the page's buttons
// step to the next or previous tooth through the tooth name generator.
class ToothChartView : public View
{
public:
    explicit ToothChartView(DentalWorkspace& workspace);
    ~ToothChartView() override;

    void start() override;

private:
    void createWidget() override;
    void buildChart(GraphicsSceneExtra& scene);
    void updateChart();

    DentalWorkspace& m_workspace;
    ToothChartBridge* m_bridge = nullptr;
    ToothNameGenerator* m_names = nullptr;
    QList<CustomGraphicsItem*> m_teeth;
    QList<CustomGraphicsLabelItem*> m_labels;
    int m_hovered = -1;
};
