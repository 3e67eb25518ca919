#include <guicore/style/DevicePixelRatio.h>

#include <QCoreApplication>
#include <QEvent>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <memory>

namespace {

// Records into a list shared by all listeners, so that the order of calls can be compared.
class RecordingListener : public DevicePixelRatio::Listener
{
public:
    RecordingListener(QString name, QStringList* log)
        : name(std::move(name))
        , log(log)
    {
        DevicePixelRatio::registerListener(this);
    }
    ~RecordingListener() override { DevicePixelRatio::unregisterListener(this); }

    void devicePixelRatioChanged() override { log->append(name); }

private:
    QString name;
    QStringList* log;
};

void moveToScreen(QWidget& window)
{
    // The offscreen platform has a single screen: tell the window it changed, as Qt does when
    // the user drags the window onto another monitor.
    Q_EMIT window.windowHandle()->screenChanged(window.windowHandle()->screen());
}

} // namespace

class tst_DevicePixelRatio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void valueFollowsMainWindowScreen();
    void listenersAreToldInRegistrationOrder();
    void secondMainWindowDetachesTheFirst();
    void nativeWindowCreatedAfterRegistration();
    void destroyedMainWindowIsForgotten();

private:
    QStringList log;
};

void tst_DevicePixelRatio::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    log.clear();
}

void tst_DevicePixelRatio::cleanup()
{
    DevicePixelRatio::registerMainWindow(nullptr);
}

void tst_DevicePixelRatio::valueFollowsMainWindowScreen()
{
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(DevicePixelRatio::value(), 1.0); // no main window yet
    DevicePixelRatio::registerMainWindow(&window);
    QCOMPARE(DevicePixelRatio::value(), window.windowHandle()->screen()->devicePixelRatio());
}

void tst_DevicePixelRatio::listenersAreToldInRegistrationOrder()
{
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    DevicePixelRatio::registerMainWindow(&window);

    RecordingListener first("first", &log);
    RecordingListener second("second", &log);
    {
        RecordingListener gone("gone", &log);
    }
    RecordingListener third("third", &log);

    moveToScreen(window);
    QCOMPARE(log, (QStringList {"first", "second", "third"}));

    // Registering the same window again must not connect it twice.
    log.clear();
    DevicePixelRatio::registerMainWindow(&window);
    moveToScreen(window);
    QCOMPARE(log, (QStringList {"first", "second", "third"}));
}

void tst_DevicePixelRatio::secondMainWindowDetachesTheFirst()
{
    QWidget firstWindow;
    QWidget secondWindow;
    firstWindow.show();
    secondWindow.show();
    QVERIFY(QTest::qWaitForWindowExposed(&firstWindow));
    QVERIFY(QTest::qWaitForWindowExposed(&secondWindow));
    RecordingListener listener("listener", &log);

    DevicePixelRatio::registerMainWindow(&firstWindow);
    DevicePixelRatio::registerMainWindow(&secondWindow);
    moveToScreen(firstWindow);
    QVERIFY(log.isEmpty());
    moveToScreen(secondWindow);
    QCOMPARE(log, QStringList {"listener"});

    // A WinIdChange of the first window must not reattach it: its event filter is gone.
    QEvent winIdChange(QEvent::WinIdChange);
    QCoreApplication::sendEvent(&firstWindow, &winIdChange);
    log.clear();
    moveToScreen(firstWindow);
    QVERIFY(log.isEmpty());
}

void tst_DevicePixelRatio::nativeWindowCreatedAfterRegistration()
{
    QWidget window;
    QVERIFY(!window.windowHandle());
    DevicePixelRatio::registerMainWindow(&window);
    RecordingListener listener("listener", &log);

    window.show(); // creates the native window and sends WinIdChange
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    moveToScreen(window);
    QCOMPARE(log, QStringList {"listener"});
}

void tst_DevicePixelRatio::destroyedMainWindowIsForgotten()
{
    auto window = std::make_unique<QWidget>();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    DevicePixelRatio::registerMainWindow(window.get());
    window.reset();
    QCOMPARE(DevicePixelRatio::value(), 1.0);
    DevicePixelRatio::registerMainWindow(nullptr); // must not touch the dead window
}

QTEST_MAIN(tst_DevicePixelRatio)
#include "tst_devicepixelratio.moc"
