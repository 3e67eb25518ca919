#pragma once

#include <guicore/guicore_export.h>

#include <QString>

namespace solution {

/// Something a solution plug-in contributes that is known by one id. Actions, solutions and views
/// derive from it; a plug-in may also register bare features that carry nothing but their id.
class GUICORE_EXPORT Feature
{
public:
    explicit Feature(const QString& id);
    Feature(const Feature& other);
    Feature& operator=(const Feature& other);
    virtual ~Feature();

    QString getID() const;
    void setID(const QString& id);

private:
    QString m_id;
};

} // namespace solution
