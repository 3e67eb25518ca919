#include "DevicePixelRatio.h"

#include <guicore/Logging_p.h>

#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

DevicePixelRatio::Listener::~Listener() = default;

DevicePixelRatio::DevicePixelRatio() = default;

DevicePixelRatio& DevicePixelRatio::instance()
{
    // Never destroyed before exit: items may still unregister from their destructors late.
    static DevicePixelRatio* const ratio = new DevicePixelRatio();
    return *ratio;
}

double DevicePixelRatio::value()
{
    const QWidget* window = instance().mainWindow;
    if (!window)
        return 1.0;
    if (const QWindow* native = window->windowHandle()) {
        if (const QScreen* screen = native->screen())
            return screen->devicePixelRatio();
    }
    return window->devicePixelRatioF();
}

void DevicePixelRatio::registerMainWindow(QWidget* mainWindow)
{
    DevicePixelRatio& self = instance();
    self.detach();
    self.attach(mainWindow);
}

void DevicePixelRatio::registerListener(Listener* listener)
{
    instance().listeners.append(listener);
}

void DevicePixelRatio::unregisterListener(Listener* listener)
{
    instance().listeners.removeAll(listener);
}

bool DevicePixelRatio::eventFilter(QObject* object, QEvent* event)
{
    // The native window may be created only after registration (or re-created later).
    if (event->type() == QEvent::WinIdChange && object == mainWindow)
        connectNativeWindow();
    return false;
}

void DevicePixelRatio::screenChanged(QScreen* screen)
{
    qCDebug(lcStyle) << "Main window moved to screen" << screen << "ratio"
                     << (screen ? screen->devicePixelRatio() : 1.0);
    // A copy: a listener may unregister itself, or others, while being told.
    const QList<Listener*> current = listeners;
    for (Listener* listener : current) {
        if (listeners.contains(listener))
            listener->devicePixelRatioChanged();
    }
}

void DevicePixelRatio::attach(QWidget* window)
{
    mainWindow = window;
    if (!mainWindow)
        return;
    mainWindow->installEventFilter(this);
    connect(mainWindow, &QObject::destroyed, this, [this](QObject* object) {
        if (object == mainWindow)
            mainWindow = nullptr;
    });
    connectNativeWindow();
}

void DevicePixelRatio::detach()
{
    if (!mainWindow)
        return;
    mainWindow->removeEventFilter(this);
    disconnect(mainWindow, &QObject::destroyed, this, nullptr);
    if (QWindow* native = mainWindow->windowHandle())
        disconnect(native, &QWindow::screenChanged, this, &DevicePixelRatio::screenChanged);
    mainWindow = nullptr;
}

void DevicePixelRatio::connectNativeWindow()
{
    if (!mainWindow)
        return;
    if (QWindow* native = mainWindow->windowHandle())
        connect(native, &QWindow::screenChanged, this, &DevicePixelRatio::screenChanged,
            Qt::UniqueConnection);
}
