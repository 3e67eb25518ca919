#pragma once

#include <guicore/action/Action.h>

/// A plain action tagged "SingleAction"; the application's panels tell the kinds apart by the tag.
class GUICORE_EXPORT SingleAction : public Action
{
    Q_OBJECT

public:
    /// An action with the id "undefined_single_action".
    SingleAction();
    /// As Action(const QString&), tagged "SingleAction".
    explicit SingleAction(const QString& id);
    /// As the Action constructor of the same arguments: no change signals.
    SingleAction(const QString& id, const QString& name, const QString& tooltip, const QIcon& icon);
};
