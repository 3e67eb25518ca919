#pragma once

#include <guicore/view/View.h>
#include <guicore/view/ViewManager.h>

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

// The concrete views and managers belong to the applications; these stand-ins write what the
// library asks of them into one shared log, so tests can compare whole sequences.
class RecordingManager : public ViewManager
{
public:
    RecordingManager(QString name, QStringList& log)
        : m_name(std::move(name))
        , m_log(log)
    {
    }

    void initialize() override { m_log.append(m_name + ".initialize"); }
    void start() override { m_log.append(m_name + ".start"); }
    void stop() override { m_log.append(m_name + ".stop"); }
    void stopActions() override { m_log.append(m_name + ".stopActions"); }
    void registerSceneEventHandler(events::SceneEventHandler*) override { note(".register"); }
    void unregisterSceneEventHandler(events::SceneEventHandler*) override { note(".unregister"); }

    // What the live viewers of this manager would report.
    qint64 liveValue = 0;

private:
    void note(const char* what) { m_log.append(m_name + what); }
    void readViewSettings(const ViewSettings& settings) override
    {
        m_log.append(QStringLiteral("%1.read(%2)").arg(m_name).arg(settings.firstValue));
    }
    void writeViewSettings(ViewSettings& settings) const override
    {
        settings.firstValue = liveValue;
    }

    QString m_name;
    QStringList& m_log;
};

class RecordingView : public View
{
public:
    RecordingView(const QString& id, QStringList& log, bool withManager = true)
        : View(id)
        , m_log(log)
    {
        if (withManager)
            setViewManager(std::make_unique<RecordingManager>(id, log));
    }
    ~RecordingView() override
    {
        if (onDestroy)
            onDestroy(*this);
        delete ownWidget.data();
    }

    RecordingManager* manager() const { return static_cast<RecordingManager*>(getViewManager()); }
    QWidget* currentWidget() const { return widget(); }
    void releaseWidget() override { m_log.append(getID() + ".releaseWidget"); }

    int widgetsCreated = 0;
    QPointer<QWidget> ownWidget;
    std::function<void(RecordingView&)> onDestroy;

private:
    void createWidget() override
    {
        ++widgetsCreated;
        ownWidget = new QWidget();
        ownWidget->setObjectName(getID());
        setWidget(ownWidget);
    }

    QStringList& m_log;
};
