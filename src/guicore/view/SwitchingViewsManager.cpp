#include "SwitchingViewsManager.h"

#include "MultiView.h"
#include "ViewManager.h"

#include "../Logging_p.h"
#include "../solution/Feature_p.h"

#include <guicore/action/Action.h>
#include <guicore/action/ActionManager.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/utility/shortcuts/ShortcutManager.h>

#include <QShortcut>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace {
const char* const noSolutionManagerOrActiveSolution
    = "SwitchingViewsManager : no solution manager or active solution is set.";
const char* const noActiveSolution = "SwitchingViewsManager : no solution is currently active.";
} // namespace

SwitchingViewsManager::SwitchingViewsManager()
    : QObject(nullptr)
{
    // Views are no QObjects; their destructors announce their end.
    solution::detail::FeatureWatchers::add(
        this, [this](const void* destroyed) { forgetView(destroyed); });
}

SwitchingViewsManager::~SwitchingViewsManager()
{
    solution::detail::FeatureWatchers::remove(this);
}

void SwitchingViewsManager::setSolutionManager(SolutionManager* manager)
{
    m_solutionManager = manager;
}

SolutionManager* SwitchingViewsManager::getSolutionManager() const
{
    return m_solutionManager;
}

void SwitchingViewsManager::setActionManager(action::ActionManager* manager)
{
    m_actionManager = manager;
}

action::ActionManager* SwitchingViewsManager::getActionManager() const
{
    return m_actionManager;
}

void SwitchingViewsManager::setShortcutManager(ShortcutManager* manager)
{
    m_shortcutManager = manager;
}

ShortcutManager* SwitchingViewsManager::getShortcutManager() const
{
    return m_shortcutManager;
}

Solution* SwitchingViewsManager::activeSolution() const
{
    return m_solutionManager ? m_solutionManager->getActiveSolution() : nullptr;
}

void SwitchingViewsManager::switchToView(const QString& id)
{
    Solution* solution = activeSolution();
    if (!solution) {
        qCWarning(lcView, "%s", noSolutionManagerOrActiveSolution);
        return;
    }
    if (View* view = solution->getViewById(id)) {
        switchToView(view);
        return;
    }
    if (MultiView* parent = getParentViewOfSubView(id)) {
        switchToSubView(parent, id);
        switchToView(parent);
        return;
    }
    qCWarning(lcView,
        "SwitchingViewsManager : no view or sub view with ID %s exists in the current solution.",
        qUtf8Printable(id));
}

void SwitchingViewsManager::switchToView(View* view)
{
    Solution* solution = activeSolution();
    if (!solution) {
        qCWarning(lcView, "%s", noSolutionManagerOrActiveSolution);
        return;
    }
    if (view == m_currentView)
        return;

    if (m_currentView)
        m_currentView->stop();
    // Asked to switch to nothing, the old view stays current but stopped: callers use this to
    // take the screen down without choosing a new view.
    if (!view)
        return;

    if (!solution->getViews().contains(view)) {
        MultiView* parent = getParentViewOfSubView(view->getID());
        if (!parent)
            return;
        switchToSubView(parent, view->getID());
        view = parent;
    }

    aboutToSwitchViews(m_currentView, view);
    passViewSettings(m_currentView, view);

    m_currentView = view;
    solution->setCurrentView(view);
    Q_EMIT switchingView(m_currentView);

    // Paint the new layout at once, before its viewers start loading, so the old one does not
    // linger on screen.
    if (QWidget* widget = m_currentView->getWidget())
        widget->repaint();
    m_currentView->start();
    Q_EMIT viewChanged(m_currentView->getID());
}

void SwitchingViewsManager::switchToSubView(MultiView* multiView, const QString& id)
{
    if (!multiView)
        return;
    multiView->switchToSubView(id);
    Q_EMIT viewChanged(multiView->getID());
}

QString SwitchingViewsManager::getCurrentViewID()
{
    return m_currentView ? m_currentView->getID() : QString();
}

View* SwitchingViewsManager::getCurrentView() const
{
    return m_currentView;
}

ViewManager* SwitchingViewsManager::getCurrentViewManager() const
{
    return m_currentView ? m_currentView->getViewManager() : nullptr;
}

View* SwitchingViewsManager::getCurrentViewOrSubView() const
{
    if (auto* multiView = dynamic_cast<MultiView*>(m_currentView))
        return multiView->getActiveSubView();
    return m_currentView;
}

QString SwitchingViewsManager::getCurrentViewOrSubViewID() const
{
    View* view = getCurrentViewOrSubView();
    return view ? view->getID() : QString();
}

QList<View*> SwitchingViewsManager::getViews() const
{
    return m_solutionManager ? m_solutionManager->getViews() : QList<View*>();
}

View* SwitchingViewsManager::getView(const QString& id) const
{
    const QList<View*> views = getViews();
    const auto found = std::find_if(views.cbegin(), views.cend(),
        [&id](const View* view) { return view && view->getID() == id; });
    return found != views.cend() ? *found : nullptr;
}

QList<View*> SwitchingViewsManager::getViewOrSubViews() const
{
    QList<View*> result;
    for (View* view : getViews()) {
        if (auto* multiView = dynamic_cast<MultiView*>(view)) {
            for (View* subView : multiView->getSubViews())
                result.append(subView);
        } else {
            result.append(view);
        }
    }
    return result;
}

MultiView* SwitchingViewsManager::getParentViewOfSubView(const QString& id) const
{
    Solution* solution = activeSolution();
    if (!solution)
        return nullptr;
    for (View* view : solution->getViews()) {
        auto* multiView = dynamic_cast<MultiView*>(view);
        if (multiView && multiView->getSubViewByID(id))
            return multiView;
    }
    return nullptr;
}

bool SwitchingViewsManager::isViewAvailable(const QString&) const
{
    return false;
}

bool SwitchingViewsManager::isShortcutActive(const View*)
{
    return true;
}

void SwitchingViewsManager::startCurrentView()
{
    Q_ASSERT(m_currentView);
    if (m_currentView)
        m_currentView->start();
}

void SwitchingViewsManager::stopCurrentView()
{
    Q_ASSERT(m_currentView);
    if (m_currentView)
        m_currentView->stop();
}

void SwitchingViewsManager::installViewSwitchingShortcuts(QWidget* widget)
{
    Solution* solution = activeSolution();
    if (!solution) {
        qCWarning(lcView, "%s", noActiveSolution);
        return;
    }
    if (!m_shortcutManager) {
        qCWarning(lcView, "SwitchingViewsManager : no shortcut manager is set.");
        return;
    }
    for (View* view : solution->getViews()) {
        if (!view || view->getShortCutKeySequence().isEmpty())
            continue;
        QShortcut* shortcut
            = m_shortcutManager->addWidgetShortcut(widget, view->getShortCutKeySequence());
        if (!shortcut)
            continue;
        const auto [first, last] = m_shortcuts.equal_range(shortcut);
        if (first == last) {
            connect(
                shortcut, &QShortcut::activated, this, &SwitchingViewsManager::shortcutActivated);
            connect(shortcut, &QObject::destroyed, this,
                [this, shortcut] { forgetShortcut(shortcut); });
        } else if (std::any_of(
                       first, last, [view](const auto& entry) { return entry.second == view; })) {
            // Installing twice must not list a view twice for one key, or cycling through the
            // views of that key would stall on the duplicate.
            continue;
        }
        m_shortcuts.emplace(shortcut, view);
    }
}

void SwitchingViewsManager::forgetShortcut(QObject* shortcut)
{
    // Only the address is compared: the shortcut is being destroyed.
    for (auto it = m_shortcuts.begin(); it != m_shortcuts.end();) {
        if (static_cast<const void*>(it->first) == static_cast<const void*>(shortcut))
            it = m_shortcuts.erase(it);
        else
            ++it;
    }
}

void SwitchingViewsManager::forgetView(const void* view)
{
    if (m_currentView == view)
        m_currentView = nullptr;
    for (auto it = m_shortcuts.begin(); it != m_shortcuts.end();) {
        if (it->second == view)
            it = m_shortcuts.erase(it);
        else
            ++it;
    }
}

void SwitchingViewsManager::shortcutActivated()
{
    auto* shortcut = qobject_cast<QShortcut*>(sender());
    if (!shortcut)
        return;
    QList<View*> candidates;
    const auto [first, last] = m_shortcuts.equal_range(shortcut);
    for (auto it = first; it != last; ++it) {
        if (isShortcutActive(it->second))
            candidates.append(it->second);
    }
    if (candidates.isEmpty())
        return;
    // Repeated presses of one key visit every view that shares it, in turn.
    const qsizetype current = candidates.indexOf(m_currentView);
    View* next
        = current < 0 ? candidates.first() : candidates.at((current + 1) % candidates.size());
    switchToView(next);
}

void SwitchingViewsManager::enableShortcuts(bool enable)
{
    for (auto it = m_shortcuts.begin(); it != m_shortcuts.end();
         it = m_shortcuts.upper_bound(it->first))
        it->first->setEnabled(enable);
}

QShortcut* SwitchingViewsManager::getShortcutFor(const QKeySequence& sequence) const
{
    for (const auto& [shortcut, view] : m_shortcuts) {
        if (shortcut->key() == sequence)
            return shortcut;
    }
    return nullptr;
}

void SwitchingViewsManager::freezeAll3DViewers(bool freeze)
{
    for (View* view : getViews()) {
        if (view)
            view->freeze3DViewers(freeze);
    }
}

void SwitchingViewsManager::registerSceneEventHandler(events::SceneEventHandler* handler)
{
    Solution* solution = activeSolution();
    if (!solution) {
        qCWarning(lcView, "%s", noActiveSolution);
        return;
    }
    for (View* view : solution->getViews()) {
        if (ViewManager* manager = view ? view->getViewManager() : nullptr)
            manager->registerSceneEventHandler(handler);
    }
}

void SwitchingViewsManager::unregisterSceneEventHandler(events::SceneEventHandler* handler)
{
    Solution* solution = activeSolution();
    if (!solution) {
        qCWarning(lcView, "%s", noActiveSolution);
        return;
    }
    for (View* view : solution->getViews()) {
        if (ViewManager* manager = view ? view->getViewManager() : nullptr)
            manager->unregisterSceneEventHandler(handler);
    }
}

void SwitchingViewsManager::passViewSettings(View* from, View* to)
{
    if (!from || !to)
        return;
    ViewManager* source = from->getViewManager();
    ViewManager* target = to->getViewManager();
    if (!source || !target)
        return;
    target->setViewSettings(source->getViewSettings());
}

void SwitchingViewsManager::aboutToSwitchViews(View*, View*)
{
    if (!m_actionManager)
        return;
    bool stopCurrentAction = true;
    if (Action* current = m_actionManager->getCurrentAction())
        stopCurrentAction = current->stopOnViewSwitch();
    m_actionManager->stopActiveMustBeStoppedActions(stopCurrentAction, {});
}
