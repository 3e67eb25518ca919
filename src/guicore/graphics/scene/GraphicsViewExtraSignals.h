#pragma once

class QKeyEvent;
class QMouseEvent;
class QPoint;

// The signals of a GraphicsViewExtra, in this order; GraphicsViewExtraInterface declares the same
// list so that a wrapper can pass each one on under its own name. The view's QObject base is
// QGraphicsView's and the interface's is its own, so no common base can carry the list: both
// declare it in their Q_SIGNALS section through this macro, which moc expands. Every event
// pointer is borrowed for the duration of the emission.
#define GUICORE_GRAPHICS_VIEW_EXTRA_SIGNALS                                                        \
    void panStarted();                                                                             \
    void panFinished();                                                                            \
    void keyPressed(QKeyEvent* keyEvent);                                                          \
    void keyReleased(QKeyEvent* keyEvent);                                                         \
    void viewportChanged();                                                                        \
    void leftAndRightMousePressed(QMouseEvent* mouseEvent);                                        \
    void mouseReleased(QMouseEvent* mouseEvent);                                                   \
    void rightMouseReleased(QMouseEvent* mouseEvent);                                              \
    void mouseEntered();                                                                           \
    void mouseLeft();                                                                              \
    void mousePositionChanged(double x, double y);                                                 \
    void leftMouseButtonDoubleClicked(QPoint pos);                                                 \
    void rightMouseButtonDoubleClicked(QPoint pos);                                                \
    void sceneChanged();
