// The solution plug-in that tst_pluginunload loads, closes and unloads. It is a module of its own,
// as a real plug-in is, so that anything a registry still points at after the unload lies in
// freed memory or unmapped code. It makes one of each kind of object a plug-in contributes.

#include <guicore/action/ActionGroup.h>
#include <guicore/action/CustomAction.h>
#include <guicore/action/EmptyActionHandler.h>
#include <guicore/action/MultiAction.h>
#include <guicore/action/SingleAction.h>
#include <guicore/solution/Solution.h>
#include <guicore/solution/SolutionBuilderHelper.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/solution/SolutionPluginInterface.h>
#include <guicore/solution/SolutionStep.h>
#include <guicore/view/MultiView.h>

#include "../view/ViewTestDoubles.h"

class UnloadTestPlugin : public QObject, public SolutionPluginInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.guicore.tests.UnloadTestPlugin")

public:
    ~UnloadTestPlugin() override { close(); }

    void initialize() override { }

    void loadActions() override
    {
        auto* measure = new SingleAction(QStringLiteral("measure"));
        measure->setCheckable(true);
        measure->setActionHandler(&m_handler);
        m_exclusive.addAction(measure);
        addAction(measure);
        addAction(new MultiAction(QStringLiteral("tools")));
        addAction(new SingleAction(QStringLiteral("zoom")));
        addAction(new CustomAction(QStringLiteral("note")));
        addAction(measure);
    }

    void loadFeatures() override
    {
        addFeature(std::make_unique<Solution>(QStringLiteral("unload"), QStringLiteral("Unload")));
        addFeature(QStringLiteral("extra"));
        addFeature(std::unique_ptr<solution::Feature>());
    }

    void loadViews() override
    {
        auto plain = std::make_unique<RecordingView>(QStringLiteral("plain"), m_log);
        plain->setShortCutKeySequence(QKeySequence(QStringLiteral("Ctrl+1")));
        auto multi = std::make_unique<MultiView>(QStringLiteral("multi"));
        multi->addSubView(std::make_unique<RecordingView>(QStringLiteral("sub"), m_log));
        multi->setShortCutKeySequence(QKeySequence(QStringLiteral("Ctrl+2")));
        addView(std::move(plain));
        addView(std::move(multi));
        addView(nullptr);
    }

    void close() override
    {
        SolutionPluginInterface::close();
        m_step.reset();
    }

public Q_SLOTS:
    // The host calls this once it has registered the actions, features and views.
    void buildSolution(SolutionManager* manager)
    {
        auto* solution = dynamic_cast<Solution*>(manager->getFeature("unload"));
        manager->addSolution(solution);
        for (View* view : getViews())
            solution->addView(view);
        m_step = std::make_unique<SolutionStep>("step", "Step");
        solution->addSolutionStep(m_step.get());
        manager->addSolutionStep(m_step.get());
        manager->setCurrentSolutionStep(m_step->getID());

        // The multi-action registers its child through the action framework's registry face.
        auto* tools = static_cast<MultiAction*>(manager->getAction("tools"));
        tools->setSolutionManager(manager);
        tools->addAction(getActions().at(2));

        int n = 0;
        auto* group = SolutionBuilderHelper::addActionGroupToSolution(*manager, m_step.get(), n);
        SolutionBuilderHelper::addActionsToList(
            getActions(), SolutionBuilderHelper::addActionListToGroup(*manager, "panel", group));
    }

private:
    QStringList m_log;
    EmptyActionHandler m_handler;
    ActionGroup m_exclusive;
    std::unique_ptr<SolutionStep> m_step;
};

#include "UnloadTestPlugin.moc"
