#pragma once

#include <settings/SettingsData.h>
#include <settings/settings_export.h>

#include <QObject>
#include <QSettings>

namespace settings {

/// User defaults of the application, persisted through QSettings.
///
/// Keys missing from storage take their built-in default ("labelFontSize": 12). The process-wide
/// instance, manager(), reads the QSettings of the application's organisation and name; further
/// instances can be made over an explicit settings file. Values live in the "UserDefaults" group
/// of the settings; a value read back from a text format takes the type of its built-in default.
/// GUI thread only.
class SETTINGS_EXPORT SettingsManager : public QObject
{
    Q_OBJECT

public:
    /// Over the application's default QSettings (organisation and application name).
    explicit SettingsManager(QObject* parent = nullptr);
    /// Over the given settings file.
    SettingsManager(const QString& fileName, QSettings::Format format, QObject* parent = nullptr);
    ~SettingsManager() override;

    /// The process-wide manager, made on first use; it lives until the application ends, so
    /// connections to it stay valid during shut-down. Not owned by the caller.
    static SettingsManager* manager();

    /// The built-in defaults that apply while a key has never been stored.
    static SettingsData builtInUserDefaults();

    /// Every user default: the built-in ones overlaid with what storage holds.
    const SettingsData& getUserDefaults() const;
    /// Stores the value, writes it to storage at once and, on a real change, emits
    /// userDefaultSettingChanged. An empty key is ignored.
    void setUserDefault(const QString& key, const QVariant& value);

Q_SIGNALS:
    /// Emitted after the value of key changed and was stored; getUserDefaults() already holds
    /// the new value.
    void userDefaultSettingChanged(const QString& key);

private:
    void load();

    QSettings m_storage;
    SettingsData m_userDefaults;
};

} // namespace settings
