#pragma once

#include <guicore/guicore_export.h>

#include <QMap>
#include <QString>

class Action;

namespace action {

/// The registry that holds the application's actions, as the action framework sees it. The
/// solution manager implements it; the framework sits below the solution registry and reaches it
/// only through this face: the action manager reads the full action set here, and a multi-action
/// registers and unregisters its children here.
class GUICORE_EXPORT ActionRegistry
{
public:
    /// Stores the action (not owned) under its id, replacing an earlier one. Null is ignored.
    virtual void addAction(Action* action) = 0;
    /// Removes the entry under the action's id; the action is not deleted.
    virtual void removeAction(Action* action) = 0;
    /// Every action keyed by id, so iterating runs in ascending id order; not owned by the caller.
    virtual QMap<QString, Action*> getAllActions() const = 0;

protected:
    ActionRegistry() = default;
    /// Not deleted through this face: the registry's owner deletes it as what it is.
    virtual ~ActionRegistry();
};

} // namespace action
