// The host of the guide "Your first solution plug-in": loads the plug-in named on the command
// line, shows its view and runs its action. Exits with 1 when any step fails.

#include <guicore/action/Action.h>
#include <guicore/action/ActionManager.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/solution/SolutionPluginInterface.h>
#include <guicore/view/SwitchingViewsManager.h>
#include <guicore/view/View.h>

#include <QApplication>
#include <QLabel>
#include <QPluginLoader>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);

    //! [managers]
    SolutionManager solutions;
    action::ActionManager actions;
    // Before any plug-in registers an action: the action manager sees only later ones.
    actions.setSolutionManager(&solutions);
    //! [managers]

    //! [load]
    QPluginLoader loader(app.arguments().value(1));
    auto* plugin = dynamic_cast<SolutionPluginInterface*>(loader.instance());
    if (!plugin) {
        qCritical("cannot load the plug-in: %s", qUtf8Printable(loader.errorString()));
        return 1;
    }
    plugin->initialize();

    Solution hello(QStringLiteral("hello"), QStringLiteral("Hello"));
    for (Action* action : plugin->getActions())
        solutions.addAction(action);
    for (View* view : plugin->getViews()) {
        solutions.addView(view);
        hello.addView(view);
    }
    solutions.addSolution(&hello);
    solutions.setActiveSolution(hello.getID(), true);
    //! [load]

    //! [run]
    SwitchingViewsManager switching;
    switching.setSolutionManager(&solutions);
    switching.setActionManager(&actions);
    switching.switchToView(QStringLiteral("hello.view"));

    Action* greet = solutions.getAction(QStringLiteral("hello.greet"));
    greet->start(false);
    //! [run]

    bool ok = switching.getCurrentViewID() == QLatin1String("hello.view")
        && qobject_cast<QLabel*>(switching.getCurrentView()->getWidget()) != nullptr
        && greet->getParameter(QStringLiteral("greeted")).toBool() && !greet->isActive()
        && actions.getActiveActionsCount() == 0;

    //! [unload]
    // Close before unloading: the plug-in deletes its actions and views, every registry forgets
    // them, and only then may their code go.
    plugin->close();
    loader.unload();
    //! [unload]

    ok = ok && solutions.getActionsCount() == 0 && !solutions.hasView(QStringLiteral("hello.view"))
        && switching.getCurrentView() == nullptr;
    if (!ok)
        qCritical("the plug-in did not behave as the guide says");
    return ok ? 0 : 1;
}
