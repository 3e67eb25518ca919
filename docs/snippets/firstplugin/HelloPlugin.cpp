// The plug-in of the guide "Your first solution plug-in": one action and one view.

#include <guicore/action/ActionHandler.h>
#include <guicore/action/SingleAction.h>
#include <guicore/solution/SolutionPluginInterface.h>
#include <guicore/view/View.h>

#include <QLabel>
#include <QObject>
#include <QtPlugin>

#include <memory>

//! [handler]
// Does the work of the "hello.greet" action. A one-shot command: it ends its own run.
class GreetHandler : public ActionHandler
{
protected:
    void start() override
    {
        getCurrentAction()->setParameter(QStringLiteral("greeted"), true);
        setCanceled(false); // the run completed
        stopCurrentAction();
    }
    void stop() override { }
};
//! [handler]

//! [view]
// A screen layout with one widget, made the first time the view is shown.
class HelloView : public View
{
public:
    HelloView()
        : View(QStringLiteral("hello.view"))
    {
        setName(QStringLiteral("Hello"));
    }
    // The view does not delete its widget; this one has no parent, so the view does.
    ~HelloView() override { delete widget(); }

private:
    void createWidget() override { setWidget(new QLabel(QStringLiteral("Hello, GuiCore"))); }
};
//! [view]

//! [plugin]
class HelloPlugin : public QObject, public SolutionPluginInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.guicore.guides.HelloPlugin/1.0" FILE "HelloPlugin.json")

public:
    void initialize() override
    {
        loadActions();
        loadViews();
    }

    void loadActions() override
    {
        auto* greet = new SingleAction(QStringLiteral("hello.greet"), tr("Greet"),
            tr("Says hello"), QIcon());
        greet->setActionHandler(&m_greetHandler);
        addAction(greet); // the plug-in owns the action from here on
    }

    void loadViews() override { addView(std::make_unique<HelloView>()); }

private:
    GreetHandler m_greetHandler;
};
//! [plugin]

#include "HelloPlugin.moc"
