#pragma once

#include <guicore/guicore_export.h>

#include <QList>
#include <QObject>

class Action;

/// Mutual exclusion among checkable actions, enforced after the fact: the member that starts
/// runs, and the other active members are stopped when its triggered(true) arrives.
class GUICORE_EXPORT ActionGroup : public QObject
{
    Q_OBJECT

public:
    ActionGroup();
    ~ActionGroup() override;

    /// Accepts checkable actions only (others are ignored silently); does not take ownership.
    void addAction(Action* action);
    /// True for a non-member; for a member, true only while it is not active. Does not take
    /// ownership.
    bool canToggleAction(Action* action) const;
    /// The members, not owned by the caller.
    QList<Action*> getActions() const;

public Q_SLOTS:
    /// Called by a member's triggered(): on true, stops every other active member in list order.
    void actionTriggered(bool checked);

private:
    void forgetAction(QObject* action);

    QList<Action*> m_actions;
};
