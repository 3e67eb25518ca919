#include "GraphicsSceneExtra.h"

#include "GraphicsSceneEventHandler.h"
#include "GraphicsSceneExtra_p.h"
#include "GraphicsViewExtra.h"

#include <guicore/graphics/items/CustomGraphicsItem.h>
#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsSvgItem.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/graphics/items/HoverableItem.h>
#include <guicore/graphics/manipulators/CenterDragger.h>
#include <guicore/graphics/manipulators/LineDragger.h>
#include <guicore/graphics/manipulators/LineManipulationGraphicsItem.h>

#include <QGraphicsLineItem>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int wheelNotch = 120;

qreal accumulatedZValue(const QGraphicsItem* item)
{
    qreal z = 0.0;
    for (; item; item = item->parentItem())
        z += item->zValue();
    return z;
}

bool ignoresTransformations(const QGraphicsItem* item)
{
    for (; item; item = item->parentItem()) {
        if (item->flags().testFlag(QGraphicsItem::ItemIgnoresTransformations))
            return true;
    }
    return false;
}

/// Whether the item's hit area contains the scene point. The bounding rectangle is tested first,
/// as the stock scene does, since every shape lies inside it and shapes can be costly to build;
/// items that ignore the view's transformations are exempt, because their shape may compensate
/// for a zoom that their scene mapping does not know about.
bool containsScenePoint(QGraphicsItem* item, const QPointF& scenePos)
{
    const QPointF local = item->mapFromScene(scenePos);
    if (!ignoresTransformations(item)) {
        QRectF bounds = item->boundingRect();
        // Like the stock index, give flat rectangles a sliver of area.
        if (!bounds.width())
            bounds.adjust(-0.00001, 0, 0.00001, 0);
        if (!bounds.height())
            bounds.adjust(0, -0.00001, 0, 0.00001);
        if (!bounds.contains(local))
            return false;
    }
    return item->contains(local);
}

bool isUnderPoint(QGraphicsItem* item, const QPointF& scenePos)
{
    return item->isVisible() && item->isEnabled() && containsScenePoint(item, scenePos);
}

template <typename Event> void fixEventScreenPos(Event* event)
{
    const QWidget* widget = event->widget();
    if (!widget)
        return;
    if (const auto* view = qobject_cast<const GraphicsViewExtra*>(widget->parentWidget()))
        event->setScreenPos(
            view->getFixedScreenPosForMouseEvent(event->scenePos(), event->screenPos()));
}

} // namespace

SceneItemEntry makeSceneItemEntry(QGraphicsItem* item)
{
    SceneItemEntry entry;
    entry.item = item;
    QObject* object = item->toGraphicsObject();
    if (!object)
        object = dynamic_cast<QObject*>(item);
    if (object) {
        entry.isObject = true;
        entry.guard = object;
        if (qobject_cast<CustomGraphicsItem*>(object))
            entry.kinds |= CustomItemKind;
        else if (qobject_cast<CustomGraphicsTextItem*>(object))
            entry.kinds |= TextItemKind;
        else if (qobject_cast<CustomGraphicsSvgItem*>(object))
            entry.kinds |= SvgItemKind;
        else if (qobject_cast<CustomGraphicsPixmapItem*>(object))
            entry.kinds |= PixmapItemKind;
        else if (qobject_cast<LineDragger*>(object))
            entry.kinds |= LineDraggerKind;
        else if (qobject_cast<LineManipulationGraphicsItem*>(object))
            entry.kinds |= LineManipulatorKind;
        else if (qobject_cast<CenterDragger*>(object))
            entry.kinds |= CenterDraggerKind;
    }
    if (dynamic_cast<QGraphicsLineItem*>(item))
        entry.kinds |= LineItemKind;
    if ((entry.hoverable = dynamic_cast<HoverableItem*>(item)))
        entry.kinds |= HoverableKind;
    return entry;
}

namespace {

bool sameList(const QList<QGraphicsItem*>& a, const QList<QGraphicsItem*>& b)
{
    return a.size() == b.size() && a.constData() == b.constData();
}

} // namespace

bool SceneItemLiveness::isInScene(const SceneItemEntry& entry)
{
    if (stale) {
        stale = false;
        const QList<QGraphicsItem*> current = scene->items();
        if (unchanged)
            unchanged = sameList(current, reference);
        if (!unchanged && membersValid && !sameList(current, held))
            membersValid = false;
    }
    if (unchanged)
        return true;
    if (entry.isObject)
        return !entry.guard.isNull() && entry.item->scene() == scene;
    if (!membersValid) {
        held = scene->items();
        members = QSet<QGraphicsItem*>(held.cbegin(), held.cend());
        membersValid = true;
    }
    return members.contains(entry.item);
}

GraphicsSceneExtra::GraphicsSceneExtra(QObject* parent)
    : QGraphicsScene(parent)
{
    setItemIndexMethod(QGraphicsScene::NoIndex);
}

GraphicsSceneExtra::~GraphicsSceneExtra() = default;

void GraphicsSceneExtra::setMouseTracking(bool tracking)
{
    mouseTracking = tracking;
    // A view hands the scene moves without a button only while its viewport tracks the mouse,
    // and QGraphicsView turns that on only for scenes with hover items: without this, tracking
    // would emit nothing in a view over an image and a few lines. Never turned off here, since
    // the view may need it for its items.
    if (!tracking)
        return;
    for (QGraphicsView* view : views())
        view->viewport()->setMouseTracking(true);
}

void GraphicsSceneExtra::setEventHandler(GraphicsSceneEventHandler* handler)
{
    eventHandler = handler;
}

void GraphicsSceneExtra::setInteractiveMode(bool interactive)
{
    interactiveMode = interactive;
}

void GraphicsSceneExtra::setViewerTag(const QString& tag)
{
    viewerTag = tag;
}

std::shared_ptr<const GraphicsSceneItemSnapshot> GraphicsSceneExtra::getSortedGraphicItems()
{
    const QList<QGraphicsItem*> current = items();
    const auto byZ = [](const SceneItemEntry& a, const SceneItemEntry& b) {
        return a.accumulatedZ > b.accumulatedZ;
    };

    if (snapshot && snapshot->sameMembershipAs(current)) {
        // Same items; only a z-value or a parent may have changed, which the order shows.
        std::vector<qreal> z;
        z.reserve(snapshot->entries.size());
        bool ordered = true;
        qreal previous = std::numeric_limits<qreal>::infinity();
        for (const SceneItemEntry& entry : snapshot->entries) {
            z.push_back(accumulatedZValue(entry.item));
            if (z.back() > previous)
                ordered = false;
            previous = z.back();
        }
        if (ordered)
            return snapshot;
        auto resorted = std::make_shared<GraphicsSceneItemSnapshot>(*snapshot);
        for (size_t i = 0; i < z.size(); ++i)
            resorted->entries[i].accumulatedZ = z[i];
        std::sort(resorted->entries.begin(), resorted->entries.end(), byZ);
        snapshot = std::move(resorted);
        return snapshot;
    }

    auto rebuilt = std::make_shared<GraphicsSceneItemSnapshot>();
    rebuilt->sceneItems = current;
    rebuilt->entries.reserve(current.size());
    QSet<QGraphicsItem*> stillHovered;
    for (QGraphicsItem* item : current) {
        if (hoveredItems.contains(item))
            stillHovered.insert(item);
        SceneItemEntry entry = makeSceneItemEntry(item);
        if (!entry.kinds)
            continue;
        entry.accumulatedZ = accumulatedZValue(item);
        rebuilt->hasLineItems = rebuilt->hasLineItems || entry.is(LineItemKind);
        rebuilt->entries.push_back(std::move(entry));
    }
    std::sort(rebuilt->entries.begin(), rebuilt->entries.end(), byZ);
    // Items that left the scene keep no hover state here (their address may be reused).
    hoveredItems = std::move(stillHovered);
    snapshot = std::move(rebuilt);
    return snapshot;
}

void GraphicsSceneExtra::fixScreenPos(QGraphicsSceneMouseEvent* event) const
{
    fixEventScreenPos(event);
}

void GraphicsSceneExtra::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    fixScreenPos(event);
    if (firstPressedButton == Qt::NoButton)
        firstPressedButton = event->button();

    Q_EMIT userInteracted();
    pressed = true;
    Q_EMIT mousePressed(event);

    if (!interactiveMode && event->buttons().testFlag(Qt::LeftButton))
        return;

    const QPointF scenePos = event->scenePos();
    std::vector<SceneItemEntry> customAndManipulators, texts, lineDraggers, svgs, pixmaps;
    const QList<QGraphicsItem*> hit
        = items(scenePos, Qt::IntersectsItemBoundingRect, Qt::DescendingOrder, QTransform());
    SceneItemLiveness liveness(this, items());
    for (QGraphicsItem* item : hit) {
        SceneItemEntry entry = makeSceneItemEntry(item);
        if (entry.is(CustomItemKind | LineManipulatorKind))
            customAndManipulators.push_back(std::move(entry));
        else if (entry.is(TextItemKind))
            texts.push_back(std::move(entry));
        else if (entry.is(LineDraggerKind))
            lineDraggers.push_back(std::move(entry));
        else if (entry.is(SvgItemKind))
            svgs.push_back(std::move(entry));
        else if (entry.is(PixmapItemKind))
            pixmaps.push_back(std::move(entry));
    }

    event->setAccepted(false);
    if (eventHandler && eventHandler->handleMousePressEvent(event, viewerTag))
        return;
    liveness.outsideCodeRan();

    for (const SceneItemEntry& entry : texts) {
        if (!liveness.isInScene(entry))
            continue;
        auto* text = static_cast<CustomGraphicsTextItem*>(entry.item);
        const bool underMouse = text->isVisible() && text->isEnabled()
            && text->shape().contains(text->mapFromScene(scenePos));
        text->mousePressEventUnderMouse(event, underMouse);
        liveness.outsideCodeRan();
        if (event->isAccepted())
            return;
    }

    for (const SceneItemEntry& entry : customAndManipulators) {
        if (!liveness.isInScene(entry) || !isUnderPoint(entry.item, scenePos))
            continue;
        if (entry.is(CustomItemKind)) {
            GraphicsItemAccess::mousePress(entry.item, event);
            liveness.outsideCodeRan();
            if (event->isAccepted())
                return;
        } else if (event->button() == Qt::LeftButton) {
            static_cast<LineManipulationGraphicsItem*>(entry.item)->startManipulation(scenePos);
            event->accept();
            // The one case in which an item's acceptance is followed by the stock handling: the
            // manipulator becomes the mouse grabber and receives the moves of the drag.
            QGraphicsScene::mousePressEvent(event);
            return;
        }
    }

    for (const std::vector<SceneItemEntry>* list : {&svgs, &pixmaps}) {
        for (const SceneItemEntry& entry : *list) {
            if (!liveness.isInScene(entry) || !isUnderPoint(entry.item, scenePos))
                continue;
            GraphicsItemAccess::mousePress(entry.item, event);
            liveness.outsideCodeRan();
            if (event->isAccepted())
                return;
        }
    }

    if (event->button() == Qt::LeftButton) {
        for (const SceneItemEntry& entry : lineDraggers) {
            if (!liveness.isInScene(entry) || !isUnderPoint(entry.item, scenePos))
                continue;
            static_cast<LineDragger*>(entry.item)->setDragging(true);
            event->accept();
        }
    }

    if (!event->isAccepted())
        Q_EMIT pressedInEmptySpace(event->buttons());

    QGraphicsScene::mousePressEvent(event);
}

void GraphicsSceneExtra::deliverMouseMove(QGraphicsSceneMouseEvent* event, bool includeManipulators)
{
    const quint16 kinds = includeManipulators
        ? quint16(MouseItemKinds | LineDraggerKind | LineManipulatorKind)
        : quint16(MouseItemKinds);
    const auto sorted = getSortedGraphicItems();
    SceneItemLiveness liveness(this, sorted->sceneItems);
    for (const SceneItemEntry& entry : sorted->entries) {
        if (!entry.is(kinds) || !liveness.isInScene(entry))
            continue;
        GraphicsItemAccess::mouseMove(entry.item, event);
        liveness.outsideCodeRan();
    }
}

void GraphicsSceneExtra::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    fixScreenPos(event);
    if (eventHandler && eventHandler->handleMouseMoveEvent(event, viewerTag))
        return;

    // Only a gesture drags: a button still held after the gesture's own button was released
    // moves without starting a drag that no release would end.
    if ((event->buttons() & (Qt::LeftButton | Qt::RightButton))
        && firstPressedButton != Qt::NoButton) {
        if (!dragging) {
            dragging = true;
            if (!interactiveMode) {
                Q_EMIT dragStarted(event);
                return;
            }
            deliverMouseMove(event, false);
        } else if (!interactiveMode) {
            Q_EMIT dragMotion(event);
            return;
        }
        deliverMouseMove(event, true);
    }

    if (mouseTracking || pressed)
        Q_EMIT mouseMoved(event->scenePos());

    QGraphicsScene::mouseMoveEvent(event);
}

void GraphicsSceneExtra::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    fixScreenPos(event);
    if (eventHandler && eventHandler->handleMouseReleaseEvent(event, viewerTag))
        event->accept();

    if (!interactiveMode) {
        pressed = false;
        if (dragging) {
            dragging = false;
            Q_EMIT dragFinished(event);
        } else {
            Q_EMIT mouseReleased(event);
        }
    }

    const bool acceptedBefore = event->isAccepted();
    QGraphicsScene::mouseReleaseEvent(event);
    if (acceptedBefore)
        event->accept();

    if (quint32(event->button()) == firstPressedButton) {
        firstPressedButton = Qt::NoButton;
        if (dragging) {
            dragging = false;
            Q_EMIT dragFinished(event);
        }
    }
    pressed = false;

    const auto sorted = getSortedGraphicItems();
    SceneItemLiveness liveness(this, sorted->sceneItems);
    for (const SceneItemEntry& entry : sorted->entries) {
        if (!entry.is(MouseItemKinds | LineDraggerKind | LineManipulatorKind)
            || !liveness.isInScene(entry))
            continue;
        if (entry.is(MouseItemKinds))
            GraphicsItemAccess::mouseRelease(entry.item, event);
        else if (entry.is(LineDraggerKind))
            static_cast<LineDragger*>(entry.item)->setDragging(false);
        else
            static_cast<LineManipulationGraphicsItem*>(entry.item)->stopManipulation();
        liveness.outsideCodeRan();
    }

    // Run again on purpose: grabbers that the item handlers above set up or released are settled
    // by a second pass of the stock logic.
    QGraphicsScene::mouseReleaseEvent(event);
}

void GraphicsSceneExtra::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    fixScreenPos(event);
    // A double click stands in for the second press; like a press, it begins a gesture, so that
    // a drag from it ends at its release.
    if (firstPressedButton == Qt::NoButton)
        firstPressedButton = event->button();
    if (eventHandler)
        eventHandler->handleMouseDoubleClickEvent(event, viewerTag);
    Q_EMIT userInteracted();
    QGraphicsScene::mouseDoubleClickEvent(event);
    Q_EMIT mouseDoubleClicked(event->buttons(), event->scenePos());
}

void GraphicsSceneExtra::keyPressEvent(QKeyEvent* event)
{
    const auto sorted = getSortedGraphicItems();
    SceneItemLiveness liveness(this, sorted->sceneItems);
    for (const SceneItemEntry& entry : sorted->entries) {
        if (!entry.is(TextItemKind | CustomItemKind) || !liveness.isInScene(entry))
            continue;
        GraphicsItemAccess::keyPress(entry.item, event);
        liveness.outsideCodeRan();
    }
    if (eventHandler && eventHandler->handleKeyPressEvent(event, viewerTag))
        return;
    QGraphicsScene::keyPressEvent(event);
}

void GraphicsSceneExtra::keyReleaseEvent(QKeyEvent* event)
{
    // Releases go to text items only: overlay items react to presses, text editing to both.
    const auto sorted = getSortedGraphicItems();
    SceneItemLiveness liveness(this, sorted->sceneItems);
    for (const SceneItemEntry& entry : sorted->entries) {
        if (!entry.is(TextItemKind) || !liveness.isInScene(entry))
            continue;
        GraphicsItemAccess::keyRelease(entry.item, event);
        liveness.outsideCodeRan();
    }
    if (eventHandler && eventHandler->handleKeyReleaseEvent(event, viewerTag))
        return;
    QGraphicsScene::keyReleaseEvent(event);
}

void GraphicsSceneExtra::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    fixEventScreenPos(event);
    QGraphicsScene::wheelEvent(event);

    qint32& remainder = event->orientation() == Qt::Horizontal ? horizontalWheelRemainder
                                                               : verticalWheelRemainder;
    remainder += event->delta();
    if (std::abs(remainder) < wheelNotch)
        return;
    const qint32 notches = remainder / wheelNotch;
    remainder -= notches * wheelNotch;
    event->setDelta(notches * wheelNotch);

    // One query serves both the question whether anything that handles events lies under the
    // point and the delivery: the items at the point are exactly the visible ones containing it.
    const QPointF scenePos = event->scenePos();
    const QList<QGraphicsItem*> sceneItems = items();
    const QList<QGraphicsItem*> hit
        = items(scenePos, Qt::IntersectsItemShape, Qt::DescendingOrder, QTransform());
    if (handlingObjectAmong(hit)) {
        std::vector<SceneItemEntry> customs;
        for (QGraphicsItem* item : hit) {
            SceneItemEntry entry = makeSceneItemEntry(item);
            if (entry.is(CustomItemKind))
                customs.push_back(std::move(entry));
        }
        SceneItemLiveness liveness(this, sceneItems);
        bool outsideCodeRan = false;
        for (const SceneItemEntry& entry : customs) {
            // Until a handler ran, the query's own shape test still holds.
            if (!liveness.isInScene(entry)
                || (outsideCodeRan && !containsScenePoint(entry.item, scenePos)))
                continue;
            GraphicsItemAccess::wheel(entry.item, event);
            liveness.outsideCodeRan();
            outsideCodeRan = true;
        }
    }

    Q_EMIT userInteracted();
    Q_EMIT mouseScrolled(scenePos, event->delta(), event->orientation());
}

bool GraphicsSceneExtra::handlingObjectAmong(const QList<QGraphicsItem*>& hitsAtPoint) const
{
    bool lineItem = false;
    for (QGraphicsItem* item : hitsAtPoint) {
        const SceneItemEntry entry = makeSceneItemEntry(item);
        const bool reacts = entry.is(TextItemKind)
            || (entry.is(CustomItemKind)
                && static_cast<CustomGraphicsItem*>(item)->getHandleRightClick());
        if (reacts && item->isEnabled())
            return true;
        lineItem = lineItem || entry.is(LineItemKind);
    }
    return lineItem;
}

bool GraphicsSceneExtra::eventHandlingObjectBelowMouse(const QPointF& scenePos)
{
    const auto sorted = getSortedGraphicItems();
    for (const SceneItemEntry& entry : sorted->entries) {
        const bool reacts = entry.is(TextItemKind)
            || (entry.is(CustomItemKind)
                && static_cast<CustomGraphicsItem*>(entry.item)->getHandleRightClick());
        if (reacts && isUnderPoint(entry.item, scenePos))
            return true;
    }
    if (!sorted->hasLineItems)
        return false;
    const QList<QGraphicsItem*> hit
        = items(scenePos, Qt::IntersectsItemShape, Qt::DescendingOrder, QTransform());
    return std::any_of(hit.cbegin(), hit.cend(),
        [](QGraphicsItem* item) { return dynamic_cast<QGraphicsLineItem*>(item) != nullptr; });
}

void GraphicsSceneExtra::contextMenuEvent(QGraphicsSceneContextMenuEvent* event)
{
    fixEventScreenPos(event);
    QGraphicsScene::contextMenuEvent(event);
    if (!event->isAccepted())
        Q_EMIT rightClickMenuAsked(event->screenPos());
}

void GraphicsSceneExtra::hoverEvent(QGraphicsSceneHoverEvent* event)
{
    if (eventHandler && eventHandler->handleHoverEvent(event, viewerTag))
        return;
    handleHoverableItems(event);
    // Items keep their hover state while something is dragged.
    if (dragging)
        return;
    deliverHover(event);
}

void GraphicsSceneExtra::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    if (eventHandler && eventHandler->handleHoverLeaveEvent(event, viewerTag))
        return;
    if (!dragging)
        deliverHover(event);
    QGuiApplication::restoreOverrideCursor();
}

void GraphicsSceneExtra::handleHoverableItems(QGraphicsSceneHoverEvent* event)
{
    const auto sorted = getSortedGraphicItems();
    std::vector<const SceneItemEntry*> entries;
    QList<HoverableItem*> hoverables;
    for (const SceneItemEntry& entry : sorted->entries) {
        if (entry.is(HoverableKind)) {
            entries.push_back(&entry);
            hoverables.append(entry.hoverable);
        }
    }
    if (hoverables.isEmpty())
        return;
    HoverableItem::sortByHoverPriority(hoverables);

    // The sort reorders the mix-in pointers; find each one's entry again for its guard.
    QHash<HoverableItem*, const SceneItemEntry*> entryOf;
    entryOf.reserve(entries.size());
    for (const SceneItemEntry* entry : entries)
        entryOf.insert(entry->hoverable, entry);

    SceneItemLiveness liveness(this, sorted->sceneItems);
    HoverableItem* hovered = nullptr;
    for (HoverableItem* candidate : std::as_const(hoverables)) {
        if (!liveness.isInScene(*entryOf.value(candidate)))
            continue;
        const bool hit = candidate->isHoverHit(event->scenePos());
        liveness.outsideCodeRan();
        if (hit) {
            hovered = candidate;
            break;
        }
    }
    for (HoverableItem* other : std::as_const(hoverables)) {
        if (other == hovered || !liveness.isInScene(*entryOf.value(other)))
            continue;
        other->setHovered(false);
        liveness.outsideCodeRan();
    }
    if (hovered && liveness.isInScene(*entryOf.value(hovered)))
        hovered->setHovered(true);
}

void GraphicsSceneExtra::deliverHover(QGraphicsSceneHoverEvent* event)
{
    const QPointF scenePos = event->scenePos();
    const auto sorted = getSortedGraphicItems();
    SceneItemLiveness liveness(this, sorted->sceneItems);
    bool taken = false;
    constexpr quint16 hoverKinds = LineDraggerKind | LineManipulatorKind | CenterDraggerKind
        | CustomItemKind | SvgItemKind | PixmapItemKind;
    for (const SceneItemEntry& entry : sorted->entries) {
        if (!entry.is(hoverKinds) || !liveness.isInScene(entry))
            continue;
        QGraphicsItem* item = entry.item;
        if (!isUnderPoint(item, scenePos)) {
            if (!hoveredItems.remove(item))
                continue;
            GraphicsItemAccess::hoverLeave(item, event);
            // Draggers change the cursor while hovered; the scene pairs their pushes and pops.
            if (entry.is(LineDraggerKind))
                static_cast<LineDragger*>(item)->stopHovering();
            else if (entry.is(CenterDraggerKind))
                static_cast<CenterDragger*>(item)->stopHovering();
            liveness.outsideCodeRan();
            continue;
        }
        if (taken)
            continue;
        taken = true;
        if (hoveredItems.contains(item)) {
            GraphicsItemAccess::hoverMove(item, event);
        } else {
            hoveredItems.insert(item);
            GraphicsItemAccess::hoverEnter(item, event);
            liveness.outsideCodeRan();
            if (!liveness.isInScene(entry))
                continue;
            if (entry.is(LineDraggerKind))
                static_cast<LineDragger*>(item)->startHovering();
            else if (entry.is(CenterDraggerKind))
                static_cast<CenterDragger*>(item)->startHovering();
        }
        liveness.outsideCodeRan();
    }
}
