#pragma once

#include "../plugin/DentalSolutionApi.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <memory>

class QAction;
class QActionGroup;
class QComboBox;
class QDialog;
class QDockWidget;
class QFrame;
class QLabel;
class QPluginLoader;
class QScreen;
class QStackedWidget;
class QTimer;
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
// from start-up to shut-down, and the plug-in loader. It keeps the person's work: every change of
// the document or of what the window shows is written to the state folder within a second, each
// file replaced whole (QSaveFile), so that a crash or a kill loses at most that second; a file
// that cannot be read is kept aside, and the window says what was lost.
class MainWindow : public QMainWindow, public DentalHost
{
    Q_OBJECT

public:
    static const QString STATE_FILE;
    static const QString DOCUMENT_FILE;

    MainWindow();
    ~MainWindow() override;

    // Creates the style singleton with the palette ("dark" or "light"), replacing the one there
    // is, and gives the application the palette's colours.
    static void installStyle(const QString& palette);
    // The window's first size: the size it was designed for where the screen has room, less
    // where it has not.
    static QSize defaultSize(const QScreen* screen);

    // Loads the plug-in from the given file and lays out the views and tools it contributes.
    // False, with the reason in errorString(), when it cannot be loaded.
    bool loadSolutionPlugin(const QString& fileName);
    QString errorString() const { return m_error; }

    // Reads the saved state from the folder and applies it; a missing file is no error, a
    // damaged one is kept aside and reported. From then on changes are saved to the folder.
    void restoreSavedState(const QString& folder);
    // Writes what changed since the last save, now; false, with the reason shown, when a file
    // cannot be written.
    bool saveStateFiles();

    // The current ui state as a tree (owned by the caller) and a dump of what is on screen.
    std::unique_ptr<ui::Node> generateStateTree() const;
    QJsonObject dumpState() const;

    void switchToView(const QString& id);
    // Shows the current view and numbering in the status bar.
    void updateStatus();
    // The keyboard shortcuts, read from the registered actions and views.
    void showShortcuts();

    // Borrowed pointers; valid while the window lives.
    SolutionManager* solutionManager() const { return m_solutionManager.get(); }
    action::ActionManager* actionManager() const { return m_actionManager.get(); }
    SwitchingViewsManager* switchingViewsManager() const { return m_switching.get(); }
    DentalSolutionApi* solution() const { return m_api; }

    // Releases the plug-in's objects; called once before the application quits, after the last
    // save.
    void shutDown();

    // DentalHost
    void showStatus(const QString& text, int timeoutMs) override;
    void reportProblem(const QString& text) override;
    void stateChanged() override;
    void showView(const QString& id) override;
    void applyPalette(const QString& name) override;
    QWidget* dialogParent() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    void buildViewBar();
    void buildToolPanels();
    void buildMenus();
    void showViewWidget(View* view);
    void updateSubViewChooser();
    void applyStateTree(ui::Node& root);
    // Copies a file that cannot be used to "<name>.<why>-<time>", so that saving over it loses
    // nothing; the copy's name, or empty with `error` set when it could not be made.
    static QString keepAside(const QString& path, const QString& why, QString& error);
    QString restoreDocument(const QString& path);
    QString restoreViewState(const QString& path);
    bool writeIfChanged(const QString& path, const QByteArray& bytes);

    std::unique_ptr<SolutionManager> m_solutionManager;
    std::unique_ptr<action::ActionManager> m_actionManager;
    std::unique_ptr<ShortcutManager> m_shortcutManager;
    std::unique_ptr<SwitchingViewsManager> m_switching;
    std::unique_ptr<QPluginLoader> m_loader;
    QPointer<QObject> m_pluginObject;
    SolutionPluginInterface* m_plugin = nullptr;
    DentalSolutionApi* m_api = nullptr;
    QStackedWidget* m_stack = nullptr;
    QFrame* m_messageBar = nullptr;
    QLabel* m_messageText = nullptr;
    QDockWidget* m_dock = nullptr;
    QActionGroup* m_viewActions = nullptr;
    QComboBox* m_subViews = nullptr;
    QAction* m_subViewsItem = nullptr;
    QLabel* m_hint = nullptr;
    QTimer* m_hintTimer = nullptr;
    QLabel* m_statusLabel = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_shortcutsAction = nullptr;
    QPointer<QDialog> m_shortcutsDialog;
    // The tools' actions registered with the shortcut manager, by action id; the plug-in's
    // actions own them.
    QHash<QString, QPointer<QAction>> m_toolActions;
    QString m_error;
    // What went wrong with the saved state at start, or with saving since; empty when nothing.
    QString m_stateMessage;
    // Saving: where, soon after a change, and the bytes last written to each file.
    QString m_stateFolder;
    QTimer* m_saveTimer = nullptr;
    QHash<QString, QByteArray> m_written;
    QString m_saveProblem;
    bool m_restoring = false;
    bool m_layoutRestored = false;
    bool m_shutDown = false;
};
