#pragma once

#include <guicore/action/Action.h>

/// A plain action tagged "CustomAction"; the application's panels tell the kinds apart by the tag.
class GUICORE_EXPORT CustomAction : public Action
{
    Q_OBJECT

public:
    /// An action with the id "undefined_custom_action".
    CustomAction();
    /// As Action(const QString&), tagged "CustomAction".
    explicit CustomAction(const QString& id);
    /// As the Action constructor of the same arguments: no change signals.
    CustomAction(const QString& id, const QString& name, const QString& tooltip, const QIcon& icon);
};
