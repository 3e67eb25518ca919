#pragma once

// Shared by the state-tree tests: every kind, and one change per property so that each setter,
// each comparison and each stored property is exercised on its own.

#include <guicore/ui/AngulatedResliceNode.h>
#include <guicore/ui/AttachablePointNode.h>
#include <guicore/ui/BookmarkNode.h>
#include <guicore/ui/ClinicalPicturesGridViewNode.h>
#include <guicore/ui/Clipping3DNode.h>
#include <guicore/ui/CrossSectionalResliceViewerNode.h>
#include <guicore/ui/CtDataViewer3DNode.h>
#include <guicore/ui/DataObjectNode.h>
#include <guicore/ui/DentalScanComparisonOptionsNode.h>
#include <guicore/ui/DentalScanViewer3DNode.h>
#include <guicore/ui/DiagnosisNode.h>
#include <guicore/ui/ImageViewerNode.h>
#include <guicore/ui/ImplantVisualizationOptionsNode.h>
#include <guicore/ui/IntraOralPicturesViewNode.h>
#include <guicore/ui/LayoutTileNode.h>
#include <guicore/ui/Measurement2DNode.h>
#include <guicore/ui/NodeFactory.h>
#include <guicore/ui/PanoramicResliceViewerNode.h>
#include <guicore/ui/PatientNode.h>
#include <guicore/ui/PeriapicalViewNode.h>
#include <guicore/ui/ResliceViewerNode.h>
#include <guicore/ui/RootCanalViewer2DNode.h>
#include <guicore/ui/SnappedResliceNode.h>
#include <guicore/ui/SplitterNode.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/ui/Viewer2DNode.h>
#include <guicore/ui/Viewer3DNode.h>
#include <guicore/ui/ViewerNode.h>

#include <QStringList>

#include <functional>

namespace samples {

/// Every kind with the version of its own level.
inline const std::vector<std::pair<QString, QString>>& kinds()
{
    static const std::vector<std::pair<QString, QString>> all {
        {"DataObjectNode", "1.0"},
        {"PatientNode", "1.0"},
        {"DiagnosisNode", "1.0"},
        {"AngulatedResliceNode", "1.0"},
        {"AttachablePointNode", "1.0"},
        {"Measurement2DNode", "1.0"},
        {"DentalScanComparisonOptionsNode", "1.1"},
        {"ViewNode", "1.0"},
        {"ViewerNode", "1.0"},
        {"Viewer2DNode", "1.0"},
        {"ImageViewerNode", "1.0"},
        {"PanoramicResliceViewerNode", "1.0"},
        {"ResliceViewerNode", "1.0"},
        {"RootCanalViewer2DNode", "1.0"},
        {"CrossSectionalResliceViewerNode", "1.0"},
        {"Viewer3DNode", "1.1"},
        {"CtDataViewer3DNode", "1.0"},
        {"DentalScanViewer3DNode", "1.0"},
        {"SnappedResliceNode", "1.0"},
        {"Clipping3DNode", "1.0"},
        {"BookmarkNode", "1.0"},
        {"SplitterNode", "1.0"},
        {"LayoutTileNode", "1.0"},
        {"PeriapicalViewNode", "1.0"},
        {"ClinicalPicturesGridViewNode", "1.0"},
        {"IntraOralPicturesViewNode", "1.0"},
        {"ImplantVisualizationOptionsNode", "1.1"},
    };
    return all;
}

/// Sets one property to a fixed value other than its default; false when the node is not of
/// kind K. Applying a change twice is no second change.
struct Change
{
    QString name;
    std::function<bool(ui::Node&)> apply;
};

template <typename K> Change change(const QString& name, std::function<void(K&)> set)
{
    return {name, [set](ui::Node& node) {
                auto* kind = dynamic_cast<K*>(&node);
                if (kind)
                    set(*kind);
                return kind != nullptr;
            }};
}

inline const std::vector<Change>& allChanges()
{
    using namespace ui;
    static const std::vector<Change> changes {
        change<DataObjectNode>("uuid", [](auto& n) { n.setDataObjectUUID("uuid-1"); }),
        change<AngulatedResliceNode>("origin", [](auto& n) { n.setOrigin(QVector3D(1, 2, 3)); }),
        change<AngulatedResliceNode>(
            "direction0", [](auto& n) { n.setDirection0(QVector3D(0, 1, 0)); }),
        change<AngulatedResliceNode>(
            "direction1", [](auto& n) { n.setDirection1(QVector3D(0, 0, 1)); }),
        change<AttachablePointNode>(
            "position", [](auto& n) { n.setAttachedPosition(QVector3D(4, 5, 6)); }),
        change<AttachablePointNode>(
            "direction", [](auto& n) { n.setAttachedDirection(QVector3D(1, 0, 0)); }),
        change<AttachablePointNode>(
            "upper", [](auto& n) { n.setAttachedUpperDirection(QVector3D(0, 0, 1)); }),
        change<Measurement2DNode>("labels",
            [](auto& n) {
                n.setLabelRelativePositions({QPointF(0.5, 0.25), QPointF(-1, 2)});
            }),
        change<DentalScanComparisonOptionsNode>(
            "transparency", [](auto& n) { n.setComparisonScanTransparency(40); }),
        change<DentalScanComparisonOptionsNode>(
            "mode", [](auto& n) { n.setVisualizationMode("distance"); }),
        change<DentalScanComparisonOptionsNode>("state",
            [](auto& n) {
                auto state = n.getReferenceScanVisualState();
                state.color = 0x7f00ff00;
                n.setReferenceScanVisualState(state);
            }),
        change<DentalScanComparisonOptionsNode>("shown", [](auto& n) { n.setShown(false); }),
        change<ViewNode>("viewId", [](auto& n) { n.setViewId("implant.view"); }),
        change<ViewNode>(
            "sliders", [](auto& n) { n.setAngulatedReslicesHorizontalSlidersPosition(120); }),
        change<ViewerNode>("index", [](auto& n) { n.setViewerIndex(2); }),
        change<ViewerNode>("maximized", [](auto& n) { n.setMaximized(true); }),
        change<ViewerNode>("hadContent", [](auto& n) { n.setHadContentWhenGenerated(true); }),
        change<ViewerNode>("associated", [](auto& n) { n.setAssociatedDataObjectUUID("uuid-2"); }),
        change<Viewer2DNode>("zoomBox", [](auto& n) { n.setZoomBox(QRectF(1.5, 2.5, 30, 40)); }),
        change<ResliceViewerNode>("orientation", [](auto& n) { n.setPlaneOrientation("axial"); }),
        change<ResliceViewerNode>("slider", [](auto& n) { n.setSliderIndex(17); }),
        change<CrossSectionalResliceViewerNode>("slices", [](auto& n) { n.setNumberOfSlices(9); }),
        change<CrossSectionalResliceViewerNode>(
            "spacing", [](auto& n) { n.setSliceSpacing(0.25f); }),
        change<CrossSectionalResliceViewerNode>("slider", [](auto& n) { n.setSliderIndex(4); }),
        change<Viewer3DNode>("camera", [](auto& n) { n.setCameraPosition(QVector3D(10, 20, 30)); }),
        change<Viewer3DNode>(
            "rotation", [](auto& n) { n.setRotation(QQuaternion::fromEulerAngles(10, 20, 30)); }),
        change<Viewer3DNode>("near", [](auto& n) { n.setNearDistance(0.125f); }),
        change<Viewer3DNode>("far", [](auto& n) { n.setFarDistance(512.5f); }),
        change<Viewer3DNode>("focal", [](auto& n) { n.setFocalDistance(64.0f); }),
        change<Viewer3DNode>("fov", [](auto& n) { n.setMinimalFOV(12.5f); }),
        change<CtDataViewer3DNode>(
            "updateCamera", [](auto& n) { n.setUpdateCameraWhenPatientOrientationChanges(false); }),
        change<DentalScanViewer3DNode>("arch", [](auto& n) { n.setArchType(ToothChart::Lower); }),
        change<SnappedResliceNode>("origin", [](auto& n) { n.setOrigin(QVector3D(7, 8, 9)); }),
        change<SnappedResliceNode>(
            "direction0", [](auto& n) { n.setDirection0(QVector3D(1, 1, 0)); }),
        change<SnappedResliceNode>(
            "direction1", [](auto& n) { n.setDirection1(QVector3D(0, 1, 1)); }),
        change<SnappedResliceNode>(
            "orientation", [](auto& n) { n.setPlaneOrientation("coronal"); }),
        change<Clipping3DNode>("reslice", [](auto& n) { n.setClippingResliceUUID("uuid-3"); }),
        change<Clipping3DNode>("mirrored", [](auto& n) { n.setMirrored(true); }),
        change<BookmarkNode>(
            "associated", [](auto& n) { n.setAssociatedDataObjectUUID("uuid-4"); }),
        change<BookmarkNode>("dependency",
            [](auto& n) {
                auto dependency = std::make_unique<Measurement2DNode>("uuid-5");
                dependency->setLabelRelativePositions({{3, 4}});
                n.addDependency(std::move(dependency));
            }),
        change<SplitterNode>("row", [](auto& n) { n.setRow(2); }),
        change<SplitterNode>("column", [](auto& n) { n.setColumn(3); }),
        change<SplitterNode>("rowSize", [](auto& n) { n.setRelativeRowSize(5); }),
        change<SplitterNode>("columnSize", [](auto& n) { n.setRelativeColumnSize(7); }),
        change<LayoutTileNode>("tile", [](auto& n) { n.setLayoutTileId("tile-2x2"); }),
        change<PeriapicalViewNode>("layout", [](auto& n) { n.setActiveLayoutId("fmx-18"); }),
        change<ClinicalPicturesGridViewNode>(
            "layout", [](auto& n) { n.setActiveLayoutId("grid-3"); }),
        change<IntraOralPicturesViewNode>("layout", [](auto& n) { n.setActiveLayoutId("io-4"); }),
        change<ImplantVisualizationOptionsNode>("axis", [](auto& n) { n.setAxisVisible(false); }),
        change<ImplantVisualizationOptionsNode>(
            "safety", [](auto& n) { n.setSafetyZoneVisible(false); }),
        change<ImplantVisualizationOptionsNode>(
            "sleeve", [](auto& n) { n.setSleeveVisible(false); }),
        change<ImplantVisualizationOptionsNode>(
            "pins", [](auto& n) { n.setAnchorPinsVisible(false); }),
    };
    return changes;
}

/// A node of the kind with every property changed from its default.
inline std::unique_ptr<ui::Node> populated(const QString& typeId)
{
    std::unique_ptr<ui::Node> node = ui::NodeFactory::createSpecificNode(typeId);
    for (const Change& c : allChanges())
        c.apply(*node);
    return node;
}

} // namespace samples
