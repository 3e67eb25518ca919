#pragma once

#include <settings/settings_export.h>

#include <QVariantMap>

/// The suite's settings library: user defaults and their change notification.
namespace settings {

/// A set of named settings. A plain value: copies are independent.
class SETTINGS_EXPORT SettingsData
{
public:
    /// No settings.
    SettingsData() = default;
    /// The settings in values, by key.
    explicit SettingsData(const QVariantMap& values);

    /// The stored value, or an invalid QVariant when the key is absent.
    QVariant getSetting(const QString& key) const;
    /// Stores value under key, replacing what was there.
    void setSetting(const QString& key, const QVariant& value);
    /// True when key has a value, even an invalid QVariant.
    bool hasSetting(const QString& key) const;
    /// Every key, sorted.
    QStringList keys() const;

    /// @{
    /// Same keys with equal values (QVariant comparison).
    bool operator==(const SettingsData& other) const;
    bool operator!=(const SettingsData& other) const { return !(*this == other); }
    /// @}

private:
    QVariantMap m_values;
};

} // namespace settings
