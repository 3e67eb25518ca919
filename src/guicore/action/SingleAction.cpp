#include "SingleAction.h"

SingleAction::SingleAction()
    : SingleAction(QStringLiteral("undefined_single_action"))
{
}

SingleAction::SingleAction(const QString& id)
    : Action(id)
{
    setType(QStringLiteral("SingleAction"));
}

SingleAction::SingleAction(
    const QString& id, const QString& name, const QString& tooltip, const QIcon& icon)
    : Action(id, name, tooltip, icon)
{
    setType(QStringLiteral("SingleAction"));
}
