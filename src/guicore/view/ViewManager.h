#pragma once

#include <guicore/guicore_export.h>
#include <guicore/view/ViewSettings.h>

#include <events/SceneEventViewerFilter.h>

#include <QObject>

class QCursor;
namespace events {
class SceneEventHandler;
}

/// The object each view owns to run the viewers inside its widget. This base defines the
/// interface and keeps the viewer settings record; every operation is empty here and concrete
/// managers in the applications fill them in.
class GUICORE_EXPORT ViewManager : public QObject
{
    Q_OBJECT

public:
    /// parent owns the manager as usual for QObjects; a manager handed to View::setViewManager
    /// must have no parent, because the view owns it.
    explicit ViewManager(QObject* parent = nullptr);
    ~ViewManager() override;

    virtual void initialize();
    virtual void start();
    virtual void stop();
    virtual void stopActions();
    /// Does not take ownership of handler.
    virtual void registerSceneEventHandler(events::SceneEventHandler* handler);
    /// Does not take ownership of handler.
    virtual void unregisterSceneEventHandler(events::SceneEventHandler* handler);
    virtual void setCursor(const QCursor& cursor, events::SceneEventViewerFilter viewers);
    virtual void resetCursor();

    /// A copy of the stored record, brought up to date from the live viewers by
    /// writeViewSettings().
    ViewSettings getViewSettings() const;
    /// Stores the record, then applies it to the viewers with readViewSettings().
    void setViewSettings(const ViewSettings& settings);

public Q_SLOTS:
    virtual void refresh();

private:
    virtual void readViewSettings(const ViewSettings& settings);
    virtual void writeViewSettings(ViewSettings& settings) const;

    ViewSettings m_viewSettings;
};
