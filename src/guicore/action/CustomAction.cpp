#include "CustomAction.h"

CustomAction::CustomAction()
    : CustomAction(QStringLiteral("undefined_custom_action"))
{
}

CustomAction::CustomAction(const QString& id)
    : Action(id)
{
    setType(QStringLiteral("CustomAction"));
}

CustomAction::CustomAction(
    const QString& id, const QString& name, const QString& tooltip, const QIcon& icon)
    : Action(id, name, tooltip, icon)
{
    setType(QStringLiteral("CustomAction"));
}
