#pragma once

#include <QMainWindow>
#include <QPointer>
#include <memory>

class DentalSolutionApi;
class QAction;
class QActionGroup;
class QComboBox;
class QLabel;
class QPluginLoader;
class QStackedWidget;
class ShortcutManager;
class SolutionManager;
class SolutionPluginInterface;
class SwitchingViewsManager;
class View;
namespace action {
class ActionManager;
}
namespace ui {
class Node;
}

// The viewer's main window and the host of the solution plug-in. It owns the managers, which live
// from start-up to shut-down, and the plug-in loader.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    // Loads the plug-in from the given file and lays out the views and tools it contributes.
    // False, with the reason in errorString(), when it cannot be loaded.
    bool loadSolutionPlugin(const QString& fileName);
    QString errorString() const { return m_error; }

    // Reads the saved state from the folder and applies it; a missing file is no error, a bad one
    // is reported in the status bar and ignored.
    void restoreState(const QString& folder);
    // Writes the state to the folder; false when it cannot be written.
    bool saveState(const QString& folder) const;

    // The current ui state as a tree (owned by the caller) and the solution's document.
    std::unique_ptr<ui::Node> generateStateTree() const;
    QJsonObject dumpState() const;

    void switchToView(const QString& id);
    // Shows the current view and numbering in the status bar.
    void updateStatus();

    // Borrowed pointers; valid while the window lives.
    SolutionManager* solutionManager() const { return m_solutionManager.get(); }
    action::ActionManager* actionManager() const { return m_actionManager.get(); }
    SwitchingViewsManager* switchingViewsManager() const { return m_switching.get(); }
    DentalSolutionApi* solution() const { return m_api; }

    // Releases the plug-in's objects; called once before the application quits.
    void shutDown();

private:
    void buildViewBar();
    void buildToolPanels();
    void showView(View* view);
    void updateSubViewChooser();
    void applyStateTree(ui::Node& root);

    std::unique_ptr<SolutionManager> m_solutionManager;
    std::unique_ptr<action::ActionManager> m_actionManager;
    std::unique_ptr<ShortcutManager> m_shortcutManager;
    std::unique_ptr<SwitchingViewsManager> m_switching;
    std::unique_ptr<QPluginLoader> m_loader;
    QPointer<QObject> m_pluginObject;
    SolutionPluginInterface* m_plugin = nullptr;
    DentalSolutionApi* m_api = nullptr;
    QStackedWidget* m_stack = nullptr;
    QActionGroup* m_viewActions = nullptr;
    QComboBox* m_subViews = nullptr;
    QAction* m_subViewsItem = nullptr;
    QLabel* m_statusLabel = nullptr;
    // The tools' actions registered with the shortcut manager; the plug-in's actions own them.
    QList<QPointer<QAction>> m_registeredActions;
    QString m_error;
    // Why the saved state was not restored; empty when it was or there was none.
    QString m_stateMessage;
    bool m_shutDown = false;
};
