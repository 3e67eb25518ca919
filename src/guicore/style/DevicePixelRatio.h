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
        virtual void devicePixelRatioChanged() = 0;
    };

    /// 1.0 without a main window; otherwise the ratio of the main window's screen.
    static double value();
    /// Replaces the main window (null detaches only). Does not take ownership; a destroyed
    /// main window is forgotten.
    static void registerMainWindow(QWidget* mainWindow);
    /// Does not take ownership.
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
