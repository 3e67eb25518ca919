#pragma once

#include <guicore/guicore_export.h>

#include <QObject>
#include <QPointer>

#include <vector>

class QAction;
class QKeySequence;
class QShortcut;
class QWidget;

/// Keeps the keyboard shortcuts of the application in one place, so that an existing shortcut is
/// found before a duplicate is made and all of them can be switched off at once (for instance
/// while a modal interaction must not be disturbed by key commands).
///
/// Nothing registered is owned: shortcuts belong to their widgets and are forgotten when they
/// are destroyed. The application makes one manager at start-up, gives it the main window with
/// setMainApplicationWidget() and hands it to SwitchingViewsManager, which installs the views'
/// shortcuts through it. GUI thread only.
class GUICORE_EXPORT ShortcutManager : public QObject
{
    Q_OBJECT

public:
    /// parent owns the manager, as usual for QObjects.
    explicit ShortcutManager(QObject* parent = nullptr);
    ~ShortcutManager() override;

    /// The registered shortcuts in registration order; borrowed pointers.
    virtual std::vector<QShortcut*> getShortcuts() const;
    /// The registered actions in registration order; borrowed pointers.
    std::vector<QAction*> getQActions() const { return m_qactions; }

    /// The parent of application-wide shortcuts; not owned. Only the first call takes effect
    /// while that widget lives; a later one writes the debug message "ShortcutManager : we
    /// already have an application main widget set.".
    void setMainApplicationWidget(QWidget* widget);

    /// A shortcut on the main application widget, or null when that widget is not set yet, with
    /// the debug message "ShortcutManager : cannot add an application shortcut if the application
    /// main widget is not set.". The shortcut is owned by the widget.
    QShortcut* addApplicationShortcut(const QKeySequence& sequence);
    /// The registered shortcut of widget for sequence, or a new one with widget as parent and
    /// Qt::WindowShortcut context; owned by widget. The caller connects activated() itself.
    /// A null widget gives null.
    QShortcut* addWidgetShortcut(QWidget* widget, const QKeySequence& sequence);
    /// The first registered shortcut whose parent is widget and whose key is sequence, or null;
    /// owned by widget.
    QShortcut* findShortCutFor(QWidget* widget, const QKeySequence& sequence) const;
    /// Deletes the shortcut findShortCutFor finds, if any.
    void deleteWidgetShortcut(QWidget* widget, const QKeySequence& sequence);

    /// Registers shortcut (no duplicate check) and forgets it when it is destroyed; not owned.
    void addShortcut(QShortcut* shortcut);
    /// Registers action; not owned. Its destroyed() is connected to removeShortcut, not to
    /// removeQAction: this has always been so and applications rely on calling removeQAction
    /// themselves before they destroy an action, so the quirk is kept.
    void addQActionWithShortcut(QAction* action);

public Q_SLOTS:
    /// Enables or disables every registered shortcut, then every registered action. Shortcuts
    /// registered later are not affected: they start enabled.
    virtual void setEnabled(bool enabled);
    /// Forgets every registration of shortcutToRemove; not deleted.
    void removeShortcut(QObject* shortcutToRemove);
    /// Forgets every registration of qactionToRemove; not deleted.
    void removeQAction(QObject* qactionToRemove);

private:
    std::vector<QShortcut*> m_shortcuts;
    std::vector<QAction*> m_qactions;
    // Guarded: application shortcuts must never be given a destroyed widget as parent.
    QPointer<QWidget> m_mainApplicationWidget;
};
