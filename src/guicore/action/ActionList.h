#pragma once

#include <guicore/guicore_export.h>

#include <QIcon>
#include <QList>
#include <QObject>
#include <QString>

class Action;

/// A named list of actions for one tool panel; enabled while any member is enabled.
class GUICORE_EXPORT ActionList : public QObject
{
    Q_OBJECT

public:
    /// How the application's panels present the list. The library only stores the value.
    enum ACTION_LIST_TYPE : int {
        /// One button per action; the initial value.
        BUTTON_LIST = 0,
        /// One drop-down button holding the actions.
        DROP_DOWN_LIST = 1,
        /// Chosen for lists whose first action is a CustomAction.
        CUSTOM_LIST = 2
    };

    /// `parent` owns the list when given.
    ActionList(const QString& id, const QString& name, QObject* parent);
    ~ActionList() override;

    /// The id given at construction.
    QString getID() const;
    /// @{
    /// Display texts and icon of the panel; stored only, without signals.
    QString getName() const;
    void setName(const QString& name);
    QString getTooltip() const;
    void setTooltip(const QString& tooltip);
    QIcon getIcon() const;
    void setIcon(const QIcon& icon);
    /// @}

    /// Appends an action (not owned; null ignored, duplicates kept) and refreshes the enabled
    /// state.
    void addAction(Action* action);
    /// The members in order; not owned by the caller.
    QList<Action*> getActions() const;
    /// The default action (not owned), or null.
    Action* getDefaultAction() const;
    /// Null is ignored; a non-member is added first. Does not take ownership.
    void setDefaultAction(Action* action);

    /// @{
    /// The presentation the panel should use; BUTTON_LIST by default.
    ACTION_LIST_TYPE getDefaultListType() const;
    void setDefaultListType(ACTION_LIST_TYPE type);
    /// @}

    /// True while at least one member is enabled; an empty list is not enabled.
    bool isEnabled() const;

public Q_SLOTS:
    /// Recomputes the enabled state; emits enabledChanged() only on a change.
    void setEnabled();

Q_SIGNALS:
    /// Emitted when isEnabled() changes, after a member's enabled() signal or addAction().
    void enabledChanged();

private:
    void forgetAction(QObject* action);

    QString m_id;
    QString m_name;
    QString m_tooltip;
    Action* m_defaultAction = nullptr;
    QList<Action*> m_actions;
    QIcon m_icon;
    ACTION_LIST_TYPE m_defaultListType = BUTTON_LIST;
    bool m_enabled = false;
};
