#include "DentalViews.h"

#include "DentalWorkspace.h"
#include "SyntheticImages.h"
#include "ToothChartBridge.h"
#include "ToothNumberingNode.h"
#include "Viewer2D.h"

#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/manipulators/CenterDragger.h>
#include <guicore/graphics/manipulators/CrossDragger.h>
#include <guicore/graphics/manipulators/CrossedLinesManipulationGraphicsItemGroup.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>
#include <guicore/graphics/scene/QuickGraphicsSceneItem.h>
#include <guicore/style/StyleManager.h>
#include <guicore/ui/CrossSectionalResliceViewerNode.h>
#include <guicore/ui/Measurement2DNode.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/ui/Viewer2DNode.h>
#include <guicore/utility/dental/ToothNameGenerator.h>

#include <toothchart/ToothChart.h>

#include <QDebug>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainterPath>
#include <QPen>
#include <QQmlContext>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickView>
#include <QVector2D>
#include <cmath>

namespace {

QColor styleColor(const char* id, const QColor& fallback)
{
    if (!StyleManager::hasManager())
        return fallback;
    const QColor color
        = StyleManager::manager().getOptionalColor(QLatin1Char('@') + QString::fromLatin1(id));
    return color.isValid() ? color : fallback;
}

CustomGraphicsLabelItem* makeToothLabel(const QString& name)
{
    auto* label = new CustomGraphicsLabelItem(name);
    label->setTextColor(styleColor("TEXT_COLOR", Qt::white));
    label->setTextOutlineColor(Qt::black);
    label->fillBackground(false);
    label->setZValue(5);
    return label;
}

} // namespace

// --- Viewer2DViewManager --------------------------------------------------------------------

Viewer2DViewManager::Viewer2DViewManager(DentalWorkspace& workspace, Viewer2D* viewer)
    : m_workspace(workspace)
    , m_viewer(viewer)
{
}

void Viewer2DViewManager::start()
{
    m_workspace.setCurrentViewer(m_viewer);
}

void Viewer2DViewManager::stop()
{
    if (m_viewer && m_workspace.currentViewer() == m_viewer)
        m_workspace.setCurrentViewer(nullptr);
}

// --- Viewer2DView ---------------------------------------------------------------------------

Viewer2DView::Viewer2DView(const QString& id, const QString& name, DentalWorkspace& workspace)
    : View(id)
    , m_workspace(workspace)
    , m_viewer(new Viewer2D(id, DentalWorkspace::PIXEL_SPACING_MM))
{
    setName(name);
    workspace.addViewer(m_viewer);
    setViewManager(std::make_unique<Viewer2DViewManager>(workspace, m_viewer));
}

Viewer2DView::~Viewer2DView()
{
    if (m_workspace.currentViewer() == m_viewer)
        m_workspace.setCurrentViewer(nullptr);
    // The view widget belongs to whoever shows it; when nobody took it, it goes with the viewer.
    if (m_viewer) {
        if (m_viewer->hasView() && !m_viewer->view()->parent())
            delete m_viewer->view();
        delete m_viewer.data();
    }
}

void Viewer2DView::createWidget()
{
    setWidget(m_viewer->view());
}

void Viewer2DView::reset()
{
    View::reset();
    m_viewer->resetView();
}

std::unique_ptr<ui::ViewNodeInteractor> Viewer2DView::createNodeInteractor()
{
    return std::make_unique<Viewer2DNodeInteractor>(*this);
}

std::unique_ptr<ui::Viewer2DNode> Viewer2DView::createViewerNode() const
{
    return std::make_unique<ui::Viewer2DNode>();
}

void Viewer2DView::applyViewerNode(const ui::Viewer2DNode&) { }

// --- Viewer2DNodeInteractor -----------------------------------------------------------------

Viewer2DNodeInteractor::Viewer2DNodeInteractor(Viewer2DView& view)
    : ui::ViewNodeInteractor(view)
    , m_view(view)
{
}

std::unique_ptr<ui::Node> Viewer2DNodeInteractor::generate()
{
    std::unique_ptr<ui::Node> node = ui::ViewNodeInteractor::generate();
    Viewer2D* viewer = m_view.viewer();
    if (!node || !viewer)
        return node;
    std::unique_ptr<ui::Viewer2DNode> viewerNode = m_view.createViewerNode();
    viewerNode->setViewerIndex(0);
    viewerNode->setHadContentWhenGenerated(true);
    viewerNode->setZoomBox(viewer->getZoomBox());
    for (const Measurement* measurement : viewer->measurements()) {
        auto measurementNode = std::make_unique<ui::Measurement2DNode>(measurement->id);
        measurementNode->setLabelRelativePositions({measurement->labelOffset});
        viewerNode->addNode(std::move(measurementNode));
    }
    node->addNode(std::move(viewerNode));
    return node;
}

void Viewer2DNodeInteractor::apply(ui::Node* node)
{
    Viewer2D* viewer = m_view.viewer();
    if (!node || !viewer)
        return;
    for (ui::Node* child : node->getNodes()) {
        auto* viewerNode = dynamic_cast<ui::Viewer2DNode*>(child);
        if (!viewerNode)
            continue;
        if (viewerNode->hasZoomBox())
            viewer->setZoomBox(viewerNode->getZoomBox());
        m_view.applyViewerNode(*viewerNode);
        for (ui::Node* grandChild : viewerNode->getNodes()) {
            auto* measurementNode = dynamic_cast<ui::Measurement2DNode*>(grandChild);
            if (!measurementNode || measurementNode->getLabelRelativePositions().empty())
                continue;
            // A node whose measurement is gone from the document is left alone.
            if (Measurement* measurement
                = viewer->findMeasurement(measurementNode->getDataObjectUUID()))
                viewer->setLabelOffset(measurement, measurementNode->getLabelRelativePosition(0));
        }
    }
}

// --- PanoramicView --------------------------------------------------------------------------

PanoramicView::PanoramicView(DentalWorkspace& workspace)
    : Viewer2DView(QStringLiteral("Panoramic"), QObject::tr("Panoramic"), workspace)
{
    setShortCutKeySequence(QKeySequence(QStringLiteral("Ctrl+1")));
    setShortCutString(QStringLiteral("Ctrl+1"));
    viewer()->setImage(synthetic::panoramic());
    const QList<QPointF> centres = synthetic::panoramicToothCentres();
    for (int i = 0; i < centres.size(); ++i) {
        auto* label = makeToothLabel(QStringLiteral("tooth%1").arg(i + 1));
        const bool upper = i < 16;
        label->setPos(centres[i] + QPointF(-10, upper ? -110 : 80));
        viewer()->scene()->addItem(label);
        m_toothLabels.append(label);
    }
    updateToothLabels();
    QObject::connect(&workspace, &DentalWorkspace::notationChanged, viewer(),
        [this](const QString&) { updateToothLabels(); });
}

void PanoramicView::updateToothLabels()
{
    for (int i = 0; i < m_toothLabels.size(); ++i)
        m_toothLabels[i]->setText(ToothNameGenerator::getName(ToothChart::Tooth(i + 1)));
}

// --- CrossSectionView -----------------------------------------------------------------------

CrossSectionView::CrossSectionView(
    const QString& id, const QString& name, DentalWorkspace& workspace, double archPosition)
    : Viewer2DView(id, name, workspace)
{
    Viewer2D* v = viewer();
    v->setImage(synthetic::crossSection(archPosition));
    m_bounds = v->imageRect();

    // The cross dragger picks the slice along the arch (its vertical line) and the height of
    // interest (its horizontal line). Draggers only propose; we apply the move.
    m_cross = new CrossDragger();
    m_cross->setRect(m_bounds);
    m_cross->setBoundingRect(m_bounds);
    m_cross->setHorizontalColor(styleColor("DRAGGER_COLOR", Qt::cyan));
    m_cross->setVerticalColor(styleColor("DRAGGER_COLOR", Qt::cyan));
    m_cross->moveHorizontal(m_bounds.center());
    m_cross->setZValue(10);
    // A press on the crossing starts both line draggers, which lie under it, and the scene's
    // stock handling then also drags the movable centre handle: the handle, already moved along
    // by the lines, would add the mouse's travel a second time. With the handle fixed, the two
    // lines alone carry a drag of the crossing, and they follow the mouse exactly.
    for (QGraphicsItem* child : m_cross->childItems()) {
        if (auto* handle = dynamic_cast<CenterDragger*>(child))
            handle->setFlag(QGraphicsItem::ItemIsMovable, false);
    }
    v->scene()->addItem(m_cross);
    QObject::connect(m_cross, &CrossDragger::verticalMoved, v,
        [this](QPointF at) { setArchPosition(at.x() / m_bounds.width()); });
    QObject::connect(m_cross, &CrossDragger::horizontalMoved, v,
        [this](QPointF at) { m_cross->moveHorizontal(at); });

    // The crossed lines mark the bone axis, below the height of interest so that the two crosses
    // do not share a line.
    m_lines = new CrossedLinesManipulationGraphicsItemGroup();
    m_lines->setViewportRectangle(m_bounds);
    m_lines->setHorizontalColor(styleColor("MANIPULATOR_LINE_COLOR", Qt::green));
    m_lines->setVerticalColor(styleColor("MANIPULATOR_LINE_COLOR", Qt::green));
    const QPointF axisCentre(m_bounds.center().x(), m_bounds.top() + m_bounds.height() * 0.7);
    m_horizontalAxis = QLineF(axisCentre, axisCentre + QPointF(1, 0));
    m_verticalAxis = QLineF(axisCentre, axisCentre + QPointF(0, 1));
    m_lines->setHorizontalLine(m_horizontalAxis.p1(), QVector2D(1, 0));
    m_lines->setVerticalLine(m_verticalAxis.p1(), QVector2D(0, 1));
    m_lines->enableRotation(true);
    m_lines->enableTranslation(true);
    m_lines->setZValue(9);
    v->scene()->addItem(m_lines);
    connectCrossedLines();

    m_positionLabel = makeToothLabel(id + QStringLiteral("_position"));
    m_positionLabel->setPos(8, 8);
    v->scene()->addItem(m_positionLabel);
    setArchPosition(archPosition);
}

void CrossSectionView::connectCrossedLines()
{
    // A translation brings the line through the proposed point. A rotation is an angle in degrees,
    // counter-clockwise on screen, relative to the line as it stands; the line turns about the
    // crossing, where the handle sits.
    auto crossing = [this] {
        QPointF at;
        return m_horizontalAxis.intersects(m_verticalAxis, &at) == QLineF::NoIntersection
            ? m_horizontalAxis.p1()
            : at;
    };
    auto place = [](QLineF& axis, const QPointF& at) { axis.translate(at - axis.p1()); };
    auto turn = [crossing](QLineF& axis, float degrees) {
        const QPointF centre = crossing();
        QLineF turned(centre, centre + (axis.p2() - axis.p1()));
        turned.setAngle(turned.angle() + degrees);
        axis = turned;
    };
    auto direction = [](const QLineF& axis) { return QVector2D(axis.p2() - axis.p1()); };
    Viewer2D* v = viewer();
    QObject::connect(m_lines, &CrossedLinesManipulationGraphicsItemGroup::horizontalLineTranslated,
        v, [this, place, direction](const QPointF& at) {
            place(m_horizontalAxis, at);
            m_lines->setHorizontalLine(m_horizontalAxis.p1(), direction(m_horizontalAxis));
        });
    QObject::connect(m_lines, &CrossedLinesManipulationGraphicsItemGroup::verticalLineTranslated, v,
        [this, place, direction](const QPointF& at) {
            place(m_verticalAxis, at);
            m_lines->setVerticalLine(m_verticalAxis.p1(), direction(m_verticalAxis));
        });
    QObject::connect(m_lines, &CrossedLinesManipulationGraphicsItemGroup::horizontalLineRotated, v,
        [this, turn, direction](float degrees) {
            turn(m_horizontalAxis, degrees);
            m_lines->setHorizontalLine(m_horizontalAxis.p1(), direction(m_horizontalAxis));
        });
    QObject::connect(m_lines, &CrossedLinesManipulationGraphicsItemGroup::verticalLineRotated, v,
        [this, turn, direction](float degrees) {
            turn(m_verticalAxis, degrees);
            m_lines->setVerticalLine(m_verticalAxis.p1(), direction(m_verticalAxis));
        });
}

void CrossSectionView::setArchPosition(double position)
{
    if (!std::isfinite(position))
        return;
    setSliceIndex(int(std::lround(qBound(0.0, position, 1.0) * (NUMBER_OF_SLICES - 1))));
}

void CrossSectionView::setSliceIndex(int index)
{
    // The shown slice is a whole one: the dragger snaps to it, and the state records it exactly.
    m_sliceIndex = qBound(0, index, NUMBER_OF_SLICES - 1);
    viewer()->setImage(synthetic::crossSection(archPosition()));
    m_cross->moveVertical(QPointF(m_bounds.width() * archPosition(), m_bounds.center().y()));
    const double archLengthMm = synthetic::PANORAMIC_WIDTH * DentalWorkspace::PIXEL_SPACING_MM;
    m_positionLabel->setText(
        QObject::tr("Reslice at %1 mm").arg(archPosition() * archLengthMm, 0, 'f', 1));
}

// The reslice is recorded as the viewer's own node kind: a cross-section viewer steps through a
// stack of slices, which is what the slice count, spacing and slider index describe.
std::unique_ptr<ui::Viewer2DNode> CrossSectionView::createViewerNode() const
{
    auto node = std::make_unique<ui::CrossSectionalResliceViewerNode>();
    node->setNumberOfSlices(NUMBER_OF_SLICES);
    node->setSliceSpacing(float(DentalWorkspace::PIXEL_SPACING_MM));
    node->setSliderIndex(m_sliceIndex);
    return node;
}

void CrossSectionView::applyViewerNode(const ui::Viewer2DNode& node)
{
    const auto* reslice = dynamic_cast<const ui::CrossSectionalResliceViewerNode*>(&node);
    if (!reslice)
        return;
    const size_t slices = reslice->getNumberOfSlices();
    const int index = reslice->getSliderIndex();
    if (slices < 2 || index < 0 || size_t(index) >= slices) {
        qWarning().noquote() << "CrossSectionView : slice" << index << "of" << slices
                             << "ignored for" << getID();
        return;
    }
    // A stack of another size keeps the position along the arch.
    setArchPosition(double(index) / double(slices - 1));
}

// --- CrossSectionsView ----------------------------------------------------------------------

CrossSectionsView::CrossSectionsView(DentalWorkspace& workspace)
    : MultiView(QStringLiteral("Cross-sections"))
{
    setName(QObject::tr("Cross-sections"));
    setShortCutKeySequence(QKeySequence(QStringLiteral("Ctrl+2")));
    setShortCutString(QStringLiteral("Ctrl+2"));
    addSubView(std::make_unique<CrossSectionView>(
        QStringLiteral("Cross-section A"), QObject::tr("Cross-section A"), workspace, 0.3));
    addSubView(std::make_unique<CrossSectionView>(
        QStringLiteral("Cross-section B"), QObject::tr("Cross-section B"), workspace, 0.7));
}

// --- ToothChartBridge ----------------------------------------------------------------------

ToothChartBridge::ToothChartBridge(QObject* parent)
    : QObject(parent)
    , panelColor(styleColor("PANEL_BACKGROUND_COLOR", QColor(40, 40, 40)))
    , buttonColor(styleColor("BORDER_COLOR", Qt::darkGray))
    , hoverColor(styleColor("HOVER_COLOR", Qt::blue))
    , textColor(styleColor("TEXT_COLOR", Qt::white))
    , fontFamily(StyleManager::hasManager()
              ? StyleManager::manager().getFontFamilyForQml(QStringLiteral("@APPLICATION_FONT"))
              : QString())
{
}

void ToothChartBridge::setSelectedTooth(const QString& name)
{
    if (name == m_selected || !ToothChart::isValidTooth(ToothNameGenerator::getToothIdByName(name)))
        return;
    m_selected = name;
    Q_EMIT selectedToothChanged();
}

QString ToothChartBridge::firstTooth() const
{
    return ToothNameGenerator::getName(ToothChart::FirstTooth);
}

void ToothChartBridge::renameSelection(const QString& previousNumbering)
{
    const ToothChart::Tooth tooth
        = ToothNameGenerator::getToothIdByName(m_selected, previousNumbering);
    m_selected = ToothChart::isValidTooth(tooth) ? ToothNameGenerator::getName(tooth) : QString();
    Q_EMIT selectedToothChanged();
}

// --- ToothChartView -------------------------------------------------------------------------

ToothChartView::ToothChartView(DentalWorkspace& workspace)
    : View(QStringLiteral("Tooth chart"))
    , m_workspace(workspace)
{
    setName(QObject::tr("Tooth chart"));
    setShortCutKeySequence(QKeySequence(QStringLiteral("Ctrl+3")));
    setShortCutString(QStringLiteral("Ctrl+3"));
}

ToothChartView::~ToothChartView()
{
    // The page (and with it the QML window, its scene and items) is ours unless a host still
    // shows it.
    if (QWidget* page = widget(); page && !page->parent())
        delete page;
}

void ToothChartView::start()
{
    View::start();
    // The chart is no image to measure on.
    m_workspace.setCurrentViewer(nullptr);
}

std::unique_ptr<ui::ViewNodeInteractor> ToothChartView::createNodeInteractor()
{
    return std::make_unique<ToothChartNodeInteractor>(*this);
}

QString ToothChartView::selectedTooth() const
{
    return m_bridge ? m_bridge->selectedTooth() : QString();
}

void ToothChartView::createWidget()
{
    // A page made again starts over: the old page's items and connections went with its window.
    m_teeth.clear();
    m_labels.clear();
    m_hovered = -1;
    m_host = nullptr;
    auto* window = new QQuickView();
    window->setResizeMode(QQuickView::SizeRootObjectToView);
    window->setColor(styleColor("PANEL_BACKGROUND_COLOR", QColor(40, 40, 40)));
    m_bridge = new ToothChartBridge(window);
    m_names = new ToothNameGenerator(window);
    window->rootContext()->setContextProperty(QStringLiteral("chart"), m_bridge);
    window->rootContext()->setContextProperty(QStringLiteral("toothNames"), m_names);
    window->setSource(QUrl(QStringLiteral("qrc:/dentalviewer/ToothChart.qml")));
    for (const QQmlError& error : window->errors())
        qWarning().noquote() << "ToothChartView :" << error.toString();

    QWidget* page = QWidget::createWindowContainer(window);
    page->setObjectName(QStringLiteral("toothChartPage"));
    page->setMinimumSize(320, 240);
    setWidget(page);

    m_host = window->rootObject()
        ? window->rootObject()->findChild<QuickGraphicsSceneItem*>(QStringLiteral("chartScene"))
        : nullptr;
    if (!m_host)
        return;
    m_host->setViewerTag(QStringLiteral("toothChart"));
    buildChart(*m_host->getGraphicsScene());

    QObject::connect(
        m_bridge, &ToothChartBridge::selectedToothChanged, window, [this] { updateChart(); });
    QObject::connect(
        &m_workspace, &DentalWorkspace::notationChanged, window, [this](const QString& notation) {
            m_bridge->renameSelection(
                notation == QLatin1String("FDI") ? QStringLiteral("UNIV") : QStringLiteral("FDI"));
            updateChart();
        });
    updateChart();
}

void ToothChartView::buildChart(GraphicsSceneExtra& scene)
{
    scene.setMouseTracking(true);
    scene.setBackgroundBrush(styleColor("PANEL_BACKGROUND_COLOR", QColor(40, 40, 40)));
    scene.setSceneRect(0, 0, 880, 300);
    for (int t = ToothChart::FirstTooth; t <= ToothChart::LastTooth; ++t) {
        const bool upper = ToothChart::isUpperTooth(ToothChart::Tooth(t));
        const int column = upper ? t - 1 : 32 - t;
        const bool molar = column < 3 || column > 12;
        auto* tooth = new CustomGraphicsItem(QStringLiteral("chartTooth%1").arg(t));
        QPainterPath path;
        path.addRoundedRect(QRectF(0, 0, 46, molar ? 70 : 80), molar ? 14 : 20, 12);
        tooth->setPainterPath(path);
        tooth->setPath(path);
        tooth->setPen(QPen(styleColor("BORDER_COLOR", Qt::darkGray), 2));
        tooth->setPos(20 + column * 53, upper ? 40 : 170);
        tooth->setAcceptHoverEvents(true);
        scene.addItem(tooth);
        m_teeth.append(tooth);
        const int index = t - 1;
        QObject::connect(tooth, &CustomGraphicsItem::mouseHoverEnter, tooth,
            [this, index](QGraphicsSceneHoverEvent*) {
                m_hovered = index;
                updateChart();
            });
        QObject::connect(tooth, &CustomGraphicsItem::mouseHoverLeave, tooth,
            [this, index](QGraphicsSceneHoverEvent*) {
                if (m_hovered == index)
                    m_hovered = -1;
                updateChart();
            });
        QObject::connect(
            tooth, &CustomGraphicsItem::leftClicked, tooth, [this, t](QGraphicsSceneMouseEvent*) {
                m_bridge->setSelectedTooth(ToothNameGenerator::getName(ToothChart::Tooth(t)));
            });
        auto* label = makeToothLabel(QStringLiteral("chartLabel%1").arg(t));
        label->setPos(20 + column * 53 + 8, upper ? 10 : 255);
        scene.addItem(label);
        m_labels.append(label);
    }
}

void ToothChartView::updateChart()
{
    const ToothChart::Tooth selected
        = ToothNameGenerator::getToothIdByName(m_bridge ? m_bridge->selectedTooth() : QString());
    for (int i = 0; i < m_teeth.size(); ++i) {
        const auto tooth = ToothChart::Tooth(i + 1);
        QColor fill = styleColor("TEXT_DISABLED_COLOR", Qt::gray);
        if (tooth == selected)
            fill = styleColor("SELECTION_COLOR", Qt::darkBlue);
        else if (i == m_hovered)
            fill = styleColor("HOVER_COLOR", Qt::blue);
        m_teeth[i]->setBrush(fill);
        m_labels[i]->setText(ToothNameGenerator::getName(tooth));
    }
}

// --- ToothChartNodeInteractor ---------------------------------------------------------------

ToothChartNodeInteractor::ToothChartNodeInteractor(ToothChartView& view)
    : ui::ViewNodeInteractor(view)
    , m_view(view)
{
}

std::unique_ptr<ui::Node> ToothChartNodeInteractor::generate()
{
    std::unique_ptr<ui::Node> node = ui::ViewNodeInteractor::generate();
    if (!node)
        return node;
    auto numbering = std::make_unique<ToothNumberingNode>();
    numbering->setNotation(m_view.workspace().notation());
    node->addNode(std::move(numbering));
    return node;
}

void ToothChartNodeInteractor::apply(ui::Node* node)
{
    if (!node)
        return;
    for (ui::Node* child : node->getNodes()) {
        // The workspace refuses, with a warning, a numbering it does not know.
        if (auto* numbering = dynamic_cast<ToothNumberingNode*>(child))
            m_view.workspace().setNotation(numbering->getNotation());
    }
}
