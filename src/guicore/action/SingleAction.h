#pragma once

#include <guicore/action/Action.h>

/// A plain action tagged "SingleAction"; the application's panels tell the kinds apart by the tag.
class GUICORE_EXPORT SingleAction : public Action
{
    Q_OBJECT

public:
    SingleAction();
    explicit SingleAction(const QString& id);
    SingleAction(const QString& id, const QString& name, const QString& tooltip, const QIcon& icon);
};
