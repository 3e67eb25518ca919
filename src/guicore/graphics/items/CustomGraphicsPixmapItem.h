#pragma once

#include <guicore/guicore_export.h>

#include <QGraphicsPixmapItem>
#include <QObject>

class QGraphicsSceneHoverEvent;
class QGraphicsSceneMouseEvent;
class QGraphicsSceneWheelEvent;

/// A picture in the overlay that reports clicks, hover, wheel and visibility like the other
/// overlay items. Any press on a visible, enabled item counts: there is no separate clickable
/// region, no dragging state and no custom children.
class GUICORE_EXPORT CustomGraphicsPixmapItem : public QObject, public QGraphicsPixmapItem
{
    Q_OBJECT
    Q_DISABLE_COPY(CustomGraphicsPixmapItem)

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsPixmapItem(const QString& name = QString(),
        QGraphicsItem* parent = nullptr, const QPixmap& pixmap = QPixmap());

    // Event handlers, public so that a scene dispatching by itself can call them; the events
    // are borrowed.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;

Q_SIGNALS:
    // Every event pointer is the scene's, borrowed for the duration of the emission.
    void leftClicked(QGraphicsSceneMouseEvent* event);
    void mouseReleased(QGraphicsSceneMouseEvent* event);
    void mouseMoved(QGraphicsSceneMouseEvent* event);
    void mouseHoverMove(QGraphicsSceneHoverEvent* event);
    void mouseHoverLeave(QGraphicsSceneHoverEvent* event);
    void mouseHoverEnter(QGraphicsSceneHoverEvent* event);
    void rightClicked(QGraphicsSceneMouseEvent* event);
    void mouseWheelChanged(QGraphicsSceneWheelEvent* event);
    void visibilityChanged(bool visible);

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
};
