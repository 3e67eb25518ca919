#include "ScriptRunner.h"

#include "../plugin/DentalSolutionApi.h"
#include "MainWindow.h"

#include <guicore/action/Action.h>
#include <guicore/graphics/scene/GraphicsViewExtraInterface.h>
#include <guicore/graphics/scene/QuickGraphicsSceneItem.h>
#include <guicore/solution/SolutionManager.h>
#include <guicore/style/DevicePixelRatio.h>
#include <guicore/view/SwitchingViewsManager.h>

#include <settings/SettingsManager.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QGraphicsView>
#include <QJsonDocument>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QScreen>
#include <QSpinBox>
#include <QTextStream>
#include <QTimer>
#include <cstdio>

namespace {

// Time given to the window system between steps; painting and deferred stops need a few turns.
constexpr int STEP_DELAY_MS = 30;

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
    // Without a window manager (a virtual X server) nobody activates the window; keyboard input
    // and the scene's focus item need an active one.
    m_window.activateWindow();
    if (QApplication::activeWindow() != &m_window) {
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QApplication::setActiveWindow(&m_window);
        QT_WARNING_POP
    }
    QTimer::singleShot(STEP_DELAY_MS, this, &ScriptRunner::next);
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
        Action* action = m_window.solutionManager()->getAction(words.at(1));
        if (!action)
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
    if (step == QLatin1String("notation")) {
        m_window.solution()->setNotation(rest);
        m_window.updateStatus();
        return m_window.solution()->notation() == rest;
    }
    if (step == QLatin1String("set") && words.size() == 3)
        return set(words.at(1), words.at(2));
    if (step == QLatin1String("close") && words.size() == 2)
        return close(words.at(1));
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
    if (step == QLatin1String("dump")) {
        QFile file(m_output.filePath(rest));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return false;
        file.write(QJsonDocument(m_window.dumpState()).toJson());
        return true;
    }
    return false;
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
    return true;
}

bool ScriptRunner::key(const QString& sequence)
{
    const QKeySequence keys(sequence);
    if (keys.isEmpty())
        return false;
    const QKeyCombination combination = keys[0];
    QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : &m_window;
    QKeyEvent press(QEvent::KeyPress, combination.key(), combination.keyboardModifiers());
    QApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, combination.key(), combination.keyboardModifiers());
    QApplication::sendEvent(target, &release);
    return true;
}

bool ScriptRunner::type(const QString& text)
{
    QWidget* target = QApplication::focusWidget();
    if (!target)
        return false;
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(character));
        QApplication::sendEvent(target, &release);
    }
    return true;
}
