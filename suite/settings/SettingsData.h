#pragma once

#include <settings/settings_export.h>

#include <QVariantMap>

namespace settings {

/// A set of named settings. A plain value: copies are independent.
class SETTINGS_EXPORT SettingsData
{
public:
    SettingsData() = default;
    explicit SettingsData(const QVariantMap& values);

    /// The stored value, or an invalid QVariant when the key is absent.
    QVariant getSetting(const QString& key) const;
    void setSetting(const QString& key, const QVariant& value);
    bool hasSetting(const QString& key) const;
    QStringList keys() const;

    bool operator==(const SettingsData& other) const;
    bool operator!=(const SettingsData& other) const { return !(*this == other); }

private:
    QVariantMap m_values;
};

} // namespace settings
