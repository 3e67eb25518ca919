#pragma once

#include <QGraphicsItem>
#include <QList>
#include <QPointer>
#include <QSet>

#include <vector>

class HoverableItem;
class QGraphicsScene;

/// The item families the scene dispatches to, as bits: an item's kinds are found once, by
/// dynamic_cast, when it is first seen, and then read as flags on every event.
enum SceneItemKind : quint16 {
    CustomItemKind = 0x001,
    TextItemKind = 0x002,
    SvgItemKind = 0x004,
    PixmapItemKind = 0x008,
    LineDraggerKind = 0x010,
    LineManipulatorKind = 0x020,
    CenterDraggerKind = 0x040,
    LineItemKind = 0x080,
    HoverableKind = 0x100,
    /// The four kinds that get every mouse move and release.
    MouseItemKinds = CustomItemKind | TextItemKind | SvgItemKind | PixmapItemKind,
};

/// One item as seen at the start of a dispatch. `guard` tracks the deletion of items that are
/// QObjects (every dispatched kind is one); items that are not are checked against the scene's
/// item list instead.
struct SceneItemEntry
{
    QGraphicsItem* item = nullptr;
    QPointer<QObject> guard;
    HoverableItem* hoverable = nullptr;
    quint16 kinds = 0;
    bool isObject = false;
    qreal accumulatedZ = 0.0;

    bool is(quint16 kind) const { return (kinds & kind) != 0; }
};

/// Finds the kinds of a live item and starts guarding it.
SceneItemEntry makeSceneItemEntry(QGraphicsItem* item);

/// The scene's items of the known kinds, highest accumulated z-value first. `sceneItems` holds
/// the scene's own item list as it was when the snapshot was made: while the scene's list is
/// shared with it, any change to the scene's items makes the scene's list detach, so comparing
/// data pointers tells in O(1) whether the membership is still the same.
class GraphicsSceneItemSnapshot
{
public:
    QList<QGraphicsItem*> sceneItems;
    std::vector<SceneItemEntry> entries;
    bool hasLineItems = false;

    bool sameMembershipAs(const QList<QGraphicsItem*>& current) const
    {
        return current.size() == sceneItems.size() && current.constData() == sceneItems.constData();
    }
};

/// Answers "is this item still in the scene?" in O(1) between handler calls of one dispatch.
/// The scene's item list can only change while code outside the dispatcher runs, so it is looked
/// at again only after such code ran: while it is still the very list the entries were taken from
/// (its data shared with `reference`), every entry is in the scene. Once it changed, QObject items
/// are checked one by one (alive, and scene() still this scene) and other items against a set
/// made from the current list, made again only when the list changed once more.
class SceneItemLiveness
{
public:
    /// `reference` is the scene's item list as it was when the entries were taken.
    SceneItemLiveness(const QGraphicsScene* scene, const QList<QGraphicsItem*>& reference)
        : scene(scene)
        , reference(reference)
    {
    }

    /// To be called after every call into code outside the dispatcher (items, handler, slots).
    void outsideCodeRan() { stale = true; }
    bool isInScene(const SceneItemEntry& entry);

private:
    const QGraphicsScene* scene;
    QList<QGraphicsItem*> reference;
    bool unchanged = true;
    bool stale = false;
    QList<QGraphicsItem*> held;
    QSet<QGraphicsItem*> members;
    bool membersValid = false;
};

/// Calls an item's protected event handlers (the manipulators keep theirs protected). A pointer to
/// a protected member formed in a class derived from QGraphicsItem may be applied to any item.
struct GraphicsItemAccess : public QGraphicsItem
{
    static void mousePress(QGraphicsItem* item, QGraphicsSceneMouseEvent* event)
    {
        (item->*(&GraphicsItemAccess::mousePressEvent))(event);
    }
    static void mouseMove(QGraphicsItem* item, QGraphicsSceneMouseEvent* event)
    {
        (item->*(&GraphicsItemAccess::mouseMoveEvent))(event);
    }
    static void mouseRelease(QGraphicsItem* item, QGraphicsSceneMouseEvent* event)
    {
        (item->*(&GraphicsItemAccess::mouseReleaseEvent))(event);
    }
    static void wheel(QGraphicsItem* item, QGraphicsSceneWheelEvent* event)
    {
        (item->*(&GraphicsItemAccess::wheelEvent))(event);
    }
    static void keyPress(QGraphicsItem* item, QKeyEvent* event)
    {
        (item->*(&GraphicsItemAccess::keyPressEvent))(event);
    }
    static void keyRelease(QGraphicsItem* item, QKeyEvent* event)
    {
        (item->*(&GraphicsItemAccess::keyReleaseEvent))(event);
    }
    static void hoverEnter(QGraphicsItem* item, QGraphicsSceneHoverEvent* event)
    {
        (item->*(&GraphicsItemAccess::hoverEnterEvent))(event);
    }
    static void hoverMove(QGraphicsItem* item, QGraphicsSceneHoverEvent* event)
    {
        (item->*(&GraphicsItemAccess::hoverMoveEvent))(event);
    }
    static void hoverLeave(QGraphicsItem* item, QGraphicsSceneHoverEvent* event)
    {
        (item->*(&GraphicsItemAccess::hoverLeaveEvent))(event);
    }
};
