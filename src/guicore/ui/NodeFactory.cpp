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

#include <guicore/Logging_p.h>

#include <QHash>
#include <QReadWriteLock>

#include <algorithm>

namespace ui {

namespace {

template <typename Kind> std::pair<QString, NodeFactory::Creator> builtIn()
{
    return {Kind::getClassTypeId(), [] { return std::unique_ptr<Node>(new Kind()); }};
}

/// The kinds of this library; fixed, so read without a lock.
const QHash<QString, NodeFactory::Creator>& builtInKinds()
{
    static const QHash<QString, NodeFactory::Creator> kinds {
        builtIn<PatientNode>(),
        builtIn<DiagnosisNode>(),
        builtIn<ViewNode>(),
        builtIn<ViewerNode>(),
        builtIn<Viewer2DNode>(),
        builtIn<Viewer3DNode>(),
        builtIn<ResliceViewerNode>(),
        builtIn<RootCanalViewer2DNode>(),
        builtIn<PanoramicResliceViewerNode>(),
        builtIn<CrossSectionalResliceViewerNode>(),
        builtIn<ImageViewerNode>(),
        builtIn<Measurement2DNode>(),
        builtIn<BookmarkNode>(),
        builtIn<SplitterNode>(),
        builtIn<Clipping3DNode>(),
        builtIn<AttachablePointNode>(),
        builtIn<DentalScanViewer3DNode>(),
        builtIn<DentalScanComparisonOptionsNode>(),
        builtIn<DataObjectNode>(),
        builtIn<LayoutTileNode>(),
        builtIn<PeriapicalViewNode>(),
        builtIn<ClinicalPicturesGridViewNode>(),
        builtIn<ImplantVisualizationOptionsNode>(),
        builtIn<IntraOralPicturesViewNode>(),
        builtIn<CtDataViewer3DNode>(),
        builtIn<AngulatedResliceNode>(),
        builtIn<SnappedResliceNode>(),
    };
    return kinds;
}

/// The kinds applications registered; trees may be read on any thread.
struct Registry
{
    QReadWriteLock lock;
    QHash<QString, NodeFactory::Creator> kinds;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

bool isKnown(const QString& typeId)
{
    if (typeId == Node::getClassTypeId() || builtInKinds().contains(typeId))
        return true;
    const QReadLocker locker(&registry().lock);
    return registry().kinds.contains(typeId);
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
            qCWarning(lcUi,
                "Empty uuid in DataObjectNode. This should only happen when importing older "
                "patients.");
            return nullptr;
        }
        const auto conversion = std::find_if(conversions.begin(), conversions.end(),
            [&uuid](const NodeFactory::DataObjectUuidConversion& c) { return c.first == uuid; });
        if (conversion == conversions.end()) {
            // Documented at information level: plain, so that it reaches the log by default.
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
    Creator creator = builtInKinds().value(typeId);
    if (!creator) {
        const QReadLocker locker(&registry().lock);
        creator = registry().kinds.value(typeId);
    }
    // Called outside the lock: a creator may itself make nodes.
    if (creator)
        return creator();
    return std::make_unique<detail::PlaceholderNode>();
}

bool NodeFactory::registerNodeKind(
    const QString& typeId, const QString& baseTypeId, const Creator& creator)
{
    if (typeId.isEmpty() || !creator) {
        qCWarning(lcUi, "NodeFactory : a node kind needs a type id and a creator.");
        return false;
    }
    if (isKnown(typeId)) {
        qCWarning(lcUi).noquote().nospace()
            << "NodeFactory : the node kind \"" << typeId << "\" is already registered.";
        return false;
    }
    if (!isKnown(baseTypeId)) {
        qCWarning(lcUi).noquote().nospace()
            << "NodeFactory : the base \"" << baseTypeId << "\" of the node kind \"" << typeId
            << "\" is not registered.";
        return false;
    }
    const std::unique_ptr<Node> sample = creator();
    if (!sample || sample->getTypeId() != typeId || !sample->isOfType(baseTypeId)) {
        qCWarning(lcUi).noquote().nospace()
            << "NodeFactory : the creator of \"" << typeId
            << "\" does not make nodes of that kind derived from \"" << baseTypeId << "\".";
        return false;
    }
    const QWriteLocker locker(&registry().lock);
    if (registry().kinds.contains(typeId))
        return false;
    registry().kinds.insert(typeId, creator);
    return true;
}

bool NodeFactory::unregisterNodeKind(const QString& typeId)
{
    if (typeId == Node::getClassTypeId() || builtInKinds().contains(typeId)) {
        qCWarning(lcUi).noquote().nospace()
            << "NodeFactory : the built-in node kind \"" << typeId << "\" stays registered.";
        return false;
    }
    const QWriteLocker locker(&registry().lock);
    if (registry().kinds.remove(typeId) == 0) {
        qCWarning(lcUi).noquote().nospace()
            << "NodeFactory : no node kind \"" << typeId << "\" is registered.";
        return false;
    }
    return true;
}

QStringList NodeFactory::getNodeKindTypeIds()
{
    QStringList typeIds = builtInKinds().keys();
    {
        const QReadLocker locker(&registry().lock);
        typeIds += registry().kinds.keys();
    }
    typeIds.sort();
    return typeIds;
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
