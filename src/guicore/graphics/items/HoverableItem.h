#pragma once

#include <guicore/guicore_export.h>

#include <QList>

class QPointF;

/// A mix-in that gives an item a hover state and a hover priority.
///
/// Where several hoverable items lie under the pointer, the one with the highest priority is
/// hovered first. Copies carry both the state and the priority.
class GUICORE_EXPORT HoverableItem
{
public:
    HoverableItem() = default;
    /// @{
    /// Copies the hover state and priority.
    HoverableItem(const HoverableItem& other) = default;
    HoverableItem& operator=(const HoverableItem& other) = default;
    /// @}
    virtual ~HoverableItem();

    /// Whether the scene point lies on the part of the item that can be hovered.
    virtual bool isHoverHit(const QPointF& scenePos) const = 0;
    /// Told of a change of the hover state by setHovered, before the state is stored.
    virtual void hoverStateChanged(bool hovered) = 0;

    /// Only on a change: notifies with the new state, then stores it.
    void setHovered(bool hovered);
    /// Whether the scene marked this item as the hovered one.
    bool isHovered() const { return hovered; }
    /// @{
    /// Where shapes overlap, the item with the higher priority is hovered.
    void setHoverPriority(int priority) { hoverPriority = priority; }
    int getHoverPriority() const { return hoverPriority; }
    /// @}

    /// Orders the items from the highest priority to the lowest; items of equal priority keep
    /// their order. The items are borrowed.
    static void sortByHoverPriority(QList<HoverableItem*>& items);

private:
    bool hovered = false;
    int hoverPriority = -1;
};
