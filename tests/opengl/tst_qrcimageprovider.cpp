#include <guicore/utility/image/QrcImageProvider.h>

#include <QQuickItem>
#include <QQuickView>
#include <QTest>

class tst_QrcImageProvider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void showsResourceImagesInQml()
    {
        QQuickView view;
        view.engine()->addImageProvider(
            QLatin1String(QrcImageProvider::PROVIDER_ID), new QrcImageProvider);
        // The missing image is reported by QML itself; the provider stays silent.
        QTest::ignoreMessage(QtWarningMsg,
            QRegularExpression(
                "Failed to get image from provider: image://qrc/testimages/missing.png"));
        view.setSource(QUrl(QStringLiteral("qrc:/qml/QrcImages.qml")));
        QCOMPARE(view.status(), QQuickView::Ready);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));

        const auto* scaled = view.rootObject()->findChild<QQuickItem*>("scaled");
        const auto status = [&](const char* name) {
            return view.rootObject()->findChild<QQuickItem*>(name)->property("status").toInt();
        };
        enum Status { Null, Ready, Loading, Error };
        QCOMPARE((QList<int> {status("full"), status("scaled"), status("missing")}),
            (QList<int> {Ready, Ready, Error}));
        QCOMPARE(view.rootObject()->findChild<QQuickItem*>("full")->property("sourceSize").toSize(),
            QSize(40, 20));
        QCOMPARE(QSizeF(scaled->implicitWidth(), scaled->implicitHeight()), QSizeF(20, 10));

        const QImage frame = view.grabWindow().convertToFormat(QImage::Format_RGB32);
        const auto at
            = [&](int x, int y) { return frame.pixel(QPoint(x, y) * view.devicePixelRatio()); };
        // The scaled copy is 20 x 10 at x = 60, with the black background to its right.
        const QList<QRgb> quadrants {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255)};
        QCOMPARE((QList<QRgb> {at(5, 5), at(25, 5), at(5, 15)}), quadrants);
        QCOMPARE((QList<QRgb> {at(62, 2), at(72, 2), at(62, 7)}), quadrants);
        QCOMPARE(at(85, 5), qRgb(0, 0, 0));
        // Half-transparent white over the black background.
        QVERIFY(qAbs(qRed(at(35, 15)) - 128) <= 2);
    }
};

QTEST_MAIN(tst_QrcImageProvider)
#include "tst_qrcimageprovider.moc"
