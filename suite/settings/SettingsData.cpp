#include <settings/SettingsData.h>

namespace settings {

SettingsData::SettingsData(const QVariantMap& values)
    : m_values(values)
{
}

QVariant SettingsData::getSetting(const QString& key) const
{
    return m_values.value(key);
}

void SettingsData::setSetting(const QString& key, const QVariant& value)
{
    m_values.insert(key, value);
}

bool SettingsData::hasSetting(const QString& key) const
{
    return m_values.contains(key);
}

QStringList SettingsData::keys() const
{
    return m_values.keys();
}

bool SettingsData::operator==(const SettingsData& other) const
{
    return m_values == other.m_values;
}

} // namespace settings
