#pragma once

#include <guicore/guicore_export.h>

#include <QString>

namespace solution {

/// Something a solution plug-in contributes that is known by one id. Actions, solutions and views
/// derive from it; a plug-in may also register bare features that carry nothing but their id.
class GUICORE_EXPORT Feature
{
public:
    /// A feature known by `id`; the id need not be unique until a registry stores it.
    explicit Feature(const QString& id);
    /// @{
    /// Copies the id only.
    Feature(const Feature& other);
    Feature& operator=(const Feature& other);
    /// @}
    /// Every registry that borrows the feature (solution managers, solutions, plug-ins) forgets it.
    virtual ~Feature();

    /// @{
    /// The id under which registries keep the feature. Change it before registering: a registry
    /// keeps the key it was given.
    QString getID() const;
    void setID(const QString& id);
    /// @}

private:
    QString m_id;
};

} // namespace solution
