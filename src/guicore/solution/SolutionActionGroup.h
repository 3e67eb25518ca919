#pragma once

#include <guicore/guicore_export.h>

#include <QList>
#include <QObject>
#include <QString>

class ActionList;

/// A group of tool panels (action lists) within a solution step. Enabled while any of its lists
/// is enabled.
class GUICORE_EXPORT SolutionActionGroup : public QObject
{
    Q_OBJECT

public:
    /// A group without lists and without parent; not enabled until a list is.
    SolutionActionGroup(QString id, QString name);
    ~SolutionActionGroup() override;

    /// @{
    /// The id and display name given at construction.
    QString getID() const;
    QString getName() const;
    /// @}
    /// The lists in order; not owned by the caller.
    QList<ActionList*> getActionLists() const;
    /// True while at least one list is enabled.
    bool isEnabled() const;

    /// Appends a list (not owned; null ignored, duplicates kept) and follows its enabled state.
    void addActionList(ActionList* list);

public Q_SLOTS:
    /// Recomputes the enabled state; emits enabledChanged() only on a change.
    void setEnabled();

Q_SIGNALS:
    /// Emitted when isEnabled() changes, after a list's enabledChanged() or addActionList().
    void enabledChanged();

private:
    void forgetActionList(QObject* list);

    QString m_id;
    QString m_name;
    QList<ActionList*> m_actionLists;
    bool m_enabled = false;
};
