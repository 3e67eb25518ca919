#include "MainWindow.h"

#include "../plugin/DentalSolutionApi.h"

#include <guicore/action/Action.h>
#include <guicore/action/ActionList.h>
#include <guicore/action/ActionManager.h>
#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/solution/Feature.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionActionGroup.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/solution/SolutionPluginInterface.h>
#include <guicore/solution/SolutionStep.h>
#include <guicore/style/DevicePixelRatio.h>
#include <guicore/ui/NodeSerializer.h>
#include <guicore/ui/ViewNode.h>
#include <guicore/utility/dental/ToothNameGenerator.h>
#include <guicore/utility/shortcuts/ShortcutManager.h>
#include <guicore/view/MultiView.h>
#include <guicore/view/SwitchingViewsManager.h>
#include <guicore/view/View.h>
#include <guicore/view/ViewNodeInteractor.h>

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPluginLoader>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>

namespace {

const QString STATE_FILE = QStringLiteral("ui-state.json");
const QString DOCUMENT_FILE = QStringLiteral("document.json");

int viewRank(const View* view)
{
    static const QStringList order {QStringLiteral("Panoramic"), QStringLiteral("Cross-sections"),
        QStringLiteral("Tooth chart")};
    const int rank = order.indexOf(view->getID());
    return rank < 0 ? int(order.size()) : rank;
}

} // namespace

MainWindow::MainWindow()
{
    // The window's screen decides the pixel ratio every overlay item is drawn at; it is known
    // before the managers, and the items they lead to, exist.
    DevicePixelRatio::registerMainWindow(this);
    m_solutionManager = std::make_unique<SolutionManager>();
    m_actionManager = std::make_unique<action::ActionManager>();
    m_shortcutManager = std::make_unique<ShortcutManager>();
    m_switching = std::make_unique<SwitchingViewsManager>();
    setWindowTitle(tr("Dental viewer"));
    setObjectName(QStringLiteral("dentalViewerMainWindow"));
    m_stack = new QStackedWidget(this);
    setCentralWidget(m_stack);
    m_statusLabel = new QLabel(this);
    statusBar()->addPermanentWidget(m_statusLabel);

    // The action manager must know the solution manager before any action is registered: it
    // learns of each action through actionAdded().
    m_actionManager->setSolutionManager(m_solutionManager.get());
    // Views are listed in a fixed order, whatever order the plug-in adds them in.
    m_solutionManager->setViewsSortPredicate(
        [](const View* a, const View* b) { return viewRank(a) < viewRank(b); });
}

MainWindow::~MainWindow()
{
    shutDown();
}

bool MainWindow::loadSolutionPlugin(const QString& fileName)
{
    m_loader = std::make_unique<QPluginLoader>(fileName);
    QObject* instance = m_loader->instance();
    m_pluginObject = instance;
    m_api = qobject_cast<DentalSolutionApi*>(instance);
    m_plugin = dynamic_cast<SolutionPluginInterface*>(m_api);
    if (!instance || !m_api || !m_plugin) {
        m_error = instance ? tr("%1 is not a dental solution plug-in").arg(fileName)
                           : m_loader->errorString();
        m_api = nullptr;
        m_plugin = nullptr;
        return false;
    }

    m_plugin->initialize();
    m_plugin->loadActions();
    m_plugin->loadFeatures();
    m_plugin->loadViews();
    // The plug-in keeps ownership; the manager holds borrowed pointers.
    for (Action* action : m_plugin->getActions())
        m_solutionManager->addAction(action);
    for (const auto& feature : m_plugin->getFeatures())
        m_solutionManager->addFeature(feature.get());
    for (View* view : m_plugin->getViews())
        m_solutionManager->addView(view);
    m_api->buildSolution(*m_solutionManager);
    m_api->setDialogParent(this);

    m_shortcutManager->setMainApplicationWidget(this);
    m_switching->setSolutionManager(m_solutionManager.get());
    m_switching->setActionManager(m_actionManager.get());
    m_switching->setShortcutManager(m_shortcutManager.get());
    m_solutionManager->setActiveSolution(m_api->solutionId(), true);

    buildViewBar();
    buildToolPanels();
    connect(m_switching.get(), &SwitchingViewsManager::switchingView, this,
        [this](View* view) { showView(view); });
    connect(m_switching.get(), &SwitchingViewsManager::viewChanged, this, [this] {
        updateSubViewChooser();
        updateStatus();
    });
    // A command such as the numbering switch changes what the status bar shows.
    connect(m_actionManager.get(), &action::ActionManager::actionStopped, this,
        [this] { updateStatus(); });
    m_switching->installViewSwitchingShortcuts(this);
    const QList<View*> views = m_solutionManager->getViews();
    if (!views.isEmpty())
        m_switching->switchToView(views.first());
    return true;
}

void MainWindow::buildViewBar()
{
    auto* bar = addToolBar(tr("Views"));
    bar->setObjectName(QStringLiteral("viewBar"));
    m_viewActions = new QActionGroup(this);
    for (View* view : m_solutionManager->getViews()) {
        auto* item = bar->addAction(view->getName());
        item->setObjectName(QStringLiteral("view:") + view->getID());
        item->setCheckable(true);
        item->setToolTip(tr("%1 (%2)").arg(view->getName(), view->getShortCutString()));
        m_viewActions->addAction(item);
        const QString id = view->getID();
        connect(item, &QAction::triggered, this, [this, id] { switchToView(id); });
    }
    m_subViews = new QComboBox(bar);
    m_subViews->setObjectName(QStringLiteral("subViewChooser"));
    m_subViewsItem = bar->addWidget(m_subViews);
    connect(m_subViews, &QComboBox::activated, this, [this](int index) {
        auto* multi = dynamic_cast<MultiView*>(m_switching->getCurrentView());
        if (multi)
            m_switching->switchToSubView(multi, m_subViews->itemData(index).toString());
    });
}

void MainWindow::buildToolPanels()
{
    // One tool bar per action list of the current step, in the order the solution laid them out.
    SolutionStep* step = m_solutionManager->getCurrentSolutionStep();
    if (!step)
        return;
    addToolBarBreak();
    for (SolutionActionGroup* group : step->getActionGroups()) {
        for (ActionList* list : group->getActionLists()) {
            auto* bar = addToolBar(list->getName());
            bar->setObjectName(QStringLiteral("tools:") + list->getID());
            for (Action* action : list->getActions()) {
                // The action owns the QAction and keeps it in step with its run state.
                QAction* item = action->getQAction();
                item->setShortcuts(action->getShortcuts());
                item->setShortcutContext(Qt::ApplicationShortcut);
                addAction(item);
                m_shortcutManager->addQActionWithShortcut(item);
                m_registeredActions.append(item);
                bar->addAction(item);
            }
        }
    }
}

void MainWindow::switchToView(const QString& id)
{
    // Takes a sub view's id too: its multi view is given the sub view first, then started once.
    m_switching->switchToView(id);
}

void MainWindow::showView(View* view)
{
    if (!view)
        return;
    QWidget* widget = view->getWidget();
    if (!widget)
        return;
    if (m_stack->indexOf(widget) < 0)
        m_stack->addWidget(widget);
    m_stack->setCurrentWidget(widget);
    for (QAction* item : m_viewActions->actions())
        item->setChecked(item->objectName() == QStringLiteral("view:") + view->getID());
}

void MainWindow::updateSubViewChooser()
{
    auto* multi = dynamic_cast<MultiView*>(m_switching->getCurrentView());
    m_subViews->clear();
    // A widget in a tool bar is shown and hidden through its action.
    m_subViewsItem->setVisible(multi != nullptr);
    if (!multi)
        return;
    for (View* sub : multi->getSubViews())
        m_subViews->addItem(sub->getName(), sub->getID());
    m_subViews->setCurrentIndex(m_subViews->findData(multi->getActiveSubViewID()));
}

void MainWindow::updateStatus()
{
    if (!m_api)
        return;
    m_statusLabel->setText(tr("View: %1 · %2")
                               .arg(m_switching->getCurrentViewOrSubViewID(),
                                   ToothNameGenerator::getToothNumberingName(m_api->notation())));
}

std::unique_ptr<ui::Node> MainWindow::generateStateTree() const
{
    // The root names the view (or sub view) on screen; below it, one node per view.
    auto root = std::make_unique<ui::ViewNode>();
    root->setViewId(m_switching->getCurrentViewOrSubViewID());
    // A multi view's own interactor stands for its active sub view. Its node here names that sub
    // view in a child view node instead, so that the choice outlives a switch to another view.
    for (View* view : m_switching->getViews()) {
        auto* multi = dynamic_cast<MultiView*>(view);
        if (!multi || !multi->getActiveSubView())
            continue;
        std::unique_ptr<ui::Node> node = ui::ViewNodeInteractor(*multi).generate();
        node->addNode(ui::ViewNodeInteractor(*multi->getActiveSubView()).generate());
        root->addNode(std::move(node));
    }
    for (View* view : m_switching->getViewOrSubViews()) {
        if (dynamic_cast<MultiView*>(view))
            continue;
        if (std::unique_ptr<ui::Node> node = view->createNodeInteractor()->generate())
            root->addNode(std::move(node));
    }
    return root;
}

void MainWindow::applyStateTree(ui::Node& root)
{
    for (ui::Node* child : root.getNodes()) {
        auto* viewNode = dynamic_cast<ui::ViewNode*>(child);
        if (!viewNode)
            continue;
        if (auto* multi = dynamic_cast<MultiView*>(m_switching->getView(viewNode->getViewId()))) {
            for (ui::Node* grandChild : viewNode->getNodes()) {
                auto* active = dynamic_cast<ui::ViewNode*>(grandChild);
                // An unknown sub view id leaves the multi view as it is.
                if (active && multi->getSubViewByID(active->getViewId()))
                    m_switching->switchToSubView(multi, active->getViewId());
            }
            continue;
        }
        View* view = nullptr;
        for (View* candidate : m_switching->getViewOrSubViews()) {
            if (candidate->getID() == viewNode->getViewId())
                view = candidate;
        }
        if (view)
            view->createNodeInteractor()->apply(viewNode);
    }
    // The view on screen last time, when this solution still has it, top-level or sub view.
    auto* rootView = dynamic_cast<ui::ViewNode*>(&root);
    if (!rootView)
        return;
    const QString id = rootView->getViewId();
    if (m_switching->getView(id) || m_switching->getParentViewOfSubView(id))
        switchToView(id);
    else if (!id.isEmpty())
        qWarning().noquote() << "MainWindow : the saved view" << id << "no longer exists";
}

QJsonObject MainWindow::dumpState() const
{
    QJsonObject dump;
    dump.insert(QStringLiteral("currentView"), m_switching->getCurrentViewID());
    dump.insert(QStringLiteral("currentViewOrSubView"), m_switching->getCurrentViewOrSubViewID());
    dump.insert(QStringLiteral("notation"), m_api ? m_api->notation() : QString());
    dump.insert(QStringLiteral("selectedTooth"), m_api ? m_api->selectedTooth() : QString());
    dump.insert(QStringLiteral("statusMessage"), m_stateMessage);
    // The measurement labels as drawn, with the pixel size of their text.
    QJsonArray labels;
    for (View* view : m_switching->getViewOrSubViews()) {
        QGraphicsView* graphicsView = m_api ? m_api->graphicsViewOf(view) : nullptr;
        if (!graphicsView || !graphicsView->scene() || dynamic_cast<MultiView*>(view))
            continue;
        for (QGraphicsItem* item : graphicsView->scene()->items()) {
            auto* label = dynamic_cast<CustomGraphicsLabelItem*>(item);
            if (!label || !label->objectName().endsWith(QLatin1String("_label")))
                continue;
            labels.append(QJsonObject {{QStringLiteral("name"), label->objectName()},
                {QStringLiteral("pixelSize"), label->getTextItem()->getFont().pixelSize()},
                {QStringLiteral("x"), label->pos().x()}, {QStringLiteral("y"), label->pos().y()}});
        }
    }
    dump.insert(QStringLiteral("labels"), labels);
    dump.insert(QStringLiteral("document"), m_api ? m_api->saveDocument() : QJsonObject());
    dump.insert(
        QStringLiteral("state"), ui::NodeSerializer::toDocument(*generateStateTree()).object());
    Action* current = m_actionManager->getCurrentAction();
    dump.insert(QStringLiteral("runningAction"), current ? current->getID() : QString());
    return dump;
}

namespace {

// True when a node of the tree was written by a newer format of its kind than this build knows:
// such a tree may mean something else by the properties it shares with ours.
bool isFromNewerVersion(const ui::Node& node)
{
    const QMap<QString, QVersionNumber>& known = node.getVersions();
    const QMap<QString, QVersionNumber>& loaded = node.getLoadingVersions();
    for (auto it = loaded.begin(); it != loaded.end(); ++it) {
        if (known.contains(it.key())
            && it.value().majorVersion() > known.value(it.key()).majorVersion())
            return true;
    }
    for (const ui::Node* child : node.getNodes()) {
        if (isFromNewerVersion(*child))
            return true;
    }
    return false;
}

} // namespace

void MainWindow::restoreState(const QString& folder)
{
    if (!m_api)
        return;
    const QDir dir(folder);
    QFile documentFile(dir.filePath(DOCUMENT_FILE));
    if (documentFile.exists()) {
        QJsonParseError error;
        const QJsonDocument document = documentFile.open(QIODevice::ReadOnly)
            ? QJsonDocument::fromJson(documentFile.readAll(), &error)
            : QJsonDocument();
        if (!document.isObject() || !m_api->loadDocument(document.object()))
            statusBar()->showMessage(
                tr("Some saved measurements could not be read and were left out."), 10000);
    }
    const QString statePath = dir.filePath(STATE_FILE);
    if (!QFile::exists(statePath))
        return;
    // The serializer warns about and refuses a damaged file or one of a later format.
    std::unique_ptr<ui::Node> root = ui::NodeSerializer::readFile(statePath);
    if (!root || isFromNewerVersion(*root)) {
        qWarning().noquote() << "MainWindow : saved view state ignored:"
                             << QDir::toNativeSeparators(statePath);
        statusBar()->showMessage(
            tr("The saved view state in %1 is damaged or from a newer version; it was ignored.")
                .arg(QDir::toNativeSeparators(statePath)),
            15000);
        m_stateMessage = statusBar()->currentMessage();
        return;
    }
    applyStateTree(*root);
}

bool MainWindow::saveState(const QString& folder) const
{
    if (!m_api || !QDir().mkpath(folder))
        return false;
    const QDir dir(folder);
    QFile documentFile(dir.filePath(DOCUMENT_FILE));
    if (!documentFile.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    documentFile.write(QJsonDocument(m_api->saveDocument()).toJson());
    return ui::NodeSerializer::writeFile(*generateStateTree(), dir.filePath(STATE_FILE));
}

void MainWindow::shutDown()
{
    if (m_shutDown)
        return;
    m_shutDown = true;
    if (m_actionManager)
        m_actionManager->stopAllActiveActions();
    if (m_switching && m_switching->getCurrentView())
        m_switching->stopCurrentView();
    // The shortcut manager forgets an action only when told: its tool buttons' actions are
    // deleted with the plug-in's actions below.
    for (const QPointer<QAction>& item : std::as_const(m_registeredActions)) {
        if (!item)
            continue;
        m_shortcutManager->removeQAction(item);
        removeAction(item);
    }
    m_registeredActions.clear();
    // The view widgets belong to the views: take them out of the stack before the plug-in
    // releases its views.
    while (m_stack && m_stack->count() > 0) {
        QWidget* page = m_stack->widget(0);
        m_stack->removeWidget(page);
        page->setParent(nullptr);
        page->hide();
    }
    if (m_plugin)
        m_plugin->close();
    m_plugin = nullptr;
    m_api = nullptr;
    // The plug-in object goes now, while the library's registries still exist; left to Qt, it
    // would be deleted among the static destructors at exit, after them. The plug-in library
    // stays mapped until the process ends: objects made by it may still be queued for deletion.
    delete m_pluginObject.data();
}
