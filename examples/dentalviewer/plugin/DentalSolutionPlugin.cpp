#include "DentalSolutionPlugin.h"

#include "DentalViews.h"
#include "DentalWorkspace.h"
#include "MeasurementHandlers.h"
#include "MeasurementsPanel.h"
#include "ToothNumberingNode.h"
#include "ToothSelectionNode.h"
#include "Viewer2D.h"

#include <guicore/action/ActionGroup.h>
#include <guicore/action/ActionList.h>
#include <guicore/action/MultiActionHandler.h>
#include <guicore/action/SingleAction.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>
#include <guicore/graphics/scene/QuickGraphicsSceneItem.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionActionGroup.h>
#include <guicore/solution/SolutionBuilderHelper.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/solution/SolutionStep.h>
#include <guicore/ui/NodeFactory.h>
#include <guicore/utility/image/QImageHelper.h>

#include <guicore/utility/dental/ToothNameGenerator.h>
#include <settings/SettingsManager.h>
#include <toothchart/ToothChart.h>

#include <QComboBox>
#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QImageWriter>
#include <QJsonArray>
#include <QLocale>
#include <QPainter>
#include <QSaveFile>
#include <QScreen>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QUndoStack>
#include <QWidget>

#include <utility>

namespace {

const QString SOLUTION_ID = QStringLiteral("dental");

enum class ToolList { Measure, Edit, View };

struct ToolEntry
{
    const char* id;
    const char* name;
    const char* tooltip;
    const char* shortcut;
    bool checkable;
    ToolList list;
};

// The tools in panel order: the exclusive measurement tools, the edits, then the commands.
// Shortcuts of tools carry a modifier, and a note being typed takes the edit keys: typing never
// starts a tool or deletes a measurement.
const ToolEntry TOOLS[] = {
    {"measureLength", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Length"),
        QT_TRANSLATE_NOOP(
            "DentalSolutionPlugin", "Measure a length: drag from end to end, or click both ends"),
        "Alt+L", true, ToolList::Measure},
    {"measureArea", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Area"),
        QT_TRANSLATE_NOOP(
            "DentalSolutionPlugin", "Measure an area: click corners, double-click or Enter"),
        "Alt+A", true, ToolList::Measure},
    {"annotateText", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Text"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Place a note"), "Alt+T", true,
        ToolList::Measure},
    {"undo", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Undo"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Undo the last change"), "Ctrl+Z", false,
        ToolList::Edit},
    {"redo", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Redo"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Redo the change undone last"), "Ctrl+Shift+Z",
        false, ToolList::Edit},
    {"deleteMeasurement", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Delete"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Delete the selected measurement or note"), "Del",
        false, ToolList::Edit},
    {"resetView", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Reset view"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Fit the image into the viewer"), "Alt+R", false,
        ToolList::View},
    {"exportSnapshot", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Export snapshot"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Save the viewer as PNG and as an HTML page"),
        "Ctrl+E", false, ToolList::View},
    {"toggleNotation", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "FDI / Universal"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Switch the tooth numbering"), "Alt+N", false,
        ToolList::View},
    {"preferences", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Preferences"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Palette and label font size"), "Ctrl+,", false,
        ToolList::View},
};

// A tool whose availability depends on what is on screen. The action manager asks every action
// to update itself after each run; a tool that does not apply says why in its tooltip instead of
// running and doing nothing.
class ToolAction : public SingleAction
{
public:
    ToolAction(const ToolEntry& tool, std::function<QString()> unavailability)
        : SingleAction(
            QString::fromLatin1(tool.id), DentalSolutionPlugin::tr(tool.name), QString(), QIcon())
        , m_tooltip(DentalSolutionPlugin::tr(tool.tooltip))
        , m_unavailability(std::move(unavailability))
    {
        setCheckable(tool.checkable);
        // The shortcut goes into the tooltip here, so that a changed tooltip keeps it.
        setShowShortcutInTooltip(false);
        setShortcuts({QKeySequence(QString::fromLatin1(tool.shortcut))});
        updateState();
    }

    void updateState() override
    {
        const QString reason = m_unavailability ? m_unavailability() : QString();
        setDisabled(!reason.isEmpty());
        const QString keys = getShortcuts().value(0).toString(QKeySequence::NativeText);
        setTooltip(
            reason.isEmpty() ? DentalSolutionPlugin::tr("%1 (%2)").arg(m_tooltip, keys) : reason);
    }

private:
    QString m_tooltip;
    std::function<QString()> m_unavailability;
};

QString uniqueBase(const QString& folder, const QDateTime& when)
{
    const QString stem = QDir(folder).filePath(
        QStringLiteral("snapshot-%1").arg(when.toString(QStringLiteral("yyyyMMdd-HHmmss"))));
    QString base = stem;
    for (int n = 2; QFileInfo::exists(base + QStringLiteral(".png")); ++n)
        base = stem + QStringLiteral("-%1").arg(n);
    return base;
}

} // namespace

DentalSolutionPlugin::DentalSolutionPlugin() = default;

DentalSolutionPlugin::~DentalSolutionPlugin()
{
    close();
}

void DentalSolutionPlugin::initialize()
{
    // The tooth chart's QML page uses the scene host type; it must be known before QML loads.
    static const bool registered = [] {
        QuickGraphicsSceneItem::registerQMLType();
        return true;
    }();
    Q_UNUSED(registered);
    // Before the host reads the saved state, which holds the chart's numbering and selection.
    m_nodeKindsRegistered = ui::NodeFactory::registerNodeKind<ToothNumberingNode>()
        && ui::NodeFactory::registerNodeKind<ToothSelectionNode>();
    m_workspace = std::make_unique<DentalWorkspace>();
    DentalWorkspace& workspace = *m_workspace;
    connect(&workspace, &DentalWorkspace::statusMessage, this, [this](const QString& text, int ms) {
        if (m_host)
            m_host->showStatus(text, ms);
    });
    connect(&workspace, &DentalWorkspace::problemReported, this, [this](const QString& text) {
        if (m_host)
            m_host->reportProblem(text);
    });
    auto changed = [this] {
        if (m_host)
            m_host->stateChanged();
    };
    connect(&workspace, &DentalWorkspace::documentChanged, this, changed);
    connect(&workspace, &DentalWorkspace::viewStateChanged, this, changed);
    connect(&workspace, &DentalWorkspace::toothChosen, this, &DentalSolutionPlugin::followTooth);
    // What the tools can do changes with the view on screen, the selection and the history.
    connect(&workspace, &DentalWorkspace::currentViewerChanged, this,
        &DentalSolutionPlugin::updateActions);
    connect(
        &workspace, &DentalWorkspace::selectionChanged, this, &DentalSolutionPlugin::updateActions);
    connect(workspace.undoStack(), &QUndoStack::indexChanged, this,
        &DentalSolutionPlugin::updateActions);
}

QString DentalSolutionPlugin::unavailability(const QString& id) const
{
    if (!m_workspace)
        return QString();
    static const QStringList onImage {QStringLiteral("measureLength"),
        QStringLiteral("measureArea"), QStringLiteral("annotateText"), QStringLiteral("resetView")};
    if (onImage.contains(id) && !m_workspace->currentViewer())
        return tr("Not in the tooth chart: measuring and zooming need an image, in the panoramic "
                  "or a cross-section.");
    QUndoStack* history = m_workspace->undoStack();
    if (id == QLatin1String("undo") && !history->canUndo())
        return tr("Nothing to undo.");
    if (id == QLatin1String("redo") && !history->canRedo())
        return tr("Nothing to redo.");
    if (id == QLatin1String("deleteMeasurement") && m_workspace->selectedMeasurement().isEmpty())
        return tr("Select a measurement or note first: click it, or pick it in the list.");
    return QString();
}

void DentalSolutionPlugin::updateActions()
{
    for (Action* action : getActions())
        action->update();
}

void DentalSolutionPlugin::loadActions()
{
    auto* dispatcher = new MultiActionHandler();
    m_handlers.emplace_back(dispatcher);
    auto* exclusive = new ActionGroup();
    m_handlers.emplace_back(exclusive);

    for (const ToolEntry& tool : TOOLS) {
        const QString id = QString::fromLatin1(tool.id);
        auto* action = new ToolAction(tool, [this, id] { return unavailability(id); });
        if (tool.checkable) {
            // Escape or a right click ends a running tool; a view switch stops it too.
            action->enableStopWithEventFilter();
            action->setMustBeStopped(true);
            action->setStopOnViewSwitch(true);
            exclusive->addAction(action);
        }
        action->setActionHandler(dispatcher);
        addAction(action);
    }

    DentalWorkspace& workspace = *m_workspace;
    auto command = [dispatcher](const char* id, std::function<void(ActionHandler&)> run) {
        dispatcher->addActionHandler(QString::fromLatin1(id), new CommandHandler(std::move(run)));
    };
    dispatcher->addActionHandler(
        QStringLiteral("measureLength"), new LengthMeasurementHandler(workspace));
    dispatcher->addActionHandler(
        QStringLiteral("measureArea"), new AreaMeasurementHandler(workspace));
    dispatcher->addActionHandler(
        QStringLiteral("annotateText"), new TextAnnotationHandler(workspace));
    command("undo", [&workspace](ActionHandler&) {
        const QString what = workspace.undoStack()->undoText();
        workspace.undoStack()->undo();
        workspace.showStatus(tr("Undone: %1").arg(what), 4000);
    });
    command("redo", [&workspace](ActionHandler&) {
        const QString what = workspace.undoStack()->redoText();
        workspace.undoStack()->redo();
        workspace.showStatus(tr("Redone: %1").arg(what), 4000);
    });
    command("deleteMeasurement", [&workspace](ActionHandler&) {
        workspace.removeMeasurement(workspace.selectedMeasurement());
    });
    command("resetView", [&workspace](ActionHandler&) {
        if (Viewer2D* viewer = workspace.currentViewer())
            viewer->resetView();
    });
    command("exportSnapshot", [this](ActionHandler& handler) {
        exportSnapshot(static_cast<CommandHandler&>(handler)
                           .parameter(QStringLiteral("directory"))
                           .toString());
    });
    command("toggleNotation", [&workspace](ActionHandler&) {
        workspace.setNotation(workspace.notation() == QLatin1String("FDI") ? QStringLiteral("UNIV")
                                                                           : QStringLiteral("FDI"));
    });
    command("preferences", [this](ActionHandler&) { showPreferences(); });
}

void DentalSolutionPlugin::loadFeatures()
{
    addFeature(std::make_unique<Solution>(SOLUTION_ID, tr("Dental viewer")));
    addFeature(QStringLiteral("measurements2D"));
    addFeature(QStringLiteral("toothChart"));
}

void DentalSolutionPlugin::loadViews()
{
    auto panoramic = std::make_unique<PanoramicView>(*m_workspace);
    // The panoramic marks where each cross-section cuts, the one on screen in full.
    panoramic->setCuts([this] {
        QList<PanoramicView::Cut> cuts;
        if (CrossSectionsView* sections = crossSections()) {
            for (View* sub : sections->getSubViews()) {
                if (auto* section = dynamic_cast<CrossSectionView*>(sub))
                    cuts.append({section->getID().right(1), section->archPosition(),
                        sections->getActiveSubView() == section});
            }
        }
        return cuts;
    });
    addView(std::move(panoramic));
    addView(std::make_unique<CrossSectionsView>(*m_workspace));
    addView(std::make_unique<ToothChartView>(*m_workspace));
}

QString DentalSolutionPlugin::solutionId() const
{
    return SOLUTION_ID;
}

void DentalSolutionPlugin::buildSolution(SolutionManager& manager)
{
    auto* solution = dynamic_cast<Solution*>(manager.getFeature(SOLUTION_ID));
    if (!solution)
        return;
    manager.addSolution(solution);
    for (View* view : getViews())
        solution->addView(view);

    m_step = std::make_unique<SolutionStep>(QStringLiteral("view"), tr("View"));
    solution->addSolutionStep(m_step.get());
    manager.addSolutionStep(m_step.get());

    // One panel group of tool lists: measurements, edits, then commands.
    int counter = 0;
    SolutionActionGroup* tools
        = SolutionBuilderHelper::addActionGroupToSolution(manager, m_step.get(), counter);
    ActionList* lists[] {
        SolutionBuilderHelper::addActionListToGroup(manager, QStringLiteral("Measure"), tools),
        SolutionBuilderHelper::addActionListToGroup(manager, QStringLiteral("Edit"), tools),
        SolutionBuilderHelper::addActionListToGroup(manager, QStringLiteral("View"), tools)};
    for (const ToolEntry& tool : TOOLS) {
        Action* action = manager.getAction(QString::fromLatin1(tool.id));
        SolutionBuilderHelper::addActionsToList({action}, lists[int(tool.list)]);
    }
    manager.setCurrentSolutionStep(m_step->getID());
}

void DentalSolutionPlugin::close()
{
    delete m_panel.data();
    SolutionPluginInterface::close();
    // The handlers go after the actions that point at them.
    m_handlers.clear();
    m_step.reset();
    m_workspace.reset();
    m_host = nullptr;
    // The factory must not call into this library once it is unloaded.
    if (std::exchange(m_nodeKindsRegistered, false)) {
        ui::NodeFactory::unregisterNodeKind(ToothNumberingNode::getClassTypeId());
        ui::NodeFactory::unregisterNodeKind(ToothSelectionNode::getClassTypeId());
    }
}

void DentalSolutionPlugin::setHost(DentalHost* host)
{
    m_host = host;
}

QJsonObject DentalSolutionPlugin::saveDocument() const
{
    return m_workspace ? m_workspace->saveDocument() : QJsonObject();
}

DocumentLoad DentalSolutionPlugin::loadDocument(const QByteArray& bytes)
{
    return m_workspace ? m_workspace->loadDocument(bytes) : DocumentLoad();
}

QWidget* DentalSolutionPlugin::measurementsPanel()
{
    if (!m_panel && m_workspace)
        m_panel = new MeasurementsPanel(*m_workspace, [this](const QString& id) { reveal(id); });
    return m_panel;
}

void DentalSolutionPlugin::restyle()
{
    for (View* view : getViews()) {
        if (auto* chart = dynamic_cast<ToothChartView*>(view))
            chart->restyle();
        if (auto* multi = dynamic_cast<MultiView*>(view)) {
            for (View* sub : multi->getSubViews()) {
                if (auto* viewer = dynamic_cast<Viewer2DView*>(sub))
                    viewer->restyle();
            }
        }
        if (auto* viewer = dynamic_cast<Viewer2DView*>(view))
            viewer->restyle();
    }
}

CrossSectionsView* DentalSolutionPlugin::crossSections() const
{
    for (View* view : getViews()) {
        if (auto* sections = dynamic_cast<CrossSectionsView*>(view))
            return sections;
    }
    return nullptr;
}

ToothChartView* DentalSolutionPlugin::toothChart() const
{
    for (View* view : getViews()) {
        if (auto* chart = dynamic_cast<ToothChartView*>(view))
            return chart;
    }
    return nullptr;
}

void DentalSolutionPlugin::reveal(const QString& id)
{
    const MeasurementData* data = m_workspace ? m_workspace->measurement(id) : nullptr;
    if (!data || !m_host)
        return;
    if (CrossSectionsView* sections = crossSections()) {
        if (auto* section = dynamic_cast<CrossSectionView*>(sections->getSubViewByID(data->viewer));
            section && data->slice >= 0)
            section->setSliceIndex(data->slice);
    }
    m_host->showView(data->viewer);
}

void DentalSolutionPlugin::followTooth(int tooth)
{
    // The cross-section the cross-sections view shows moves to the chosen tooth.
    CrossSectionsView* sections = crossSections();
    auto* section
        = sections ? dynamic_cast<CrossSectionView*>(sections->getActiveSubView()) : nullptr;
    const QList<QPointF> centres = synthetic::panoramicToothCentres();
    if (!section || tooth < 1 || tooth > centres.size())
        return;
    section->setArchPosition(centres[tooth - 1].x() / synthetic::PANORAMIC_WIDTH);
    m_workspace->showStatus(
        tr("%1 now cuts through tooth %2.")
            .arg(section->getName(), ToothNameGenerator::getName(ToothChart::Tooth(tooth))),
        4000);
}

QGraphicsView* DentalSolutionPlugin::graphicsViewOf(View* view) const
{
    if (auto* multi = dynamic_cast<MultiView*>(view))
        view = multi->getActiveSubView();
    if (auto* viewer2D = dynamic_cast<Viewer2DView*>(view))
        return viewer2D->viewer() ? viewer2D->viewer()->view() : nullptr;
    return nullptr;
}

QuickGraphicsSceneItem* DentalSolutionPlugin::sceneHostOf(View* view) const
{
    auto* chart = dynamic_cast<ToothChartView*>(view);
    return chart ? chart->sceneHost() : nullptr;
}

QString DentalSolutionPlugin::selectedTooth() const
{
    ToothChartView* chart = toothChart();
    return chart ? chart->selectedTooth() : QString();
}

QString DentalSolutionPlugin::notation() const
{
    return m_workspace ? m_workspace->notation() : QString();
}

void DentalSolutionPlugin::setNotation(const QString& notation)
{
    if (m_workspace)
        m_workspace->setNotation(notation);
}

QJsonObject DentalSolutionPlugin::debugState() const
{
    if (!m_workspace)
        return QJsonObject();
    QUndoStack* history = m_workspace->undoStack();
    Viewer2D* viewer = m_workspace->currentViewer();
    return QJsonObject {{QStringLiteral("selected"), m_workspace->selectedMeasurement()},
        {QStringLiteral("undoIndex"), history->index()},
        {QStringLiteral("undoCount"), history->count()},
        {QStringLiteral("undoText"), history->undoText()},
        {QStringLiteral("redoText"), history->redoText()},
        {QStringLiteral("editingNote"), viewer && viewer->isEditingNote()},
        {QStringLiteral("slice"), viewer ? viewer->slice() : -1}};
}

QJsonArray DentalSolutionPlugin::drawnLabels(View* view) const
{
    if (auto* multi = dynamic_cast<MultiView*>(view))
        view = multi->getActiveSubView();
    if (auto* chart = dynamic_cast<ToothChartView*>(view))
        return chart->drawnItems();
    QJsonArray labels;
    auto* viewer2D = dynamic_cast<Viewer2DView*>(view);
    if (!viewer2D || !viewer2D->viewer())
        return labels;
    for (const Viewer2D::DrawnLabel& label : viewer2D->viewer()->drawnLabels()) {
        labels.append(QJsonObject {{QStringLiteral("name"), label.name},
            {QStringLiteral("text"), label.text}, {QStringLiteral("color"), label.color.name()},
            {QStringLiteral("box"),
                QJsonArray {label.box.x(), label.box.y(), label.box.width(), label.box.height()}}});
    }
    return labels;
}

void DentalSolutionPlugin::exportSnapshot(const QString& directory)
{
    const QString folder = directory.isEmpty()
        ? QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)
        : directory;
    if (!QDir().mkpath(folder)) {
        m_workspace->reportProblem(tr("The snapshot was not saved: the folder %1 cannot be made.")
                                       .arg(QDir::toNativeSeparators(folder)));
        return;
    }
    QImage image;
    QString what;
    if (Viewer2D* viewer = m_workspace->currentViewer()) {
        // The viewer paints through OpenGL, which a widget grab does not see: render its scene
        // through the view's transform instead. Its scale bar is part of the scene.
        GraphicsViewExtra* view = viewer->view();
        image = QImage(view->viewport()->size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        view->render(&painter, QRectF(image.rect()), view->viewport()->rect());
        what = viewer->getId();
    } else if (m_host && m_host->dialogParent()) {
        QWidget* window = m_host->dialogParent()->window();
        if (QScreen* screen = window->screen())
            image = screen->grabWindow(window->winId()).toImage();
        what = tr("Tooth chart");
    }
    if (image.isNull()) {
        m_workspace->reportProblem(tr("The snapshot was not saved: nothing could be captured."));
        return;
    }
    // What a snapshot shows and when, written under the picture: a picture without its date
    // and scale cannot be compared with another.
    const QDateTime now = QDateTime::currentDateTime();
    const QString caption = tr("%1 · %2 · %3 mm per image pixel")
                                .arg(what, QLocale().toString(now, QLocale::ShortFormat))
                                .arg(DentalWorkspace::PIXEL_SPACING_MM);
    QImage stamped(image.width(), image.height() + 28, QImage::Format_RGB32);
    stamped.fill(Qt::black);
    {
        QPainter painter(&stamped);
        painter.drawImage(0, 0, image);
        painter.setPen(Qt::white);
        painter.drawText(QRect(8, image.height(), image.width() - 16, 28),
            Qt::AlignVCenter | Qt::AlignLeft, caption);
    }
    const QString base = uniqueBase(folder, now);
    const QString picture = base + QStringLiteral(".png");
    QImageWriter writer(picture);
    if (!writer.write(stamped)) {
        m_workspace->reportProblem(
            tr("The snapshot was not saved to %1: %2")
                .arg(QDir::toNativeSeparators(picture), writer.errorString()));
        return;
    }
    const QString pagePath = base + QStringLiteral(".html");
    QSaveFile page(pagePath);
    const QString html
        = QStringLiteral("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title>"
                         "</head>\n<body><h1>%1</h1><p>%2</p><img alt=\"snapshot\" src=\"%3\">"
                         "</body></html>\n")
              .arg(tr("Dental viewer snapshot"), caption.toHtmlEscaped(),
                  image2d::QImageHelper::streamToBase64(stamped));
    if (!page.open(QIODevice::WriteOnly) || page.write(html.toUtf8()) < 0 || !page.commit()) {
        m_workspace->reportProblem(
            tr("The snapshot page was not saved to %1: %2")
                .arg(QDir::toNativeSeparators(pagePath), page.errorString()));
        return;
    }
    m_workspace->showStatus(
        tr("Snapshot saved: %1 and %2")
            .arg(QDir::toNativeSeparators(picture), QFileInfo(pagePath).fileName()),
        15000);
}

void DentalSolutionPlugin::showPreferences()
{
    // Opened, not executed: the tool's command returns at once and the dialog lives in the main
    // event loop, so nothing else waits on a nested one.
    auto* dialog = new QDialog(m_host ? m_host->dialogParent() : nullptr);
    dialog->setObjectName(QStringLiteral("preferencesDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Preferences"));
    auto* form = new QFormLayout(dialog);
    auto* palette = new QComboBox(dialog);
    palette->setObjectName(QStringLiteral("palette"));
    palette->addItem(tr("Dark"), QStringLiteral("dark"));
    palette->addItem(tr("Light"), QStringLiteral("light"));
    palette->setCurrentIndex(
        palette->findData(QSettings().value(QStringLiteral("palette"), QStringLiteral("dark"))));
    form->addRow(tr("Palette"), palette);
    // The palette changes at once, as the label size does.
    QObject::connect(palette, &QComboBox::currentIndexChanged, dialog, [this, palette] {
        if (m_host)
            m_host->applyPalette(palette->currentData().toString());
    });
    auto* fontSize = new QSpinBox(dialog);
    fontSize->setObjectName(QStringLiteral("labelFontSize"));
    fontSize->setRange(6, 48);
    settings::SettingsManager* userDefaults = settings::SettingsManager::manager();
    fontSize->setValue(
        userDefaults->getUserDefaults().getSetting(QStringLiteral("labelFontSize")).toInt());
    form->addRow(tr("Label font size"), fontSize);
    // Labels listen to the user default themselves, so they follow the spin box live.
    QObject::connect(fontSize, &QSpinBox::valueChanged, dialog, [userDefaults](int size) {
        userDefaults->setUserDefault(QStringLiteral("labelFontSize"), size);
    });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    form->addRow(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    dialog->open();
}
