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
#include <guicore/ui/DentalScanComparisonOptionsNode.h>
#include <guicore/ui/DentalScanViewer3DNode.h>
#include <guicore/ui/DiagnosisNode.h>
#include <guicore/ui/ImplantVisualizationOptionsNode.h>
#include <guicore/ui/IntraOralPicturesViewNode.h>
#include <guicore/ui/LayoutTileNode.h>
#include <guicore/ui/Measurement2DNode.h>
#include <guicore/ui/NodeFactory.h>
#include <guicore/ui/PatientNode.h>
#include <guicore/ui/PeriapicalViewNode.h>
#include <guicore/ui/RootCanalViewer2DNode.h>
#include <guicore/ui/SnappedResliceNode.h>
#include <guicore/ui/SplitterNode.h>
#include <guicore/ui/ViewNode.h>

#include <QTest>

namespace samples {

/// Every built-in kind.
inline const QStringList& kinds()
{
    static const QStringList all {"DataObjectNode", "PatientNode", "DiagnosisNode",
        "AngulatedResliceNode", "AttachablePointNode", "Measurement2DNode",
        "DentalScanComparisonOptionsNode", "ViewNode", "ViewerNode", "Viewer2DNode",
        "ImageViewerNode", "PanoramicResliceViewerNode", "ResliceViewerNode",
        "RootCanalViewer2DNode", "CrossSectionalResliceViewerNode", "Viewer3DNode",
        "CtDataViewer3DNode", "DentalScanViewer3DNode", "SnappedResliceNode", "Clipping3DNode",
        "BookmarkNode", "SplitterNode", "LayoutTileNode", "PeriapicalViewNode",
        "ClinicalPicturesGridViewNode", "IntraOralPicturesViewNode",
        "ImplantVisualizationOptionsNode"};
    return all;
}

/// The version of a kind's own level: the kinds that gained properties are at 1.1.
inline QVersionNumber ownVersion(const QString& typeId)
{
    const QStringList newer {
        "DentalScanComparisonOptionsNode", "Viewer3DNode", "ImplantVisualizationOptionsNode"};
    return QVersionNumber(1, newer.contains(typeId) ? 1 : 0);
}

/// Sets one property to a fixed value other than its default; false when the node is not of
/// kind K. Applying a change twice is no second change (except adding a bookmark dependency).
using Change = std::pair<QString, std::function<bool(ui::Node&)>>; // name, apply

#define C(K, ...)                                                                                  \
    Change { #__VA_ARGS__, [](ui::Node& node) {                                                    \
        auto* n = dynamic_cast<K*>(&node);                                                         \
        return n && (n->__VA_ARGS__, true);                                                        \
    } }

inline const std::vector<Change>& allChanges()
{
    using namespace ui;
    using Scan = DentalScanComparisonOptionsNode;
    using Cross = CrossSectionalResliceViewerNode;
    using Implant = ImplantVisualizationOptionsNode;
    using V3D = Viewer3DNode;
    using Snapped = SnappedResliceNode;
    // The scan's visual state changes each member on its own, then all of them.
    static const std::vector<Change> changes {C(DataObjectNode, setDataObjectUUID("uuid-1")),
        C(AngulatedResliceNode, setOrigin(QVector3D(1, 2, 3))),
        C(AngulatedResliceNode, setDirection0(QVector3D(0, 1, 0))),
        C(AngulatedResliceNode, setDirection1(QVector3D(0, 0, 1))),
        C(AttachablePointNode, setAttachedPosition(QVector3D(4, 5, 6))),
        C(AttachablePointNode, setAttachedDirection(QVector3D(1, 0, 0))),
        C(AttachablePointNode, setAttachedUpperDirection(QVector3D(0, 0, 1))),
        C(Measurement2DNode, setLabelRelativePositions({{0.5, 0.25}, {-1, 2}})),
        C(Scan, setComparisonScanTransparency(40)), C(Scan, setVisualizationMode("distance")),
        C(Scan, setReferenceScanVisualState({false, false, 0, 100})),
        C(Scan, setReferenceScanVisualState({true, true, 0, 100})),
        C(Scan, setReferenceScanVisualState({true, false, 1, 100})),
        C(Scan, setReferenceScanVisualState({true, false, 0, 99})),
        C(Scan, setReferenceScanVisualState({false, true, 0x7f00ff00, 40})),
        C(Scan, setShown(false)), C(ViewNode, setViewId("implant.view")),
        C(ViewNode, setAngulatedReslicesHorizontalSlidersPosition(120)),
        C(ViewerNode, setViewerIndex(2)), C(ViewerNode, setMaximized(true)),
        C(ViewerNode, setHadContentWhenGenerated(true)),
        C(ViewerNode, setAssociatedDataObjectUUID("uuid-2")),
        C(Viewer2DNode, setZoomBox(QRectF(1.5, 2.5, 30, 40))),
        C(ResliceViewerNode, setPlaneOrientation("axial")),
        C(ResliceViewerNode, setSliderIndex(17)), C(Cross, setNumberOfSlices(9)),
        C(Cross, setSliceSpacing(0.25f)), C(Cross, setSliderIndex(4)),
        C(V3D, setCameraPosition(QVector3D(10, 20, 30))),
        C(V3D, setRotation(QQuaternion::fromEulerAngles(10, 20, 30))),
        C(V3D, setNearDistance(0.125f)), C(V3D, setFarDistance(512.5f)),
        C(V3D, setFocalDistance(64.0f)), C(V3D, setMinimalFOV(12.5f)),
        C(CtDataViewer3DNode, setUpdateCameraWhenPatientOrientationChanges(false)),
        C(DentalScanViewer3DNode, setArchType(ToothChart::Lower)),
        C(Snapped, setOrigin(QVector3D(7, 8, 9))), C(Snapped, setDirection0(QVector3D(1, 1, 0))),
        C(Snapped, setDirection1(QVector3D(0, 1, 1))), C(Snapped, setPlaneOrientation("coronal")),
        C(Clipping3DNode, setClippingResliceUUID("uuid-3")), C(Clipping3DNode, setMirrored(true)),
        C(BookmarkNode, setAssociatedDataObjectUUID("uuid-4")),
        C(BookmarkNode, addDependency(std::make_unique<Measurement2DNode>("uuid-5"))),
        C(SplitterNode, setRow(2)), C(SplitterNode, setColumn(3)),
        C(SplitterNode, setRelativeRowSize(5)), C(SplitterNode, setRelativeColumnSize(7)),
        C(LayoutTileNode, setLayoutTileId("tile-2x2")),
        C(PeriapicalViewNode, setActiveLayoutId("fmx-18")),
        C(ClinicalPicturesGridViewNode, setActiveLayoutId("grid-3")),
        C(IntraOralPicturesViewNode, setActiveLayoutId("io-4")), C(Implant, setAxisVisible(false)),
        C(Implant, setSafetyZoneVisible(false)), C(Implant, setSleeveVisible(false)),
        C(Implant, setAnchorPinsVisible(false))};
    return changes;
}

#undef C

/// A node of the kind with every property changed from its default.
inline std::unique_ptr<ui::Node> populated(const QString& typeId)
{
    std::unique_ptr<ui::Node> node = ui::NodeFactory::createSpecificNode(typeId);
    for (const Change& c : allChanges())
        c.second(*node);
    return node;
}

} // namespace samples
