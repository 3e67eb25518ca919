#include <settings/MessageHandler.h>
#include <settings/SettingsManager.h>

#include <QtTest>

static QStringList captured;

class tst_Settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void userDefaultsAndMessageSuppression()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString file = dir.filePath(QStringLiteral("user.ini"));
        {
            settings::SettingsManager writer(file, QSettings::IniFormat);
            const settings::SettingsData& defaults = writer.getUserDefaults();
            QCOMPARE(defaults.getSetting(QStringLiteral("labelFontSize")), QVariant(12));
            QVERIFY(!defaults.getSetting("unknown").isValid() && !defaults.hasSetting("unknown"));
            QSignalSpy spy(&writer, &settings::SettingsManager::userDefaultSettingChanged);
            writer.setUserDefault(QStringLiteral("labelFontSize"), 12); // the built-in value
            QCOMPARE(spy.count(), 0);
            writer.setUserDefault(QStringLiteral("labelFontSize"), 17);
            writer.setUserDefault(QStringLiteral("labelFontSize"), 17);
            writer.setUserDefault(QStringLiteral("units"), QStringLiteral("mm"));
            QCOMPARE(spy.count(), 2);
            QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("labelFontSize"));
        }
        settings::SettingsManager reader(file, QSettings::IniFormat);
        const QVariant size = reader.getUserDefaults().getSetting(QStringLiteral("labelFontSize"));
        QCOMPARE(size.toInt(), 17);
        QCOMPARE(size.metaType(), QMetaType::fromType<int>()); // the ini file stores text
        QCOMPARE(reader.getUserDefaults().getSetting("units").toString(), QString("mm"));
        QtMessageHandler testHandler = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text) { captured << text; });
        MessageHandler::setMessageSuppressed(QStringLiteral("hidden"), 2);
        qWarning("hidden"); // not installed yet: nothing is filtered
        MessageHandler::install();
        MessageHandler::install(); // a second install must not chain the filter to itself

        const QString once = QStringLiteral("Action tool.x not found.");
        for (int i = 0; i < 3; ++i) {
            MessageHandler::setMessageSuppressed(once, 1); // registered before every logging
            qWarning().noquote() << once;
        }
        qWarning("hidden");
        MessageHandler::setMessageSuppressed(QStringLiteral("always"), 0);
        qWarning("always");
        qWarning("always");

        MessageHandler::uninstall();
        qInstallMessageHandler(testHandler);
        QCOMPARE(captured, QStringList({"hidden", once, "always", "always"}));
    }
};

QTEST_GUILESS_MAIN(tst_Settings)
#include "tst_settings.moc"
