#include "DentalViews.h"

#include "DentalWorkspace.h"
#include "OverlayStyle.h"
#include "SyntheticImages.h"
#include "ToothChartBridge.h"
#include "ToothNumberingNode.h"
#include "ToothSelectionNode.h"
#include "Viewer2D.h"

#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsLineSetItem.h>
#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/graphics/items/CustomGraphicsRectItem.h>
#include <guicore/graphics/manipulators/CenterDragger.h>
#include <guicore/graphics/manipulators/CrossDragger.h>
#include <guicore/graphics/manipulators/CrossedLinesManipulationGraphicsItemGroup.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtraInterface.h>
#include <guicore/graphics/scene/QuickGraphicsSceneItem.h>
#include <guicore/style/StyleManager.h>
#include <guicore/ui/CrossSectionalResliceViewerNode.h>
#include <guicore/ui/Measurement2DNode.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/ui/Viewer2DNode.h>
#include <guicore/utility/dental/ToothNameGenerator.h>

#include <settings/SettingsManager.h>
#include <toothchart/ToothChart.h>

#include <QDebug>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QJsonObject>
#include <QPainterPath>
#include <QPen>
#include <QQmlContext>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickView>
#include <QVector2D>
#include <cmath>

using overlay::styleColor;

namespace {

// The tooth chart's layout, in scene units: teeth in two rows with room above and below for
// their numbers.
constexpr double CHART_LEFT = 20;
constexpr double CHART_COLUMN = 53;
constexpr double TOOTH_WIDTH = 46;
constexpr double UPPER_TOP = 60;
constexpr double LOWER_TOP = 190;
constexpr double LOWER_BOTTOM = 270;
constexpr double NUMBER_GAP = 6;

QRectF chartToothRect(int tooth)
{
    const bool upper = ToothChart::isUpperTooth(ToothChart::Tooth(tooth));
    const int column = upper ? tooth - 1 : 32 - tooth;
    const bool molar = column < 3 || column > 12;
    const double height = molar ? 70 : 80;
    return QRectF(
        CHART_LEFT + column * CHART_COLUMN, upper ? UPPER_TOP : LOWER_TOP, TOOTH_WIDTH, height);
}

QJsonArray jsonRect(const QRectF& rect)
{
    return QJsonArray {rect.x(), rect.y(), rect.width(), rect.height()};
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
    // The keys go to the viewer on screen (the arrows pan it), not to the list beside it.
    if (m_viewer && m_viewer->hasView())
        m_viewer->view()->setFocus(Qt::OtherFocusReason);
}

void Viewer2DViewManager::stop()
{
    if (!m_viewer)
        return;
    // What is typed into a note is kept when the view goes.
    m_viewer->endNoteEditing();
    if (m_workspace.currentViewer() == m_viewer)
        m_workspace.setCurrentViewer(nullptr);
}

// --- Viewer2DView ---------------------------------------------------------------------------

Viewer2DView::Viewer2DView(const QString& id, const QString& name, DentalWorkspace& workspace)
    : View(id)
    , m_workspace(workspace)
    , m_viewer(new Viewer2D(id, workspace))
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

void Viewer2DView::restyle()
{
    m_viewer->restyle();
}

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
    for (const MeasurementData& measurement : m_view.workspace().measurements()) {
        if (measurement.viewer != viewer->getId())
            continue;
        auto measurementNode = std::make_unique<ui::Measurement2DNode>(measurement.id);
        measurementNode->setLabelRelativePositions({measurement.labelOffset});
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
            const QPointF offset = measurementNode->getLabelRelativePosition(0);
            if (!std::isfinite(offset.x()) || !std::isfinite(offset.y()))
                continue;
            // A node whose measurement is gone from the document is left alone.
            m_view.workspace().restoreLabelOffset(measurementNode->getDataObjectUUID(), offset);
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
        auto* label = new CustomGraphicsLabelItem(QStringLiteral("tooth%1").arg(i + 1));
        label->setZValue(5);
        label->setEnabled(false);
        // Over the root's end: above the upper teeth, below the lower ones.
        const bool upper = i < 16;
        label->setPos(centres[i] + QPointF(0, upper ? -88 : 88));
        label->setData(1, upper);
        viewer()->scene()->addItem(label);
        m_toothLabels.append(label);
    }
    updateToothLabels();
    restyle();
    QObject::connect(&workspace, &DentalWorkspace::notationChanged, viewer(),
        [this](const QString&) { updateToothLabels(); });
    QObject::connect(&workspace, &DentalWorkspace::crossSectionMoved, viewer(),
        [this](const QString&, double) { updateCuts(); });
}

void PanoramicView::start()
{
    Viewer2DView::start();
    updateCuts();
}

void PanoramicView::updateToothLabels()
{
    for (int i = 0; i < m_toothLabels.size(); ++i) {
        CustomGraphicsLabelItem* label = m_toothLabels[i];
        label->setText(ToothNameGenerator::getName(ToothChart::Tooth(i + 1)));
        overlay::anchorLabel(
            *label, Qt::AlignHCenter | (label->data(1).toBool() ? Qt::AlignBottom : Qt::AlignTop));
    }
}

void PanoramicView::restyle()
{
    Viewer2DView::restyle();
    // Tooth numbers lie on the radiograph, which stays dark whatever the palette.
    for (CustomGraphicsLabelItem* label : std::as_const(m_toothLabels))
        overlay::styleLabel(*label, Qt::white);
    updateCuts();
}

void PanoramicView::setCuts(std::function<QList<Cut>()> cuts)
{
    m_cuts = std::move(cuts);
    updateCuts();
}

void PanoramicView::updateCuts()
{
    const QList<Cut> cuts = m_cuts ? m_cuts() : QList<Cut>();
    const QRectF image = viewer()->imageRect();
    while (m_cutLines.size() < cuts.size()) {
        auto* line
            = new CustomGraphicsLineSetItem(QStringLiteral("cut%1").arg(m_cutLines.size() + 1));
        auto* label
            = new CustomGraphicsLabelItem(QStringLiteral("cutLabel%1").arg(m_cutLines.size() + 1));
        for (QGraphicsItem* item :
            {static_cast<QGraphicsItem*>(line), static_cast<QGraphicsItem*>(label)}) {
            item->setEnabled(false);
            item->setZValue(4);
            viewer()->scene()->addItem(item);
        }
        m_cutLines.append(line);
        m_cutLabels.append(label);
    }
    const QColor color = styleColor("DRAGGER_COLOR", Qt::cyan);
    for (int i = 0; i < m_cutLines.size(); ++i) {
        const bool used = i < cuts.size();
        m_cutLines[i]->setVisible(used);
        m_cutLabels[i]->setVisible(used);
        if (!used)
            continue;
        const double x = image.left() + cuts[i].archPosition * image.width();
        QPen pen(color, cuts[i].shown ? 2.0 : 1.0, cuts[i].shown ? Qt::SolidLine : Qt::DashLine);
        pen.setCosmetic(true);
        m_cutLines[i]->setPen(pen);
        m_cutLines[i]->setLineSet({QLineF(x, image.top(), x, image.bottom())});
        overlay::styleLabel(*m_cutLabels[i], color);
        m_cutLabels[i]->setText(cuts[i].name);
        m_cutLabels[i]->setPos(x, image.top() + 4);
        overlay::anchorLabel(*m_cutLabels[i], Qt::AlignHCenter | Qt::AlignTop);
    }
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
    restyle();
    setArchPosition(archPosition);
}

void CrossSectionView::restyle()
{
    Viewer2DView::restyle();
    m_cross->setHorizontalColor(styleColor("DRAGGER_COLOR", Qt::cyan));
    m_cross->setVerticalColor(styleColor("DRAGGER_COLOR", Qt::cyan));
    m_lines->setHorizontalColor(styleColor("MANIPULATOR_LINE_COLOR", Qt::green));
    m_lines->setVerticalColor(styleColor("MANIPULATOR_LINE_COLOR", Qt::green));
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
    index = qBound(0, index, NUMBER_OF_SLICES - 1);
    if (index == m_sliceIndex)
        return;
    m_sliceIndex = index;
    viewer()->setImage(synthetic::crossSection(archPosition()));
    viewer()->setSlice(m_sliceIndex);
    m_cross->moveVertical(QPointF(m_bounds.width() * archPosition(), m_bounds.center().y()));
    const double archLengthMm = synthetic::PANORAMIC_WIDTH * DentalWorkspace::PIXEL_SPACING_MM;
    viewer()->setCaption(
        QObject::tr("Reslice at %1 mm").arg(archPosition() * archLengthMm, 0, 'f', 1));
    workspace().moveCrossSection(getID(), archPosition());
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
{
    restyle();
}

void ToothChartBridge::restyle()
{
    panelColor = styleColor("PANEL_BACKGROUND_COLOR", QColor(40, 40, 40));
    buttonColor = styleColor("BORDER_COLOR", Qt::darkGray);
    hoverColor = styleColor("HOVER_COLOR", Qt::blue);
    textColor = styleColor("TEXT_COLOR", Qt::white);
    fontFamily = StyleManager::hasManager()
        ? StyleManager::manager().getFontFamilyForQml(QStringLiteral("@APPLICATION_FONT"))
        : QString();
    Q_EMIT styleChanged();
}

void ToothChartBridge::setSelectedTooth(const QString& name)
{
    if (name == m_selected || !ToothChart::isValidTooth(ToothNameGenerator::getToothIdByName(name)))
        return;
    m_selected = name;
    Q_EMIT selectedToothChanged();
}

void ToothChartBridge::choose(const QString& name)
{
    const ToothChart::Tooth tooth = ToothNameGenerator::getToothIdByName(name);
    if (!ToothChart::isValidTooth(tooth))
        return;
    setSelectedTooth(name);
    Q_EMIT toothChosen(int(tooth));
}

void ToothChartBridge::chooseNext()
{
    choose(m_selected.isEmpty() ? ToothNameGenerator::getName(ToothChart::FirstTooth)
                                : ToothNameGenerator::getNextTooth(m_selected));
}

void ToothChartBridge::choosePrevious()
{
    choose(m_selected.isEmpty() ? ToothNameGenerator::getName(ToothChart::FirstTooth)
                                : ToothNameGenerator::getPreviousTooth(m_selected));
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
    // The arrow keys step through the teeth as soon as the chart is on screen.
    if (QWidget* page = widget())
        page->setFocus(Qt::OtherFocusReason);
}

std::unique_ptr<ui::ViewNodeInteractor> ToothChartView::createNodeInteractor()
{
    return std::make_unique<ToothChartNodeInteractor>(*this);
}

QString ToothChartView::selectedTooth() const
{
    return m_bridge ? m_bridge->selectedTooth() : QString();
}

int ToothChartView::selectedToothNumber() const
{
    if (!m_bridge)
        return m_pendingTooth;
    const ToothChart::Tooth tooth = ToothNameGenerator::getToothIdByName(m_bridge->selectedTooth());
    return ToothChart::isValidTooth(tooth) ? int(tooth) : 0;
}

void ToothChartView::setSelectedToothNumber(int tooth)
{
    if (!ToothChart::isValidTooth(ToothChart::Tooth(tooth)))
        return;
    m_pendingTooth = tooth;
    if (m_bridge)
        m_bridge->setSelectedTooth(ToothNameGenerator::getName(ToothChart::Tooth(tooth)));
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
    m_bridge = new ToothChartBridge(window);
    window->rootContext()->setContextProperty(QStringLiteral("chart"), m_bridge);
    window->setSource(QUrl(QStringLiteral("qrc:/dentalviewer/ToothChart.qml")));
    for (const QQmlError& error : window->errors())
        qWarning().noquote() << "ToothChartView :" << error.toString();

    QWidget* page = QWidget::createWindowContainer(window);
    page->setObjectName(QStringLiteral("toothChartPage"));
    page->setMinimumSize(320, 240);
    page->setFocusPolicy(Qt::StrongFocus);
    setWidget(page);

    m_host = window->rootObject()
        ? window->rootObject()->findChild<QuickGraphicsSceneItem*>(QStringLiteral("chartScene"))
        : nullptr;
    if (!m_host)
        return;
    m_host->setViewerTag(QStringLiteral("toothChart"));
    buildChart(*m_host->getGraphicsScene());
    setSelectedToothNumber(m_pendingTooth);

    QObject::connect(
        m_bridge, &ToothChartBridge::selectedToothChanged, window, [this] { updateChart(); });
    QObject::connect(m_bridge, &ToothChartBridge::toothChosen, window, [this](int tooth) {
        m_pendingTooth = tooth;
        m_workspace.chooseTooth(tooth);
    });
    // The numbers take a new label font size at once, but lay themselves out only when asked.
    QObject::connect(
        settings::SettingsManager::manager(), &settings::SettingsManager::userDefaultSettingChanged,
        window,
        [this] {
            for (CustomGraphicsLabelItem* label : std::as_const(m_labels))
                overlay::relayout(*label);
        },
        Qt::QueuedConnection);
    QObject::connect(
        &m_workspace, &DentalWorkspace::notationChanged, window, [this](const QString& notation) {
            m_bridge->renameSelection(
                notation == QLatin1String("FDI") ? QStringLiteral("UNIV") : QStringLiteral("FDI"));
            updateChart();
        });
    restyle();
}

void ToothChartView::buildChart(GraphicsSceneExtra& scene)
{
    scene.setMouseTracking(true);
    scene.setSceneRect(0, 0, 2 * CHART_LEFT + 16 * CHART_COLUMN - (CHART_COLUMN - TOOTH_WIDTH),
        LOWER_BOTTOM + UPPER_TOP);
    for (int t = ToothChart::FirstTooth; t <= ToothChart::LastTooth; ++t) {
        const bool upper = ToothChart::isUpperTooth(ToothChart::Tooth(t));
        const QRectF rect = chartToothRect(t);
        auto* tooth = new CustomGraphicsItem(QStringLiteral("chartTooth%1").arg(t));
        QPainterPath path;
        path.addRoundedRect(QRectF(QPointF(0, 0), rect.size()), 16, 12);
        tooth->setPainterPath(path);
        tooth->setPath(path);
        tooth->setPos(rect.topLeft());
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
                m_bridge->choose(ToothNameGenerator::getName(ToothChart::Tooth(t)));
            });
        // Numbers centred over the upper teeth and under the lower ones, on one line per row,
        // at any font size: the label's box, not its baseline, is anchored there.
        auto* label = new CustomGraphicsLabelItem(QStringLiteral("chartLabel%1").arg(t));
        label->setEnabled(false);
        label->setPos(
            rect.center().x(), upper ? UPPER_TOP - NUMBER_GAP : LOWER_BOTTOM + NUMBER_GAP);
        label->setData(1, upper);
        scene.addItem(label);
        m_labels.append(label);
    }
}

void ToothChartView::restyle()
{
    if (!m_bridge)
        return;
    m_bridge->restyle();
    if (auto* window = qobject_cast<QQuickView*>(m_bridge->parent()))
        window->setColor(styleColor("PANEL_BACKGROUND_COLOR", QColor(40, 40, 40)));
    if (m_host)
        m_host->getGraphicsScene()->setBackgroundBrush(
            styleColor("PANEL_BACKGROUND_COLOR", QColor(40, 40, 40)));
    for (CustomGraphicsLabelItem* label : std::as_const(m_labels)) {
        // The chart lies on the panel: its numbers take the palette's text colour.
        label->setTextColor(styleColor("TEXT_COLOR", Qt::white));
        label->setTextOutlineColor(styleColor("PANEL_BACKGROUND_COLOR", Qt::black));
        label->fillBackground(false);
    }
    updateChart();
}

void ToothChartView::updateChart()
{
    const ToothChart::Tooth selected
        = ToothNameGenerator::getToothIdByName(m_bridge ? m_bridge->selectedTooth() : QString());
    const QColor base = styleColor("TEXT_DISABLED_COLOR", Qt::gray);
    for (int i = 0; i < m_teeth.size(); ++i) {
        const auto tooth = ToothChart::Tooth(i + 1);
        // The selection fills the tooth with the accent and rings it; hover only rings it, so
        // the tooth under the mouse is never mistaken for the selected one.
        if (tooth == selected) {
            m_teeth[i]->setBrush(styleColor("ACCENT_COLOR", Qt::blue));
            m_teeth[i]->setPen(QPen(styleColor("TEXT_COLOR", Qt::white), 4));
        } else {
            m_teeth[i]->setBrush(base);
            m_teeth[i]->setPen(i == m_hovered ? QPen(styleColor("ACCENT_COLOR", Qt::cyan), 3)
                                              : QPen(styleColor("BORDER_COLOR", Qt::darkGray), 2));
        }
        CustomGraphicsLabelItem* label = m_labels[i];
        label->setText(ToothNameGenerator::getName(tooth));
        overlay::anchorLabel(
            *label, Qt::AlignHCenter | (label->data(1).toBool() ? Qt::AlignBottom : Qt::AlignTop));
    }
}

QJsonArray ToothChartView::drawnItems() const
{
    QJsonArray items;
    GraphicsViewExtraInterface* view = m_host ? m_host->getGraphicsView() : nullptr;
    if (!view)
        return items;
    const QTransform toView = view->viewportTransform();
    for (int i = 0; i < m_teeth.size(); ++i) {
        const CustomGraphicsItem* tooth = m_teeth[i];
        items.append(QJsonObject {{QStringLiteral("name"), tooth->objectName()},
            {QStringLiteral("box"), jsonRect(toView.mapRect(tooth->sceneBoundingRect()))},
            {QStringLiteral("fill"), tooth->brush().color().name()},
            {QStringLiteral("selected"), i + 1 == selectedToothNumber()},
            {QStringLiteral("hovered"), i == m_hovered}});
        const CustomGraphicsLabelItem* label = m_labels[i];
        items.append(QJsonObject {{QStringLiteral("name"), label->objectName()},
            {QStringLiteral("text"), label->getTextItem()->getText()},
            {QStringLiteral("color"), label->getTextItem()->getTextColor().name()},
            {QStringLiteral("box"),
                jsonRect(label->deviceTransform(toView).mapRect(
                    label->getBackground()->getRect().normalized()))}});
    }
    return items;
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
    auto selection = std::make_unique<ToothSelectionNode>();
    selection->setTooth(m_view.selectedToothNumber());
    node->addNode(std::move(selection));
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
        // A restored selection is no choice of the person's: the cross-sections stay where the
        // state tree put them.
        if (auto* selection = dynamic_cast<ToothSelectionNode*>(child))
            m_view.setSelectedToothNumber(selection->getTooth());
    }
}
