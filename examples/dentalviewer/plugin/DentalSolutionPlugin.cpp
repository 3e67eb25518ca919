#include "DentalSolutionPlugin.h"

#include "DentalViews.h"
#include "DentalWorkspace.h"
#include "MeasurementHandlers.h"
#include "ToothNumberingNode.h"
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

#include <settings/SettingsManager.h>

#include <QComboBox>
#include <QDateTime>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFormLayout>
#include <QPainter>
#include <QScreen>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QWidget>

#include <utility>

namespace {

const QString SOLUTION_ID = QStringLiteral("dental");

struct ToolEntry
{
    const char* id;
    const char* name;
    const char* tooltip;
    const char* shortcut;
    bool checkable;
};

// The tools in panel order: the first list holds the exclusive measurement tools, the second the
// commands. Shortcuts carry a modifier so that typing into a text annotation never starts a tool.
const ToolEntry TOOLS[] = {
    {"measureLength", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Length"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Measure a length: press, drag, release"),
        "Alt+L", true},
    {"measureArea", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Area"),
        QT_TRANSLATE_NOOP(
            "DentalSolutionPlugin", "Measure an area: click corners, double-click or Enter"),
        "Alt+A", true},
    {"annotateText", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Text"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Place a text annotation"), "Alt+T", true},
    {"resetView", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Reset view"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Fit the image into the viewer"), "Alt+R", false},
    {"exportSnapshot", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Export snapshot"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Save the viewer as PNG and as an HTML page"),
        "Ctrl+E", false},
    {"toggleNotation", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "FDI / Universal"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Switch the tooth numbering"), "Alt+N", false},
    {"preferences", QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Preferences"),
        QT_TRANSLATE_NOOP("DentalSolutionPlugin", "Palette and label font size"), "Ctrl+,", false},
};

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
    // Before the host reads the saved state, which holds the chart's numbering.
    m_numberingKindRegistered = ui::NodeFactory::registerNodeKind<ToothNumberingNode>();
    m_workspace = std::make_unique<DentalWorkspace>();
}

void DentalSolutionPlugin::loadActions()
{
    auto* dispatcher = new MultiActionHandler();
    m_handlers.emplace_back(dispatcher);
    auto* exclusive = new ActionGroup();
    m_handlers.emplace_back(exclusive);

    for (const ToolEntry& tool : TOOLS) {
        const QString id = QString::fromLatin1(tool.id);
        auto* action = new SingleAction(id, tr(tool.name), tr(tool.tooltip), QIcon());
        action->setCheckable(tool.checkable);
        action->setShortcuts({QKeySequence(QString::fromLatin1(tool.shortcut))});
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
    dispatcher->addActionHandler(
        QStringLiteral("measureLength"), new LengthMeasurementHandler(workspace));
    dispatcher->addActionHandler(
        QStringLiteral("measureArea"), new AreaMeasurementHandler(workspace));
    dispatcher->addActionHandler(
        QStringLiteral("annotateText"), new TextAnnotationHandler(workspace));
    dispatcher->addActionHandler(
        QStringLiteral("resetView"), new CommandHandler([&workspace](ActionHandler&) {
            if (Viewer2D* viewer = workspace.currentViewer())
                viewer->resetView();
        }));
    dispatcher->addActionHandler(
        QStringLiteral("exportSnapshot"), new CommandHandler([this](ActionHandler& handler) {
            exportSnapshot(static_cast<CommandHandler&>(handler)
                               .parameter(QStringLiteral("directory"))
                               .toString());
        }));
    dispatcher->addActionHandler(
        QStringLiteral("toggleNotation"), new CommandHandler([&workspace](ActionHandler&) {
            workspace.setNotation(workspace.notation() == QLatin1String("FDI")
                    ? QStringLiteral("UNIV")
                    : QStringLiteral("FDI"));
        }));
    dispatcher->addActionHandler(QStringLiteral("preferences"),
        new CommandHandler([this](ActionHandler&) { showPreferences(); }));
}

void DentalSolutionPlugin::loadFeatures()
{
    addFeature(std::make_unique<Solution>(SOLUTION_ID, tr("Dental viewer")));
    addFeature(QStringLiteral("measurements2D"));
    addFeature(QStringLiteral("toothChart"));
}

void DentalSolutionPlugin::loadViews()
{
    addView(std::make_unique<PanoramicView>(*m_workspace));
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

    // One panel group per kind of tool: measurements, then commands.
    int counter = 0;
    SolutionActionGroup* tools
        = SolutionBuilderHelper::addActionGroupToSolution(manager, m_step.get(), counter);
    ActionList* measure
        = SolutionBuilderHelper::addActionListToGroup(manager, QStringLiteral("Measure"), tools);
    ActionList* commands
        = SolutionBuilderHelper::addActionListToGroup(manager, QStringLiteral("View"), tools);
    for (const ToolEntry& tool : TOOLS) {
        Action* action = manager.getAction(QString::fromLatin1(tool.id));
        SolutionBuilderHelper::addActionsToList({action}, tool.checkable ? measure : commands);
    }
    manager.setCurrentSolutionStep(m_step->getID());
}

void DentalSolutionPlugin::close()
{
    SolutionPluginInterface::close();
    // The handlers go after the actions that point at them.
    m_handlers.clear();
    m_step.reset();
    m_workspace.reset();
    // The factory must not call into this library once it is unloaded.
    if (std::exchange(m_numberingKindRegistered, false))
        ui::NodeFactory::unregisterNodeKind(ToothNumberingNode::getClassTypeId());
}

void DentalSolutionPlugin::setDialogParent(QWidget* parent)
{
    m_dialogParent = parent;
}

QJsonObject DentalSolutionPlugin::saveDocument() const
{
    return m_workspace ? m_workspace->saveDocument() : QJsonObject();
}

bool DentalSolutionPlugin::loadDocument(const QJsonObject& document)
{
    return m_workspace && m_workspace->loadDocument(document);
}

QGraphicsView* DentalSolutionPlugin::graphicsViewOf(View* view) const
{
    if (auto* multi = dynamic_cast<MultiView*>(view))
        view = multi->getActiveSubView();
    if (auto* viewer2D = dynamic_cast<Viewer2DView*>(view))
        return viewer2D->viewer() ? viewer2D->viewer()->view() : nullptr;
    if (view && view->getWidget())
        return view->getWidget()->findChild<QGraphicsView*>();
    return nullptr;
}

QuickGraphicsSceneItem* DentalSolutionPlugin::sceneHostOf(View* view) const
{
    auto* chart = dynamic_cast<ToothChartView*>(view);
    return chart ? chart->sceneHost() : nullptr;
}

QString DentalSolutionPlugin::selectedTooth() const
{
    for (View* view : getViews()) {
        if (auto* chart = dynamic_cast<ToothChartView*>(view))
            return chart->selectedTooth();
    }
    return QString();
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

void DentalSolutionPlugin::exportSnapshot(const QString& directory)
{
    QString folder = directory;
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    QDir().mkpath(folder);
    QImage image;
    if (Viewer2D* viewer = m_workspace->currentViewer()) {
        // The viewer paints through OpenGL, which a widget grab does not see: render its scene
        // through the view's transform instead.
        GraphicsViewExtra* view = viewer->view();
        image = QImage(view->viewport()->size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        view->render(&painter, QRectF(image.rect()), view->viewport()->rect());
    } else if (m_dialogParent) {
        QWidget* window = m_dialogParent->window();
        if (QScreen* screen = window->screen())
            image = screen->grabWindow(window->winId()).toImage();
    }
    if (image.isNull())
        return;
    const QString base = QDir(folder).filePath(
        QStringLiteral("snapshot-%1")
            .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"))));
    image.save(base + QStringLiteral(".png"));
    QFile page(base + QStringLiteral(".html"));
    if (page.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        const QString html
            = QStringLiteral(
                "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title></head>\n"
                "<body><h1>%1</h1><img alt=\"snapshot\" src=\"%2\"></body>"
                "</html>\n")
                  .arg(tr("Dental viewer snapshot"), image2d::QImageHelper::streamToBase64(image));
        page.write(html.toUtf8());
    }
}

void DentalSolutionPlugin::showPreferences()
{
    // Opened, not executed: the tool's command returns at once and the dialog lives in the main
    // event loop, so nothing else waits on a nested one.
    auto* dialog = new QDialog(m_dialogParent);
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
    form->addRow(tr("Palette (after restart)"), palette);
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
    QObject::connect(dialog, &QDialog::finished, dialog,
        [palette] { QSettings().setValue(QStringLiteral("palette"), palette->currentData()); });
    dialog->open();
}
