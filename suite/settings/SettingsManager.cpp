#include <settings/SettingsManager.h>

#include <QCoreApplication>

namespace settings {
namespace {

// User defaults live in their own group so that other code may share the settings file.
const QString userDefaultsGroup = QStringLiteral("UserDefaults");

} // namespace

SettingsManager::SettingsManager(QObject* parent)
    : QObject(parent)
{
    load();
}

SettingsManager::SettingsManager(const QString& fileName, QSettings::Format format, QObject* parent)
    : QObject(parent)
    , m_storage(fileName, format)
{
    load();
}

SettingsManager::~SettingsManager() = default;

SettingsManager* SettingsManager::manager()
{
    // Parented to nothing and never deleted before exit: signal connections made by long-lived
    // objects must stay valid during shut-down.
    static SettingsManager* const instance = new SettingsManager;
    return instance;
}

SettingsData SettingsManager::builtInUserDefaults()
{
    SettingsData defaults;
    defaults.setSetting(QStringLiteral("labelFontSize"), 12);
    return defaults;
}

const SettingsData& SettingsManager::getUserDefaults() const
{
    return m_userDefaults;
}

void SettingsManager::setUserDefault(const QString& key, const QVariant& value)
{
    if (key.isEmpty())
        return;
    if (m_userDefaults.hasSetting(key) && m_userDefaults.getSetting(key) == value)
        return;
    m_userDefaults.setSetting(key, value);
    m_storage.beginGroup(userDefaultsGroup);
    m_storage.setValue(key, value);
    m_storage.endGroup();
    m_storage.sync();
    Q_EMIT userDefaultSettingChanged(key);
}

void SettingsManager::load()
{
    m_userDefaults = builtInUserDefaults();
    m_storage.beginGroup(userDefaultsGroup);
    const QStringList keys = m_storage.childKeys();
    for (const QString& key : keys) {
        QVariant value = m_storage.value(key);
        // Text-based formats hand back strings; keep the built-in default's type where known.
        const QVariant builtIn = m_userDefaults.getSetting(key);
        if (builtIn.isValid() && value.metaType() != builtIn.metaType()
            && value.canConvert(builtIn.metaType()))
            value.convert(builtIn.metaType());
        m_userDefaults.setSetting(key, value);
    }
    m_storage.endGroup();
}

} // namespace settings
