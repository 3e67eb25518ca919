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
#include <guicore/ui/ImageViewerNode.h>
#include <guicore/ui/ImplantVisualizationOptionsNode.h>
#include <guicore/ui/IntraOralPicturesViewNode.h>
#include <guicore/ui/LayoutTileNode.h>
#include <guicore/ui/Measurement2DNode.h>
#include <guicore/ui/NodeFactory.h>
#include <guicore/ui/PanoramicResliceViewerNode.h>
#include <guicore/ui/PatientNode.h>
#include <guicore/ui/PeriapicalViewNode.h>
#include <guicore/ui/RootCanalViewer2DNode.h>
#include <guicore/ui/SnappedResliceNode.h>
#include <guicore/ui/SplitterNode.h>
#include <guicore/ui/ViewNode.h>

#include <QRegularExpression>
#include <QTest>

#include <functional>

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
    return QStringList {
               "DentalScanComparisonOptionsNode", "Viewer3DNode", "ImplantVisualizationOptionsNode"}
               .contains(typeId)
        ? QVersionNumber(1, 1)
        : QVersionNumber(1, 0);
}

/// Sets one property to a fixed value other than its default; false when the node is not of
/// kind K. Applying a change twice is no second change (except adding a bookmark dependency).
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

#define SAMPLE_CHANGE(K, ...) change<ui::K>(#__VA_ARGS__, [](ui::K& n) { n.__VA_ARGS__; })

inline const std::vector<Change>& allChanges()
{
    using namespace ui;
    static const std::vector<Change> changes {
        SAMPLE_CHANGE(DataObjectNode, setDataObjectUUID("uuid-1")),
        SAMPLE_CHANGE(AngulatedResliceNode, setOrigin(QVector3D(1, 2, 3))),
        SAMPLE_CHANGE(AngulatedResliceNode, setDirection0(QVector3D(0, 1, 0))),
        SAMPLE_CHANGE(AngulatedResliceNode, setDirection1(QVector3D(0, 0, 1))),
        SAMPLE_CHANGE(AttachablePointNode, setAttachedPosition(QVector3D(4, 5, 6))),
        SAMPLE_CHANGE(AttachablePointNode, setAttachedDirection(QVector3D(1, 0, 0))),
        SAMPLE_CHANGE(AttachablePointNode, setAttachedUpperDirection(QVector3D(0, 0, 1))),
        SAMPLE_CHANGE(Measurement2DNode, setLabelRelativePositions({{0.5, 0.25}, {-1, 2}})),
        SAMPLE_CHANGE(DentalScanComparisonOptionsNode, setComparisonScanTransparency(40)),
        SAMPLE_CHANGE(DentalScanComparisonOptionsNode, setVisualizationMode("distance")),
        SAMPLE_CHANGE(DentalScanComparisonOptionsNode,
            setReferenceScanVisualState({true, false, 0x7f00ff00, 100})),
        SAMPLE_CHANGE(DentalScanComparisonOptionsNode, setShown(false)),
        SAMPLE_CHANGE(ViewNode, setViewId("implant.view")),
        SAMPLE_CHANGE(ViewNode, setAngulatedReslicesHorizontalSlidersPosition(120)),
        SAMPLE_CHANGE(ViewerNode, setViewerIndex(2)),
        SAMPLE_CHANGE(ViewerNode, setMaximized(true)),
        SAMPLE_CHANGE(ViewerNode, setHadContentWhenGenerated(true)),
        SAMPLE_CHANGE(ViewerNode, setAssociatedDataObjectUUID("uuid-2")),
        SAMPLE_CHANGE(Viewer2DNode, setZoomBox(QRectF(1.5, 2.5, 30, 40))),
        SAMPLE_CHANGE(ResliceViewerNode, setPlaneOrientation("axial")),
        SAMPLE_CHANGE(ResliceViewerNode, setSliderIndex(17)),
        SAMPLE_CHANGE(CrossSectionalResliceViewerNode, setNumberOfSlices(9)),
        SAMPLE_CHANGE(CrossSectionalResliceViewerNode, setSliceSpacing(0.25f)),
        SAMPLE_CHANGE(CrossSectionalResliceViewerNode, setSliderIndex(4)),
        SAMPLE_CHANGE(Viewer3DNode, setCameraPosition(QVector3D(10, 20, 30))),
        SAMPLE_CHANGE(Viewer3DNode, setRotation(QQuaternion::fromEulerAngles(10, 20, 30))),
        SAMPLE_CHANGE(Viewer3DNode, setNearDistance(0.125f)),
        SAMPLE_CHANGE(Viewer3DNode, setFarDistance(512.5f)),
        SAMPLE_CHANGE(Viewer3DNode, setFocalDistance(64.0f)),
        SAMPLE_CHANGE(Viewer3DNode, setMinimalFOV(12.5f)),
        SAMPLE_CHANGE(CtDataViewer3DNode, setUpdateCameraWhenPatientOrientationChanges(false)),
        SAMPLE_CHANGE(DentalScanViewer3DNode, setArchType(ToothChart::Lower)),
        SAMPLE_CHANGE(SnappedResliceNode, setOrigin(QVector3D(7, 8, 9))),
        SAMPLE_CHANGE(SnappedResliceNode, setDirection0(QVector3D(1, 1, 0))),
        SAMPLE_CHANGE(SnappedResliceNode, setDirection1(QVector3D(0, 1, 1))),
        SAMPLE_CHANGE(SnappedResliceNode, setPlaneOrientation("coronal")),
        SAMPLE_CHANGE(Clipping3DNode, setClippingResliceUUID("uuid-3")),
        SAMPLE_CHANGE(Clipping3DNode, setMirrored(true)),
        SAMPLE_CHANGE(BookmarkNode, setAssociatedDataObjectUUID("uuid-4")),
        change<BookmarkNode>("addDependency",
            [](auto& n) {
                auto dependency = std::make_unique<Measurement2DNode>("uuid-5");
                dependency->setLabelRelativePositions({{3, 4}});
                n.addDependency(std::move(dependency));
            }),
        SAMPLE_CHANGE(SplitterNode, setRow(2)),
        SAMPLE_CHANGE(SplitterNode, setColumn(3)),
        SAMPLE_CHANGE(SplitterNode, setRelativeRowSize(5)),
        SAMPLE_CHANGE(SplitterNode, setRelativeColumnSize(7)),
        SAMPLE_CHANGE(LayoutTileNode, setLayoutTileId("tile-2x2")),
        SAMPLE_CHANGE(PeriapicalViewNode, setActiveLayoutId("fmx-18")),
        SAMPLE_CHANGE(ClinicalPicturesGridViewNode, setActiveLayoutId("grid-3")),
        SAMPLE_CHANGE(IntraOralPicturesViewNode, setActiveLayoutId("io-4")),
        SAMPLE_CHANGE(ImplantVisualizationOptionsNode, setAxisVisible(false)),
        SAMPLE_CHANGE(ImplantVisualizationOptionsNode, setSafetyZoneVisible(false)),
        SAMPLE_CHANGE(ImplantVisualizationOptionsNode, setSleeveVisible(false)),
        SAMPLE_CHANGE(ImplantVisualizationOptionsNode, setAnchorPinsVisible(false)),
    };
    return changes;
}

#undef SAMPLE_CHANGE

/// A node of the kind with every property changed from its default.
inline std::unique_ptr<ui::Node> populated(const QString& typeId)
{
    std::unique_ptr<ui::Node> node = ui::NodeFactory::createSpecificNode(typeId);
    for (const Change& c : allChanges())
        c.apply(*node);
    return node;
}

inline std::unique_ptr<ui::LayoutTileNode> tile(const QString& id)
{
    auto node = std::make_unique<ui::LayoutTileNode>();
    node->setLayoutTileId(id);
    return node;
}

} // namespace samples
