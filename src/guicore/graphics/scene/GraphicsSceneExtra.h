#pragma once

#include <guicore/guicore_export.h>

#include <QGraphicsScene>
#include <QList>
#include <QPointF>
#include <QSet>
#include <QString>

#include <memory>

class GraphicsSceneEventHandler;
class GraphicsSceneItemSnapshot;
class QGraphicsItem;
class QGraphicsSceneContextMenuEvent;
class QGraphicsSceneHoverEvent;
class QGraphicsSceneMouseEvent;
class QGraphicsSceneWheelEvent;
class QKeyEvent;

/// The scene of every 2-D viewer. It turns raw input into a small set of signals, gives an
/// optional GraphicsSceneEventHandler the first say over every event and delivers presses, moves,
/// releases, hovers, keys and wheel turns to the library's overlay items (CustomGraphicsItem and
/// its text, SVG and pixmap cousins, line draggers and line manipulators) in a fixed order of
/// priority, on top of the stock grabber logic. An item that a handler removes from the scene or
/// deletes during a dispatch is never touched again by that dispatch.
class GUICORE_EXPORT GraphicsSceneExtra : public QGraphicsScene
{
    Q_OBJECT
    Q_DISABLE_COPY(GraphicsSceneExtra)

public:
    /// The scene uses no item index (items are few, and moved often).
    explicit GraphicsSceneExtra(QObject* parent = nullptr);
    ~GraphicsSceneExtra() override;

    /// When on, moves without a button emit mouseMoved as well; the viewports of the scene's
    /// views then track the mouse, so that such moves reach the scene.
    void setMouseTracking(bool tracking);
    /// Off by default.
    bool hasMouseTracking() const { return mouseTracking; }

    /// Does not take ownership; the handler must outlive the scene or be reset to nullptr first.
    void setEventHandler(GraphicsSceneEventHandler* handler);
    /// The borrowed handler, or nullptr.
    GraphicsSceneEventHandler* getEventHandler() const { return eventHandler; }

    /// Without interactive mode, left presses and drags belong to the viewer's own tools: they
    /// reach neither items nor the stock scene, and drags are reported as dragStarted/dragMotion/
    /// dragFinished.
    void setInteractiveMode(bool interactive);
    /// On by default.
    bool getInteractiveMode() const { return interactiveMode; }

    /// @{
    /// A name for the viewer showing the scene, passed with every event to the event handler so
    /// that one handler can serve several viewers. Empty by default.
    void setViewerTag(const QString& tag);
    const QString& getViewerTag() const { return viewerTag; }
    /// @}

    /// A gesture runs from its first press (or double click) to the release of that button; it
    /// becomes a drag at its first move with the left or right button held.
    bool isDragging() const { return dragging; }
    /// True between a press and the next release (of any button).
    bool isPressed() const { return pressed; }

    /// Delivers a hover move to the overlay items; called by the view or host that owns the hover
    /// state (the stock scene's hover bookkeeping is not used for these items).
    virtual void hoverEvent(QGraphicsSceneHoverEvent* event);
    /// Sends the hovered items their leave and restores the application's override cursor.
    virtual void hoverLeaveEvent(QGraphicsSceneHoverEvent* event);

Q_SIGNALS:
    /// Without interactive mode only: the first move with the left or right button held. There is
    /// no distance threshold.
    void dragStarted(QGraphicsSceneMouseEvent* mouseEvent);
    /// Without interactive mode only: every further move of that drag.
    void dragMotion(QGraphicsSceneMouseEvent* mouseEvent);
    /// The release that ends a drag. Without interactive mode that is the release of any button;
    /// in interactive mode the release of the button that began the gesture.
    void dragFinished(QGraphicsSceneMouseEvent* mouseEvent);
    /// Every press, after userInteracted() and before the event handler or any item sees it.
    void mousePressed(QGraphicsSceneMouseEvent* mouseEvent);
    /// Without interactive mode only: a release that ends no drag (a click).
    void mouseReleased(QGraphicsSceneMouseEvent* mouseEvent);
    /// After the stock double-click handling, with the held buttons and the scene position.
    void mouseDoubleClicked(Qt::MouseButtons buttons, QPointF scenePos);
    /// A move, in scene coordinates, while a button is pressed or mouse tracking is on; emitted
    /// after the items had the move.
    void mouseMoved(QPointF scenePos);
    /// A context-menu event that no item accepted, at its screen position (for an offscreen view,
    /// the view position of the point: see GraphicsViewExtra::getFixedScreenPosForMouseEvent()).
    void rightClickMenuAsked(QPoint screenPos);
    /// Any press, double click or whole wheel step; for an "idle" timer, say.
    void userInteracted();
    /// Whole wheel steps only: delta is a multiple of 120. Smaller deltas of high-resolution wheels
    /// are summed per orientation until a step is complete. Emitted whether or not an item took
    /// the wheel.
    void mouseScrolled(QPointF scenePos, int delta, Qt::Orientation orientation);
    /// A press that neither the handler nor any overlay item accepted, emitted before the stock
    /// scene (and so plain QGraphicsItems) sees it: a plain item may still take the press after.
    void pressedInEmptySpace(Qt::MouseButtons buttons);

protected:
    /// Stock handling, then rightClickMenuAsked() when no item accepted the event.
    void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;
    /// Every CustomGraphicsTextItem and CustomGraphicsItem gets the key (top first), whatever has
    /// the focus; then the event handler; then, unless that consumed it, the stock scene.
    void keyPressEvent(QKeyEvent* event) override;
    /// Like keyPressEvent() but for text items only: CustomGraphicsItems get no key releases.
    void keyReleaseEvent(QKeyEvent* event) override;
    /// The press goes, in this order and until one accepts it: the event handler; the text items
    /// under the point (each told whether it is under the mouse); CustomGraphicsItems and line
    /// manipulators (a manipulator takes only the left button, and the stock handler still runs
    /// after it); SVG then pixmap items. A left press then sets every LineDragger under the point
    /// dragging. An unaccepted press emits pressedInEmptySpace(); then the stock handler runs, so
    /// a plain QGraphicsItem gets a press only when no overlay item took it. Without interactive
    /// mode a left press reaches no item and not the stock scene.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    /// With the left or right button held, every overlay item gets the move, not only the grabber
    /// (on the first move of a drag the mouse items get it twice); then mouseMoved() and the stock
    /// handler. Without interactive mode drags only emit dragStarted() and dragMotion().
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    /// Runs the stock QGraphicsScene release logic twice, once before and once after the overlay
    /// items are told (every mouse item gets the release, draggers stop dragging, manipulators
    /// stop), which plain QGraphicsItems notice: while another button is still held the grabber can
    /// get a release twice; a release it accepted can come back unaccepted on the second pass; and
    /// a QGraphicsView can then keep showing the item's cursor. The gesture (and a drag, with
    /// dragFinished()) ends only at the release of the button that began it.
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    /// The handler is told (its answer is ignored), userInteracted(), the stock handling, then
    /// mouseDoubleClicked().
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    /// The stock handler runs first with the raw delta. Then whole 120-unit steps only (see
    /// mouseScrolled()) go to the CustomGraphicsItems under the point, when an item that handles
    /// wheel and right clicks lies there, with the delta rounded to whole steps.
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;

    /// True when an item that reacts to wheel and right clicks (a CustomGraphicsItem that handles
    /// right clicks, any CustomGraphicsTextItem) or a line item lies under the point.
    bool eventHandlingObjectBelowMouse(const QPointF& scenePos);

private:
    /// All items, highest accumulated z-value first, with their kinds; shared and immutable, so a
    /// dispatch can keep iterating it while handlers cause a newer one to be made.
    std::shared_ptr<const GraphicsSceneItemSnapshot> getSortedGraphicItems();
    void deliverMouseMove(QGraphicsSceneMouseEvent* event, bool includeManipulators);
    void deliverHover(QGraphicsSceneHoverEvent* event);
    void handleHoverableItems(QGraphicsSceneHoverEvent* event);
    void fixScreenPos(QGraphicsSceneMouseEvent* event) const;
    /// eventHandlingObjectBelowMouse over the items already found at the point (visible, and
    /// containing it), in one pass.
    bool handlingObjectAmong(const QList<QGraphicsItem*>& hitsAtPoint) const;

    bool mouseTracking = false;
    bool dragging = false;
    bool pressed = false;
    quint32 firstPressedButton = Qt::NoButton;
    GraphicsSceneEventHandler* eventHandler = nullptr;
    bool interactiveMode = true;
    QSet<QGraphicsItem*> hoveredItems;
    QString viewerTag;
    qint32 horizontalWheelRemainder = 0;
    qint32 verticalWheelRemainder = 0;

    std::shared_ptr<const GraphicsSceneItemSnapshot> snapshot;
};
