#include <guicore/style/DevicePixelRatio.h>

#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <memory>

namespace {

QStringList calls;

// Records into one list shared by all listeners, so that the order of calls can be compared.
class RecordingListener : public DevicePixelRatio::Listener
{
public:
    explicit RecordingListener(QString name)
        : name(std::move(name))
    {
        DevicePixelRatio::registerListener(this);
    }
    ~RecordingListener() override { DevicePixelRatio::unregisterListener(this); }
    void devicePixelRatioChanged() override { calls.append(name); }

private:
    QString name;
};

// The offscreen platform has a single screen: tell the window it changed, as Qt does when the
// user drags the window onto another monitor.
void moveToScreen(QWidget& window)
{
    Q_EMIT window.windowHandle()->screenChanged(window.windowHandle()->screen());
}

} // namespace

class tst_DevicePixelRatio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        calls.clear();
    }
    void cleanup() { DevicePixelRatio::registerMainWindow(nullptr); }

    void listenersFollowTheMainWindowsScreen()
    {
        QWidget window;
        QCOMPARE(DevicePixelRatio::value(), 1.0); // no main window yet
        DevicePixelRatio::registerMainWindow(&window);
        QVERIFY(!window.windowHandle());
        QCOMPARE(DevicePixelRatio::value(), window.devicePixelRatioF());
        RecordingListener first("first");
        RecordingListener second("second");
        delete new RecordingListener("gone");
        RecordingListener third("third");

        window.show(); // creates the native window and sends WinIdChange
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(DevicePixelRatio::value(), window.windowHandle()->screen()->devicePixelRatio());
        moveToScreen(window);
        QCOMPARE(calls, (QStringList {"first", "second", "third"}));
        // Registering the same window again must not connect it twice.
        calls.clear();
        DevicePixelRatio::registerMainWindow(&window);
        moveToScreen(window);
        QCOMPARE(calls, (QStringList {"first", "second", "third"}));
    }

    void secondMainWindowDetachesTheFirst()
    {
        QWidget firstWindow;
        auto secondWindow = std::make_unique<QWidget>();
        firstWindow.show();
        secondWindow->show();
        QVERIFY(QTest::qWaitForWindowExposed(&firstWindow));
        QVERIFY(QTest::qWaitForWindowExposed(secondWindow.get()));
        RecordingListener listener("listener");
        DevicePixelRatio::registerMainWindow(&firstWindow);
        DevicePixelRatio::registerMainWindow(secondWindow.get());
        moveToScreen(firstWindow);
        QVERIFY(calls.isEmpty());
        moveToScreen(*secondWindow);
        QCOMPARE(calls, QStringList {"listener"});

        // A WinIdChange of the first window must not reattach it: its event filter is gone.
        QEvent winIdChange(QEvent::WinIdChange);
        QCoreApplication::sendEvent(&firstWindow, &winIdChange);
        moveToScreen(firstWindow);
        QCOMPARE(calls, QStringList {"listener"});

        secondWindow.reset(); // a destroyed main window is forgotten
        QCOMPARE(DevicePixelRatio::value(), 1.0);
        DevicePixelRatio::registerMainWindow(nullptr); // must not touch the dead window
    }
};

QTEST_MAIN(tst_DevicePixelRatio)
#include "tst_devicepixelratio.moc"
