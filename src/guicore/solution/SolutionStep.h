#pragma once

#include <guicore/guicore_export.h>

#include <QList>
#include <QObject>
#include <QString>

class SolutionActionGroup;

/// One step of a solution's workflow, showing groups of tool panels. Enabled while any of its
/// groups is enabled.
class GUICORE_EXPORT SolutionStep : public QObject
{
    Q_OBJECT

public:
    /// A step without groups and without parent; not enabled until a group is.
    SolutionStep(const QString& id, const QString& name);
    ~SolutionStep() override;

    /// @{
    /// The id and display name given at construction.
    QString getID() const;
    QString getName() const;
    /// @}
    /// The groups in order; not owned by the caller.
    QList<SolutionActionGroup*> getActionGroups() const;
    /// True while at least one group is enabled.
    bool isEnabled() const;

    /// Appends a group (not owned) and follows its enabled state; null and a group already
    /// present are ignored.
    void addActionGroup(SolutionActionGroup* group);
    /// Removes the group (not deleted) and stops following it; nothing when absent.
    void removeActionGroup(SolutionActionGroup* group);

public Q_SLOTS:
    /// Recomputes the enabled state; emits enabledChanged() only on a change.
    void setEnabled();

Q_SIGNALS:
    /// Emitted with the new value when isEnabled() changes.
    void enabledChanged(bool enabled);

private:
    void forgetActionGroup(QObject* group);

    QString m_id;
    QString m_name;
    QList<SolutionActionGroup*> m_actionGroups;
    bool m_enabled = false;
};
