// State-tree benchmarks: comparison of trees whose children are shuffled, replication onto new
// data-object UUIDs and JSON persistence, each on a wide tree (every node a child of the root) and
// a deep one (two children per node), with 1,000 and 10,000 nodes.
//
// The growth rows set the 10,000-node time against the 1,000-node time: ten times the nodes
// should cost about ten times as much; for the comparison, at most fifteen times (the goal; the
// other growth rows are for information, as they mostly measure allocation and Qt's JSON
// classes, whose own cost is in the baseline rows). The other rows set the library
// against the plain work underneath: cloning node by node without conversion, and Qt's own JSON
// text conversion of the same document.

#include <BenchReport.h>

#include <guicore/ui/AngulatedResliceNode.h>
#include <guicore/ui/Clipping3DNode.h>
#include <guicore/ui/CrossSectionalResliceViewerNode.h>
#include <guicore/ui/CtDataViewer3DNode.h>
#include <guicore/ui/DiagnosisNode.h>
#include <guicore/ui/ImageViewerNode.h>
#include <guicore/ui/ImplantVisualizationOptionsNode.h>
#include <guicore/ui/LayoutTileNode.h>
#include <guicore/ui/Measurement2DNode.h>
#include <guicore/ui/NodeFactory.h>
#include <guicore/ui/NodeSerializer.h>
#include <guicore/ui/PatientNode.h>
#include <guicore/ui/PeriapicalViewNode.h>
#include <guicore/ui/ResliceViewerNode.h>
#include <guicore/ui/SplitterNode.h>
#include <guicore/ui/ViewNode.h>

#include <QCoreApplication>
#include <QJsonDocument>

#include <cstdio>
#include <numeric>
#include <random>
#include <tuple>

namespace {

constexpr int kUuidCount = 64;

QString uuid(int index)
{
    return QStringLiteral("uuid-%1").arg(index % kUuidCount);
}

/// Node i of a tree: a kind and property values derived from i, so that nodes of one kind
/// differ from each other as they do in real states.
std::unique_ptr<ui::Node> makeNode(int i)
{
    if (i == 0)
        return std::make_unique<ui::PatientNode>();
    switch (i % 12) {
    case 0: {
        auto node = std::make_unique<ui::ViewNode>();
        node->setViewId(QStringLiteral("view-%1").arg(i));
        return node;
    }
    case 1: {
        auto node = std::make_unique<ui::ImageViewerNode>();
        node->setViewerIndex(i);
        node->setAssociatedDataObjectUUID(uuid(i));
        return node;
    }
    case 2: {
        auto node = std::make_unique<ui::ResliceViewerNode>();
        node->setPlaneOrientation(QStringLiteral("axial"));
        node->setSliderIndex(i);
        return node;
    }
    case 3: {
        auto node = std::make_unique<ui::CrossSectionalResliceViewerNode>();
        node->setNumberOfSlices(size_t(i));
        node->setSliceSpacing(0.25f);
        return node;
    }
    case 4: {
        auto node = std::make_unique<ui::CtDataViewer3DNode>();
        node->setCameraPosition(QVector3D(float(i), 2.0f, 3.0f));
        node->setNearDistance(0.5f);
        node->setFarDistance(500.0f);
        return node;
    }
    case 5: {
        auto node = std::make_unique<ui::Measurement2DNode>(uuid(i));
        node->setLabelRelativePositions({QPointF(i * 0.001, 0.5), QPointF(0.25, i * 0.002)});
        return node;
    }
    case 6: {
        auto node = std::make_unique<ui::AngulatedResliceNode>(uuid(i));
        node->setOrigin(QVector3D(float(i), 0.0f, 1.0f));
        node->setDirection0(QVector3D(1.0f, 0.0f, 0.0f));
        return node;
    }
    case 7: {
        auto node = std::make_unique<ui::SplitterNode>();
        node->setRow(i);
        node->setRelativeRowSize(50);
        return node;
    }
    case 8: {
        auto node = std::make_unique<ui::LayoutTileNode>();
        node->setLayoutTileId(QStringLiteral("tile-%1").arg(i));
        return node;
    }
    case 9: {
        auto node = std::make_unique<ui::Clipping3DNode>();
        node->setClippingResliceUUID(QStringLiteral("clip-%1").arg(i));
        return node;
    }
    case 10: {
        auto node = std::make_unique<ui::PeriapicalViewNode>();
        node->setActiveLayoutId(QStringLiteral("layout-%1").arg(i));
        return node;
    }
    default: {
        // Few distinct values: many equal siblings, which the multiset comparison must pair up.
        auto node = std::make_unique<ui::ImplantVisualizationOptionsNode>();
        node->setAxisVisible(i % 2);
        node->setSleeveVisible(i % 3);
        return node;
    }
    }
}

enum class Shape { Wide, Deep };

/// Parent index of every node but the root.
int parentOf(int i, Shape shape)
{
    return shape == Shape::Wide ? 0 : (i - 1) / 2;
}

/// The tree of count nodes; with a seed, every node's children are in a shuffled order.
std::unique_ptr<ui::Node> buildTree(int count, Shape shape, unsigned seed = 0)
{
    std::vector<std::vector<int>> children(static_cast<size_t>(count));
    for (int i = 1; i < count; ++i)
        children[size_t(parentOf(i, shape))].push_back(i);
    std::mt19937 random(seed);
    if (seed != 0) {
        for (std::vector<int>& list : children)
            std::shuffle(list.begin(), list.end(), random);
    }
    std::vector<std::unique_ptr<ui::Node>> nodes;
    nodes.reserve(size_t(count));
    for (int i = 0; i < count; ++i)
        nodes.push_back(makeNode(i));
    // Children are attached bottom up (larger indices first in a deep tree are deeper).
    for (int i = count - 1; i >= 0; --i) {
        for (int child : children[size_t(i)])
            nodes[size_t(i)]->addNode(std::move(nodes[size_t(child)]));
    }
    return std::move(nodes[0]);
}

std::unique_ptr<ui::Node> plainCopy(const ui::Node& node)
{
    std::unique_ptr<ui::Node> copy = node.clone();
    for (const ui::Node* child : node.getNodes())
        copy->addNode(plainCopy(*child));
    return copy;
}

std::vector<ui::NodeFactory::DataObjectUuidConversion> conversions()
{
    std::vector<ui::NodeFactory::DataObjectUuidConversion> list;
    for (int i = 0; i < kUuidCount; ++i)
        list.emplace_back(uuid(i), QStringLiteral("new-uuid-%1").arg(i));
    return list;
}

struct Timings
{
    double compare = 0;
    double replicate = 0;
    double plainCopy = 0;
    double write = 0;
    double qtWrite = 0;
    double read = 0;
    double qtRead = 0;
};

void check(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "bench_ui: %s\n", what);
        std::exit(1);
    }
}

Timings measure(int count, Shape shape)
{
    Timings timings;
    const std::unique_ptr<ui::Node> ordered = buildTree(count, shape);
    const std::unique_ptr<ui::Node> shuffled = buildTree(count, shape, 20261121u);
    check(ordered->isEqual(*shuffled), "shuffled tree differs");
    const int runs = count >= 10000 ? 5 : 9;

    const auto list = conversions();
    std::unique_ptr<ui::Node> replica;
    timings.replicate = bench::medianNanoseconds(
        [&] { replica = ui::NodeFactory::replicateRecursively(ordered.get(), list); }, runs);
    check(replica != nullptr, "replication dropped the tree");
    std::unique_ptr<ui::Node> copy;
    timings.plainCopy = bench::medianNanoseconds([&] { copy = plainCopy(*ordered); }, runs);

    QByteArray json;
    timings.write
        = bench::medianNanoseconds([&] { json = ui::NodeSerializer::write(*shuffled); }, runs);
    const QJsonDocument document = ui::NodeSerializer::toDocument(*shuffled);
    QByteArray qtJson;
    timings.qtWrite = bench::medianNanoseconds(
        [&] { qtJson = document.toJson(QJsonDocument::Indented); }, runs);
    check(json == qtJson, "written JSON differs from the document's text");

    std::unique_ptr<ui::Node> read;
    timings.read = bench::medianNanoseconds([&] { read = ui::NodeSerializer::read(json); }, runs);
    check(read && read->isEqual(*ordered), "read tree differs");
    QJsonDocument parsed;
    timings.qtRead
        = bench::medianNanoseconds([&] { parsed = QJsonDocument::fromJson(json); }, runs);
    return timings;
}

/// Median comparison times of shuffled trees of 1,000 and of 10,000 nodes, timed in turn.
std::pair<double, double> compareTimes(Shape shape)
{
    const std::unique_ptr<ui::Node> small = buildTree(1000, shape);
    const std::unique_ptr<ui::Node> smallShuffled = buildTree(1000, shape, 20261121u);
    const std::unique_ptr<ui::Node> large = buildTree(10000, shape);
    const std::unique_ptr<ui::Node> largeShuffled = buildTree(10000, shape, 20261121u);
    bool equal = true;
    const auto times
        = bench::pairedMedianNanoseconds([&] { equal = small->isEqual(*smallShuffled) && equal; },
            [&] { equal = large->isEqual(*largeShuffled) && equal; }, 25);
    check(equal, "comparison failed");
    return times;
}

void reportShape(const QString& shapeName, Shape shape)
{
    Timings small = measure(1000, shape);
    Timings large = measure(10000, shape);
    std::tie(small.compare, large.compare) = compareTimes(shape);
    const QString prefix = QStringLiteral("ui ") + shapeName + QLatin1Char(' ');
    const QString growth = QStringLiteral("same operation on 1,000 nodes");
    bench::report(prefix + "isEqual shuffled 10k/1k", large.compare, small.compare, 15.0, growth);
    bench::report(prefix + "replicate 10k/1k", large.replicate, small.replicate, 0, growth);
    bench::report(prefix + "write 10k/1k", large.write, small.write, 0, growth);
    bench::report(prefix + "read 10k/1k", large.read, small.read, 0, growth);
    bench::report(prefix + "replicate 10k", large.replicate, large.plainCopy, 0,
        QStringLiteral("clone + addNode, no conversion"));
    bench::report(prefix + "write 10k", large.write, large.qtWrite, 0,
        QStringLiteral("QJsonDocument::toJson of the same document"));
    bench::report(prefix + "read 10k", large.read, large.qtRead, 0,
        QStringLiteral("QJsonDocument::fromJson of the same text"));
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    reportShape(QStringLiteral("wide"), Shape::Wide);
    reportShape(QStringLiteral("deep"), Shape::Deep);
    return 0;
}
