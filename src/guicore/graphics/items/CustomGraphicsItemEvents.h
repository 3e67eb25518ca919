#pragma once

#include <guicore/graphics/items/CustomGraphicsPointerEvents.h>

#include <QGraphicsItem>
#include <QVariant>

// The wheel and visibility signals. The overlay items that report every event declare
// GUICORE_OVERLAY_POINTER_SIGNALS and then this list, in that order (see
// GUICORE_OVERLAY_POINTER_SIGNALS for why the lists are macros; they are not nested, so that the
// reference lists every signal).
#define GUICORE_OVERLAY_WHEEL_SIGNALS                                                              \
    /** Whole wheel steps over the item (the delta a multiple of 120). */                          \
    void mouseWheelChanged(QGraphicsSceneWheelEvent* event);                                       \
    /** The item, while in a scene, is about to be shown or hidden. */                             \
    void visibilityChanged(bool visible);

/// Reports a Qt graphics item's pointer, wheel and visibility events through the signals of
/// GUICORE_OVERLAY_POINTER_SIGNALS and GUICORE_OVERLAY_WHEEL_SIGNALS, which Item (the class
/// deriving from this one) declares.
template <class Item, class GraphicsItem>
class CustomGraphicsItemEvents : public CustomGraphicsPointerEvents<Item, GraphicsItem>
{
    using Base = CustomGraphicsPointerEvents<Item, GraphicsItem>;

public:
    using Base::Base;

    /// Any press of exactly the left or exactly the right button on a visible, enabled item is
    /// a click: there is no separate clickable region. The event is borrowed.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        // The scene hands the event over accepted; only a click keeps it so.
        event->ignore();
        if (this->isVisible() && this->isEnabled())
            this->reportClick(event);
    }
    /// The event is borrowed.
    void wheelEvent(QGraphicsSceneWheelEvent* event) override
    {
        Q_EMIT self()->mouseWheelChanged(event);
    }

protected:
    /// Reports visibility changes of an item in a scene, before the base handles them.
    QVariant itemChange(QGraphicsItem::GraphicsItemChange change, const QVariant& value) override
    {
        if (change == QGraphicsItem::ItemVisibleChange && this->scene())
            Q_EMIT self()->visibilityChanged(value.toBool());
        return GraphicsItem::itemChange(change, value);
    }

private:
    Item* self() { return static_cast<Item*>(this); }
};
