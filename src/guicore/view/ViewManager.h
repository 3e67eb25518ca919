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

    /// Sets the viewers up; View::reset() calls it again. Empty here.
    virtual void initialize();
    /// @{
    /// Called by View::start() and View::stop() when the view comes on and goes off screen.
    /// Empty here.
    virtual void start();
    virtual void stop();
    /// @}
    /// Stops the tools running in this view's viewers. Empty here.
    virtual void stopActions();
    /// Does not take ownership of handler.
    virtual void registerSceneEventHandler(events::SceneEventHandler* handler);
    /// Does not take ownership of handler.
    virtual void unregisterSceneEventHandler(events::SceneEventHandler* handler);
    /// Shows cursor over the viewers the filter selects. Empty here.
    virtual void setCursor(const QCursor& cursor, events::SceneEventViewerFilter viewers);
    /// Gives the viewers their default cursor back. Empty here.
    virtual void resetCursor();

    /// A copy of the stored record, brought up to date from the live viewers by
    /// writeViewSettings().
    ViewSettings getViewSettings() const;
    /// Stores the record, then applies it to the viewers with readViewSettings().
    void setViewSettings(const ViewSettings& settings);

public Q_SLOTS:
    /// Repaints the viewers. Empty here.
    virtual void refresh();

private:
    virtual void readViewSettings(const ViewSettings& settings);
    virtual void writeViewSettings(ViewSettings& settings) const;

    ViewSettings m_viewSettings;
};
