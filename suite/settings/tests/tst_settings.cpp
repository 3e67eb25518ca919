#include <settings/MessageHandler.h>
#include <settings/SettingsManager.h>

#include <QtTest>

namespace {

QStringList capturedMessages;

void capture(QtMsgType, const QMessageLogContext&, const QString& message)
{
    capturedMessages.append(message);
}

} // namespace

class tst_Settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        QVERIFY(m_dir.isValid());
    }

    void builtInDefaultWhenNothingStored();
    void userDefaultSurvivesANewManager();
    void changeSignalOnlyOnRealChange();
    void suppressionOptions();
    void withoutInstallNothingIsFiltered();

private:
    QString file() const
    {
        return m_dir.filePath(QString::fromLatin1(QTest::currentTestFunction()) + ".ini");
    }
    QTemporaryDir m_dir;
};

void tst_Settings::builtInDefaultWhenNothingStored()
{
    settings::SettingsManager manager(file(), QSettings::IniFormat);
    QCOMPARE(manager.getUserDefaults().getSetting(QStringLiteral("labelFontSize")), QVariant(12));
    QVERIFY(!manager.getUserDefaults().getSetting(QStringLiteral("unknown")).isValid());
    QVERIFY(!manager.getUserDefaults().hasSetting(QStringLiteral("unknown")));
}

void tst_Settings::userDefaultSurvivesANewManager()
{
    {
        settings::SettingsManager writer(file(), QSettings::IniFormat);
        writer.setUserDefault(QStringLiteral("labelFontSize"), 17);
        writer.setUserDefault(QStringLiteral("units"), QStringLiteral("mm"));
    }
    settings::SettingsManager reader(file(), QSettings::IniFormat);
    const QVariant size = reader.getUserDefaults().getSetting(QStringLiteral("labelFontSize"));
    QCOMPARE(size.toInt(), 17);
    QCOMPARE(size.metaType(), QMetaType::fromType<int>()); // the ini file stores text
    QCOMPARE(reader.getUserDefaults().getSetting(QStringLiteral("units")).toString(),
        QStringLiteral("mm"));
}

void tst_Settings::changeSignalOnlyOnRealChange()
{
    settings::SettingsManager manager(file(), QSettings::IniFormat);
    QSignalSpy spy(&manager, &settings::SettingsManager::userDefaultSettingChanged);
    manager.setUserDefault(QStringLiteral("labelFontSize"), 12); // the built-in value already
    QCOMPARE(spy.count(), 0);
    manager.setUserDefault(QStringLiteral("labelFontSize"), 14);
    manager.setUserDefault(QStringLiteral("labelFontSize"), 14);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("labelFontSize"));
}

void tst_Settings::suppressionOptions()
{
    capturedMessages.clear();
    QtMessageHandler testHandler = qInstallMessageHandler(capture);
    MessageHandler::install();
    MessageHandler::install(); // a second install must not chain the filter to itself

    const QString once = QStringLiteral("Action tool.x not found.");
    for (int i = 0; i < 3; ++i) {
        MessageHandler::setMessageSuppressed(once, 1); // registered before every logging
        qWarning().noquote() << once;
    }
    MessageHandler::setMessageSuppressed(QStringLiteral("never"), 2);
    qWarning("never");
    MessageHandler::setMessageSuppressed(QStringLiteral("always"), 0);
    qWarning("always");
    qWarning("always");

    MessageHandler::uninstall();
    qInstallMessageHandler(testHandler);
    QCOMPARE(capturedMessages, QStringList({once, "always", "always"}));
}

void tst_Settings::withoutInstallNothingIsFiltered()
{
    capturedMessages.clear();
    QtMessageHandler testHandler = qInstallMessageHandler(capture);
    MessageHandler::setMessageSuppressed(QStringLiteral("hidden"), 2);
    qWarning("hidden");
    qInstallMessageHandler(testHandler);
    QCOMPARE(capturedMessages, QStringList({"hidden"}));
}

QTEST_GUILESS_MAIN(tst_Settings)
#include "tst_settings.moc"
