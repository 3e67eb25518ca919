#pragma once

#include <guicore/action/Action.h>

/// A plain action tagged "CustomAction"; the application's panels tell the kinds apart by the tag.
class GUICORE_EXPORT CustomAction : public Action
{
    Q_OBJECT

public:
    CustomAction();
    explicit CustomAction(const QString& id);
    CustomAction(const QString& id, const QString& name, const QString& tooltip, const QIcon& icon);
};
