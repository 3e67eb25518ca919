#include <guicore/utility/shortcuts/ShortcutManager.h>

#include <QAction>
#include <QKeySequence>
#include <QShortcut>
#include <QWidget>
#include <QtDebug>

#include <algorithm>

namespace {

template <typename T> void eraseObject(std::vector<T*>& list, const QObject* object)
{
    // Called from destroyed(): the object is half torn down, so only its address is compared.
    list.erase(std::remove_if(list.begin(), list.end(),
                   [object](T* item) { return static_cast<QObject*>(item) == object; }),
        list.end());
}

} // namespace

ShortcutManager::ShortcutManager(QObject* parent)
    : QObject(parent)
{
}

ShortcutManager::~ShortcutManager() = default;

std::vector<QShortcut*> ShortcutManager::getShortcuts() const
{
    return m_shortcuts;
}

void ShortcutManager::setMainApplicationWidget(QWidget* widget)
{
    if (m_mainApplicationWidget) {
        // Plain qDebug(), here and below: these documented messages belong in the debug log by
        // default, and guicore.utility lets only warnings through.
        qDebug("ShortcutManager : we already have an application main widget set.");
        return;
    }
    m_mainApplicationWidget = widget;
}

QShortcut* ShortcutManager::addApplicationShortcut(const QKeySequence& sequence)
{
    if (!m_mainApplicationWidget) {
        qDebug("ShortcutManager : cannot add an application shortcut if the application main "
               "widget is not set.");
        return nullptr;
    }
    return addWidgetShortcut(m_mainApplicationWidget, sequence);
}

QShortcut* ShortcutManager::addWidgetShortcut(QWidget* widget, const QKeySequence& sequence)
{
    if (!widget)
        return nullptr;
    if (QShortcut* existing = findShortCutFor(widget, sequence))
        return existing;
    auto* shortcut = new QShortcut(sequence, widget);
    shortcut->setContext(Qt::WindowShortcut);
    addShortcut(shortcut);
    return shortcut;
}

QShortcut* ShortcutManager::findShortCutFor(QWidget* widget, const QKeySequence& sequence) const
{
    const auto found = std::find_if(
        m_shortcuts.begin(), m_shortcuts.end(), [widget, &sequence](QShortcut* shortcut) {
            return shortcut->parent() == widget && shortcut->key() == sequence;
        });
    return found == m_shortcuts.end() ? nullptr : *found;
}

void ShortcutManager::deleteWidgetShortcut(QWidget* widget, const QKeySequence& sequence)
{
    // Its destroyed() takes it out of the list.
    delete findShortCutFor(widget, sequence);
}

void ShortcutManager::addShortcut(QShortcut* shortcut)
{
    if (!shortcut)
        return;
    connect(shortcut, &QObject::destroyed, this, &ShortcutManager::removeShortcut);
    m_shortcuts.push_back(shortcut);
}

void ShortcutManager::addQActionWithShortcut(QAction* action)
{
    if (!action)
        return;
    connect(action, &QObject::destroyed, this, &ShortcutManager::removeShortcut);
    m_qactions.push_back(action);
}

void ShortcutManager::removeShortcut(QObject* shortcutToRemove)
{
    eraseObject(m_shortcuts, shortcutToRemove);
}

void ShortcutManager::removeQAction(QObject* qactionToRemove)
{
    eraseObject(m_qactions, qactionToRemove);
}

void ShortcutManager::setEnabled(bool enabled)
{
    for (QShortcut* shortcut : m_shortcuts)
        shortcut->setEnabled(enabled);
    for (QAction* action : m_qactions)
        action->setEnabled(enabled);
}
