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
    bool hasMouseTracking() const { return mouseTracking; }

    /// Does not take ownership; the handler must outlive the scene or be reset to nullptr first.
    void setEventHandler(GraphicsSceneEventHandler* handler);
    /// The borrowed handler, or nullptr.
    GraphicsSceneEventHandler* getEventHandler() const { return eventHandler; }

    /// Without interactive mode, left presses and drags belong to the viewer's own tools: they
    /// reach neither items nor the stock scene, and drags are reported as dragStarted/dragMotion/
    /// dragFinished.
    void setInteractiveMode(bool interactive);
    bool getInteractiveMode() const { return interactiveMode; }

    void setViewerTag(const QString& tag);
    const QString& getViewerTag() const { return viewerTag; }

    /// A gesture runs from its first press (or double click) to the release of that button; it
    /// becomes a drag at its first move with the left or right button held.
    bool isDragging() const { return dragging; }
    bool isPressed() const { return pressed; }

    /// Delivers a hover move to the overlay items; called by the view or host that owns the hover
    /// state (the stock scene's hover bookkeeping is not used for these items).
    virtual void hoverEvent(QGraphicsSceneHoverEvent* event);
    /// Sends the hovered items their leave and restores the application's override cursor.
    virtual void hoverLeaveEvent(QGraphicsSceneHoverEvent* event);

Q_SIGNALS:
    void dragStarted(QGraphicsSceneMouseEvent* mouseEvent);
    void dragMotion(QGraphicsSceneMouseEvent* mouseEvent);
    void dragFinished(QGraphicsSceneMouseEvent* mouseEvent);
    void mousePressed(QGraphicsSceneMouseEvent* mouseEvent);
    void mouseReleased(QGraphicsSceneMouseEvent* mouseEvent);
    void mouseDoubleClicked(Qt::MouseButtons buttons, QPointF scenePos);
    void mouseMoved(QPointF scenePos);
    void rightClickMenuAsked(QPoint screenPos);
    void userInteracted();
    void mouseScrolled(QPointF scenePos, int delta, Qt::Orientation orientation);
    void pressedInEmptySpace(Qt::MouseButtons buttons);

protected:
    void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
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
