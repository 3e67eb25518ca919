#pragma once

#include <guicore/guicore_export.h>

#include <QList>
#include <QObject>

class QEvent;
class QScreen;
class QWidget;

/// The device pixel ratio of the application's main window, and who to tell when it changes.
///
/// A process-wide object made on first use. Listeners are called in registration order when the
/// main window's native window moves to another screen.
///
/// Register the main window once it exists (its native window may come later: the object waits
/// for it). Every overlay item of the library is a Listener and redraws its fixed-screen-size
/// parts when told. GUI thread only; the object is never destroyed before exit, so listeners may
/// unregister from destructors that run late in shut-down.
class GUICORE_EXPORT DevicePixelRatio : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(DevicePixelRatio)

public:
    /// Told when the main window's screen changes. Implementers register in their constructor
    /// and unregister in their destructor.
    class GUICORE_EXPORT Listener
    {
    public:
        virtual ~Listener();
        /// The main window moved to another screen; read the new ratio with value(). Called on
        /// the GUI thread from Qt's screen-change signal. A listener may unregister itself or
        /// others meanwhile; those unregistered are not called afterwards.
        virtual void devicePixelRatioChanged() = 0;
    };

    /// 1.0 without a main window; otherwise the ratio of the main window's screen (before the
    /// native window exists, the widget's own ratio).
    static double value();
    /// Replaces the main window (null detaches only). Does not take ownership; a destroyed
    /// main window is forgotten.
    static void registerMainWindow(QWidget* mainWindow);
    /// Adds listener at the end of the list. Does not take ownership.
    static void registerListener(Listener* listener);
    /// Removes every registration of listener.
    static void unregisterListener(Listener* listener);

protected:
    /// Watches the main window for a (re-)created native window; never consumes an event.
    bool eventFilter(QObject* object, QEvent* event) override;

private Q_SLOTS:
    void screenChanged(QScreen* screen);

private:
    DevicePixelRatio();
    static DevicePixelRatio& instance();

    void attach(QWidget* window);
    void detach();
    void connectNativeWindow();

    QWidget* mainWindow = nullptr;
    QList<Listener*> listeners;
};
