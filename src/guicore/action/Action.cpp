#include "Action.h"

#include "ActionGroup.h"
#include "ActionHandler.h"

#include <objectmodel/StringConversions.h>

#include <QAction>

Action::Action()
    : Action(QStringLiteral("undefined_action"))
{
}

Action::Action(const QString& id)
    : QObject(nullptr)
    , solution::Feature(id)
{
}

Action::Action(const QString& id, const QString& name, const QString& tooltip, const QIcon& icon)
    : Action(id)
{
    m_name = name;
    m_tooltip = tooltip;
    m_icon = icon;
}

Action::~Action() = default;

QString Action::getName() const
{
    return m_name;
}

void Action::setName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    // The tooltip silently follows the name while it has never been set; listeners learn of the
    // name change only, which is what the tool panels that show both expect.
    if (m_tooltip.isEmpty())
        m_tooltip = name;
    Q_EMIT nameChanged(name);
}

QString Action::getTooltip() const
{
    if (m_showShortcutInTooltip && !m_shortcuts.isEmpty())
        return m_tooltip + StringConversions::qkeySequencesToAppendableString(m_shortcuts);
    return m_tooltip;
}

void Action::setTooltip(const QString& text)
{
    if (text == m_tooltip)
        return;
    m_tooltip = text;
    // The bare text on purpose: QActions wired to this signal show the text without shortcuts
    // until the shortcuts themselves change.
    Q_EMIT tooltipChanged(text);
}

QIcon Action::getIcon() const
{
    return m_icon;
}

void Action::setIcon(const QIcon& icon)
{
    m_icon = icon;
    Q_EMIT iconChanged(icon);
}

QString Action::getType() const
{
    return m_type;
}

void Action::setType(const QString& type)
{
    m_type = type;
}

QString Action::getDescription() const
{
    return m_description;
}

void Action::setDescription(const QString& description)
{
    m_description = description;
}

QString Action::getShortDescription() const
{
    return m_shortDescription;
}

void Action::setShortDescription(const QString& shortDescription)
{
    m_shortDescription = shortDescription;
}

QString Action::getTitle() const
{
    return m_title;
}

void Action::setTitle(const QString& title)
{
    m_title = title;
}

QString Action::getManualLink() const
{
    return m_manualLink;
}

void Action::setManualLink(const QString& link)
{
    m_manualLink = link;
}

QString Action::getIllustrationImage() const
{
    return m_illustrationImage;
}

void Action::setIllustrationImage(const QString& path)
{
    m_illustrationImage = path;
}

bool Action::isCheckable() const
{
    return m_checkable;
}

void Action::setCheckable(bool checkable)
{
    m_checkable = checkable;
}

bool Action::isCancelled() const
{
    return m_cancelled;
}

void Action::setCancelled(bool cancelled)
{
    m_cancelled = cancelled;
}

bool Action::mustBeStopped() const
{
    return m_mustBeStopped;
}

void Action::setMustBeStopped(bool mustBeStopped)
{
    m_mustBeStopped = mustBeStopped;
}

bool Action::mustBeDisabled() const
{
    return m_mustBeDisabled;
}

void Action::setMustBeDisabled(bool mustBeDisabled)
{
    m_mustBeDisabled = mustBeDisabled;
}

bool Action::stopOnViewSwitch() const
{
    return m_stopOnViewSwitch;
}

void Action::setStopOnViewSwitch(bool stop)
{
    m_stopOnViewSwitch = stop;
}

bool Action::shouldClearObjectSelectionWhenStarted() const
{
    return m_clearObjectSelectionWhenStarted;
}

void Action::setClearObjectSelectionWhenStarted(bool clear)
{
    m_clearObjectSelectionWhenStarted = clear;
}

void Action::disableOtherActionsOnStart(bool disable)
{
    m_disableOtherActionsOnStart = disable;
}

bool Action::shouldDisableOtherActionsOnStart() const
{
    return m_disableOtherActionsOnStart.value_or(!m_checkable);
}

bool Action::isStopWithEventFilterEnabled() const
{
    return m_stopWithEventFilter;
}

void Action::enableStopWithEventFilter()
{
    m_stopWithEventFilter = true;
}

bool Action::getShowShortcutInTooltip() const
{
    return m_showShortcutInTooltip;
}

void Action::setShowShortcutInTooltip(bool show)
{
    if (show == m_showShortcutInTooltip)
        return;
    m_showShortcutInTooltip = show;
    Q_EMIT tooltipChanged(getTooltip());
}

QList<QKeySequence> Action::getShortcuts() const
{
    return m_shortcuts;
}

void Action::setShortcuts(const QList<QKeySequence>& shortcuts)
{
    m_shortcuts = shortcuts;
    if (m_showShortcutInTooltip)
        Q_EMIT tooltipChanged(getTooltip());
}

void Action::setShortcutSequence(QKeySequence sequence)
{
    m_shortcuts = {sequence};
    if (m_showShortcutInTooltip)
        Q_EMIT tooltipChanged(
            m_tooltip + StringConversions::qkeySequencesToAppendableString(m_shortcuts));
}

ActionHandler* Action::getActionHandler() const
{
    return m_actionHandler;
}

void Action::setActionHandler(ActionHandler* handler)
{
    m_actionHandler = handler;
}

ActionGroup* Action::getActionGroup() const
{
    return m_actionGroup;
}

void Action::setActionGroup(ActionGroup* group)
{
    m_actionGroup = group;
}

Action::ActionState Action::getActionState() const
{
    return m_actionState;
}

void Action::setActionState(ActionState state)
{
    if (state == m_actionState)
        return;
    m_actionState = state;
    Q_EMIT actionStateChanged();
}

bool Action::isActive() const
{
    return m_active;
}

bool Action::isDisabled() const
{
    return m_disabled;
}

bool Action::isEnabled() const
{
    return !m_disabled;
}

void Action::setEnabled(bool enabled)
{
    setDisabled(!enabled);
}

void Action::setDisabled(bool disabled)
{
    if (disabled == m_disabled)
        return;
    m_disabled = disabled;
    Q_EMIT this->disabled(disabled);
    Q_EMIT enabled(!disabled);
}

bool Action::allowClose()
{
    return m_actionHandler ? m_actionHandler->allowClose() : true;
}

QMap<QString, QVariant> Action::getParameters() const
{
    return m_parameters;
}

void Action::setParameters(const QMap<QString, QVariant>& parameters)
{
    m_parameters = parameters;
}

void Action::setParameter(const QString& key, const QVariant& value)
{
    m_parameters.insert(key, value);
}

QVariant Action::getParameter(const QString& key) const
{
    return m_parameters.value(key);
}

QVariant Action::takeParameter(const QString& key)
{
    return m_parameters.take(key);
}

void Action::removeParameter(const QString& key)
{
    m_parameters.remove(key);
}

void Action::clearParameters()
{
    m_parameters.clear();
}

void Action::addBlockingAction(Action* other)
{
    if (!other)
        return;
    m_blockingActions.append(other);
    connect(other, &Action::actionStateChanged, this, &Action::update);
    // A blocking action may be deleted before this one; forget it then.
    connect(
        other, &QObject::destroyed, this, [this, other] { m_blockingActions.removeAll(other); });
}

void Action::updateState()
{
    setDisabled(false);
}

void Action::updateName() { }

void Action::update()
{
    updateState();
    const QList<Action*> blocking = m_blockingActions;
    for (Action* other : blocking) {
        if (other->getActionState() == Blocking)
            setDisabled(true);
    }
}

void Action::runStart()
{
    m_cancelled = false;
    m_active = true;
    Q_EMIT triggered(true);
    const bool accepted = m_actionHandler && m_actionHandler->startHandler(this);
    if (m_checkable && !m_disableOtherActionsOnStart.has_value())
        Q_EMIT handled();
    if (!accepted) {
        m_active = false;
        Q_EMIT triggered(false);
    }
}

void Action::runStop()
{
    m_active = false;
    if (m_actionHandler)
        m_actionHandler->stopHandler(this);
    Q_EMIT triggered(false);
}

void Action::start(bool force)
{
    if (m_active)
        return;
    if (m_disabled && !force)
        return;
    runStart();
}

void Action::stop()
{
    if (!m_active)
        return;
    runStop();
}

void Action::toggle()
{
    if (m_disabled)
        return;
    if (m_active)
        runStop();
    else
        runStart();
}

void Action::trigger(bool checked)
{
    if (m_checkable && !checked) {
        if (m_active)
            runStop();
        return;
    }
    if (m_active)
        return;
    runStart();
}

QAction* Action::createQAction(QObject* parent)
{
    auto* qaction
        = m_icon.isNull() ? new QAction(m_name, parent) : new QAction(m_icon, m_name, parent);
    qaction->setToolTip(getTooltip());
    qaction->setCheckable(m_checkable);
    return qaction;
}

QAction* Action::getQAction()
{
    QAction* qaction = createQAction(this);
    if (m_checkable)
        connect(qaction, &QAction::toggled, this, &Action::trigger);
    else
        connect(qaction, &QAction::triggered, this, &Action::trigger);
    connect(this, &Action::triggered, qaction, &QAction::setChecked);
    connect(this, &Action::disabled, qaction, &QAction::setDisabled);
    connect(this, &Action::nameChanged, qaction, &QAction::setText);
    connect(this, &Action::tooltipChanged, qaction, &QAction::setToolTip);
    connect(this, &Action::iconChanged, qaction, &QAction::setIcon);
    qaction->setChecked(m_active);
    qaction->setEnabled(!m_disabled);
    qaction->setObjectName(getID());
    return qaction;
}
