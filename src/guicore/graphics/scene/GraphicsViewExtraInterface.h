#pragma once

#include <guicore/graphics/scene/GraphicsViewExtraSignals.h>
#include <guicore/guicore_export.h>

#include <QGraphicsView>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QPolygon>
#include <QPolygonF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QTransform>

class QEnterEvent;
class QEvent;
class QGraphicsItem;
class QGraphicsScene;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWidget;

/// The signal-carrying face of a GraphicsViewExtra, through which the rest of the system drives a
/// view without knowing whether it is a plain widget or one rendered inside a Quick item.
class GUICORE_EXPORT GraphicsViewExtraInterface : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(GraphicsViewExtraInterface)

public:
    GraphicsViewExtraInterface();
    /// The parent owns the interface as usual.
    explicit GraphicsViewExtraInterface(QObject* parent);
    ~GraphicsViewExtraInterface() override;

    virtual void fitInView(const QRectF& rect, Qt::AspectRatioMode mode) = 0;
    virtual QPointF getVisibleSceneCenter() const = 0;
    virtual QSize size() const = 0;
    virtual QRect rect() const = 0;
    /// The view's viewport widget, owned by the view; nullptr when there is none.
    virtual QWidget* viewport() const = 0;
    /// The view's scene, not owned by the view or the interface.
    virtual QGraphicsScene* scene() const = 0;
    virtual QRect viewportRect() const = 0;
    virtual QRect viewportGeometry() const = 0;
    virtual void resize(int width, int height) = 0;
    virtual void resize(const QSize& size) = 0;
    virtual void centerOn(const QPointF& pos) = 0;
    virtual QPolygonF mapToScene(const QRect& rect) const = 0;
    virtual QPointF mapToScene(const QPoint& point) const = 0;
    virtual QPolygon mapFromScene(const QRectF& rect) const = 0;
    virtual QPoint mapFromScene(const QPointF& point) const = 0;
    virtual void setDragMode(QGraphicsView::DragMode mode) = 0;
    virtual bool isInteractive() const = 0;
    virtual void setInteractive(bool interactive) = 0;
    /// Paints the view into the painter, which stays the caller's.
    virtual void render(QPainter* painter) = 0;
    /// The items of the view's scene, owned by the scene.
    virtual QList<QGraphicsItem*> items() const = 0;
    /// The event handlers take borrowed events.
    virtual void mousePressEvent(QMouseEvent* event) = 0;
    virtual void mouseMoveEvent(QMouseEvent* event) = 0;
    virtual void mouseReleaseEvent(QMouseEvent* event) = 0;
    virtual void mouseDoubleClickEvent(QMouseEvent* event) = 0;
    virtual void keyPressEvent(QKeyEvent* event) = 0;
    virtual void keyReleaseEvent(QKeyEvent* event) = 0;
    virtual bool viewportEvent(QEvent* event) = 0;
    virtual void enterEvent(QEnterEvent* event) = 0;
    virtual void leaveEvent(QEvent* event) = 0;
    /// Whether the borrowed view is the one behind this interface.
    virtual bool hasView(const QGraphicsView* view) const = 0;
    virtual QTransform viewportTransform() const = 0;
    virtual void setTransform(const QTransform& matrix, bool combine) = 0;
    virtual void update() = 0;

Q_SIGNALS:
    GUICORE_GRAPHICS_VIEW_EXTRA_SIGNALS
    void resized(const QRectF& size);
};
