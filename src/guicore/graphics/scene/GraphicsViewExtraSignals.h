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

// The signals' documentation, attached to both classes that declare the list.
/// \fn void GraphicsViewExtra::panStarted()
/// A press in QGraphicsView::ScrollHandDrag mode began a pan.
/// \fn void GraphicsViewExtra::panFinished()
/// The pan ended: the release of the button, or of Control, in ScrollHandDrag mode.
/// \fn void GraphicsViewExtra::keyPressed(QKeyEvent* keyEvent)
/// After the stock handling of a key press.
/// \fn void GraphicsViewExtra::keyReleased(QKeyEvent* keyEvent)
/// After the stock handling of a key release.
/// \fn void GraphicsViewExtra::viewportChanged()
/// After every input event of the view, before sceneChanged(): the visible part of the
/// scene may have moved.
/// \fn void GraphicsViewExtra::leftAndRightMousePressed(QMouseEvent* mouseEvent)
/// The second press of a left+right chord. The view withholds that press from the stock
/// handling, so neither the scene nor any item (plain QGraphicsItems included) sees it and no
/// pan starts.
/// \fn void GraphicsViewExtra::mouseReleased(QMouseEvent* mouseEvent)
/// A left-button release, after the stock handling.
/// \fn void GraphicsViewExtra::rightMouseReleased(QMouseEvent* mouseEvent)
/// A right-button release, after the stock handling.
/// \fn void GraphicsViewExtra::mouseEntered()
/// The pointer entered the view.
/// \fn void GraphicsViewExtra::mouseLeft()
/// The pointer left the view.
/// \fn void GraphicsViewExtra::mousePositionChanged(double x, double y)
/// A move without a button held, in the view's widget coordinates (not scene coordinates).
/// \fn void GraphicsViewExtra::leftMouseButtonDoubleClicked(QPoint pos)
/// A left double click, at its view position, after the stock handling.
/// \fn void GraphicsViewExtra::rightMouseButtonDoubleClicked(QPoint pos)
/// A right double click, at its view position, after the stock handling.
/// \fn void GraphicsViewExtra::sceneChanged()
/// After viewportChanged(), at the end of every input event of the view.
/// \fn void GraphicsViewExtraInterface::panStarted()
/// A press in QGraphicsView::ScrollHandDrag mode began a pan.
/// \fn void GraphicsViewExtraInterface::panFinished()
/// The pan ended: the release of the button, or of Control, in ScrollHandDrag mode.
/// \fn void GraphicsViewExtraInterface::keyPressed(QKeyEvent* keyEvent)
/// After the stock handling of a key press.
/// \fn void GraphicsViewExtraInterface::keyReleased(QKeyEvent* keyEvent)
/// After the stock handling of a key release.
/// \fn void GraphicsViewExtraInterface::viewportChanged()
/// After every input event of the view, before sceneChanged(): the visible part of the
/// scene may have moved.
/// \fn void GraphicsViewExtraInterface::leftAndRightMousePressed(QMouseEvent* mouseEvent)
/// The second press of a left+right chord. The view withholds that press from the stock
/// handling, so neither the scene nor any item (plain QGraphicsItems included) sees it and no
/// pan starts.
/// \fn void GraphicsViewExtraInterface::mouseReleased(QMouseEvent* mouseEvent)
/// A left-button release, after the stock handling.
/// \fn void GraphicsViewExtraInterface::rightMouseReleased(QMouseEvent* mouseEvent)
/// A right-button release, after the stock handling.
/// \fn void GraphicsViewExtraInterface::mouseEntered()
/// The pointer entered the view.
/// \fn void GraphicsViewExtraInterface::mouseLeft()
/// The pointer left the view.
/// \fn void GraphicsViewExtraInterface::mousePositionChanged(double x, double y)
/// A move without a button held, in the view's widget coordinates (not scene coordinates).
/// \fn void GraphicsViewExtraInterface::leftMouseButtonDoubleClicked(QPoint pos)
/// A left double click, at its view position, after the stock handling.
/// \fn void GraphicsViewExtraInterface::rightMouseButtonDoubleClicked(QPoint pos)
/// A right double click, at its view position, after the stock handling.
/// \fn void GraphicsViewExtraInterface::sceneChanged()
/// After viewportChanged(), at the end of every input event of the view.
