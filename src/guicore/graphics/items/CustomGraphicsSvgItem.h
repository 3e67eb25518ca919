#pragma once

#include <guicore/guicore_export.h>

#include <QGraphicsSvgItem>

class QGraphicsSceneHoverEvent;
class QGraphicsSceneMouseEvent;
class QGraphicsSceneWheelEvent;

/// A vector picture in the overlay that reports clicks, hover, wheel and visibility like
/// `CustomGraphicsPixmapItem`. Its QObject base is the one QGraphicsSvgItem already has.
class GUICORE_EXPORT CustomGraphicsSvgItem : public QGraphicsSvgItem
{
    Q_OBJECT
    Q_DISABLE_COPY(CustomGraphicsSvgItem)

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsSvgItem(
        const QString& name = QString(), QGraphicsItem* parent = nullptr);

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
