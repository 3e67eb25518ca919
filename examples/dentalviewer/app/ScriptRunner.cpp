#include "ScriptRunner.h"

#include "../plugin/DentalSolutionApi.h"
#include "MainWindow.h"

#include <guicore/action/Action.h>
#include <guicore/graphics/scene/GraphicsViewExtraInterface.h>
#include <guicore/graphics/scene/QuickGraphicsSceneItem.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/style/DevicePixelRatio.h>
#include <guicore/view/SwitchingViewsManager.h>
#include <guicore/view/View.h>

#include <settings/SettingsManager.h>

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QFile>
#include <QGraphicsView>
#include <QJsonDocument>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QScreen>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>
#include <QWheelEvent>
#include <cstdio>

#ifdef Q_OS_UNIX
#include <csignal>
#endif

namespace {

// Time given to the window system between steps; painting and deferred stops need a few turns.
constexpr int STEP_DELAY_MS = 30;

// The item of that object name in the visual tree below `item`, or null.
QQuickItem* findQuickItem(QQuickItem* item, const QString& name)
{
    if (!item || item->objectName() == name)
        return item;
    const QList<QQuickItem*> children = item->childItems();
    for (QQuickItem* child : children) {
        if (QQuickItem* found = findQuickItem(child, name))
            return found;
    }
    return nullptr;
}

} // namespace

ScriptRunner::ScriptRunner(MainWindow& window, const QStringList& lines, const QDir& outputFolder)
    : m_window(window)
    , m_lines(lines)
    , m_output(outputFolder)
{
}

bool ScriptRunner::readScript(const QString& fileName, QStringList& lines, QString& error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        error = file.errorString();
        return false;
    }
    QTextStream stream(&file);
    while (!stream.atEnd())
        lines.append(stream.readLine());
    return true;
}

void ScriptRunner::start()
{
    activateMainWindow();
    QTimer::singleShot(STEP_DELAY_MS, this, &ScriptRunner::next);
}

void ScriptRunner::activateMainWindow()
{
    // Without a window manager (a virtual X server) nobody activates the window, at start or when
    // a dialog closes; keyboard input, the window's shortcuts and the scene's focus item need an
    // active one.
    m_window.activateWindow();
    if (QApplication::activeWindow() != &m_window) {
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QApplication::setActiveWindow(&m_window);
        QT_WARNING_POP
    }
}

void ScriptRunner::fail(const QString& message)
{
    ++m_failures;
    std::fprintf(stderr, "dentalviewer: script line %d: %s\n", m_index, qPrintable(message));
}

void ScriptRunner::next()
{
    m_delay = STEP_DELAY_MS;
    while (m_index < m_lines.size()) {
        const QString line = m_lines.at(m_index++).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QStringList words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (!run(words))
            fail(QStringLiteral("step failed: ") + line);
        QTimer::singleShot(m_delay, this, &ScriptRunner::next);
        return;
    }
    Q_EMIT finished(m_failures);
}

bool ScriptRunner::run(const QStringList& words)
{
    const QString step = words.first();
    const QString rest = words.mid(1).join(QLatin1Char(' '));
    if (step == QLatin1String("view")) {
        m_window.switchToView(rest);
        return m_window.switchingViewsManager()->getCurrentViewOrSubViewID() == rest
            || m_window.switchingViewsManager()->getCurrentViewID() == rest;
    }
    if (step == QLatin1String("action") && words.size() >= 2) {
        // A disabled tool cannot be started by the person either.
        Action* action = m_window.solutionManager()->getAction(words.at(1));
        if (!action || !action->isEnabled())
            return false;
        for (const QString& pair : words.mid(2)) {
            const int equals = pair.indexOf(QLatin1Char('='));
            if (equals <= 0)
                continue;
            QString value = pair.mid(equals + 1);
            // A folder given to a tool is taken relative to the script's output folder.
            if (pair.left(equals) == QLatin1String("directory") && QDir::isRelativePath(value))
                value = m_output.filePath(value);
            action->setParameter(pair.left(equals), value);
        }
        // The same path as a click on the tool button.
        action->trigger(true);
        return true;
    }
    if (step == QLatin1String("press") || step == QLatin1String("move")
        || step == QLatin1String("release") || step == QLatin1String("click")
        || step == QLatin1String("doubleclick") || step == QLatin1String("rightclick"))
        return mouse(step, words);
    if (step == QLatin1String("key"))
        return key(rest);
    if (step == QLatin1String("type"))
        return type(rest);
    if (step == QLatin1String("shortcut")) {
        // Through the window's shortcut map, as a key press on screen goes.
        const QKeySequence keys(rest);
        if (keys.isEmpty())
            return false;
        QTest::keySequence(&m_window, keys);
        return true;
    }
    if (step == QLatin1String("button"))
        return button(rest);
    if (step == QLatin1String("qmlbutton"))
        return qmlButton(rest);
    if (step == QLatin1String("wheel") && words.size() == 4)
        return wheel(words);
    if (step == QLatin1String("pan") && words.size() == 5)
        return pan(words);
    if (step == QLatin1String("set") && words.size() == 3)
        return set(words.at(1), words.at(2));
    if (step == QLatin1String("close") && words.size() == 2)
        return close(words.at(1));
    if (step == QLatin1String("contextmenu") && words.size() == 3)
        return contextMenu(words);
    if (step == QLatin1String("menuitem"))
        return menuItem(rest);
    if (step == QLatin1String("row") && words.size() == 2)
        return row(words.at(1));
    if (step == QLatin1String("dismiss")) {
        auto* dismiss = m_window.findChild<QPushButton*>(QStringLiteral("dismissProblem"));
        if (!dismiss || !dismiss->isVisible())
            return false;
        QTest::mouseClick(dismiss, Qt::LeftButton);
        return true;
    }
    if (step == QLatin1String("kill") && words.size() == 2) {
#ifdef Q_OS_UNIX
        std::fflush(stdout);
        if (rest == QLatin1String("TERM"))
            return ::raise(SIGTERM) == 0;
        if (rest == QLatin1String("KILL"))
            return ::raise(SIGKILL) == 0;
#endif
        return false;
    }
    if (step == QLatin1String("setting") && words.size() == 3) {
        settings::SettingsManager::manager()->setUserDefault(words.at(1), words.at(2));
        return true;
    }
    if (step == QLatin1String("resize") && words.size() == 3) {
        m_window.resize(words.at(1).toInt(), words.at(2).toInt());
        m_delay = 200;
        return true;
    }
    if (step == QLatin1String("wait")) {
        m_delay = rest.toInt();
        return true;
    }
    if (step == QLatin1String("screenshot")) {
        // What the window system shows, so that the OpenGL viewports are in the picture.
        QImage image;
        if (QScreen* screen = m_window.screen())
            image = screen->grabWindow(m_window.winId()).toImage();
        if (image.isNull())
            image = m_window.grab().toImage();
        const QString path = m_output.filePath(rest);
        if (!image.save(path))
            return false;
        std::printf("dentalviewer: screenshot %s\n", qPrintable(QDir::toNativeSeparators(path)));
        return true;
    }
    if (step == QLatin1String("dump"))
        return dump(rest);
    return false;
}

bool ScriptRunner::button(const QString& name)
{
    // A click on the tool button of a bar's action, found by the action's object name or text.
    for (QToolBar* bar : m_window.findChildren<QToolBar*>()) {
        for (QAction* item : bar->actions()) {
            if (item->objectName() != name && item->text() != name)
                continue;
            QWidget* widget = bar->widgetForAction(item);
            if (!widget || !widget->isVisible() || !widget->isEnabled())
                return false;
            QTest::mouseClick(widget, Qt::LeftButton);
            return true;
        }
    }
    return false;
}

bool ScriptRunner::qmlButton(const QString& name)
{
    QuickGraphicsSceneItem* host
        = m_window.solution()->sceneHostOf(m_window.switchingViewsManager()->getCurrentView());
    QQuickWindow* window = host ? host->window() : nullptr;
    QQuickItem* item = window ? findQuickItem(window->contentItem(), name) : nullptr;
    if (!item || !item->isVisible())
        return false;
    const QPointF centre = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
    return true;
}

bool ScriptRunner::wheel(const QStringList& words)
{
    bool xOk = false;
    bool yOk = false;
    bool deltaOk = false;
    const QPointF scenePos(words.at(1).toDouble(&xOk), words.at(2).toDouble(&yOk));
    const int delta = words.at(3).toInt(&deltaOk);
    QGraphicsView* view
        = m_window.solution()->graphicsViewOf(m_window.switchingViewsManager()->getCurrentView());
    if (!xOk || !yOk || !deltaOk || !view)
        return false;
    const QPointF local = view->mapFromScene(scenePos);
    QWheelEvent event(local, view->viewport()->mapToGlobal(local), QPoint(), QPoint(0, delta),
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view->viewport(), &event);
    return true;
}

bool ScriptRunner::pan(const QStringList& words)
{
    QGraphicsView* view
        = m_window.solution()->graphicsViewOf(m_window.switchingViewsManager()->getCurrentView());
    QList<double> numbers;
    for (const QString& word : words.mid(1)) {
        bool ok = false;
        numbers.append(word.toDouble(&ok));
        if (!ok)
            return false;
    }
    if (!view)
        return false;
    // A middle-button drag from the first scene point to the second.
    auto send = [view](QEvent::Type type, const QPointF& scenePos, Qt::MouseButtons buttons) {
        const QPointF local = view->mapFromScene(scenePos);
        QMouseEvent event(type, local, local, view->viewport()->mapToGlobal(local),
            Qt::MiddleButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &event);
    };
    const QPointF from(numbers.at(0), numbers.at(1));
    const QPointF to(numbers.at(2), numbers.at(3));
    send(QEvent::MouseButtonPress, from, Qt::MiddleButton);
    send(QEvent::MouseMove, to, Qt::MiddleButton);
    send(QEvent::MouseButtonRelease, to, Qt::NoButton);
    return true;
}

bool ScriptRunner::mouse(const QString& kind, const QStringList& words)
{
    if (words.size() != 3)
        return false;
    bool xOk = false;
    bool yOk = false;
    const QPointF scenePos(words.at(1).toDouble(&xOk), words.at(2).toDouble(&yOk));
    if (!xOk || !yOk)
        return false;
    View* current = m_window.switchingViewsManager()->getCurrentView();
    // The target: a 2-D viewer's viewport, or the window of a view whose scene is shown by a Quick
    // scene host (the tooth chart); the event position is local to that target.
    QObject* target = nullptr;
    QPointF local;
    QPointF global;
    if (QGraphicsView* view = m_window.solution()->graphicsViewOf(current)) {
        target = view->viewport();
        local = view->mapFromScene(scenePos);
        global = view->viewport()->mapToGlobal(local);
        // A click gives the viewer the keyboard focus, as it does on screen.
        if (kind != QLatin1String("move") && kind != QLatin1String("release"))
            view->setFocus(Qt::MouseFocusReason);
    } else if (QuickGraphicsSceneItem* host = m_window.solution()->sceneHostOf(current)) {
        if (!host->window() || !host->getGraphicsView())
            return false;
        target = host->window();
        // The host's view works in device pixels, the Quick item in logical ones.
        const QPointF inItem
            = QPointF(host->getGraphicsView()->mapFromScene(scenePos)) / DevicePixelRatio::value();
        local = host->mapToScene(inItem);
        global = host->window()->mapToGlobal(local);
    } else {
        return false;
    }
    auto send = [&](QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, local, local, global, button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &event);
    };
    if (kind == QLatin1String("press")) {
        m_buttons = Qt::LeftButton;
        send(QEvent::MouseButtonPress, Qt::LeftButton, m_buttons);
    } else if (kind == QLatin1String("move")) {
        send(QEvent::MouseMove, Qt::NoButton, m_buttons);
    } else if (kind == QLatin1String("release")) {
        m_buttons = Qt::NoButton;
        send(QEvent::MouseButtonRelease, Qt::LeftButton, m_buttons);
    } else {
        const Qt::MouseButton button
            = kind == QLatin1String("rightclick") ? Qt::RightButton : Qt::LeftButton;
        send(QEvent::MouseButtonPress, button, button);
        send(QEvent::MouseButtonRelease, button, Qt::NoButton);
        if (kind == QLatin1String("doubleclick")) {
            send(QEvent::MouseButtonDblClick, button, button);
            send(QEvent::MouseButtonRelease, button, Qt::NoButton);
        }
    }
    return true;
}

QWidget* ScriptRunner::findWidget(const QString& name)
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible())
            continue;
        if (window->objectName() == name)
            return window;
        if (auto* child = window->findChild<QWidget*>(name))
            return child;
    }
    return nullptr;
}

bool ScriptRunner::set(const QString& name, const QString& value)
{
    // The same as the user's edit: the widgets emit their change signals.
    QWidget* widget = findWidget(name);
    if (auto* spinBox = qobject_cast<QSpinBox*>(widget)) {
        bool ok = false;
        const int number = value.toInt(&ok);
        if (!ok || number < spinBox->minimum() || number > spinBox->maximum())
            return false;
        spinBox->setValue(number);
        return true;
    }
    if (auto* comboBox = qobject_cast<QComboBox*>(widget)) {
        int index = comboBox->findData(value);
        if (index < 0)
            index = comboBox->findText(value);
        if (index < 0)
            return false;
        comboBox->setCurrentIndex(index);
        return true;
    }
    return false;
}

bool ScriptRunner::close(const QString& name)
{
    QWidget* widget = findWidget(name);
    if (!widget || !widget->isWindow())
        return false;
    if (auto* dialog = qobject_cast<QDialog*>(widget))
        dialog->reject();
    else
        widget->close();
    activateMainWindow();
    return true;
}

QObject* ScriptRunner::keyTarget() const
{
    View* current = m_window.switchingViewsManager()->getCurrentView();
    if (QuickGraphicsSceneItem* host = m_window.solution()->sceneHostOf(current)) {
        if (host->window() && !QApplication::activeModalWidget()
            && !QApplication::activePopupWidget())
            return host->window();
    }
    return QApplication::focusWidget() ? QApplication::focusWidget() : &m_window;
}

bool ScriptRunner::key(const QString& sequence)
{
    const QKeySequence keys(sequence);
    if (keys.isEmpty())
        return false;
    const QKeyCombination combination = keys[0];
    // As a key on the keyboard: offered to the shortcuts first, then to the widget with the
    // focus.
    QObject* target = keyTarget();
    if (auto* window = qobject_cast<QWindow*>(target))
        QTest::keyClick(window, combination.key(), combination.keyboardModifiers());
    else
        QTest::keyClick(
            static_cast<QWidget*>(target), combination.key(), combination.keyboardModifiers());
    return true;
}

bool ScriptRunner::type(const QString& text)
{
    auto* target = qobject_cast<QWidget*>(keyTarget());
    if (!target)
        return false;
    QTest::keyClicks(target, text);
    return true;
}

bool ScriptRunner::contextMenu(const QStringList& words)
{
    QGraphicsView* view
        = m_window.solution()->graphicsViewOf(m_window.switchingViewsManager()->getCurrentView());
    bool xOk = false;
    bool yOk = false;
    const QPointF scenePos(words.at(1).toDouble(&xOk), words.at(2).toDouble(&yOk));
    if (!view || !xOk || !yOk)
        return false;
    const QPoint local = view->mapFromScene(scenePos);
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, local, view->viewport()->mapToGlobal(local), Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &event);
    return true;
}

bool ScriptRunner::menuItem(const QString& text)
{
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        return false;
    for (QAction* item : menu->actions()) {
        if (item->text() == text && item->isEnabled()) {
            menu->close();
            item->trigger();
            activateMainWindow();
            return true;
        }
    }
    menu->close();
    return false;
}

bool ScriptRunner::row(const QString& number)
{
    auto* table = m_window.findChild<QTableWidget*>(QStringLiteral("measurementsTable"));
    bool ok = false;
    int index = number.toInt(&ok);
    // Counted from the end when negative: -1 is the last row.
    if (table && index < 0)
        index += table->rowCount();
    if (!table || !table->isVisible() || !ok || index < 0 || index >= table->rowCount())
        return false;
    const QRect cell = table->visualItemRect(table->item(index, 0));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    return true;
}

bool ScriptRunner::dump(const QString& name)
{
    QJsonObject state = m_window.dumpState();
    // Where the chart's buttons stand, in window coordinates.
    QuickGraphicsSceneItem* host
        = m_window.solution()->sceneHostOf(m_window.switchingViewsManager()->getCurrentView());
    if (QQuickWindow* window = host ? host->window() : nullptr) {
        QJsonObject buttons;
        for (const char* id : {"previousTooth", "selectedTooth", "nextTooth"}) {
            if (QQuickItem* item = findQuickItem(window->contentItem(), QString::fromLatin1(id)))
                buttons.insert(QString::fromLatin1(id), item->mapToScene(QPointF()).x());
        }
        state.insert(QStringLiteral("chartButtons"), buttons);
    }
    // The keyboard shortcuts as the open list shows them.
    if (auto* table = qobject_cast<QTableWidget*>(findWidget(QStringLiteral("shortcutsTable")))) {
        QJsonObject shortcuts;
        for (int row = 0; row < table->rowCount(); ++row)
            shortcuts.insert(table->item(row, 0)->text(), table->item(row, 1)->text());
        state.insert(QStringLiteral("shortcuts"), shortcuts);
    }
    QFile file(m_output.filePath(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    file.write(QJsonDocument(state).toJson());
    return true;
}
