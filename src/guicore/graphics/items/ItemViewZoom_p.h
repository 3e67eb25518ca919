#pragma once

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>

// The horizontal zoom of the first view of the item's scene; 1 when the item has no scene or the
// scene no view. Items that keep a constant size on screen measure their hit areas with it, so a
// scene shown in several views at different zooms is hit as its first view shows it.
inline double firstViewZoom(const QGraphicsItem& item)
{
    if (const QGraphicsScene* scene = item.scene()) {
        const QList<QGraphicsView*> views = scene->views();
        if (!views.isEmpty())
            return views.first()->transform().m11();
    }
    return 1.0;
}
