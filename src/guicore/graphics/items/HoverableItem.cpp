#include "HoverableItem.h"

#include <utility>

HoverableItem::~HoverableItem() = default;

void HoverableItem::setHovered(bool hover)
{
    if (hover == hovered)
        return;
    hoverStateChanged(hover);
    hovered = hover;
}

void HoverableItem::sortByHoverPriority(QList<HoverableItem*>& items)
{
    // A bubble sort: stable, and the lists are a handful of items under the pointer.
    const qsizetype count = items.size();
    for (qsizetype pass = 0; pass < count; ++pass) {
        for (qsizetype i = 0; i + 1 < count; ++i) {
            if (items[i]->getHoverPriority() < items[i + 1]->getHoverPriority())
                std::swap(items[i], items[i + 1]);
        }
    }
}
