#include "MainWindow.h"

#include "MainWindowNode.h"

#include <guicore/action/Action.h>
#include <guicore/action/ActionList.h>
#include <guicore/action/ActionManager.h>
#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/graphics/scene/QuickGraphicsSceneItem.h>
#include <guicore/solution/Feature.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionActionGroup.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/solution/SolutionPluginInterface.h>
#include <guicore/solution/SolutionStep.h>
#include <guicore/style/DevicePixelRatio.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>
#include <guicore/ui/NodeFactory.h>
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
#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QDebug>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QFrame>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPluginLoader>
#include <QPushButton>
#include <QQuickItem>
#include <QSaveFile>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTableWidget>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <functional>

const QString MainWindow::STATE_FILE = QStringLiteral("ui-state.json");
const QString MainWindow::DOCUMENT_FILE = QStringLiteral("document.json");

namespace {

// Changes are gathered for this long, then written together: within a second of any change.
constexpr int SAVE_DELAY_MS = 500;

int viewRank(const View* view)
{
    static const QStringList order {QStringLiteral("Panoramic"), QStringLiteral("Cross-sections"),
        QStringLiteral("Tooth chart")};
    const int rank = order.indexOf(view->getID());
    return rank < 0 ? int(order.size()) : rank;
}

QJsonObject jsonRect(const QRectF& rect)
{
    return QJsonObject {{QStringLiteral("x"), rect.x()}, {QStringLiteral("y"), rect.y()},
        {QStringLiteral("width"), rect.width()}, {QStringLiteral("height"), rect.height()}};
}

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

// The status bar's hint: never runs into the view label beside it, but is cut short with an
// ellipsis and shown whole in its tooltip.
class HintLabel : public QLabel
{
public:
    using QLabel::QLabel;

    QSize sizeHint() const override { return QSize(0, QLabel::sizeHint().height()); }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        const QRect room = contentsRect();
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
            fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
    }
};

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
    // The window's own node kind, known before any state is read.
    static const bool windowKindRegistered = ui::NodeFactory::registerNodeKind<MainWindowNode>();
    Q_UNUSED(windowKindRegistered);
    setWindowTitle(tr("Dental viewer"));
    setObjectName(QStringLiteral("dentalViewerMainWindow"));

    // Problems the person must see stay above the views until dismissed; the status bar keeps
    // the short hints, beside the view label, where a long text would be cut.
    m_messageBar = new QFrame(this);
    m_messageBar->setObjectName(QStringLiteral("messageBar"));
    m_messageBar->setFrameShape(QFrame::StyledPanel);
    m_messageText = new QLabel(m_messageBar);
    m_messageText->setObjectName(QStringLiteral("problemMessage"));
    m_messageText->setWordWrap(true);
    m_messageText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* dismiss = new QPushButton(tr("Dismiss"), m_messageBar);
    dismiss->setObjectName(QStringLiteral("dismissProblem"));
    auto* messageLayout = new QHBoxLayout(m_messageBar);
    messageLayout->addWidget(m_messageText, 1);
    messageLayout->addWidget(dismiss, 0, Qt::AlignTop);
    m_messageBar->hide();
    connect(dismiss, &QPushButton::clicked, this, [this] {
        m_messageText->clear();
        m_messageBar->hide();
    });
    m_stack = new QStackedWidget(this);
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_messageBar);
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);
    m_hint = new HintLabel(this);
    m_hint->setObjectName(QStringLiteral("statusHint"));
    statusBar()->addWidget(m_hint, 1);
    m_hintTimer = new QTimer(this);
    m_hintTimer->setSingleShot(true);
    connect(m_hintTimer, &QTimer::timeout, this, [this] { showStatus(QString(), 0); });
    m_statusLabel = new QLabel(this);
    statusBar()->addPermanentWidget(m_statusLabel);

    m_saveTimer = new QTimer(this);
    m_saveTimer->setSingleShot(true);
    m_saveTimer->setInterval(SAVE_DELAY_MS);
    connect(m_saveTimer, &QTimer::timeout, this, &MainWindow::saveStateFiles);

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

void MainWindow::installStyle(const QString& palette)
{
    const QString name
        = palette == QLatin1String("light") ? QStringLiteral("light") : QStringLiteral("dark");
    // The style is fixed for the life of its singleton: another palette is another singleton.
    // Everything asks the style for its colours when it draws or restyles, never keeps it.
    if (StyleManager::hasManager())
        StyleManager::deleteManager();
    StyleManager::createManager(StyleManagerDataProvider(
        StyleManagerDataProvider::Data({QStringLiteral(":/Resources/QSS_COLORS_APP.txt")},
            {QStringLiteral(":/Resources/QSS_DIMENSIONS.txt")},
            {QStringLiteral(":/Resources/QSS_FONTS.txt")},
            {QStringLiteral(":/Resources/QSS_DATEFORMATS.txt")}, name)));
    const StyleManager& style = StyleManager::manager();
    QPalette colours = QApplication::palette();
    colours.setColor(QPalette::Window, style.getColor(QStringLiteral("@BACKGROUND_COLOR")));
    colours.setColor(QPalette::Base, style.getColor(QStringLiteral("@PANEL_BACKGROUND_COLOR")));
    colours.setColor(QPalette::Button, style.getColor(QStringLiteral("@PANEL_BACKGROUND_COLOR")));
    colours.setColor(QPalette::WindowText, style.getColor(QStringLiteral("@TEXT_COLOR")));
    colours.setColor(QPalette::Text, style.getColor(QStringLiteral("@TEXT_COLOR")));
    colours.setColor(QPalette::ButtonText, style.getColor(QStringLiteral("@TEXT_COLOR")));
    colours.setColor(QPalette::Highlight, style.getColor(QStringLiteral("@SELECTION_COLOR")));
    colours.setColor(QPalette::HighlightedText, style.getColor(QStringLiteral("@TEXT_COLOR")));
    QApplication::setPalette(colours);
}

QSize MainWindow::defaultSize(const QScreen* screen)
{
    const QSize designed(1180, 760);
    if (!screen)
        return designed;
    // Room for a window frame and a panel the window system may add.
    const QSize room = screen->availableGeometry().size() * 0.92;
    return designed.boundedTo(room);
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
    m_api->setHost(this);

    m_shortcutManager->setMainApplicationWidget(this);
    m_switching->setSolutionManager(m_solutionManager.get());
    m_switching->setActionManager(m_actionManager.get());
    m_switching->setShortcutManager(m_shortcutManager.get());
    m_solutionManager->setActiveSolution(m_api->solutionId(), true);

    m_dock = new QDockWidget(tr("Measurements"), this);
    m_dock->setObjectName(QStringLiteral("measurementsDock"));
    m_dock->setWidget(m_api->measurementsPanel());
    // Below the views: the panoramic is a wide image.
    addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    connect(m_dock, &QDockWidget::visibilityChanged, this, [this] { stateChanged(); });

    buildViewBar();
    buildToolPanels();
    buildMenus();
    connect(m_switching.get(), &SwitchingViewsManager::switchingView, this,
        [this](View* view) { showViewWidget(view); });
    connect(m_switching.get(), &SwitchingViewsManager::viewChanged, this, [this] {
        updateSubViewChooser();
        updateStatus();
        stateChanged();
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
                m_toolActions.insert(action->getID(), item);
                bar->addAction(item);
            }
        }
    }
}

void MainWindow::buildMenus()
{
    // The menus hold the tool bars' own actions: one action, one shortcut, one enabled state.
    auto tool = [this](const char* id) { return m_toolActions.value(QString::fromLatin1(id)); };
    auto add = [](QMenu* menu, QAction* action) {
        if (action)
            menu->addAction(action);
    };
    m_quit = new QAction(tr("Quit"), this);
    m_quit->setObjectName(QStringLiteral("quit"));
    m_quit->setShortcut(QKeySequence::Quit);
    m_quit->setShortcutContext(Qt::ApplicationShortcut);
    addAction(m_quit);
    connect(m_quit, &QAction::triggered, this, &QWidget::close);
    m_shortcutsAction = new QAction(tr("Keyboard shortcuts"), this);
    m_shortcutsAction->setObjectName(QStringLiteral("showShortcuts"));
    m_shortcutsAction->setShortcut(QKeySequence::HelpContents);
    m_shortcutsAction->setShortcutContext(Qt::ApplicationShortcut);
    addAction(m_shortcutsAction);
    connect(m_shortcutsAction, &QAction::triggered, this, &MainWindow::showShortcuts);

    QMenu* file = menuBar()->addMenu(tr("&File"));
    add(file, tool("exportSnapshot"));
    file->addSeparator();
    file->addAction(m_quit);
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    for (const char* id : {"undo", "redo", "deleteMeasurement"})
        add(edit, tool(id));
    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->addActions(m_viewActions->actions());
    view->addSeparator();
    for (const char* id : {"resetView", "toggleNotation"})
        add(view, tool(id));
    view->addAction(m_dock->toggleViewAction());
    QMenu* tools = menuBar()->addMenu(tr("T&ools"));
    for (const char* id : {"measureLength", "measureArea", "annotateText"})
        add(tools, tool(id));
    tools->addSeparator();
    add(tools, tool("preferences"));
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(m_shortcutsAction);
}

void MainWindow::showShortcuts()
{
    if (m_shortcutsDialog) {
        m_shortcutsDialog->raise();
        return;
    }
    // Read from what is registered, so that the list cannot drift from the keys that work.
    QList<QPair<QString, QString>> rows;
    if (SolutionStep* step = m_solutionManager->getCurrentSolutionStep()) {
        for (SolutionActionGroup* group : step->getActionGroups()) {
            for (ActionList* list : group->getActionLists()) {
                for (Action* action : list->getActions()) {
                    QStringList keys;
                    for (const QKeySequence& sequence : action->getShortcuts())
                        keys.append(sequence.toString(QKeySequence::NativeText));
                    rows.append({action->getName(), keys.join(QStringLiteral(", "))});
                }
            }
        }
    }
    for (View* view : m_solutionManager->getViews())
        rows.append({tr("Show %1").arg(view->getName()),
            view->getShortCutKeySequence().toString(QKeySequence::NativeText)});
    for (QAction* action : {m_shortcutsAction, m_quit})
        rows.append({action->text(), action->shortcut().toString(QKeySequence::NativeText)});

    auto* dialog = new QDialog(this);
    m_shortcutsDialog = dialog;
    dialog->setObjectName(QStringLiteral("shortcutsDialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Keyboard shortcuts"));
    auto* table = new QTableWidget(int(rows.size()), 2, dialog);
    table->setObjectName(QStringLiteral("shortcutsTable"));
    table->setHorizontalHeaderLabels({tr("Command"), tr("Keys")});
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    for (int row = 0; row < rows.size(); ++row) {
        table->setItem(row, 0, new QTableWidgetItem(rows[row].first));
        table->setItem(row, 1, new QTableWidgetItem(rows[row].second));
    }
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    auto* layout = new QVBoxLayout(dialog);
    auto* note = new QLabel(tr("While a note is typed, every key goes to the note: Return or "
                               "Escape ends it, Shift+Return starts a new line."),
        dialog);
    note->setWordWrap(true);
    layout->addWidget(note);
    layout->addWidget(table);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    dialog->resize(QSize(460, 520).boundedTo(size()));
    dialog->open();
}

void MainWindow::switchToView(const QString& id)
{
    // Takes a sub view's id too: its multi view is given the sub view first, then started once.
    m_switching->switchToView(id);
}

void MainWindow::showViewWidget(View* view)
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

void MainWindow::showStatus(const QString& text, int timeoutMs)
{
    m_hint->setText(text);
    m_hint->setToolTip(text);
    if (timeoutMs > 0)
        m_hintTimer->start(timeoutMs);
    else
        m_hintTimer->stop();
}

void MainWindow::reportProblem(const QString& text)
{
    const QString shown = m_messageText->text();
    m_messageText->setText(shown.isEmpty() ? text : shown + QLatin1Char('\n') + text);
    m_messageBar->show();
}

void MainWindow::stateChanged()
{
    if (m_stateFolder.isEmpty() || m_restoring || m_shutDown || m_saveTimer->isActive())
        return;
    m_saveTimer->start();
}

void MainWindow::showView(const QString& id)
{
    switchToView(id);
}

void MainWindow::applyPalette(const QString& name)
{
    QSettings().setValue(QStringLiteral("palette"), name);
    installStyle(name);
    if (m_api)
        m_api->restyle();
}

QWidget* MainWindow::dialogParent() const
{
    return const_cast<MainWindow*>(this);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    stateChanged();
}

void MainWindow::moveEvent(QMoveEvent* event)
{
    QMainWindow::moveEvent(event);
    stateChanged();
}

std::unique_ptr<ui::Node> MainWindow::generateStateTree() const
{
    // The root names the view (or sub view) on screen; below it, the window and one node per
    // view.
    auto root = std::make_unique<ui::ViewNode>();
    root->setViewId(m_switching->getCurrentViewOrSubViewID());
    auto window = std::make_unique<MainWindowNode>();
    window->setGeometry(QString::fromLatin1(saveGeometry().toBase64()));
    window->setLayout(QString::fromLatin1(QMainWindow::saveState().toBase64()));
    root->addNode(std::move(window));
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
        if (auto* window = dynamic_cast<MainWindowNode*>(child)) {
            // Qt brings a geometry saved on a larger screen back onto this one.
            restoreGeometry(QByteArray::fromBase64(window->getGeometry().toLatin1()));
            m_layoutRestored
                = QMainWindow::restoreState(QByteArray::fromBase64(window->getLayout().toLatin1()));
            continue;
        }
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
    dump.insert(QStringLiteral("statusBar"), m_hint->text());
    dump.insert(
        QStringLiteral("windowColor"), QApplication::palette().color(QPalette::Window).name());
    dump.insert(
        QStringLiteral("problem"), m_messageBar->isVisible() ? m_messageText->text() : QString());
    dump.insert(QStringLiteral("window"), jsonRect(frameGeometry()));
    dump.insert(QStringLiteral("windowSize"), QJsonArray {geometry().width(), geometry().height()});
    if (const QScreen* shown = screen())
        dump.insert(QStringLiteral("screen"), jsonRect(shown->availableGeometry()));
    dump.insert(QStringLiteral("devicePixelRatio"), devicePixelRatioF());
    // The measurement labels of every viewer, with the pixel size of their text.
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
    // What the view on screen draws, in window coordinates: the labels and texts, and the
    // chart's teeth.
    View* current = m_switching->getCurrentView();
    QJsonArray drawn = m_api && current ? m_api->drawnLabels(current) : QJsonArray();
    std::function<QPointF(const QPointF&)> toWindow;
    if (QGraphicsView* view = m_api ? m_api->graphicsViewOf(current) : nullptr) {
        QWidget* viewport = view->viewport();
        toWindow = [this, viewport](const QPointF& p) { return viewport->mapTo(this, p); };
        dump.insert(QStringLiteral("viewport"),
            jsonRect(QRectF(viewport->mapTo(this, QPointF()), QSizeF(viewport->size()))));
    } else if (QuickGraphicsSceneItem* host = m_api ? m_api->sceneHostOf(current) : nullptr) {
        QWidget* page = current->getWidget();
        // The host's view draws in device pixels; the Quick item works in logical ones.
        toWindow = [this, host, page](const QPointF& p) {
            return page->mapTo(this, host->mapToScene(p / DevicePixelRatio::value()));
        };
    }
    for (int i = 0; toWindow && i < drawn.size(); ++i) {
        QJsonObject item = drawn[i].toObject();
        const QJsonArray box = item.value(QStringLiteral("box")).toArray();
        const QPointF topLeft = toWindow(QPointF(box[0].toDouble(), box[1].toDouble()));
        const QPointF bottomRight = toWindow(
            QPointF(box[0].toDouble() + box[2].toDouble(), box[1].toDouble() + box[3].toDouble()));
        item.insert(QStringLiteral("box"), jsonRect(QRectF(topLeft, bottomRight)));
        drawn[i] = item;
    }
    dump.insert(QStringLiteral("drawn"), drawn);
    QJsonObject actions;
    for (auto it = m_toolActions.begin(); it != m_toolActions.end(); ++it) {
        if (it.value())
            actions.insert(it.key(),
                QJsonObject {{QStringLiteral("enabled"), it.value()->isEnabled()},
                    {QStringLiteral("tooltip"), it.value()->toolTip()}});
    }
    dump.insert(QStringLiteral("actions"), actions);
    dump.insert(QStringLiteral("debug"), m_api ? m_api->debugState() : QJsonObject());
    dump.insert(QStringLiteral("document"), m_api ? m_api->saveDocument() : QJsonObject());
    dump.insert(
        QStringLiteral("state"), ui::NodeSerializer::toDocument(*generateStateTree()).object());
    Action* running = m_actionManager->getCurrentAction();
    dump.insert(QStringLiteral("runningAction"), running ? running->getID() : QString());
    return dump;
}

QString MainWindow::keepAside(const QString& path, const QString& why, QString& error)
{
    const QString stem
        = QStringLiteral("%1.%2-%3")
              .arg(path, why,
                  QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
    QString copy = stem;
    for (int n = 2; QFileInfo::exists(copy); ++n)
        copy = stem + QStringLiteral("-%1").arg(n);
    QFile file(path);
    if (!file.copy(copy)) {
        error = file.errorString();
        return QString();
    }
    return copy;
}

QString MainWindow::restoreDocument(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return QString();
    if (!file.open(QIODevice::ReadOnly))
        return tr("The measurements in %1 could not be read: %2.")
            .arg(QDir::toNativeSeparators(path), file.errorString());
    const DocumentLoad load = m_api->loadDocument(file.readAll());
    if (!load.damaged)
        return QString();
    // The file is saved over soon with what could be read: the damaged one is kept first.
    QString error;
    const QString kept = keepAside(path, QStringLiteral("damaged"), error);
    const QString read = load.lost < 0
        ? tr("%1 measurement(s) could be read, the rest of the file is lost.").arg(load.read)
        : tr("%1 of %2 measurement(s) could be read, %3 lost.")
              .arg(load.read)
              .arg(load.read + load.lost)
              .arg(load.lost);
    const QString backup = kept.isEmpty()
        ? tr("The damaged file could not be kept: %1.").arg(error)
        : tr("The damaged file is kept as %1.").arg(QDir::toNativeSeparators(kept));
    return tr("The saved measurements in %1 are damaged: %2 %3")
        .arg(QDir::toNativeSeparators(path), read, backup);
}

QString MainWindow::restoreViewState(const QString& path)
{
    if (!QFile::exists(path))
        return QString();
    // The serializer warns about and refuses a damaged file or one of a later format.
    std::unique_ptr<ui::Node> root = ui::NodeSerializer::readFile(path);
    const bool newer = root && isFromNewerVersion(*root);
    if (root && !newer) {
        applyStateTree(*root);
        return QString();
    }
    qWarning().noquote() << "MainWindow : saved view state ignored:"
                         << QDir::toNativeSeparators(path);
    QString error;
    const QString kept
        = keepAside(path, newer ? QStringLiteral("newer") : QStringLiteral("damaged"), error);
    const QString backup = kept.isEmpty()
        ? tr("It could not be kept: %1.").arg(error)
        : tr("It is kept as %1.").arg(QDir::toNativeSeparators(kept));
    return (newer ? tr("The saved view state in %1 is from a newer version; it was ignored.")
                  : tr("The saved view state in %1 is damaged; it was ignored."))
               .arg(QDir::toNativeSeparators(path))
        + QLatin1Char(' ') + backup;
}

void MainWindow::restoreSavedState(const QString& folder)
{
    m_stateFolder = folder;
    if (!m_api)
        return;
    m_restoring = true;
    const QDir dir(folder);
    // The view state refers to the measurements by id: the document comes first.
    QStringList problems {
        restoreDocument(dir.filePath(DOCUMENT_FILE)), restoreViewState(dir.filePath(STATE_FILE))};
    problems.removeAll(QString());
    m_restoring = false;
    // A first start, or one without a usable layout: the list stays low, so that the viewer
    // keeps most of a small window.
    if (!m_layoutRestored && m_dock)
        resizeDocks({m_dock}, {qBound(80, height() / 5, 150)}, Qt::Vertical);
    if (problems.isEmpty())
        return;
    m_stateMessage = problems.join(QLatin1Char(' '));
    for (const QString& problem : std::as_const(problems))
        reportProblem(problem);
    // What could be read replaces the damaged files, which are kept aside.
    stateChanged();
}

bool MainWindow::writeIfChanged(const QString& path, const QByteArray& bytes)
{
    if (m_written.value(path) == bytes && QFile::exists(path))
        return true;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        const QString problem = tr("Your work could not be saved to %1: %2. It stays here while "
                                   "the viewer runs; saving is tried again at the next change.")
                                    .arg(QDir::toNativeSeparators(path), file.errorString());
        if (problem != m_saveProblem) {
            m_saveProblem = problem;
            reportProblem(problem);
        }
        return false;
    }
    m_written.insert(path, bytes);
    return true;
}

bool MainWindow::saveStateFiles()
{
    m_saveTimer->stop();
    if (!m_api || m_stateFolder.isEmpty())
        return false;
    if (!QDir().mkpath(m_stateFolder)) {
        reportProblem(tr("Your work could not be saved: the folder %1 cannot be made.")
                          .arg(QDir::toNativeSeparators(m_stateFolder)));
        return false;
    }
    const QDir dir(m_stateFolder);
    const bool document = writeIfChanged(
        dir.filePath(DOCUMENT_FILE), QJsonDocument(m_api->saveDocument()).toJson());
    const bool state
        = writeIfChanged(dir.filePath(STATE_FILE), ui::NodeSerializer::write(*generateStateTree()));
    if (document && state)
        m_saveProblem.clear();
    return document && state;
}

void MainWindow::shutDown()
{
    if (m_shutDown)
        return;
    m_shutDown = true;
    m_saveTimer->stop();
    // The dock reports its hiding while the window is destroyed, after this object's part.
    if (m_dock)
        disconnect(m_dock, nullptr, this, nullptr);
    if (m_actionManager)
        m_actionManager->stopAllActiveActions();
    if (m_switching && m_switching->getCurrentView())
        m_switching->stopCurrentView();
    // The shortcut manager forgets an action only when told: its tool buttons' actions are
    // deleted with the plug-in's actions below.
    for (const QPointer<QAction>& item : std::as_const(m_toolActions)) {
        if (!item)
            continue;
        m_shortcutManager->removeQAction(item);
        removeAction(item);
    }
    m_toolActions.clear();
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
