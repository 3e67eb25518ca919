#pragma once

#include <QDir>
#include <QObject>
#include <QStringList>

class MainWindow;
class QWidget;

// Runs a demo script against the main window, one step per turn of the event loop, so that every
// step sees the effects of the previous one painted. Steps, one a line ('#' starts a comment):
//   view ID | action ID [key=value...] | press X Y | move X Y | release X Y | click X Y
//   doubleclick X Y | rightclick X Y | wheel X Y DELTA | pan X1 Y1 X2 Y2 (middle-button drag)
//   key SEQUENCE | type TEXT (to the widget with the focus, or the tooth chart's page, through
//   the shortcut map as typed keys go)
//   shortcut SEQUENCE (to the window, through its shortcut map)
//   button NAME (clicks a tool bar button, by its action's object name or text)
//   qmlbutton NAME (clicks an item of the current view's QML page, by its object name)
//   setting KEY VALUE | resize W H | wait MS | screenshot FILE | dump FILE
//   set WIDGET VALUE (a spin box's value or a combo box's item, by the widget's object name)
//   close WINDOW (rejects a dialog, closes any other window, by its object name)
//   contextmenu X Y | menuitem TEXT (opens the context menu at a point; picks an entry of the
//   open menu)
//   row N (clicks row N of the measurements list: 0 is the first, -1 the last)
//   dismiss (clicks the Dismiss button of the problem shown above the views)
//   kill SIGNAL (TERM or KILL: the viewer's own process, as a session end or a crash would)
// Coordinates are scene coordinates of the current view's scene (a 2-D viewer's or the tooth
// chart's); files are relative to the screenshot folder.
class ScriptRunner : public QObject
{
    Q_OBJECT

public:
    ScriptRunner(MainWindow& window, const QStringList& lines, const QDir& outputFolder);

    void start();
    int failures() const { return m_failures; }

    static bool readScript(const QString& fileName, QStringList& lines, QString& error);

Q_SIGNALS:
    void finished(int failures);

private:
    void next();
    void activateMainWindow();
    bool run(const QStringList& words);
    bool mouse(const QString& kind, const QStringList& words);
    bool key(const QString& sequence);
    // Where typed keys go: the widget with the focus, or the tooth chart's Quick window.
    QObject* keyTarget() const;
    bool button(const QString& name);
    bool qmlButton(const QString& name);
    bool wheel(const QStringList& words);
    bool pan(const QStringList& words);
    bool type(const QString& text);
    bool set(const QString& name, const QString& value);
    bool close(const QString& name);
    bool contextMenu(const QStringList& words);
    bool menuItem(const QString& text);
    bool row(const QString& number);
    bool dump(const QString& file);
    static QWidget* findWidget(const QString& name);
    void fail(const QString& message);

    MainWindow& m_window;
    QStringList m_lines;
    QDir m_output;
    int m_index = 0;
    int m_failures = 0;
    int m_delay = 0;
    Qt::MouseButtons m_buttons = Qt::NoButton;
};
