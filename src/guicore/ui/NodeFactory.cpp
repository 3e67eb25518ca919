#include <guicore/ui/NodeFactory.h>

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

#include "PlaceholderNode_p.h"

#include <objectmodel/ModificationLock.h>

#include <QtDebug>

#include <algorithm>

namespace ui {

namespace {

using Maker = std::unique_ptr<Node> (*)();

template <typename Kind> std::unique_ptr<Node> make()
{
    return std::make_unique<Kind>();
}

struct KindEntry
{
    QString typeId;
    Maker maker;
};

template <typename Kind> KindEntry entry()
{
    return {Kind::getClassTypeId(), &make<Kind>};
}

// Looked up in this order; "Node" gives the placeholder, as does any id not listed.
const std::vector<KindEntry>& kindsInLookupOrder()
{
    static const std::vector<KindEntry> kinds {
        entry<PatientNode>(),
        entry<DiagnosisNode>(),
        entry<ViewNode>(),
        entry<ViewerNode>(),
        entry<Viewer2DNode>(),
        entry<Viewer3DNode>(),
        entry<ResliceViewerNode>(),
        entry<RootCanalViewer2DNode>(),
        entry<PanoramicResliceViewerNode>(),
        entry<CrossSectionalResliceViewerNode>(),
        entry<ImageViewerNode>(),
        entry<Measurement2DNode>(),
        entry<BookmarkNode>(),
        entry<SplitterNode>(),
        entry<Clipping3DNode>(),
        entry<AttachablePointNode>(),
        entry<DentalScanViewer3DNode>(),
        entry<DentalScanComparisonOptionsNode>(),
        entry<DataObjectNode>(),
        entry<LayoutTileNode>(),
        entry<PeriapicalViewNode>(),
        entry<ClinicalPicturesGridViewNode>(),
        entry<ImplantVisualizationOptionsNode>(),
        entry<IntraOralPicturesViewNode>(),
        {Node::getClassTypeId(), &make<detail::PlaceholderNode>},
        entry<CtDataViewer3DNode>(),
        entry<AngulatedResliceNode>(),
        entry<SnappedResliceNode>(),
    };
    return kinds;
}

std::unique_ptr<Node> replicate(
    const Node& node, const std::vector<NodeFactory::DataObjectUuidConversion>& conversions)
{
    std::unique_ptr<Node> copy = node.clone();
    const auto* patient = dynamic_cast<const PatientNode*>(copy.get());
    auto* dataObject = dynamic_cast<DataObjectNode*>(copy.get());
    const bool uuidlessPatient = patient && patient->getDataObjectUUID().isEmpty();
    if (dataObject && !uuidlessPatient) {
        const QString uuid = dataObject->getDataObjectUUID();
        if (uuid.isEmpty()) {
            qWarning("Empty uuid in DataObjectNode. This should only happen when importing older "
                     "patients.");
            return nullptr;
        }
        const auto conversion = std::find_if(conversions.begin(), conversions.end(),
            [&uuid](const NodeFactory::DataObjectUuidConversion& c) { return c.first == uuid; });
        if (conversion == conversions.end()) {
            qInfo("Adapted UUID not found for DataObject. This should only happen when importing "
                  "older patients.");
            return nullptr;
        }
        dataObject->setDataObjectUUID(conversion->second);
    }
    // The clone has no children; the originals are walked.
    for (const Node* child : node.getNodes()) {
        if (std::unique_ptr<Node> childCopy = replicate(*child, conversions))
            copy->addNode(std::move(childCopy));
    }
    return copy;
}

} // namespace

std::unique_ptr<Node> NodeFactory::createSpecificNode(const QString& typeId)
{
    for (const KindEntry& kind : kindsInLookupOrder()) {
        if (kind.typeId == typeId)
            return kind.maker();
    }
    return std::make_unique<detail::PlaceholderNode>();
}

std::unique_ptr<Node> NodeFactory::replicateRecursively(
    const Node* node, const std::vector<DataObjectUuidConversion>& conversions)
{
    if (!node)
        return nullptr;
    const utility::ModificationLock lock(utility::ModificationLock::Scope::UserInterfaceState);
    return replicate(*node, conversions);
}

} // namespace ui
